/// Case mapping and folding of any bytes, as text of each width: folding twice changes nothing more,
/// malformed parts stay, a comparison agrees with the folded texts, and the widths agree on the characters.
#include <cstddef>
#include <cstdint>

#include "fuzz/require.hpp"
#include "fuzz/strings/fuzzed_text.hpp"
#include "orva/strings/standard_transforms.hpp"
#include "orva/strings/unicode_case.hpp"
#include "orva/strings/well_formed.hpp"

namespace {

using namespace ORVA_NAMESPACE::strings;
using orva_fuzz::require;
using orva_fuzz::text_of;

template <typename Unit>
void check(const basic_ustring<Unit>& text, case_rules rules) {
  const auto folded = unicode_fold(text, rules);
  require(unicode_fold(folded, rules) == folded);
  require(equal_caseless(text, folded, rules));
  require(is_well_formed(text) == is_well_formed(folded));
  const auto lower = unicode_lower(text, rules);
  const auto upper = unicode_upper(text, rules);
  require(upper.size() <= 3 * text.size() && lower.size() <= 3 * text.size());
  require(equal_caseless(text, upper, rules) == (unicode_fold(upper, rules) == folded));
  if (!is_well_formed(text)) return;
  require(to_utf32(lower).text == unicode_lower(to_utf32(text).text, rules));
  require(to_utf32(upper).text == unicode_upper(to_utf32(text).text, rules));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size == 0) return 0;
  const auto rules = static_cast<case_rules>(data[0] % 3);
  check(text_of<char>(data + 1, size - 1), rules);
  check(text_of<code_unit16>(data + 1, size - 1), rules);
  check(text_of<code_unit32>(data + 1, size - 1), rules);
  return 0;
}
