/// Splitting and replacing on any bytes, compared with the slow second implementation. The first three bytes
/// are the sizes of delimiter and replacement and the limit; delimiter, replacement and text follow.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

#include "fuzz/require.hpp"
#include "orva/strings/case_mapping.hpp"
#include "orva/strings/gh2.hpp"
#include "orva/strings/replace.hpp"
#include "orva/strings/split.hpp"
#include "tests/support/reference_string_tools.hpp"

namespace {

namespace strings = ORVA_NAMESPACE::strings;
using orva_fuzz::require;

template <typename Unit>
void check(std::string_view bytes, std::size_t from_size, std::size_t to_size, int max) {
  const std::basic_string<Unit> units(bytes.begin(), bytes.end());
  from_size = std::min(from_size, units.size());
  to_size = std::min(to_size, units.size() - from_size);
  const auto from = units.substr(0, from_size);
  const auto to = units.substr(from_size, to_size);
  const auto text = units.substr(from_size + to_size);

  require(strings::split_string(text, from, max) == orva_test::reference_split<Unit>(text, from, max));

  auto replaced = text;
  auto expected = text;
  require(strings::replace_all(replaced, from, to) == orva_test::reference_replace<Unit>(expected, from, to));
  require(replaced == expected);

  require(strings::lower_case(text, from_size, to_size).size() == text.size());
  require(strings::to_upper(strings::to_lower(text)) == strings::to_upper(text));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 3 || size > 4096) return 0;
  const std::string_view bytes(reinterpret_cast<const char*>(data + 3), size - 3);
  const int max = static_cast<int>(data[2] % 8) - 1;
  check<char>(bytes, data[0] % 32, data[1] % 32, max);
  check<strings::code_unit16>(bytes, data[0] % 32, data[1] % 32, max);
  check<strings::code_unit32>(bytes, data[0] % 32, data[1] % 32, max);
  strings::gh2::validate_utf8(bytes.data(), static_cast<unsigned int>(bytes.size()));
  return 0;
}
