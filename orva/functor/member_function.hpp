/// `member_function_t`: a function object for `delegate_t` that calls a member function of an object.
///
///     printer p;
///     delegate_t<void(const ustring8&)> on_text = member_function_t(&p, &printer::print);
///
/// The member function may be const or inherited. The object is not owned: it must outlive all delegates made
/// from this function object.
#pragma once

#include <type_traits>
#include <utility>

#include "orva/functor/function_type_interface.hpp"

namespace ORVA_NAMESPACE::functor {

template <typename C, typename Sig>
class member_function_t;

template <typename C, typename Result, typename... Args>
class member_function_t<C, Result(Args...)> : public function_type_interface<Result(Args...)> {
 public:
  using member_pointer =
      std::conditional_t<std::is_const_v<C>, Result (std::remove_const_t<C>::*)(Args...) const,
                         Result (std::remove_const_t<C>::*)(Args...)>;

  member_function_t(C* object, member_pointer function) noexcept : object_(object), function_(function) {}

  Result operator()(Args... args) override { return (object_->*function_)(std::forward<Args>(args)...); }

  /// Returns true for the same member function of the same object, false for any other kind of function
  /// object.
  bool equal(const function_type_interface<Result(Args...)>& other) const override {
    const auto* same_kind = dynamic_cast<const member_function_t*>(&other);
    return same_kind != nullptr && object_ == same_kind->object_ && function_ == same_kind->function_;
  }

  member_function_t* clone() const override { return new member_function_t(*this); }

 private:
  C* object_;
  member_pointer function_;
};

// C is the class that declares the function, of which the object's class may be derived. It is const for a
// const function.
template <typename Object, typename C, typename Result, typename... Args>
member_function_t(Object*, Result (C::*)(Args...)) -> member_function_t<C, Result(Args...)>;
template <typename Object, typename C, typename Result, typename... Args>
member_function_t(Object*, Result (C::*)(Args...) const) -> member_function_t<const C, Result(Args...)>;

}  // namespace ORVA_NAMESPACE::functor
