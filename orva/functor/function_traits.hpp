/// `function_traits`: the result type and the argument types of a function signature.
///
///     traits::function_traits<int(char, long)>::arity    =>  2
#pragma once

#include <cstddef>
#include <tuple>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::traits {

namespace _private {

template <typename Sig>
struct function_traits_helper;

template <typename Result, typename... Args>
struct function_traits_helper<Result(Args...)> {
  using result_type = Result;
  using argument_types = std::tuple<Args...>;
  static constexpr std::size_t arity = sizeof...(Args);
};

}  // namespace _private

/// `result_type`, `argument_types` (a `std::tuple`) and `arity` of the signature `Sig`.
template <typename Sig>
struct function_traits : _private::function_traits_helper<Sig> {};

}  // namespace ORVA_NAMESPACE::traits
