/// `console`: the standard streams. Results go to standard output, and what is wrong to standard error, both
/// as text or as JSON.
#pragma once

#include <iostream>

#include "json_line.hpp"
#include "orva/diagnostics/report.hpp"
#include "texts.hpp"

namespace orva_config {

/// How the program ends.
enum exit_code { all_is_well = 0, failure = 1, wrong_usage = 2 };

class console {
 public:
  /// `words` must live as long.
  console(const texts& words, bool as_json) : words_(words), as_json_(as_json) {}

  bool as_json() const { return as_json_; }
  std::ostream& output() { return std::cout; }
  void write(const json_line& line) { output() << line.text(); }

  /// Findings that are the result.
  void write(const orva::diagnostics::report& found);
  /// To standard error.
  void complain(const orva::diagnostics::finding& found);
  void complain(const orva::diagnostics::report& found);

 private:
  orva::diagnostics::text_options options_for(const std::ostream& stream) const;

  const texts& words_;
  bool as_json_;
};

}  // namespace orva_config
