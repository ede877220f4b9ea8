/// `json_line`: an object of JSON in one line, as RFC 8259 defines it.
///
///     json_line line;
///     line.add("key", "window.width").add("line", 3);
///     std::cout << line.text();     =>  {"key":"window.width","line":3}
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <vector>

#include "orva/strings/ustring.hpp"

namespace orva_config {

class json_line {
 public:
  /// Malformed parts of UTF-8 become U+FFFD.
  json_line& add(std::string_view name, std::string_view text);
  json_line& add(std::string_view name, const std::vector<orva::strings::ustring8>& texts);
  json_line& add(std::string_view name, std::size_t number);
  json_line& add_truth(std::string_view name, bool truth);

  /// With a line feed.
  std::string text() const { return text_ + "}\n"; }

 private:
  void add_name(std::string_view name);
  void append(std::string_view text);

  std::string text_ = "{";
};

}  // namespace orva_config
