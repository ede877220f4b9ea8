/// The settings that one source has: the texts, and where they come from.
///
/// Internal: not installed.
#pragma once

#include <cstddef>
#include <string>
#include <utility>
#include <vector>

#include "orva/config/internal/declared_names.hpp"
#include "orva/config/internal/file_places.hpp"
#include "orva/config/setting_type.hpp"
#include "orva/diagnostics/place.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::config::_private {

struct given_element {
  std::string text;
  diagnostics::place at;
  /// Shown as asterisks in messages.
  bool is_hidden = false;
};

struct given_setting {
  std::size_t number;
  /// As the source writes it: "--threads", "window.threads", "VIEWER_THREADS".
  std::string name;
  /// What findings name as the file: "command line", the name of the file or of the variable.
  strings::ustring8 file;
  /// The first that the source has.
  diagnostics::place at;
  std::vector<given_element> elements;
  /// Whether the source has a list of values, and not one.
  bool is_list = false;
  /// Of a file, which has the places instead of `at`; the key is the name.
  file_places* places = nullptr;

  diagnostics::place place() const { return places != nullptr ? places->key(name) : at; }
  diagnostics::place place_of_element(std::size_t element) const {
    return places != nullptr ? places->value(name, element) : elements[element].at;
  }
};

/// In the order in which they were given; each setting once.
class given_settings {
 public:
  explicit given_settings(std::size_t settings_count) : positions_(settings_count, not_found) {}

  const std::vector<given_setting>& all() const noexcept { return given_; }

  given_setting* find(std::size_t number) {
    return positions_[number] != not_found ? &given_[positions_[number]] : nullptr;
  }
  const given_setting* find(std::size_t number) const {
    return positions_[number] != not_found ? &given_[positions_[number]] : nullptr;
  }
  given_setting& add(given_setting added) {
    positions_[added.number] = given_.size();
    return given_.emplace_back(std::move(added));
  }

 private:
  std::vector<given_setting> given_;
  std::vector<std::size_t> positions_;
};

/// The elements that one text has for a list. Commas separate them, except in lists of text and of paths,
/// where a comma may be part of an element. Blanks around an element do not count.
std::vector<std::string> list_elements(const setting_type& type, std::string_view text);

/// The same for a source that has no other way to hold several texts, such as a variable of the environment:
/// `separator` separates paths, and a comma texts.
std::vector<std::string> variable_elements(const setting_type& type, std::string_view text, char separator);

}  // namespace ORVA_NAMESPACE::config::_private
