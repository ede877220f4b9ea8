/// `file_item`: a configuration file.
///
///     # a comment, to the end of the line; so is text after //
///     colour = dark blue              colour: "darkblue"          blanks outside quotes are dropped
///     title  = "dark blue" # theme    title: "dark blue"
///     [window.main]                   the keys after it are in window.main, up to the next section
///     size[] = 640, 480               window.main.size: array of "640", "480"
///     names[] = a,                    after a comma an array continues
///               b                     on the next line
///     []                              back to the top
///
/// Every text can be read: it has no syntax errors, only unexpected keys. Some of them:
///
///     a\nb = 1               =>  ab: "1"                 a key ends only at `=`
///     = a\nb = 1             =>  ab: "1"                 a `=` without a key is dropped
///     a =                    =>  no key                  an empty value is not stored, "" neither
///     a[] = x,\n\n y         =>  a: array of "x", "y"    after a comma, blank lines do not end an array
///     home = http://x        =>  home: "http:"           // begins a comment
///
/// `check_file` (config/check_file.hpp) finds them in a file, with line and column.
///
/// Lines end with LF or CRLF. A CR alone is text. Values are `ustring8` with the bytes of the file. A byte
/// order mark is part of the first key. docs/configuration.md describes the format.
///
/// `save` is not the inverse of `load`: it writes only keys that are in a section, and no comments. Its
/// speaking sibling is `config_document`, which edits a file without loss.
///
/// Edge cases: docs/edges.md#configuration
#pragma once

#include <string_view>

#include "orva/config/base_config_item.hpp"
#include "orva/export.hpp"
#include "orva/strings/text_argument.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::config {

class ORVA_API file_item : public base_config_item {
 public:
  /// Reads nothing yet. The id is "standard file". The name may be empty: `load(items)` then looks for a
  /// file.
  explicit file_item(strings::ustring8 filename);
  template <strings::other_text Text>
  explicit file_item(const Text& filename) : file_item(strings::text_argument(filename).get()) {}

  strings::ustring8 get_filename() const { return filename_; }

  /// Adds the keys of the file, none if it does not exist or cannot be read. True. `check_files` says which
  /// files are not read, and `linked_file_item` reads through symbolic links.
  bool load() override;
  /// Looks for the file, stores its name and adds its keys. The file is the first of these:
  ///
  ///     1.  the first file that can be opened of those that the items name by the key "cfg_file"
  ///     2.  the name that this item has, also where there is no such file
  ///     3.  the first file that can be opened of "application.name.raw" of each item, followed by ".cfg"
  ///
  /// Names are relative to the working directory. Directories and symbolic links cannot be opened. Items
  /// after this one have not loaded yet and name no file. True.
  bool load(const item_list& items) override;

  /// Replaces the file, by `system::store_file`. Each node without a value becomes a section, with the keys
  /// of all sections whose names are as long as its own. True, also where the file cannot be written.
  ///
  /// Keys at the top are not written, and neither is a key that follows an array. Text is quoted where it
  /// contains a blank, a tab or a line end; nothing is escaped.
  bool save() override;
  using base_config_item::save;

  void unload() override;
  file_item* clone() const override;

 protected:
  /// Adds the keys of the file with the current name, none where the name is empty.
  void load_file();
  /// Moves `position` to the next line end outside quotes, or to the end of the text.
  void parse_comment(std::string_view text, unsigned int& position) const;

 private:
  friend class linked_file_item;

  strings::ustring8 filename_;
  bool follows_links_ = false;
};

}  // namespace ORVA_NAMESPACE::config
