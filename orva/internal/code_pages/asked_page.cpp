#include "orva/internal/code_pages/asked_page.hpp"

#include <cstddef>

namespace ORVA_NAMESPACE::internal::code_pages {

namespace {

using strings::code_unit16;
using wide_string = std::basic_string<code_unit16>;

constexpr unsigned unit_count = 0x10000;
constexpr unsigned char default_byte = '?';

/// What the system reads in bytes; nothing where it refuses them.
wide_string decoded(int number, std::string_view bytes, asked_page::decode_call decode) {
  wide_string text;
  if (!decode(number, bytes, text)) text.clear();
  return text;
}

}  // namespace

asked_page::asked_page(int number, encode_call encode, decode_call decode) : number_(number) {
  ask_bytes(decode);
  ask_units(encode);
}

void asked_page::ask_bytes(decode_call decode) {
  for (unsigned value = 1; value < 0x100; ++value) {
    const auto byte = static_cast<unsigned char>(value);
    const char bytes[] = {static_cast<char>(byte)};
    const wide_string alone = decoded(number_, {bytes, 1}, decode);
    const bool is_missing = alone.empty() || text::is_surrogate(text::value_of(alone.front()));
    const auto unit = is_missing ? code_unit16{default_byte} : alone.front();
    single_byte_.units[byte] = double_byte_.single[byte] = unit;
    if (byte >= 0x80 && is_lead(byte, decode)) add_row(byte, decode);
  }
  single_byte_.utf8 = utf8_of_bytes(single_byte_.units);
  double_byte_.rows = rows_.data();
}

/// A lead byte makes one unit of itself and the next byte, at least where their pair is defined.
bool asked_page::is_lead(unsigned char byte, decode_call decode) const {
  for (unsigned second = double_byte_page::first_second_byte; second < 0x100; ++second) {
    const char pair[] = {static_cast<char>(byte), static_cast<char>(second)};
    if (decoded(number_, {pair, 2}, decode).size() == 1) return true;
  }
  return false;
}

void asked_page::add_row(unsigned char lead, decode_call decode) {
  for (unsigned second = double_byte_page::first_second_byte; second < 0x100; ++second) {
    const char pair[] = {static_cast<char>(lead), static_cast<char>(second)};
    const wide_string text = decoded(number_, {pair, 2}, decode);
    rows_.push_back(text.size() == 1 ? text.front() : double_byte_.single[lead]);
  }
  double_byte_.row_of[lead] = static_cast<unsigned char>(rows_.size() / double_byte_page::row_size);
}

void asked_page::ask_units(encode_call encode) {
  single_byte_blocks_.resize(unit_count);
  double_byte_blocks_.resize(unit_count);
  for (unsigned value = 1; value < unit_count; ++value) {
    const std::uint16_t bytes = bytes_of(static_cast<code_unit16>(value), encode);
    double_byte_blocks_[value] = bytes;
    single_byte_blocks_[value] = bytes < 0x100 ? static_cast<unsigned char>(bytes) : default_byte;
  }
  single_byte_.number = double_byte_.number = number_;
  single_byte_.blocks = single_byte_blocks_.data();
  double_byte_.blocks = double_byte_blocks_.data();
  for (std::size_t i = 0; i < 256; ++i) single_byte_.block_of[i] = static_cast<std::uint16_t>(i * 256);
  for (std::size_t i = 0; i < 1024; ++i) double_byte_.block_of[i] = static_cast<std::uint16_t>(i * 64);
}

/// As a number, the first one low. Pairs without a row are left out, since nothing could read them.
std::uint16_t asked_page::bytes_of(code_unit16 unit, encode_call encode) const {
  std::string bytes;
  if (!encode(number_, {&unit, 1}, bytes)) return default_byte;
  if (bytes.size() == 1) return static_cast<unsigned char>(bytes[0]);
  if (bytes.size() != 2) return default_byte;
  const auto lead = static_cast<unsigned char>(bytes[0]);
  const auto second = static_cast<unsigned char>(bytes[1]);
  if (double_byte_.row_of[lead] == 0 || second < double_byte_page::first_second_byte) return default_byte;
  return static_cast<std::uint16_t>(lead | second << 8);
}

}  // namespace ORVA_NAMESPACE::internal::code_pages
