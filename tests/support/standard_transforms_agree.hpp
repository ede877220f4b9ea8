/// Whether the library and the second implementation say the same about a text: what is malformed, and what
/// the three transforms by the standard give.
#pragma once

#include <cstddef>
#include <memory>
#include <string_view>
#include <vector>

#include "orva/orva.hpp"
#include "tests/support/reference_well_formed.hpp"

namespace orva_test {

namespace strings = orva::strings;

/// A copy that ends where its memory does, so that AddressSanitizer finds a read after the text.
template <typename Unit>
class exact_copy {
 public:
  explicit exact_copy(std::basic_string_view<Unit> text)
      : units_(std::make_unique<Unit[]>(text.size())), size_(text.size()) {
    text.copy(units_.get(), size_);
  }
  std::basic_string_view<Unit> view() const { return {units_.get(), size_}; }

 private:
  std::unique_ptr<Unit[]> units_;
  std::size_t size_;
};

using parts = std::vector<reference::front_part>;

template <typename Unit>
bool agrees_on_malformed(std::basic_string_view<Unit> text, const parts& expected) {
  const auto malformed = reference::first_malformed(expected);
  return strings::first_malformed(text) == malformed && strings::is_well_formed(text) == !malformed;
}

template <typename Unit>
bool agrees_on_malformed(std::basic_string_view<Unit> text) {
  return agrees_on_malformed(text, reference::parts_of(text));
}

template <typename Unit>
bool same(const strings::transformed<Unit>& first, const strings::transformed<Unit>& second) {
  return first.text == second.text && first.replaced == second.replaced &&
         first.first_malformed == second.first_malformed;
}

template <typename Unit>
bool agrees_with_policy(std::basic_string_view<Unit> text, const parts& expected,
                        strings::on_malformed policy) {
  using strings::code_unit16;
  using strings::code_unit32;
  return same(strings::to_utf8(text, policy), reference::transform<char>(expected, policy)) &&
         same(strings::to_utf16(text, policy), reference::transform<code_unit16>(expected, policy)) &&
         same(strings::to_utf32(text, policy), reference::transform<code_unit32>(expected, policy));
}

/// Whether all that the library says about `text` is right.
template <typename Unit>
bool agrees(std::basic_string_view<Unit> text) {
  const exact_copy<Unit> copy(text);
  const parts expected = reference::parts_of(text);
  return agrees_on_malformed(copy.view(), expected) &&
         agrees_with_policy(copy.view(), expected, strings::on_malformed::replace) &&
         agrees_with_policy(copy.view(), expected, strings::on_malformed::stop);
}

}  // namespace orva_test
