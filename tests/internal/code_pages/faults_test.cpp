#include "orva/internal/code_pages/faults.hpp"

#include <gtest/gtest.h>

#include <cstddef>
#include <vector>

namespace {

using namespace ORVA_NAMESPACE::internal;
using ORVA_NAMESPACE::strings::code_unit16;

/// Whether a block of `filler` is found to have a placeholder when `unit` is in it.
bool is_found(code_unit16 unit, std::size_t place, unsigned filler, bool with_upper_controls) {
  std::vector<code_unit16> units(text::block, static_cast<code_unit16>(filler));
  units[place] = unit;
  return code_pages::any_placeholder<text::block>(units.data(), with_upper_controls);
}

TEST(any_placeholder, finds_the_units_that_are_placeholders) {
  for (const bool with_upper_controls : {false, true}) {
    for (unsigned value = 0; value < 0x10000; ++value) {
      const auto unit = static_cast<code_unit16>(value);
      const bool expected = code_pages::is_placeholder(unit, with_upper_controls);
      for (const unsigned filler : {0x61u, 0xFFFFu}) {
        ASSERT_EQ(is_found(unit, value % text::block, filler, with_upper_controls), expected)
            << std::hex << value;
      }
    }
  }
}

TEST(any_placeholder, finds_one_at_every_place) {
  for (std::size_t place = 0; place < text::block; ++place) {
    for (const unsigned value : {0x80u, 0x9Fu, 0xE000u, 0xF8FFu}) {
      EXPECT_TRUE(is_found(static_cast<code_unit16>(value), place, 0x61, false)) << std::hex << value;
    }
  }
}

}  // namespace
