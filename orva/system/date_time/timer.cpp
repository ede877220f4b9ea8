#include "orva/system/date_time/timer.hpp"

#include "orva/platform/clock.hpp"

namespace ORVA_NAMESPACE::system::date_time {

unsigned long long timer::m_overheadMicroseconds = 0;

timer::timer(timer_resolution resolution) : m_resolution(resolution) {
  if (resolution == resolution_microseconds) m_frequency = windows_timer_frequency();
}

void timer::start() { m_start_time = current_time(); }

void timer::stop() {
  if (!is_timer_running()) return;
  unsigned long long interval = current_time() - m_start_time;
  if (m_resolution == resolution_microseconds) {
    const unsigned long long overhead = m_overheadMicroseconds * m_frequency;
    interval = interval > overhead ? interval - overhead : 0;
  }
  m_elapsed_time += interval;
  m_start_time = 0;
}

void timer::reset() {
  m_start_time = 0;
  m_elapsed_time = 0;
}

void timer::restart() {
  reset();
  start();
}

unsigned long long timer::elapsed_time() const {
  if (!is_timer_running()) return m_elapsed_time / m_frequency;
  const unsigned long long total = (m_elapsed_time + (current_time() - m_start_time)) / m_frequency;
  if (m_resolution != resolution_microseconds) return total;
  return total > m_overheadMicroseconds ? total - m_overheadMicroseconds : 0;
}

timer_resolution timer::resolution(timer_resolution value) {
  if (value == m_resolution) return value;
  m_resolution = value;
  // Deliberately not set to 1 for the other resolutions: the results are part of the contract.
  if (value == resolution_microseconds) m_frequency = windows_timer_frequency();
  reset();
  return value;
}

unsigned long long timer::overhead_microseconds() { return m_overheadMicroseconds; }
unsigned long long timer::overhead_microseconds(unsigned long long value) {
  return m_overheadMicroseconds = value;
}

unsigned long long timer::current_time() const {
  if (m_resolution == resolution_microseconds) return platform::counter() * m_windowsFrequencyMultiplier;
  if (m_resolution == resolution_milliseconds) return platform::millisecond_counter();
  return platform::millisecond_counter() / 1000;
}

unsigned long long timer::windows_timer_frequency() const {
  return platform::counter_frequency() / (1000000 / m_windowsFrequencyMultiplier);
}

TimerOverheadTester::TimerOverheadTester() {
  if (timer::overhead_microseconds() != 0) return;
  // Copies of one timer, so that the frequency is read once, and only the clock is read between start and
  // stop.
  const timer fresh;
  timer warm_up = fresh;
  timer first = fresh;
  timer second = fresh;
  warm_up.start();
  warm_up.stop();
  first.start();
  first.stop();
  second.start();
  second.stop();
  timer::overhead_microseconds((first.elapsed_time() + second.elapsed_time()) >> 1);
}

const TimerOverheadTester sAutoTester;

}  // namespace ORVA_NAMESPACE::system::date_time
