/// `environment_variable`: a variable of the process's environment for the lifetime of the object.
#pragma once

#include <cstdlib>
#include <optional>
#include <string>

namespace orva_test {

/// Sets a variable; removes it if the value is null. On Windows an empty value removes it, too.
void set_variable(const char* name, const char* value);

class environment_variable {
 public:
  /// `name` must live as long. A null value removes the variable.
  environment_variable(const char* name, const char* value) : name_(name) {
    if (const char* const before = std::getenv(name)) before_ = before;
    set_variable(name, value);
  }
  environment_variable(const environment_variable&) = delete;
  environment_variable& operator=(const environment_variable&) = delete;
  ~environment_variable() { set_variable(name_, before_ ? before_->c_str() : nullptr); }

 private:
  const char* name_;
  std::optional<std::string> before_;
};

}  // namespace orva_test
