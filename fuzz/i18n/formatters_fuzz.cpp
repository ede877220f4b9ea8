/// Formats any value with any attribute string. The first eight bytes are the value, as an integer, as a
/// floating value and as text; the rest is the attribute string.
#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "fuzz/require.hpp"
#include "orva/i18n/formatters.hpp"

namespace {

using namespace ORVA_NAMESPACE;
using namespace ORVA_NAMESPACE::i18n::_private;
using orva_fuzz::require;
using strings::ustring8;

using scaling_formatter = decltype(&format_memory);

void check_scaled(scaling_formatter format, const types::variant& value, std::string_view attrs) {
  ustring8 unit = "before";
  const ustring8 number = format(value, attrs, unit);
  require(number.size() <= max_double_length);
  require(number == refused_value ? unit.empty() : unit.size() <= 5);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  std::uint64_t bits = 0;
  if (size < sizeof bits) return 0;
  std::memcpy(&bits, data, sizeof bits);
  const std::string text(reinterpret_cast<const char*>(data), sizeof bits);
  const std::string_view attrs(reinterpret_cast<const char*>(data) + sizeof bits, size - sizeof bits);
  const auto integer = static_cast<std::int64_t>(bits);
  const auto floating = std::bit_cast<double>(bits);

  require(format_int(integer, attrs).size() <= max_padding + 66);
  for (const double value : {floating, static_cast<double>(integer)}) {
    require(format_double(value, attrs).size() <= max_double_length);
    require(format_duration(value, attrs).size() <= 2 * max_double_length);
  }
  for (const types::variant& value :
       {types::variant(integer), types::variant(floating), types::variant(text)}) {
    check_scaled(format_memory, value, attrs);
    check_scaled(format_metric, value, attrs);
  }
  return 0;
}
