// Prints times in the zone of its environment, which a test sets:
//
//     print_times MILLISECONDS...    the local time of each moment since the epoch, on a line each
//     print_times                    UTC, local time and UTC by the clock, read in this order
#include <cstdio>
#include <cstdlib>

#include "orva/platform/posix/calendar.hpp"
#include "orva/system/date_time/date_time.hpp"

namespace {

namespace date_time = ORVA_NAMESPACE::system::date_time;
using date_time::date;
using date_time::date_time_t;

void print(const date_time_t& t) {
  std::printf("%04u-%02u-%02u %02d:%02d:%02d.%03d\n", t.year(), t.month(), t.day(), t.hour(), t.minute(),
              t.second(), t.millisecond());
}

void print_local(long long since_epoch) {
  const timespec moment = {static_cast<std::time_t>(since_epoch / 1000),
                           static_cast<long>(since_epoch % 1000) * 1'000'000 + 999'999};
  const auto t = ORVA_NAMESPACE::platform::posix::local_calendar(moment);
  print({date(t.day, t.month, t.year), date_time::time(t.hour, t.minute, t.second, t.millisecond)});
}

}  // namespace

int main(int count, char** arguments) {
  for (int i = 1; i < count; ++i) print_local(std::atoll(arguments[i]));
  if (count > 1) return 0;
  print(date_time_t::UTC_date_time());
  print(date_time_t::local_date_time());
  print(date_time_t::UTC_date_time());
}
