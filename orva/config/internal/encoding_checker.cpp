#include "orva/config/internal/encoding_checker.hpp"

#include "orva/config/internal/checked_text.hpp"
#include "orva/strings/byte_order_mark.hpp"
#include "orva/strings/well_formed.hpp"

namespace ORVA_NAMESPACE::config::_private {

using diagnostics::severity;

namespace {

using strings::unicode_encoding;

std::string_view name_of(unicode_encoding encoding) {
  const bool has_units_of_16_bits =
      encoding == unicode_encoding::utf16_little_endian || encoding == unicode_encoding::utf16_big_endian;
  return has_units_of_16_bits ? "UTF-16" : "UTF-32";
}

repeated_finding zero_bytes(std::string_view text) {
  repeated_finding zeros;
  for (std::size_t at = text.find('\0'); at != text.npos; at = text.find('\0', at + 1)) zeros.add(at);
  return zeros;
}

repeated_finding lone_carriage_returns(std::string_view text) {
  repeated_finding lone;
  for (std::size_t at = text.find('\r'); at != text.npos; at = text.find('\r', at + 1)) {
    if (!text.substr(at + 1).starts_with('\n')) lone.add(at);
  }
  return lone;
}

repeated_finding malformed_parts(std::string_view text) {
  repeated_finding parts;
  std::size_t begin = 0;
  while (const auto bad = strings::first_malformed(text.substr(begin))) {
    parts.add(begin + bad->offset);
    begin += bad->offset + bad->length;
  }
  return parts;
}

}  // namespace

std::optional<std::size_t> check_encoding(std::string_view text, finding_list& found) {
  const auto mark = strings::byte_order_mark_of(text);
  if (mark && mark->encoding != unicode_encoding::utf8) {
    found.add(severity::error, "config.other_encoding", 0,
              generic::argument("encoding", strings::ustring8(name_of(mark->encoding))));
    return std::nullopt;
  }
  zero_bytes(text).write(found, severity::warning, "config.zero_byte");
  lone_carriage_returns(text).write(found, severity::error, "config.lone_carriage_return");
  malformed_parts(text).write(found, severity::warning, "config.malformed_utf8");
  if (!mark) return 0;
  found.add(severity::error, "config.byte_order_mark", 0);
  return mark->size;
}

}  // namespace ORVA_NAMESPACE::config::_private
