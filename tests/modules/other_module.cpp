#include "other_module.hpp"

#include "orva/exceptions/exception.hpp"
#include "orva/functor/member_function.hpp"

namespace other_module {

using namespace ORVA_NAMESPACE;

namespace {

template <typename Class>
void raise_if(const std::string& wanted, const char* name) {
  if (wanted == name) throw Class("from the other module", 12, "other/module", "other_module::raise");
}

}  // namespace

void raise(const std::string& class_name) {
  using namespace exceptions;
  raise_if<logic_error>(class_name, "logic_error");
  raise_if<invalid_argument_value>(class_name, "invalid_argument_value");
  raise_if<length_error>(class_name, "length_error");
  raise_if<out_of_range>(class_name, "out_of_range");
  raise_if<runtime_error>(class_name, "runtime_error");
  raise_if<empty_error>(class_name, "empty_error");
  raise_if<full_error>(class_name, "full_error");
  raise_if<overflow_error>(class_name, "overflow_error");
  raise_if<underflow_error>(class_name, "underflow_error");
}

const types::nil_t* address_of_nil() { return &types::nil; }

void assert_something() { ORVA_ASSERT(1 > 2); }

memory::pointers::rc_pointer<counted> make_counted(int& destroyed) {
  return generic::abilities::create_dynamic<counted>(destroyed);
}

void listener::listen(const std::string& text) { heard = text; }

text_delegate listen_with(listener& ear) { return functor::member_function_t(&ear, &listener::listen); }

}  // namespace other_module
