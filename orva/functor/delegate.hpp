/// `delegate_t`: a callable that can be stored, copied and compared, whatever kind of function it calls.
///
///     struct printer { void print(const ustring8& text); };
///     printer p;
///     delegate_t<void(const ustring8&)> on_text;
///     on_text = member_function_t(&p, &printer::print);
///     if (on_text) on_text("hello");
///
/// A delegate owns its function object. Copying the delegate clones the function object. Set a delegate up
/// before other threads can call it.
///
/// Edge cases: docs/edges.md#core
#pragma once

#include <functional>
#include <memory>
#include <utility>

#include "orva/functor/function_type_interface.hpp"

namespace ORVA_NAMESPACE::functor {

template <typename Sig>
class delegate_t;

template <typename Result, typename... Args>
class delegate_t<Result(Args...)> {
 public:
  using function_type = function_type_interface<Result(Args...)>;

  delegate_t() noexcept = default;
  delegate_t(const function_type& function) : target_(function.clone()) {}
  delegate_t(const delegate_t& other) : target_(other.empty() ? nullptr : other.target_->clone()) {}
  delegate_t(delegate_t&& other) noexcept = default;
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

  /// Returns true if both are empty, or if their function objects are equal.
  bool equal(const delegate_t& other) const {
    if (empty() || other.empty()) return empty() == other.empty();
    return target_->equal(*other.target_);
  }
  bool operator==(const delegate_t& other) const { return equal(other); }

 private:
  std::unique_ptr<function_type> target_;
};

}  // namespace ORVA_NAMESPACE::functor
