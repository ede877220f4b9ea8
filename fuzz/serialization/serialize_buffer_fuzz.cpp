/// Reads any bytes as the data of both forms by any operations, compared with the plain readers. Then appends
/// any values and reads them back. The first byte is the number of operations, which follow; the rest is
/// data.
#include <cstddef>
#include <cstdint>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>

#include "fuzz/require.hpp"
#include "orva/generic/convert/str_to_x.hpp"
#include "orva/memory/pointers/rc_pointer.hpp"
#include "orva/serialization/serialize_binary_buf.hpp"
#include "orva/serialization/serialize_text_buf.hpp"
#include "tests/support/reference_serialization.hpp"
#include "tests/support/returned_bits.hpp"

namespace {

using namespace ORVA_NAMESPACE;
using namespace ORVA_NAMESPACE::serialization;
using memory::pointers::rc_pointer;
using orva_fuzz::require;

std::optional<std::string> nested(const serialize_buffer& buffer) {
  const rc_pointer<serialize_buffer> inner(buffer.read_buffer());
  if (!inner) return std::nullopt;
  // Reads in the nested buffer, whatever it contains.
  inner->read_string();
  inner->read_double();
  const rc_pointer<serialize_buffer> innermost(inner->read_buffer());
  return inner->as_str();
}

void read_binary(const std::string& operations, const std::string& data) {
  serialize_binary_buf buffer(data);
  orva_test::reference_binary_reader reference(data);
  for (const char operation : operations) {
    switch (static_cast<unsigned char>(operation) % 11) {
      case 0:
        require(buffer.read_int8() == static_cast<signed char>(reference.read_bits(1)));
        break;
      case 1:
        require(buffer.read_uint8() == reference.read_bits(1));
        break;
      case 2:
        require(buffer.read_int16() == static_cast<short>(reference.read_bits(2)));
        break;
      case 3:
        require(buffer.read_int32() == static_cast<types::int32>(reference.read_bits(4)));
        break;
      case 4:
        require(buffer.read_int64() == static_cast<long long>(reference.read_bits(8)));
        break;
      case 5:
        require(orva_test::has_bits(buffer.read_float(), static_cast<std::uint32_t>(reference.read_bits(4))));
        break;
      case 6:
        require(orva_test::has_bits(buffer.read_double(), reference.read_bits(8)));
        break;
      case 7:
        require(buffer.read_string() == reference.read_bytes().value_or(""));
        break;
      case 8:
        require(nested(buffer) == reference.read_bytes());
        break;
      case 9:
        buffer.append_int8(operation);
        buffer = serialize_binary_buf(data);
        reference = orva_test::reference_binary_reader(data);
        break;
      default:
        buffer.reset_read();
        reference.reset();
    }
    require(buffer.at_end() == reference.at_end());
  }
}

/// The result of a read, or the message of its exception.
template <typename Read>
std::string outcome(Read read) {
  try {
    return read();
  } catch (const std::out_of_range& failure) {
    return failure.what();
  }
}

void read_text(const std::string& operations, const std::string& data) {
  using generic::convert::str_to_double;
  using generic::convert::str_to_uint64;
  serialize_text_buf buffer(data);
  orva_test::reference_text_reader reference(data);
  for (const char operation : operations) {
    switch (static_cast<unsigned char>(operation) % 6) {
      case 0:
        require(outcome([&] { return std::to_string(buffer.read_int32()); }) ==
                outcome([&] { return std::to_string(reference.read_int32()); }));
        break;
      case 1:
        require(outcome([&] { return std::to_string(buffer.read_uint64()); }) == outcome([&] {
                  const std::string text = reference.read_number_text();
                  return std::to_string(
                      str_to_uint64(text.c_str(), text.size(), types::radix_t::prefix, false));
                }));
        break;
      case 2:
        require(outcome([&] { return std::to_string(buffer.read_double()); }) ==
                outcome([&] { return std::to_string(str_to_double(reference.read_number_text())); }));
        break;
      case 3:
        require(outcome([&] { return buffer.read_string(); }) ==
                outcome([&] { return reference.read_string(); }));
        break;
      case 4:
        require(outcome([&] { return rc_pointer<serialize_buffer>(buffer.read_buffer())->as_str(); }) ==
                outcome([&] { return reference.read_string(); }));
        break;
      default:
        buffer.reset_read();
        reference.reset();
    }
    require(buffer.at_end() == reference.at_end());
  }
}

/// Appends pieces of the data by the operations, and reads them back in the same order.
template <typename Buffer>
void write_and_read(const std::string& operations, const std::string& data) {
  Buffer buffer;
  const auto piece = [&](std::size_t i) { return data.substr(data.size() * i / operations.size(), i % 7); };
  const auto number = [&](std::size_t i) {
    std::uint64_t bits = 0;
    for (const char byte : piece(i)) bits = bits << 8 | static_cast<unsigned char>(byte);
    return bits;
  };
  for (std::size_t i = 0; i < operations.size(); ++i) {
    if (operations[i] % 3 == 0) buffer.append_string(piece(i));
    if (operations[i] % 3 == 1) buffer.append_uint64(number(i));
    if (operations[i] % 3 == 2) buffer.append_int16(static_cast<short>(number(i)));
  }
  for (std::size_t i = 0; i < operations.size(); ++i) {
    if (operations[i] % 3 == 0) require(buffer.read_string() == piece(i));
    if (operations[i] % 3 == 1) require(buffer.read_uint64() == number(i));
    if (operations[i] % 3 == 2) require(buffer.read_int16() == static_cast<short>(number(i)));
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* bytes, std::size_t size) {
  if (size == 0) return 0;
  const std::string input(bytes + 1, bytes + size);
  const std::string operations = input.substr(0, bytes[0]);
  const std::string data = input.substr(operations.size());
  read_binary(operations, data);
  read_text(operations, data);
  if (operations.empty()) return 0;
  write_and_read<serialize_binary_buf>(operations, data);
  write_and_read<serialize_text_buf>(operations, data);
  return 0;
}
