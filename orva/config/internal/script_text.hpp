/// The text of a script: its fixed parts with the names of its functions, and quoted texts.
///
///     script_text script("_viewer", posix_quoted);
///     script.add("FUNCTION_word() {\n").add_quoted("it's");      // _viewer_word() {   'it'\''s'
///
/// Internal: not installed.
#pragma once

#include <string>
#include <string_view>
#include <utility>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::config::_private {

/// In single quotes, as bash and zsh read them.
std::string posix_quoted(std::string_view text);
/// In single quotes, as fish reads them.
std::string fish_quoted(std::string_view text);

class script_text {
 public:
  using quoting = std::string (*)(std::string_view);

  script_text(std::string function, quoting quoted) : function_(std::move(function)), quoted_(quoted) {}

  /// A fixed part, in which FUNCTION is replaced by the name of the main function.
  script_text& add(std::string_view fixed);
  script_text& add_plain(std::string_view text) {
    text_ += text;
    return *this;
  }
  script_text& add_quoted(std::string_view text) {
    text_ += quoted_(text);
    return *this;
  }

  std::string finish() { return std::move(text_); }

 private:
  std::string function_;
  quoting quoted_;
  std::string text_;
};

}  // namespace ORVA_NAMESPACE::config::_private
