/// A global locale that writes 1234.5 as 1.234,5, while the object lives.
#pragma once

#include <locale>
#include <string>

namespace orva_test {

class comma_locale {
 public:
  comma_locale() : before_(std::locale::global(std::locale(std::locale::classic(), new punctuation))) {}
  ~comma_locale() { std::locale::global(before_); }
  comma_locale(const comma_locale&) = delete;
  comma_locale& operator=(const comma_locale&) = delete;

 private:
  class punctuation : public std::numpunct<char> {
    char do_decimal_point() const override { return ','; }
    char do_thousands_sep() const override { return '.'; }
    std::string do_grouping() const override { return "\3"; }
  };

  std::locale before_;
};

}  // namespace orva_test
