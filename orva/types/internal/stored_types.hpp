/// The twenty types that a `variant` stores.
///
/// Internal: installed, because `variant::try_as` and `variant::holds` are constrained by it.
#pragma once

#include <concepts>
#include <string>

#include "orva/strings/ustring.hpp"
#include "orva/types/nil.hpp"

namespace ORVA_NAMESPACE::types::_private {

template <typename... Types>
struct type_list {
  template <typename T>
  static constexpr bool contains = (std::same_as<T, Types> || ...);
};

using stored_types =
    type_list<nil_t, bool, signed char, unsigned char, short, unsigned short, int, unsigned int, long,
              unsigned long, long long, unsigned long long, float, double, long double, std::string,
              strings::wide_string, strings::ustring8, strings::ustring16, strings::ustring32>;

template <typename T>
concept stored_type = stored_types::contains<T>;

}  // namespace ORVA_NAMESPACE::types::_private
