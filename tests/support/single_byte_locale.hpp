/// `single_byte_locale`: a locale with one byte per character, current in the C runtime for the lifetime of
/// the object.
///
/// Few systems have such a locale installed, so the system's `localedef` builds it in a temporary directory.
/// Where that is not possible, `made` returns false and the test is skipped. The locale is that of the whole
/// process: tests that use it must not run at the same time as others in one process.
#pragma once

#include <clocale>
#include <cstdlib>
#include <string>

#include "tests/support/temporary_directory.hpp"

namespace orva_test {

class single_byte_locale {
 public:
  /// `character_set` and `language` are names that `localedef` knows, such as "ISO-8859-1" and "de_DE".
  single_byte_locale(const std::string& character_set, const std::string& language)
      : name_(language + "." + character_set) {
#if !defined(_WIN32)
    const std::string command = "localedef -f " + character_set + " -i " + language + " '" +
                                directory_.file(name_) + "' >/dev/null 2>&1";
    if (std::system(command.c_str()) != 0) return;
    ::setenv("LOCPATH", directory_.name().c_str(), 1);
    made_ = std::setlocale(LC_ALL, name_.c_str()) != nullptr;
#endif
  }
  single_byte_locale(const single_byte_locale&) = delete;
  single_byte_locale& operator=(const single_byte_locale&) = delete;

  ~single_byte_locale() {
    std::setlocale(LC_ALL, "C");
#if !defined(_WIN32)
    ::unsetenv("LOCPATH");
#endif
  }

  bool made() const { return made_; }

 private:
  temporary_directory directory_;
  std::string name_;
  bool made_ = false;
};

}  // namespace orva_test
