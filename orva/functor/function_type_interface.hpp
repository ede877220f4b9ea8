/// `function_type_interface`: the base of the function objects of `delegate_t`.
///
/// A delegate takes lambdas and other callables as they are. Derive from this class where a function object
/// needs its own rule for copies or for equality:
///
///     struct report : functor::function_type_interface<void(int)> {
///       void operator()(int value) override { std::cout << value; }
///       bool equal(const function_type_interface& other) const override { return this == &other; }
///       report* clone() const override { return new report(*this); }
///     };
///
/// `member_function_t` is the one for member functions.
#pragma once

#include "orva/functor/function_traits.hpp"
#include "orva/generic/abilities/clone_ability.hpp"

namespace ORVA_NAMESPACE::functor {

template <typename Sig>
class function_type_interface;

template <typename Result, typename... Args>
class function_type_interface<Result(Args...)> : public generic::abilities::clone_ability,
                                                 public traits::function_traits<Result(Args...)> {
 public:
  virtual Result operator()(Args... args) = 0;
  /// Returns true for a function object of the same kind with the same target.
  virtual bool equal(const function_type_interface& other) const = 0;
  /// Returns a copy on the heap, owned by the caller.
  [[nodiscard]] virtual function_type_interface* clone() const = 0;
};

}  // namespace ORVA_NAMESPACE::functor
