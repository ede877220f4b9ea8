/// Dates and times as text, for comparisons whose failures can be read.
#pragma once

#include <string>

#include "orva/system/date_time/date_time.hpp"

namespace orva_test {

/// 29.2.2024
inline std::string text(const ORVA_NAMESPACE::system::date_time::date& d) {
  return std::to_string(d.day()) + '.' + std::to_string(d.month()) + '.' + std::to_string(d.year());
}

/// 8:30:0.123
inline std::string text(const ORVA_NAMESPACE::system::date_time::time& t) {
  return std::to_string(t.hour()) + ':' + std::to_string(t.minute()) + ':' + std::to_string(t.second()) +
         '.' + std::to_string(t.millisecond());
}

/// 29.2.2024 8:30:0.123
inline std::string text(const ORVA_NAMESPACE::system::date_time::date_time_t& t) {
  return text(t.date()) + ' ' + text(t.time());
}

}  // namespace orva_test
