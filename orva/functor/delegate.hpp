/// `delegate_t`: a callable that can be stored, copied and compared, whatever kind of function it calls.
///
///     struct printer { void print(const ustring8& text) const; };
///     printer p;
///     delegate_t<void(const ustring8&)> on_text;
///     on_text = member_function_t(&p, &printer::print);
///     on_text = [&log](const ustring8& text) { log += text; };
///     if (on_text) on_text("hello");
///
/// A delegate owns its function object, and is one pointer. What it is made from:
///
///     a function object (`function_type_interface`)     its `clone()`
///     another callable that takes the arguments and     a copy of it, moved from a temporary; one allocation
///       whose result converts: a lambda, a function,
///       a pointer to a member, `std::function`
///     a null pointer to a function or a member, an      nothing: the delegate is empty
///       empty `std::function`, an empty delegate of
///       another signature
///
/// The function lives as long as the delegate. What it refers to must live longer: the object of a
/// `member_function_t`, what a lambda captures by reference, the target of `std::ref`.
///
/// Copying a delegate clones the function object, and so copies a lambda with its state: calls of one copy do
/// not change the state of the other. A callable that can only be moved does not compile, as a delegate could
/// not be copied then: let a lambda capture it in a `std::shared_ptr`, or give `std::ref` of it. Where the
/// signature returns a reference, the callable must return one.
///
/// Set a delegate up before other threads can call it.
///
/// Edge cases: docs/edges.md#core
#pragma once

#include <concepts>
#include <functional>
#include <memory>
#include <type_traits>
#include <utility>

#include "orva/functor/function_type_interface.hpp"
#include "orva/functor/internal/stored_callable.hpp"

namespace ORVA_NAMESPACE::functor {

template <typename Sig>
class delegate_t;

namespace _private {

template <typename T>
inline constexpr bool is_delegate = false;
template <typename Sig>
inline constexpr bool is_delegate<delegate_t<Sig>> = true;

/// Whether there is nothing to call.
template <typename Callable>
bool is_nothing(const Callable& callable) {
  if constexpr (std::is_pointer_v<Callable> || std::is_member_pointer_v<Callable>) {
    return callable == nullptr;
  } else if constexpr (is_standard_function<Callable> || is_delegate<Callable>) {
    return !callable;
  } else {
    return false;
  }
}

}  // namespace _private

template <typename Result, typename... Args>
class delegate_t<Result(Args...)> {
 public:
  using function_type = function_type_interface<Result(Args...)>;

  delegate_t() noexcept = default;
  delegate_t(const function_type& function) : target_(function.clone()) {}
  delegate_t(const delegate_t& other) : target_(other.empty() ? nullptr : other.target_->clone()) {}
  delegate_t(delegate_t&& other) noexcept = default;
  /// Stores a copy of the callable. Delegates, function objects, and what converts to one of them are for the
  /// constructors above.
  template <typename Callable>
  requires(!std::derived_from<std::remove_cvref_t<Callable>, delegate_t> &&
           !std::convertible_to<Callable, const function_type&> &&
           !_private::converts_itself_to<Callable, delegate_t> &&
           _private::is_callable<std::decay_t<Callable>, Result, Args...>()) delegate_t(Callable&& callable) {
    using stored = std::decay_t<Callable>;
    static_assert(std::is_copy_constructible_v<stored>,
                  "a delegate copies its function: capture it in a std::shared_ptr, or use std::ref");
    if (_private::is_nothing<stored>(callable)) return;
    target_ = std::make_unique<_private::stored_callable<stored, Result(Args...)>>(
        std::in_place, std::forward<Callable>(callable));
  }
  ~delegate_t() = default;

  /// Stores a clone of `function` and destroys the previous function object. The clone is made first, since
  /// `function` may be part of the object that is destroyed.
  delegate_t& operator=(const function_type& function) {
    target_.reset(function.clone());
    return *this;
  }
  delegate_t& operator=(const delegate_t& other) {
    target_.reset(other.empty() ? nullptr : other.target_->clone());
    return *this;
  }
  delegate_t& operator=(delegate_t&& other) noexcept = default;

  [[nodiscard]] bool empty() const noexcept { return target_ == nullptr; }
  explicit operator bool() const noexcept { return !empty(); }

  /// Calls the function object. An empty delegate throws `std::bad_function_call`, so test it first.
  Result operator()(Args... args) const {
    if (empty()) throw std::bad_function_call();
    return (*target_)(std::forward<Args>(args)...);
  }

  /// The function object, owned by the delegate; null if it is empty.
  const function_type* target() const noexcept { return target_.get(); }

  /// Returns true if both are empty, or if their function objects are equal. Two callables of one type are
  /// equal by their `==`; without one they are equal if the type has no state. So a lambda with captures is
  /// equal to itself only, not to a copy.
  bool equal(const delegate_t& other) const {
    if (empty() || other.empty()) return empty() == other.empty();
    return target_->equal(*other.target_);
  }
  bool operator==(const delegate_t& other) const { return equal(other); }

 private:
  std::unique_ptr<function_type> target_;
};

}  // namespace ORVA_NAMESPACE::functor
