/// `timer`: a stopwatch with three resolutions, the finest of which leaves out its own cost.
///
/// Intervals between `start` and `stop` add up until `reset`. An object belongs to one thread at a time. The
/// cost that is left out is one number for the process, measured while the library is loaded; set it, if at
/// all, before other threads use timers.
///
///     timer t;                             microseconds; stopped, nothing added up
///     t.start();  work();  t.stop();
///     t.elapsed_time()                     =>  the time of work()
///     t.start();  work();  t.stop();
///     t.elapsed_time()                     =>  the time of both
///     t.restart();  work();
///     t.elapsed_time()                     =>  the time since restart(), the timer running on
///
/// Nothing here fails. The coarse resolutions count in 32 bits: an interval in which their clock begins
/// again, once in 49 days, reads as a huge one. A timer that starts in the moment when its clock reads 0
/// counts as stopped.
#pragma once

#include "orva/export.hpp"

namespace ORVA_NAMESPACE::system::date_time {

/// The unit of `timer::elapsed_time`. Any other value counts seconds.
enum timer_resolution : int {
  resolution_microseconds = 0,
  resolution_milliseconds = 1,
  resolution_seconds = 2,
};

class ORVA_API timer {
 public:
  /// A stopped timer with nothing added up.
  explicit timer(timer_resolution resolution = resolution_microseconds);

  /// Begins an interval. One that was running is lost; what was added up before stays.
  void start();
  /// Ends the interval and adds it up; a stopped timer stays as it is. An interval of microseconds is counted
  /// without the overhead, and as 0 where it is no longer than that.
  void stop();
  /// Stops, and forgets what was added up.
  void reset();
  /// Forgets what was added up, and begins an interval.
  void restart();

  /// The time so far in the unit of the resolution. While the timer runs, the overhead is left out once and
  /// not once an interval.
  unsigned long long elapsed_time() const;
  bool is_timer_running() const { return m_start_time != 0; }

  timer_resolution resolution() const { return m_resolution; }
  /// Takes another resolution, which also stops the timer and forgets what was added up; the present one
  /// changes nothing. Returns the value that it was given. A timer that leaves microseconds goes on dividing
  /// by the frequency of their clock, so that it counts far less than it should: make a new timer for another
  /// unit.
  timer_resolution resolution(timer_resolution value);

  /// The cost of a start and a stop, which the timers of microseconds leave out.
  static unsigned long long overhead_microseconds();
  /// Returns the value that it was given.
  static unsigned long long overhead_microseconds(unsigned long long value);

 protected:
  /// The clock of the resolution, in its units.
  unsigned long long current_time() const;
  /// How many units of the clock of microseconds make one.
  unsigned long long windows_timer_frequency() const;

 private:
  static constexpr unsigned long long m_windowsFrequencyMultiplier = 1000;
  static unsigned long long m_overheadMicroseconds;

  timer_resolution m_resolution;
  // In units of the clock; 0 is no start.
  unsigned long long m_start_time = 0;
  unsigned long long m_elapsed_time = 0;
  unsigned long long m_frequency = 1;
};

/// Measures `timer::overhead_microseconds` when it is made, unless that is set already.
class ORVA_API TimerOverheadTester {
 public:
  TimerOverheadTester();
};

/// Measures while the library is loaded, in less than 20 microseconds.
ORVA_API extern const TimerOverheadTester sAutoTester;

}  // namespace ORVA_NAMESPACE::system::date_time
