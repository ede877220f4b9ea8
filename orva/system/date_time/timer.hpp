/// `timer`: a stopwatch with three resolutions.
///
///     timer t;                             microseconds; stopped, elapsed time 0
///     t.start();  work();  t.stop();
///     t.elapsed_time()                     =>  the time of work()
///     t.start();  work();  t.stop();
///     t.elapsed_time()                     =>  the time of both
///     t.restart();  work();
///     t.elapsed_time()                     =>  the time since restart(); the timer still runs
///
/// Intervals between `start` and `stop` are added until `reset`. With microseconds, the time that `start` and
/// `stop` take themselves is subtracted. This overhead is one number for the process, measured while the
/// library is loaded. Set it, if at all, before other threads use timers.
///
/// A timer belongs to one thread at a time. Nothing fails. The two coarse resolutions use a clock of 32 bits,
/// which wraps every 49 days: an interval in which it wraps is far too long. A timer that starts when its
/// clock reads 0 counts as stopped.
///
/// Edge cases: docs/edges.md#dates
#pragma once

#include "orva/export.hpp"

namespace ORVA_NAMESPACE::system::date_time {

/// The unit of `timer::elapsed_time`. Any other value means seconds.
enum timer_resolution : int {
  resolution_microseconds = 0,
  resolution_milliseconds = 1,
  resolution_seconds = 2,
};

class ORVA_API timer {
 public:
  /// A stopped timer with the elapsed time 0.
  explicit timer(timer_resolution resolution = resolution_microseconds);

  /// Starts an interval. An interval that is running is lost; those before it are kept.
  void start();
  /// Ends the interval and adds it; does nothing if the timer is stopped. An interval in microseconds is
  /// shortened by the overhead, down to 0.
  void stop();
  /// Stops the timer and sets the elapsed time to 0.
  void reset();
  /// `reset`, then `start`.
  void restart();

  /// The time of all intervals in the unit of the resolution. While the timer runs, the overhead of the
  /// running interval is subtracted from the sum.
  unsigned long long elapsed_time() const;
  bool is_timer_running() const { return m_start_time != 0; }

  timer_resolution resolution() const { return m_resolution; }
  /// Changes the resolution, and resets the timer if the new one differs. Returns its argument. A timer that
  /// is changed from microseconds still divides by the frequency of that clock, and returns far too little:
  /// use a new timer for another unit.
  timer_resolution resolution(timer_resolution value);

  /// The microseconds that a start and a stop take, which timers of that resolution subtract.
  static unsigned long long overhead_microseconds();
  /// Returns its argument.
  static unsigned long long overhead_microseconds(unsigned long long value);

 protected:
  /// The clock of the resolution, in its own units.
  unsigned long long current_time() const;
  /// The units of the clock for microseconds in one microsecond.
  unsigned long long windows_timer_frequency() const;

 private:
  static constexpr unsigned long long m_windowsFrequencyMultiplier = 1000;
  static unsigned long long m_overheadMicroseconds;

  timer_resolution m_resolution;
  // In units of the clock; a start of 0 means stopped.
  unsigned long long m_start_time = 0;
  unsigned long long m_elapsed_time = 0;
  unsigned long long m_frequency = 1;
};

/// Measures `timer::overhead_microseconds` when it is constructed, unless that is set already.
class ORVA_API TimerOverheadTester {
 public:
  TimerOverheadTester();
};

/// Measures while the library is loaded, in less than 20 microseconds.
ORVA_API extern const TimerOverheadTester sAutoTester;

}  // namespace ORVA_NAMESPACE::system::date_time
