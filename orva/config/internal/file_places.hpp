/// The places of the values of a file, found when the first one is asked for: a file without findings is read
/// once, by its item.
///
/// Internal: not installed. The places are those of the file now; there is none for what it does not have.
#pragma once

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>
#include <utility>

#include "orva/config/internal/nearest_name.hpp"
#include "orva/config/internal/read_file.hpp"
#include "orva/config/internal/value_places.hpp"
#include "orva/diagnostics/place.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::config::_private {

class file_places {
 public:
  explicit file_places(strings::ustring8 file) : file_(std::move(file)) {}

  const strings::ustring8& file() const noexcept { return file_; }

  diagnostics::place key(std::string_view key) {
    const value_place* const found = places().find(key);
    return found != nullptr ? found->key : diagnostics::place{};
  }

  /// Of an element, if the key is an array, otherwise of the one value.
  diagnostics::place value(std::string_view key, std::size_t element) {
    const value_place* found = places().find(key);
    if (found != nullptr && found->is_array) {
      found = places().find(std::string(key) + '.' + std::to_string(element));
    }
    return found != nullptr ? found->value : diagnostics::place{};
  }

  /// Of the first key in a section. It reads all names, and gives no place after many calls.
  diagnostics::place first_in(std::string_view section) {
    if (searches_left_ == 0) return {};
    --searches_left_;
    const std::string prefix = std::string(section) + '.';
    for (const value_place& each : places().all()) {
      if (each.name.starts_with(prefix)) return each.key;
    }
    return {};
  }

 private:
  const value_places& places() {
    if (!places_) {
      strings::ustring8 text;
      if (!read_file(file_, text)) text.clear();
      places_.emplace(text);
    }
    return *places_;
  }

  strings::ustring8 file_;
  std::size_t searches_left_ = max_searched_names;
  std::optional<value_places> places_;
};

}  // namespace ORVA_NAMESPACE::config::_private
