/// Numbers are read and written without allocations.
#include <gtest/gtest.h>

#include <limits>
#include <string>

#include "orva/generic/convert/read_number.hpp"
#include "orva/generic/convert/write_number.hpp"
#include "orva/types/variant.hpp"
#include "tests/support/counted_allocations.hpp"

namespace {

namespace convert = ORVA_NAMESPACE::generic::convert;
namespace types = ORVA_NAMESPACE::types;
using orva_test::allocations_of;

template <typename Number>
int allocations_of_reading(const std::string& text, unsigned int radix = 10) {
  return allocations_of([&] { (void)convert::read_number<Number>(text, radix); });
}

template <typename Number>
int allocations_of_writing(Number value, unsigned int radix = 10) {
  char text[convert::number_buffer_size];
  return allocations_of([&] { (void)convert::write_number(text, text + sizeof text, value, radix); });
}

class number_allocation : public testing::Test {
 protected:
  void SetUp() override {
    // A replaced operator does not reach into the library on every platform.
    if (allocations_of([] { types::variant(1); }) == 0) GTEST_SKIP() << "the library allocates for itself";
  }
};

TEST_F(number_allocation, reading_takes_none) {
  const std::string digits(20'000, '7');
  for (const std::string& text :
       {std::string("12"), std::string("-1.5e-300"), "0." + digits, digits, "1e" + digits}) {
    EXPECT_EQ(allocations_of_reading<int>(text), 0);
    EXPECT_EQ(allocations_of_reading<float>(text), 0);
    EXPECT_EQ(allocations_of_reading<double>(text), 0);
    EXPECT_EQ(allocations_of_reading<long double>(text), 0);
    EXPECT_EQ(allocations_of_reading<long double>(text, 16), 0);
  }
}

TEST_F(number_allocation, writing_takes_none) {
  EXPECT_EQ(allocations_of_writing(-1234567890123, 7), 0);
  for (const long double value : {0.1L, 1e300L, 100.0L, 1234567890123456789000.0L}) {
    EXPECT_EQ(allocations_of_writing(static_cast<float>(value)), 0);
    EXPECT_EQ(allocations_of_writing(static_cast<double>(value)), 0);
    EXPECT_EQ(allocations_of_writing(value), 0);
    EXPECT_EQ(allocations_of_writing(value, 16), 0);
  }
}

}  // namespace
