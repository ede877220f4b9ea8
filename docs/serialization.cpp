#include <iomanip>
#include <iostream>

#include "orva/orva.hpp"

using namespace orva;
using memory::pointers::rc_pointer;
using serialization::checked_reader;
using serialization::labeled_text_buffer;
using serialization::serialize_binary_buf;
using serialization::serialize_buffer;
using serialization::serialize_text_buf;

/// Bytes as hex, text with a ~ for the byte 0x01.
void show(const char* what, const std::string& bytes, bool as_hex) {
  std::cout << what;
  for (const char byte : bytes) {
    const auto value = static_cast<unsigned char>(byte);
    if (as_hex) std::cout << ' ' << std::hex << std::setw(2) << std::setfill('0') << int{value} << std::dec;
    if (!as_hex) std::cout << (byte == '\x01' ? '~' : byte);
  }
  std::cout << '\n';
}

// Works with any form; the caller chooses it.
void write_disk(serialize_buffer& out) {
  out.append_string("/home");
  out.append_uint32(1500);
  out.append_double(0.25, 17);
}

void read_disk(serialize_buffer& in) {
  const std::string path = in.read_string();
  const auto size = in.read_uint32();
  std::cout << path << ' ' << size << ' ' << in.read_double() << ", at the end: " << in.at_end() << '\n';
}

int main() {
  // The same calls on both forms, and their bytes.
  serialize_binary_buf binary;
  write_disk(binary);
  show("binary:", binary.as_str(), true);
  read_disk(binary);

  serialize_text_buf text;
  write_disk(text);
  show("text: ", text.as_str(), false);
  read_disk(text);

  // Bytes that were received, with a buffer in them, which its reader owns.
  serialize_text_buf outer;
  outer.append_buffer(binary);
  serialize_text_buf received(outer.as_str());
  const rc_pointer<serialize_buffer> inner(received.read_buffer());
  serialize_binary_buf again(*inner);
  read_disk(again);

  // A length that is too large is cut at the end of the data.
  serialize_binary_buf cut(std::string("\x64\0\0\0abc", 7));
  std::cout << cut.read_string() << '\n';

  // Values under labels, and a group. The number becomes text, and converts back to a number.
  labeled_text_buffer settings;
  settings.add_value("theme", "dark");
  settings.create_group("window")->add_value("width", 800);
  show("labeled: ", settings.as_str(), false);

  labeled_text_buffer users;
  users.create_group("window")->add_value("height", 600);
  users.add_value("theme", "light");

  // The user's settings replace those of the program, which keeps the others.
  labeled_text_buffer both(settings.as_str());
  both.overlay(users);
  auto* window = both.retrieve_group("window");
  std::cout << both.retrieve_value("theme").as_string() << ' ' << window->retrieve_value("width").as_int32()
            << 'x' << window->retrieve_value("height").as_int32() << '\n';

  // Their entries in order. Text without loss: the shortest that reads back, in every locale.
  both.add_value("zoom", 4.0 / 3);
  for (const auto& [label, stored] : both.entries()) {
    std::cout << label << ": " << (stored.group.is_empty() ? stored.value.as_string() : "a group") << '\n';
  }
  show("exact: ", serialization::write_exact_flat_form(both), false);

  // A reader that says what is wrong, and where.
  const std::string half = binary.as_str().substr(0, 11);
  checked_reader checked(half, checked_reader::form::binary);
  const auto path = checked.read_string();
  const auto size = checked.read_uint32();
  if (!checked.finish()) std::cout << describe(checked.failure()) << '\n';
  std::cout << path.value_or("no path") << (size ? ", a size" : ", no size") << '\n';

  // A frame: its readers find each changed bit and each missing end.
  std::string frame = serialization::write_frame("example.disk", 1, binary.as_str());
  const auto whole = serialization::read_frame(frame);
  std::cout << whole.format_name << ' ' << whole.version
            << ", the same: " << (whole.content == binary.as_str()) << '\n';
  frame[90] ^= 4;
  std::cout << describe(serialization::read_frame(frame).failure) << '\n';

  // A number in a record of another program, with the most significant byte first.
  const std::string record("\x01\x02\x03\x04rest", 8);
  std::cout << generic::convert::big_endian::bin_str_to_uint32(record) << '\n';
}
