/// `file_line_checker`: checks the lines of a configuration file.
///
///     finding_list found(1000);
///     file_line_checker("a\nb = 1\n", 0, found).check();     // "config.line_without_equals"
///
/// Internal: not installed.
#pragma once

#include <cstddef>
#include <string_view>

#include "orva/config/internal/checked_name.hpp"
#include "orva/config/internal/checked_text.hpp"
#include "orva/config/internal/checked_value.hpp"
#include "orva/config/internal/key_register.hpp"

namespace ORVA_NAMESPACE::config::_private {

class file_line_checker {
 public:
  /// `begin` is the position after a byte order mark.
  file_line_checker(std::string_view text, std::size_t begin, finding_list& found)
      : text_(text, begin, found), keys_(found) {}

  void check();

 private:
  void check_line();
  void check_semicolon();
  void check_block_comment();
  void check_section();
  void check_after_section();

  void check_key();
  void check_assignment(const checked_name& key, std::size_t equals);
  void check_without_assignment(const checked_name& name, std::size_t line_begin);
  void begin_open_line(std::size_t offset);
  void end_open_lines(std::size_t offset);

  void check_scalar(const checked_name& key, std::size_t equals);
  void check_array(const checked_name& key, std::size_t equals);
  bool read_elements(const checked_name& key, std::size_t equals, std::size_t& count);
  bool array_continues(std::size_t comma, bool& stored);

  bool rest_has_equals();
  void add_error(std::string_view code, std::size_t offset, generic::varg_list arguments = {}) {
    text_.found().add(diagnostics::severity::error, code, offset, std::move(arguments));
  }
  void add_warning(std::string_view code, std::size_t offset, generic::varg_list arguments = {}) {
    text_.found().add(diagnostics::severity::warning, code, offset, std::move(arguments));
  }

  checked_text text_;
  key_register keys_;
  /// The first of the lines without `=` that become part of the next key.
  std::size_t open_line_ = nowhere;
  bool after_array_ = false;
};

}  // namespace ORVA_NAMESPACE::config::_private
