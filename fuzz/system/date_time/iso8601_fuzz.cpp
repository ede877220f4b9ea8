/// Reads the input in the four forms of RFC 3339, compared with the plain reader; what is read is written and
/// read again.
#include "orva/system/date_time/iso8601.hpp"

#include <cstddef>
#include <cstdint>
#include <string_view>

#include "fuzz/require.hpp"
#include "orva/system/date_time/calendar.hpp"
#include "tests/support/reference_iso8601.hpp"

namespace {

using namespace ORVA_NAMESPACE::system::date_time;
using orva_fuzz::require;
using ORVA_NAMESPACE::system::date_time::time;  // not the function of the C library
using orva_test::reference_iso8601_reader;
using orva_test::reference_reading;

template <typename Value>
void require_same(const iso8601_result<Value>& result, const reference_reading& expected,
                  const date_time_t& moment) {
  require(result.error == expected.error && result.count == expected.count);
  require(result.is_rounded == expected.is_rounded && result.is_leap_second == expected.is_leap_second);
  if (result.error == iso8601_error::none) require(to_sys_time(moment) == expected.utc);
}

template <typename Value>
bool is_read(const iso8601_result<Value>& result, std::string_view text) {
  const bool is_whole = result.error == iso8601_error::none && result.count == text.size();
  const bool is_exact = is_whole && !result.is_rounded && !result.is_leap_second;
  require(describe(result, text).code.empty() == is_exact);
  return result.error == iso8601_error::none;
}

void read_as_date(std::string_view text) {
  const auto result = read_date(text);
  require_same(result, reference_iso8601_reader(text).read(true, false, false), {result.value, time()});
  if (!is_read(result, text)) return;
  const auto written = write_date(result.value);
  require(written->view() == text.substr(0, result.count));
}

void read_as_time(std::string_view text) {
  const auto result = read_time(text);
  require_same(result, reference_iso8601_reader(text).read(false, true, false),
               {date(1, 1, 1970), result.value});
  if (!is_read(result, text)) return;
  const auto back = parse_time(write_time(result.value).view());
  require(back && compare(*back, result.value) == 0);
}

void read_as_date_time(std::string_view text) {
  const auto result = read_date_time(text);
  require_same(result, reference_iso8601_reader(text).read(true, true, false), result.value);
  if (!is_read(result, text)) return;
  const auto back = parse_date_time(write_date_time(result.value)->view());
  require(back && compare(*back, result.value) == 0);
}

void read_as_timestamp(std::string_view text) {
  const auto result = read_timestamp(text);
  const reference_reading expected = reference_iso8601_reader(text).read(true, true, true);
  require_same(result, expected, result.value.utc);
  require(result.value.offset == expected.offset.count());
  if (!is_read(result, text)) return;
  const auto back = parse_timestamp(write_timestamp(result.value)->view());
  require(back && compare(back->utc, result.value.utc) == 0 && back->offset == result.value.offset);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view text(reinterpret_cast<const char*>(data), size);
  read_as_date(text);
  read_as_time(text);
  read_as_date_time(text);
  read_as_timestamp(text);
  return 0;
}
