// The class over a platform whose conversion fails, which the real one does only for texts of two thousand
// million units.
#include <gtest/gtest.h>

#include <stdexcept>
#include <string>

#include "orva/exceptions/exception.hpp"
#include "orva/platform/code_page_conversion.hpp"
#include "orva/strings/code_page.hpp"

namespace ORVA_NAMESPACE::platform {

// A failing conversion may leave anything in its result.

bool to_code_page(int, std::basic_string_view<strings::code_unit16>, std::string& bytes) {
  bytes = "partly";
  return false;
}

bool from_code_page(int, std::string_view, std::basic_string<strings::code_unit16>& text) {
  text.assign(3, strings::code_unit16{'x'});
  return false;
}

}  // namespace ORVA_NAMESPACE::platform

namespace {

using namespace ORVA_NAMESPACE;
using strings::code_page;

template <typename Convert>
void expect_too_long(Convert convert) {
  try {
    convert();
    ADD_FAILURE() << "nothing was thrown";
  } catch (const std::length_error& thrown) {
    EXPECT_STREQ(thrown.what(), "string too long");
  }
}

TEST(failing_conversion, is_a_length_failure_and_no_empty_result) {
  const code_page page(code_page::cp_1252);
  expect_too_long([&] { page.encode(strings::ustring8("text")); });
  expect_too_long([&] { page.encode(strings::ustring16()); });
  expect_too_long([&] { page.encode(strings::ustring32()); });
  expect_too_long([&] { page.as_utf8("text"); });
  expect_too_long([&] { page.as_utf16("text"); });
  expect_too_long([&] { page.as_utf32("text"); });
  expect_too_long([&] { page.as_ustring("text"); });
}

TEST(failing_conversion, comes_after_that_of_an_invalid_type) {
  EXPECT_THROW(code_page().as_utf16("text"), exceptions::invalid_argument_value);
}

}  // namespace
