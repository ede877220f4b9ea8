#include "orva/functor/function_traits.hpp"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

#include "orva/functor/function_type_interface.hpp"

namespace {

using namespace ORVA_NAMESPACE;

TEST(function_traits, describe_a_signature) {
  using described = traits::function_traits<int(const std::string&, double)>;
  static_assert(std::is_same_v<described::result_type, int>);
  static_assert(std::is_same_v<described::argument_types, std::tuple<const std::string&, double>>);
  static_assert(described::arity == 2);
}

TEST(function_traits, describe_a_signature_without_arguments) {
  using described = traits::function_traits<void()>;
  static_assert(std::is_void_v<described::result_type>);
  static_assert(described::arity == 0);
  static_assert(std::is_empty_v<described>);
}

TEST(function_traits, are_a_base_of_every_callable) {
  using callable = functor::function_type_interface<bool(char)>;
  static_assert(std::is_base_of_v<traits::function_traits<bool(char)>, callable>);
  static_assert(std::is_base_of_v<generic::abilities::clone_ability, callable>);
  static_assert(callable::arity == 1);
}

}  // namespace
