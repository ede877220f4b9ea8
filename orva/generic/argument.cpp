#include "orva/generic/argument.hpp"

namespace ORVA_2_18::generic {

argument::argument(const types::nil_t&) {}

argument::argument(const types::variant& value) : value_(value) {}

argument::argument(const strings::text_argument& name, const types::variant& value)
    : name_(name.get()), value_(value) {}

const strings::ustring8& argument::name(const strings::text_argument& new_name) {
  return name_ = new_name.get();
}

const types::variant& argument::value(const types::variant& new_value) { return value_ = new_value; }

argument& argument::assign(const types::variant& new_value) {
  value_ = new_value;
  return *this;
}

argument& argument::assign(const strings::text_argument& new_name, const types::variant& new_value) {
  name_ = new_name.get();
  value_ = new_value;
  return *this;
}

bool argument::equal(const types::nil_t& nothing) const noexcept { return !has_name() && value_ == nothing; }

}  // namespace ORVA_2_18::generic
