// The bytes of each form, as they are in files. Every version of the library reads and writes these.
#include <gtest/gtest.h>

#include <cstdint>
#include <memory>
#include <sstream>
#include <string>
#include <vector>

#include "orva/memory/pointers/rc_pointer.hpp"
#include "orva/serialization/labeled_text_buffer.hpp"
#include "orva/serialization/serialize_binary_buf.hpp"
#include "orva/serialization/serialize_text_buf.hpp"
#include "tests/support/golden_lines.hpp"
#include "tests/support/hex.hpp"

namespace {

using namespace ORVA_NAMESPACE::serialization;
using ORVA_NAMESPACE::memory::pointers::rc_pointer;
using orva_test::from_hex;
using orva_test::golden_lines;
using orva_test::to_hex;

std::string golden_file(const std::string& name) { return ORVA_GOLDEN_FOLDER "/" + name + ".txt"; }

/// An item as a golden file writes it: "int16 4660", "double 2.5 3", "string 61 62".
struct golden_item {
  explicit golden_item(const std::string& text) {
    std::istringstream stream(text);
    stream >> type;
    std::getline(stream >> std::ws, value);
  }

  template <typename Number>
  Number number() const {
    std::istringstream stream(value);
    Number result{};
    stream >> result;
    return result;
  }

  std::uint32_t precision() const {
    std::istringstream stream(value);
    std::string skipped;
    std::uint32_t result = 0;
    stream >> skipped >> result;
    return result;
  }

  std::string type;
  std::string value;
};

void append(serialize_buffer& buffer, const golden_item& item) {
  if (item.type == "int8") return buffer.append_int8(static_cast<signed char>(item.number<int>()));
  if (item.type == "int16") return buffer.append_int16(item.number<short>());
  if (item.type == "int32") return buffer.append_int32(item.number<ORVA_NAMESPACE::types::int32>());
  if (item.type == "int64") return buffer.append_int64(item.number<long long>());
  if (item.type == "uint8") return buffer.append_uint8(static_cast<unsigned char>(item.number<int>()));
  if (item.type == "uint16") return buffer.append_uint16(item.number<unsigned short>());
  if (item.type == "uint32") return buffer.append_uint32(item.number<ORVA_NAMESPACE::types::uint32>());
  if (item.type == "uint64") return buffer.append_uint64(item.number<unsigned long long>());
  if (item.type == "float") return buffer.append_float(item.number<float>(), item.precision());
  if (item.type == "double") return buffer.append_double(item.number<double>(), item.precision());
  if (item.type == "string") return buffer.append_string(from_hex(item.value));
  if (item.type == "buffer") return buffer.append_buffer(serialize_binary_buf(from_hex(item.value)));
  FAIL() << "no such item: " << item.type;
}

std::string nested_bytes(const serialize_buffer& buffer) {
  const rc_pointer<serialize_buffer> nested(buffer.read_buffer());
  return nested ? to_hex(nested->as_str()) : "null";
}

template <typename Value>
std::string shown(const Value& value, std::streamsize precision = 6) {
  std::ostringstream stream;
  stream.precision(precision);
  stream << value;
  return stream.str();
}

/// Reads an item, and returns it as a golden file writes it.
std::string read(serialize_buffer& buffer, const std::string& type) {
  if (type == "int8") return shown(int{buffer.read_int8()});
  if (type == "int16") return shown(buffer.read_int16());
  if (type == "int32") return shown(buffer.read_int32());
  if (type == "int64") return shown(buffer.read_int64());
  if (type == "uint8") return shown(int{buffer.read_uint8()});
  if (type == "uint16") return shown(buffer.read_uint16());
  if (type == "uint32") return shown(buffer.read_uint32());
  if (type == "uint64") return shown(buffer.read_uint64());
  if (type == "float") return shown(buffer.read_float());
  if (type == "double") return shown(buffer.read_double(), 9);
  if (type == "string") return to_hex(buffer.read_string());
  return nested_bytes(buffer);
}

template <typename Buffer>
void expect_golden(const std::string& name) {
  const auto lines = golden_lines(golden_file(name));
  Buffer all;
  std::string bytes;
  for (const auto& line : lines) {
    ASSERT_EQ(line.size(), 3U) << line[0];
    const golden_item item(line[0]);
    Buffer written;
    append(written, item);
    EXPECT_EQ(to_hex(written.as_str()), line[1]) << line[0];
    Buffer received(from_hex(line[1]));
    EXPECT_EQ(read(received, item.type), line[2]) << line[0];
    EXPECT_TRUE(received.at_end()) << line[0];
    append(all, item);
    bytes += from_hex(line[1]);
  }
  EXPECT_EQ(all.as_str(), bytes) << "items follow each other";
  for (const auto& line : lines) EXPECT_EQ(read(all, golden_item(line[0]).type), line[2]) << line[0];
  EXPECT_TRUE(all.at_end());
}

TEST(serialization_golden, binary_items) { expect_golden<serialize_binary_buf>("binary"); }
TEST(serialization_golden, text_form_items) { expect_golden<serialize_text_buf>("text"); }

/// Stores "a=1 g { x=2 }".
void store(labeled_text_buffer& root, const std::string& content) {
  std::vector<labeled_serialize_buffer*> open{&root};
  std::istringstream stream(content);
  for (std::string word; stream >> word;) {
    const auto equal_sign = word.find('=');
    if (word == "{") continue;
    if (word == "}") {
      open.pop_back();
    } else if (equal_sign != std::string::npos) {
      open.back()->add_value(word.substr(0, equal_sign), word.substr(equal_sign + 1));
    } else {
      open.push_back(open.back()->create_group(word));
    }
  }
}

TEST(serialization_golden, labeled_content) {
  for (const auto& line : golden_lines(golden_file("labeled"))) {
    ASSERT_EQ(line.size(), 2U) << line[0];
    labeled_text_buffer written;
    store(written, line[0]);
    EXPECT_EQ(to_hex(written.as_str()), line[1]) << line[0];
    const labeled_text_buffer received(from_hex(line[1]));
    EXPECT_EQ(to_hex(received.as_str()), line[1]) << line[0];
  }
}

}  // namespace
