// The stopwatch with counters that a test sets.
#include "orva/system/date_time/timer.hpp"

#include <gtest/gtest.h>

#include <limits>

#include "tests/system/date_time/fake_clock.hpp"

namespace {

using namespace ORVA_NAMESPACE::system::date_time;
using orva_test::clock;

constexpr std::uint64_t ticks_of_a_microsecond = 10;

/// The overhead at the start of the program.
unsigned long long overhead_from_load() {
  static const auto found = timer::overhead_microseconds();
  return found;
}

struct fresh_clock : testing::Test {
  fresh_clock() {
    overhead_from_load();
    clock = {};
    clock.ticks = 123'456'789;
    clock.milliseconds = 5'000'000;
    timer::overhead_microseconds(0);
  }
};

using timer_test = fresh_clock;
using overhead_test = fresh_clock;

void pass_microseconds(std::uint64_t count) { clock.ticks += count * ticks_of_a_microsecond; }

struct open_timer : timer {
  using timer::current_time;
  using timer::timer;
  using timer::windows_timer_frequency;
};

/// An interval between start and stop.
void measure(timer& t, std::uint64_t microseconds) {
  t.start();
  pass_microseconds(microseconds);
  t.stop();
}

TEST_F(timer_test, documentation_example) {
  timer t;
  measure(t, 30);
  EXPECT_EQ(t.elapsed_time(), 30u);
  measure(t, 12);
  EXPECT_EQ(t.elapsed_time(), 42u);
  t.restart();
  pass_microseconds(7);
  EXPECT_EQ(t.elapsed_time(), 7u);
  EXPECT_TRUE(t.is_timer_running());
}

TEST_F(timer_test, new_one_is_stopped_at_0_and_counts_microseconds) {
  const timer t;
  EXPECT_FALSE(t.is_timer_running());
  EXPECT_EQ(t.elapsed_time(), 0u);
  EXPECT_EQ(t.resolution(), resolution_microseconds);
  EXPECT_EQ(timer(resolution_seconds).resolution(), resolution_seconds);
}

TEST_F(timer_test, stop_without_start_changes_nothing) {
  timer t;
  t.stop();
  EXPECT_FALSE(t.is_timer_running());
  EXPECT_EQ(t.elapsed_time(), 0u);
  measure(t, 5);
  pass_microseconds(100);
  t.stop();
  EXPECT_FALSE(t.is_timer_running());
  EXPECT_EQ(t.elapsed_time(), 5u);
}

TEST_F(timer_test, reset_stops_and_clears) {
  timer t;
  measure(t, 5);
  t.reset();
  EXPECT_EQ(t.elapsed_time(), 0u);
  t.start();
  pass_microseconds(5);
  t.reset();
  EXPECT_FALSE(t.is_timer_running());
  EXPECT_EQ(t.elapsed_time(), 0u);
}

TEST_F(timer_test, start_of_a_running_one_loses_the_interval_and_keeps_the_sum) {
  timer t;
  measure(t, 5);
  t.start();
  pass_microseconds(100);
  t.start();
  pass_microseconds(7);
  t.stop();
  EXPECT_EQ(t.elapsed_time(), 12u);
}

TEST_F(timer_test, restart_forgets_the_sum) {
  timer t;
  measure(t, 5);
  t.restart();
  EXPECT_TRUE(t.is_timer_running());
  pass_microseconds(7);
  t.stop();
  EXPECT_EQ(t.elapsed_time(), 7u);
}

TEST_F(timer_test, running_one_returns_the_sum_and_the_time_since_start) {
  timer t;
  measure(t, 5);
  t.start();
  pass_microseconds(7);
  EXPECT_EQ(t.elapsed_time(), 12u);
  pass_microseconds(1);
  EXPECT_EQ(t.elapsed_time(), 13u);
  EXPECT_TRUE(t.is_timer_running());
}

TEST_F(timer_test, fractions_of_a_microsecond_add_up) {
  timer t;
  for (int i = 0; i < 4; ++i) {
    t.start();
    clock.ticks += 4;  // 0.4 microseconds
    t.stop();
  }
  EXPECT_EQ(t.elapsed_time(), 1u);
}

TEST_F(timer_test, overhead_is_left_out_once_an_interval_when_stopped) {
  timer::overhead_microseconds(2);
  timer t;
  measure(t, 10);
  measure(t, 10);
  EXPECT_EQ(t.elapsed_time(), 16u);
}

TEST_F(timer_test, overhead_is_left_out_once_from_the_whole_when_running) {
  timer t;
  measure(t, 10);
  measure(t, 10);
  timer::overhead_microseconds(2);
  t.start();
  pass_microseconds(10);
  EXPECT_EQ(t.elapsed_time(), 28u);
}

TEST_F(timer_test, interval_no_longer_than_the_overhead_is_0) {
  timer::overhead_microseconds(10);
  timer t;
  measure(t, 9);
  EXPECT_EQ(t.elapsed_time(), 0u);
  measure(t, 10);
  EXPECT_EQ(t.elapsed_time(), 0u);
  measure(t, 11);
  EXPECT_EQ(t.elapsed_time(), 1u);
  t.restart();
  pass_microseconds(9);
  EXPECT_EQ(t.elapsed_time(), 0u);
  pass_microseconds(2);
  EXPECT_EQ(t.elapsed_time(), 1u);
}

TEST_F(timer_test, milliseconds_and_seconds_know_no_overhead) {
  timer::overhead_microseconds(1000);
  for (const auto resolution : {resolution_milliseconds, resolution_seconds}) {
    timer t(resolution);
    t.start();
    clock.milliseconds += 7000;
    const auto expected = resolution == resolution_seconds ? 7u : 7000u;
    EXPECT_EQ(t.elapsed_time(), expected);
    t.stop();
    EXPECT_EQ(t.elapsed_time(), expected);
  }
}

TEST_F(timer_test, any_value_from_2_on_counts_seconds) {
  clock.milliseconds = 5'999;
  for (const int value : {2, 3, 1000, -1}) {
    timer t(static_cast<timer_resolution>(value));
    t.start();
    clock.milliseconds += 1;  // from 5.999 to 6.000 seconds
    EXPECT_EQ(t.elapsed_time(), 1u) << value;
    EXPECT_EQ(t.resolution(), value);
    clock.milliseconds -= 1;
  }
}

TEST_F(timer_test, present_resolution_changes_nothing) {
  timer t;
  measure(t, 5);
  t.start();
  EXPECT_EQ(t.resolution(resolution_microseconds), resolution_microseconds);
  EXPECT_TRUE(t.is_timer_running());
  pass_microseconds(7);
  EXPECT_EQ(t.elapsed_time(), 12u);
}

TEST_F(timer_test, other_resolution_stops_and_clears) {
  timer t;
  measure(t, 5);
  t.start();
  EXPECT_EQ(t.resolution(resolution_seconds), resolution_seconds);
  EXPECT_FALSE(t.is_timer_running());
  EXPECT_EQ(t.elapsed_time(), 0u);
  EXPECT_EQ(t.resolution(), resolution_seconds);
}

TEST_F(timer_test, change_away_from_microseconds_keeps_the_divisor) {
  timer t;
  t.resolution(resolution_milliseconds);
  t.start();
  clock.milliseconds += 25'000;
  EXPECT_EQ(t.elapsed_time(), 2u);  // 25,000 milliseconds divided by 10,000
  t.stop();
  EXPECT_EQ(t.elapsed_time(), 2u);
  t.resolution(resolution_seconds);
  t.start();
  clock.milliseconds += 25'000'000;
  EXPECT_EQ(t.elapsed_time(), 2u);
}

TEST_F(timer_test, change_to_microseconds_sets_the_divisor) {
  timer t(resolution_milliseconds);
  t.start();
  clock.milliseconds += 25;
  EXPECT_EQ(t.elapsed_time(), 25u);
  t.resolution(resolution_microseconds);
  measure(t, 25);
  EXPECT_EQ(t.elapsed_time(), 25u);
}

TEST_F(timer_test, assignment_copies_everything) {
  timer t;
  measure(t, 5);
  t.start();
  timer copy(resolution_seconds);
  copy = t;
  pass_microseconds(7);
  EXPECT_EQ(copy.elapsed_time(), 12u);
  EXPECT_EQ(copy.resolution(), resolution_microseconds);
  copy.stop();
  EXPECT_TRUE(t.is_timer_running());
}

TEST_F(timer_test, wrap_of_the_milliseconds_reads_as_a_huge_interval) {
  clock.milliseconds = std::numeric_limits<std::uint32_t>::max();
  timer t(resolution_milliseconds);
  t.start();
  clock.milliseconds = 5;
  EXPECT_EQ(t.elapsed_time(), 0ull + 5 - 0xFFFFFFFF);
}

TEST_F(timer_test, start_at_the_reading_0_is_no_start) {
  clock.milliseconds = 999;
  timer t(resolution_seconds);
  t.start();
  EXPECT_FALSE(t.is_timer_running());
  clock.milliseconds = 5000;
  t.stop();
  EXPECT_EQ(t.elapsed_time(), 0u);
}

TEST_F(timer_test, clocks_of_the_resolutions) {
  clock.milliseconds = 4'294'967'295;
  EXPECT_EQ(open_timer(resolution_microseconds).current_time(), 123'456'789'000u);
  EXPECT_EQ(open_timer(resolution_milliseconds).current_time(), 4'294'967'295u);
  EXPECT_EQ(open_timer(resolution_seconds).current_time(), 4'294'967u);
  EXPECT_EQ(open_timer().windows_timer_frequency(), 10'000u);
  clock.frequency = 3'579'545;
  EXPECT_EQ(open_timer().windows_timer_frequency(), 3579u);
}

TEST_F(timer_test, counter_times_1000_wraps_at_64_bits) {
  clock.ticks = std::numeric_limits<std::uint64_t>::max();
  EXPECT_EQ(open_timer().current_time(), 0ull - 1000);
}

TEST_F(timer_test, coarse_resolutions_ask_for_no_frequency) {
  const timer milliseconds(resolution_milliseconds);
  const timer seconds(resolution_seconds);
  EXPECT_EQ(clock.frequency_readings, 0);
}

TEST_F(overhead_test, setter_returns_the_value) {
  EXPECT_EQ(timer::overhead_microseconds(), 0u);
  EXPECT_EQ(timer::overhead_microseconds(77), 77u);
  EXPECT_EQ(timer::overhead_microseconds(), 77u);
}

TEST_F(overhead_test, is_measured_at_load) { EXPECT_EQ(overhead_from_load(), 30u); }

TEST_F(overhead_test, is_measured_by_a_tester_as_the_time_of_a_start_and_a_stop) {
  clock.ticks_of_a_reading = 25 * ticks_of_a_microsecond;
  const TimerOverheadTester tester;
  EXPECT_EQ(timer::overhead_microseconds(), 25u);
  EXPECT_EQ(clock.frequency_readings, 1);
}

TEST_F(overhead_test, is_measured_by_three_pairs_of_readings) {
  clock.ticks_of_a_reading = 1;
  const auto before = clock.ticks;
  const TimerOverheadTester tester;
  EXPECT_EQ(clock.ticks - before, 6u);
}

TEST_F(overhead_test, below_a_microsecond_is_0) {
  clock.ticks_of_a_reading = ticks_of_a_microsecond - 1;
  const TimerOverheadTester tester;
  EXPECT_EQ(timer::overhead_microseconds(), 0u);
}

TEST_F(overhead_test, that_is_set_is_not_measured) {
  timer::overhead_microseconds(77);
  clock.ticks_of_a_reading = 25 * ticks_of_a_microsecond;
  const TimerOverheadTester tester;
  EXPECT_EQ(timer::overhead_microseconds(), 77u);
}

}  // namespace
