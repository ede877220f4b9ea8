/// Sets and moves a date and a time by the input, compared with the slow reference.
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "fuzz/require.hpp"
#include "orva/exceptions/exception.hpp"
#include "orva/system/date_time/date_time.hpp"
#include "tests/support/reference_date_time.hpp"

namespace {

using namespace ORVA_NAMESPACE;
using orva_fuzz::require;
using orva_test::reference_date_time;
using system::date_time::date_duration;
using system::date_time::date_time_t;
using system::date_time::milliseconds;

/// Takes values from the input, and 0 after its end.
class source {
 public:
  source(const std::uint8_t* data, std::size_t size) : data_(data), size_(size) {}

  bool is_empty() const { return size_ == 0; }

  template <typename Value>
  Value take() {
    Value value = 0;
    const std::size_t count = size_ < sizeof(Value) ? size_ : sizeof(Value);
    if (count != 0) std::memcpy(&value, data_, count);
    data_ += count;
    size_ -= count;
    return value;
  }

 private:
  const std::uint8_t* data_;
  std::size_t size_;
};

void require_same(const date_time_t& value, const reference_date_time& expected) {
  require(value.year() == expected.date.year && value.month() == expected.date.month);
  // The constrained day, which is the stored one after a move.
  require(value.day() <= expected.date.day &&
          (value.is_day_constrained() || value.day() == expected.date.day));
  require(value.hour() == expected.parts[0] && value.minute() == expected.parts[1]);
  require(value.second() == expected.parts[2] && value.millisecond() == expected.parts[3]);
}

/// Makes a move, which must fail if the reference fails, with the same message.
template <typename Operation>
void require_failure(std::string_view expected, Operation operation) {
  try {
    operation();
    require(expected.empty());
  } catch (const exceptions::out_of_range& failure) {
    require(failure.message() == expected);
  }
}

void set_day(date_time_t& value, reference_date_time& expected, unsigned int day) {
  const bool is_valid = day >= 1 && day <= 31;
  require_failure(is_valid ? "" : "day value out of valid range", [&] { value.day(day); });
  if (is_valid) expected.date.day = day;
}

void set_month(date_time_t& value, reference_date_time& expected, unsigned int month) {
  const bool is_valid = month >= 1 && month <= 12;
  require_failure(is_valid ? "" : "month value out of valid range", [&] { value.month(month); });
  if (is_valid) expected.date.month = month;
}

void step(source& input, date_time_t& value, reference_date_time& expected) {
  switch (input.take<std::uint8_t>() % 8) {
    case 0:
      return set_day(value, expected, input.take<std::uint8_t>());
    case 1:
      return set_month(value, expected, input.take<std::uint8_t>());
    case 2:
      expected.date.year = value.year(input.take<unsigned int>());
      return;
    case 3: {
      const int days = input.take<int>();
      return require_failure(expected.plus_days(days), [&] { value += date_duration(days); });
    }
    case 4: {
      const int days = input.take<int>();
      return require_failure(expected.minus_days(days), [&] { value -= date_duration(days); });
    }
    case 5: {
      const auto count = input.take<std::int64_t>();
      return require_failure(expected.move(count, 1), [&] { value += milliseconds(count); });
    }
    case 6: {
      const auto count = input.take<std::int64_t>();
      return require_failure(expected.move(count, -1), [&] { value -= milliseconds(count); });
    }
    default: {
      // Within two days in either direction, where most of the rules apply.
      const std::int64_t count = input.take<int>() % 200'000'000;
      return require_failure(expected.move(count, 1), [&] { value += milliseconds(count); });
    }
  }
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  source input(data, size);
  date_time_t value;
  reference_date_time expected = {};
  while (!input.is_empty()) {
    step(input, value, expected);
    require_same(value, expected);
  }
  return 0;
}
