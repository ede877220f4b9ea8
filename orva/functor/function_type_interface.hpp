/// The abstract callable behind a delegate. Derive from it to make anything callable through `delegate_t`.
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
  /// True for the same kind of function object with the same target.
  virtual bool equal(const function_type_interface& other) const = 0;
  /// A heap copy; the caller owns it.
  virtual function_type_interface* clone() const = 0;
};

}  // namespace ORVA_NAMESPACE::functor
