/// `stored_callable`: the function object by which `delegate_t` owns a copy of any callable.
///
/// Internal: installed only because `delegate_t` is a template. Not for callers.
#pragma once

#include <concepts>
#include <functional>
#include <type_traits>
#include <utility>

#include "orva/functor/function_type_interface.hpp"

namespace ORVA_NAMESPACE::functor::_private {

/// Whether the callable takes `Args` and its result converts to `Result`. A result by reference must be the
/// same object: a reference to a converted value would dangle.
template <typename Callable, typename Result, typename... Args>
constexpr bool is_callable() {
  if constexpr (!std::is_invocable_r_v<Result, Callable&, Args...>) {
    return false;
  } else if constexpr (std::is_reference_v<Result>) {
    using returned = std::invoke_result_t<Callable&, Args...>;
    return std::is_reference_v<returned> &&
           std::is_convertible_v<std::remove_reference_t<returned>*, std::remove_reference_t<Result>*>;
  } else {
    return true;
  }
}

/// Whether a class has its own conversion to `Target`, which a constructor of `Target` must not replace.
template <typename T, typename Target>
concept converts_itself_to = requires(T&& object) {
  static_cast<T&&>(object).operator Target();
};

template <typename T>
inline constexpr bool is_standard_function = false;
template <typename Sig>
inline constexpr bool is_standard_function<std::function<Sig>> = true;

/// Callables without `==` are equal if they have no state: objects of one type then do the same.
template <typename Callable>
bool equal_callables(const Callable& left, const Callable& right) {
  if constexpr (std::equality_comparable<Callable>) {
    return left == right;
  } else {
    return std::is_empty_v<Callable>;
  }
}

template <typename Callable, typename Sig>
class stored_callable;

template <typename Callable, typename Result, typename... Args>
class stored_callable<Callable, Result(Args...)> final : public function_type_interface<Result(Args...)> {
 public:
  template <typename Source>
  stored_callable(std::in_place_t, Source&& source) : callable_(std::forward<Source>(source)) {}

  Result operator()(Args... args) override {
    // The cast does what `return` would do, without a warning for a result of another width.
    return static_cast<Result>(std::invoke(callable_, std::forward<Args>(args)...));
  }

  bool equal(const function_type_interface<Result(Args...)>& other) const override {
    if (this == &other) return true;
    const auto* same_kind = dynamic_cast<const stored_callable*>(&other);
    return same_kind != nullptr && equal_callables(callable_, same_kind->callable_);
  }

  stored_callable* clone() const override { return new stored_callable(*this); }

 private:
  Callable callable_;
};

}  // namespace ORVA_NAMESPACE::functor::_private
