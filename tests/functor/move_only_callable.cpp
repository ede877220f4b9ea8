// Must not compile: a delegate copies its function.
#include <memory>

#include "orva/functor/delegate.hpp"

orva::functor::delegate_t<int()> made_of_a_move_only_lambda() {
  return [owned = std::make_unique<int>(1)] { return *owned; };
}
