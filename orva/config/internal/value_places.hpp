/// Where the values of a configuration file are in its text.
///
///     const value_places places("[window]\nwidth = 640\nsize[] = 1, 2\n");
///     places.find("Window/Width")->key      =>  line 2, column 1
///     places.find("Window/Width")->value    =>  line 2, column 9
///     places.find("window.size.1")->value   =>  line 3, column 13
///     places.find("window")                 =>  null: a section has no value
///
/// The keys and values are those that `file_item` reads from the text: `find` has a place for exactly the
/// keys whose node has a value. Lines and columns are those of `diagnostics::place_of`. There are none for a
/// text whose keys, each with the name of its section in front, are `max_names_per_text` times as long as the
/// text: memory stays in proportion to it.
///
/// Internal: not installed. Reads the text twice; it need not live on. Any number of threads may use one.
#pragma once

#include <cstddef>
#include <string>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "orva/diagnostics/place.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::config::_private {

/// A value that the text gives to a key.
struct value_place {
  /// The key in lower case, separated by dots. `config_tree::get_node` finds the node by it.
  std::string name;
  /// The first byte of the key. The elements of an array have that of the array.
  diagnostics::place key;
  /// The first byte of the value, or of its quote. After the `=` or the comma for an empty element.
  diagnostics::place value;
  /// The value. Empty for the array itself.
  strings::ustring8 text;
  bool is_array = false;
};

class value_places {
 public:
  static constexpr std::size_t max_names_per_text = 32;

  explicit value_places(std::string_view text);

  /// The last value that the text gives to the key, which is the one that counts, or null.
  const value_place* find(std::string_view key) const;

  /// All values in the order in which they are read. The elements of an array follow it. A key that comes
  /// again is here again.
  const std::vector<value_place>& all() const noexcept { return all_; }

 private:
  std::vector<value_place> all_;
  std::unordered_map<std::string, std::size_t> last_;
};

}  // namespace ORVA_NAMESPACE::config::_private
