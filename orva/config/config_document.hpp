/// `config_document`: a configuration file as it is, which is edited without loss.
///
///     config_document document("# Size on screen\n[window]\nwidth = 640   # pixels\n");
///     document.get("window.width")                =>  "640"
///     must(document.set("Window.Width", "800"));  // `must` is yours: each edit returns what was wrong
///     must(document.set("window.title", "Free space"));
///     document.text()                             =>  "# Size on screen\n[window]\nwidth = 800   # pixels\n"
///                                                     "title = \"Free space\"\n"
///
///     must(document.load("viewer.cfg"));          // the same with a file
///     must(document.set("window.width", "800"));
///     must(document.save());                      // the old file or the new one, whatever happens
///
/// The format is that of `file_item`, and the values are those that `file_item` reads. An edit changes only
/// the lines of its key. It reads the text around them again, and is refused if any other key would change:
/// a text that was edited reads as before, but for the edit. Reading and writing without an edit keeps each
/// byte, of any text.
///
///     set          A key that the file has keeps its place, its spelling, the form of its line and the comment
///                  after it. Of several lines for one key the last one counts, and is changed. A value in
///                  quotes stays in quotes. An array that gets a plain value, or the opposite, is written
///                  anew. An element of an array is a key, too: "paths.1".
///     a new key    comes after the last key with the same parent: "window.title" after "window.width", however
///                  that is written, with its indentation and blanks. Without one, it begins the last section
///                  of the parent's name, or a new section at the end of the text; a key without a parent
///                  comes before the first section. The key is written as it is given, with dots.
///     set_array    Elements that stay are not touched, new ones come after the last one, in the same manner.
///                  Comments between elements that go are lost.
///     remove       All lines of the key go, also those without a value.
///     comments     The comment of a key is the lines directly above it that are comments and nothing else. It
///                  is removed with the key, unless it begins the file or the next line is another key: it may
///                  describe more than the key.
///     line ends    A new line ends as the line before it does; the first line as the one after it; LF in a
///                  text without line ends. A text whose last line has no line end stays so.
///     byte order   `file_item` takes a byte order mark for a part of the first key, and so does this class. It
///     mark         goes with that key only.
///
/// What the format can hold: a value that is not empty, and in which a backslash comes before each quote. A
/// key, likewise, without empty names; it does not end in "[]". Names may have blanks, `=` and `#`.
///
///     an empty text                          =>  may be edited like any other
///     a key in two sections of one name      =>  one key: the last line counts
///     a key after `[]`                       =>  a key without a parent
///     sections do not nest                   =>  "[a.b]" is the section of "a.b.c", and "[a]" is not
///     a line `a =`, without a value          =>  no key; `set("a", "1")` changes this line
///     a text that ends in an open quote, section or key, or in an array after a comma
///                                            =>  nothing is added after it: `unclosed`
///
/// Each call takes time and memory in proportion to the size of the text at most. Only `std::bad_alloc` is
/// thrown. One object belongs to one thread at a time while it is changed. A copy is independent. A document
/// that was moved from may only be assigned to and destroyed.
#pragma once

#include <cstddef>
#include <memory>
#include <optional>
#include <string>
#include <string_view>
#include <system_error>
#include <vector>

#include "orva/diagnostics/finding.hpp"
#include "orva/export.hpp"
#include "orva/strings/code_unit.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/system/path_argument.hpp"
#include "orva/system/replace_file.hpp"

namespace ORVA_NAMESPACE::config {

namespace _private {
class document_text;
}

class ORVA_API config_document {
 public:
  /// `file_item` reads no more. A longer text has no keys here either.
  static constexpr std::size_t max_size = 0x7FFFFFFF;

  /// Why an edit was refused. The text is then unchanged.
  enum class error {
    none = 0,
    bad_key,             ///< a key has names between its separators, no quote, and no [] at its end
    bad_value,           ///< a backslash comes before each quote of a value
    empty_value,         ///< a value is not empty, nor are an array and its last element
    bad_comment,         ///< each line of a comment closes its quotes
    no_such_key,         ///< the file has the key
    array_element,       ///< an element is not removed, and not an array: set the whole array
    unclosed,            ///< the text does not end in a quote, section, key or array that is open
    affects_other_keys,  ///< no other key changes: no other lines set elements of the same array
    too_large,           ///< the text has `max_size` bytes at most
  };

  /// What every edit returns: whether it was refused, and why.
  struct result {
    config_document::error error = config_document::error::none;
    /// The line of the key that could not be edited, or of what is not closed, from 1. 0 if there is none.
    std::size_t line = 0;

    bool operator==(const result&) const = default;
  };

  /// Why a file was not read.
  enum class load_error {
    none = 0,
    no_file,     ///< the path names something
    not_a_file,  ///< that is a regular file
    too_large,   ///< it has `max_size` bytes at most
    unreadable,  ///< the process may read it, and links to it form no circle
  };

  /// What `load` returns.
  struct load_result {
    config_document::load_error error = config_document::load_error::none;
    /// Why the system refused. Only `unreadable` has a value.
    std::error_code reason;

    bool operator==(const load_result&) const = default;
  };

  /// A line that stores a key.
  struct entry {
    /// In lower case, its names separated by dots.
    strings::ustring8 key;
    /// That of the key's first byte, from 1.
    std::size_t line = 0;
    bool is_array = false;

    bool operator==(const entry&) const = default;
  };

  /// An empty text.
  config_document();
  explicit config_document(std::string text);
  config_document(const config_document& other);
  config_document(config_document&& other) noexcept;
  config_document& operator=(const config_document& other);
  config_document& operator=(config_document&& other) noexcept;
  ~config_document();

  /// Replaces the text by that of a file. Symbolic links are followed. A failure leaves the text unchanged.
  /// The path is kept for `save`, also if there is no file.
  [[nodiscard]] load_result load(const system::path_argument& path);
  /// Writes the text to the file that was loaded, by `system::replace_file`. A document without a file has
  /// the empty path, which is refused.
  [[nodiscard]] system::replace_file_result save() const;
  [[nodiscard]] system::replace_file_result save(const system::path_argument& path) const;

  /// The text with all edits.
  [[nodiscard]] const std::string& text() const noexcept;

  /// The value of a key. None if the file does not have it, and for an array, but not for its elements. Case
  /// is ignored, and `/` and `\` are dots, as in `config_tree`.
  [[nodiscard]] std::optional<strings::ustring8> get(std::string_view key) const;
  /// The elements of an array. None if the key is not an array.
  [[nodiscard]] std::optional<std::vector<strings::ustring8>> get_array(std::string_view key) const;
  /// The comment of a key, without its marks and the blank after each, its lines separated by LF. Empty if it
  /// has none.
  [[nodiscard]] strings::ustring8 comment(std::string_view key) const;
  /// The lines that store a key, in their order. A key that comes twice is listed twice.
  [[nodiscard]] std::vector<entry> entries() const;

  /// Sets a key to a value. A `comment` that is not empty replaces the comment of the key.
  [[nodiscard]] result set(std::string_view key, std::string_view value, std::string_view comment = {});
  /// Sets a key to an array. All elements but the last one may be empty.
  [[nodiscard]] result set_array(std::string_view key, const std::vector<strings::ustring8>& elements,
                                 std::string_view comment = {});
  /// Replaces the comment of a key; an empty one removes it. Lines are separated by LF or CRLF.
  [[nodiscard]] result set_comment(std::string_view key, std::string_view comment);
  [[nodiscard]] result remove(std::string_view key);
  /// Adds a section at the end, after an empty line. Nothing changes if there is one of this name.
  [[nodiscard]] result add_section(std::string_view name);

 private:
  std::unique_ptr<_private::document_text> text_;
  strings::wide_string path_;
};

/// A result in words, with its line. `file` is the name that the user knows, and only passed on. Without an
/// error, the finding is a note without a code.
///
///     describe(document.set("title", "\"x\""), "title", "a.cfg")
///         =>  a.cfg: error: The value for title has a quote without a backslash before it.
///             [config.edit_bad_value]
[[nodiscard]] ORVA_API diagnostics::finding describe(const config_document::result& result,
                                                     std::string_view key, std::string_view file = {});

/// The same for a file that was not read, with the codes of file_findings.hpp. For a failure of `save`:
/// `system::describe`.
///
///     describe(document.load("/etc/shadow"), "/etc/shadow")
///         =>  /etc/shadow: error: The file cannot be opened: Permission denied [config.file_refused]
[[nodiscard]] ORVA_API diagnostics::finding describe(const config_document::load_result& result,
                                                     std::string_view file);

}  // namespace ORVA_NAMESPACE::config
