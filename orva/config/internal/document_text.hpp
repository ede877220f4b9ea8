/// The text of a configuration file with its parts, and edits that are checked.
///
///     document_text document("[window]\nwidth = 640\n");
///     document.parts()[1].path                       =>  "window.width"
///     document.replace({{17, 3, "800"}}, intended)   =>  true if just what is intended reads otherwise
///
/// Internal: not installed. A path is a key in lower case, its names separated by dots.
///
/// An edit reads again only the parts that it may change: from the part at its place on, up to a place from
/// which the old text and the new one are the same and read from the same state.
#pragma once

#include <cstddef>
#include <cstdint>
#include <optional>
#include <string>
#include <string_view>
#include <vector>

#include "orva/config/internal/config_file_scanner.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::config::_private {

struct document_part {
  scanned_part::type kind = scanned_part::type::comment;
  /// A quote is not closed, and takes the rest of the text.
  bool is_open = false;
  /// `file_item` stores a value or an array.
  bool is_stored = false;
  /// The elements of an array are under its path and an empty name: "[]" without a name, or after a dot.
  bool has_nested_elements = false;
  std::uint32_t begin = 0;
  /// The size of the text at most.
  std::uint32_t end = 0;
  /// The elements of an array that is stored, with those that arrays before it left.
  std::uint32_t count = 0;
  /// The elements that arrays up to here leave to the next one.
  std::uint32_t carried = 0;
  /// Of a value, an array or a section.
  std::string path;

  bool has_values() const { return kind == scanned_part::type::value || kind == scanned_part::type::array; }
  bool is_stored_array() const { return is_stored && kind == scanned_part::type::array; }
  std::string elements_path() const { return has_nested_elements ? path + '.' : path; }
};

/// What `file_item` stores for a part.
struct stored_value {
  std::string path;
  bool is_array = false;
  std::vector<strings::ustring8> texts;
  bool has_nested_elements = false;

  bool operator==(const stored_value&) const = default;
};

using elements = std::vector<strings::ustring8>;

/// Bytes that are replaced.
struct replacement {
  std::size_t offset = 0;
  std::size_t length = 0;
  std::string text;
};

/// What an edit does to what the parts store.
struct intended_change {
  /// The indexes of parts whose values go, in ascending order.
  std::vector<std::size_t> removed;
  /// What comes before the part with the index `position`, or at the place of a removed one.
  std::size_t position = 0;
  std::optional<stored_value> added;
};

/// The number by which a path names an element of an array at `parent`.
std::optional<std::size_t> element_number(std::string_view parent, std::string_view path);

class document_text {
 public:
  explicit document_text(std::string text);

  const std::string& text() const { return text_; }
  const std::vector<document_part>& parts() const { return parts_; }

  scanned_part scan(std::size_t index) const;
  /// The elements of an array that is stored, with those that arrays before it left.
  elements elements_of(std::size_t index) const;
  /// The elements that arrays before a part leave to the next one.
  elements carried_before(std::size_t index) const;
  /// The path of the section that a part is in.
  std::string_view section_before(std::size_t index) const;

  /// Replaces bytes, in ascending order. False, and without a change, if more or less than `intended` would
  /// read otherwise.
  ///
  /// REQUIRES: at least one replacement, and a text that stays below the limit.
  bool replace(const std::vector<replacement>& replacements, const intended_change& intended);

 private:
  /// Parts that were read again, and what they store. `next` is the index of the first old part that stays.
  struct new_parts {
    std::vector<document_part> parts;
    std::vector<stored_value> stored;
    std::size_t next = 0;
  };

  /// Reads the new text from the part `first` on, at least to what was at `old_end`.
  new_parts read_again(std::string_view text, std::size_t first, std::size_t old_end) const;
  void exchange(std::size_t first, new_parts changed, std::size_t growth);
  std::vector<stored_value> expected(std::size_t first, std::size_t last,
                                     const intended_change& intended) const;
  stored_value stored_by(std::size_t index) const;

  std::string text_;
  std::vector<document_part> parts_;
};

}  // namespace ORVA_NAMESPACE::config::_private
