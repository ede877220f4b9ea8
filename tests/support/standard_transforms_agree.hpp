/// Whether the library and the second implementation say the same about a text: what is malformed, and what
/// the three transforms by the standard give.
#pragma once

#include <concepts>
#include <memory>
#include <string_view>

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

template <typename Unit>
bool agrees_on_malformed(std::basic_string_view<Unit> text) {
  const auto expected = reference::first_malformed(text);
  return strings::first_malformed(text) == expected && strings::is_well_formed(text) == !expected;
}

template <typename Unit>
bool same(const strings::transformed<Unit>& first, const strings::transformed<Unit>& second) {
  return first.text == second.text && first.replaced == second.replaced &&
         first.first_malformed == second.first_malformed;
}

template <typename Unit>
bool agrees_with_policy(std::basic_string_view<Unit> text, strings::on_malformed policy) {
  using strings::code_unit16;
  using strings::code_unit32;
  return same(strings::to_utf8(text, policy), reference::transform<char>(text, policy)) &&
         same(strings::to_utf16(text, policy), reference::transform<code_unit16>(text, policy)) &&
         same(strings::to_utf32(text, policy), reference::transform<code_unit32>(text, policy));
}

/// Whether all that the library says about `text` is right.
template <typename Unit>
bool agrees(std::basic_string_view<Unit> text) {
  const exact_copy<Unit> copy(text);
  return agrees_on_malformed(copy.view()) &&
         agrees_with_policy(copy.view(), strings::on_malformed::replace) &&
         agrees_with_policy(copy.view(), strings::on_malformed::stop);
}

}  // namespace orva_test
