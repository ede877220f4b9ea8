/// `file_item`: a configuration file.
///
///     # a comment, as is what stands behind //
///     colour = dark blue              colour: "darkblue"          blanks go
///     title  = "dark blue" # theme    title: "dark blue"          unless they are in quotes
///     [window.main]                   the keys behind it are in window.main, until the next section
///     size[] = 640, 480               window.main.size: array of "640", "480"
///     names[] = a,                    an array goes on
///               b                     behind a comma at the end of a line
///     []                              back to the top
///
/// Every file can be read: what does not fit becomes an odd key. A line without `=` belongs to the key of the
/// next line, a key without a value is left out, a byte order mark is part of the first key. Values are
/// `ustring8` of the bytes that the file holds. docs/configuration.md tells the format to the last byte.
///
/// Reading and writing are not inverse: `save` writes the keys that are in a section, and no comments.
#pragma once

#include <string_view>

#include "orva/config/base_config_item.hpp"
#include "orva/export.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::config {

class ORVA_API file_item : public base_config_item {
 public:
  /// Reads nothing yet. The id is "standard file". The name may be empty, for a file that is to be looked
  /// for.
  explicit file_item(strings::ustring8 filename);

  strings::ustring8 get_filename() const { return filename_; }

  /// Adds the file's keys. A file that is not there or cannot be read adds none. True.
  bool load() override;
  /// Looks for the file first, and remembers its name. It is the first of these:
  ///
  ///     the file that "cfg_file" names, in the first item that names one which can be opened
  ///     the name that the item has
  ///     "application.name.raw" followed by ".cfg", in the first item for which that can be opened
  ///
  /// Names are relative to the working directory. A directory or a symbolic link does not open. Items that
  /// load later than this one name nothing yet. True.
  bool load(const item_list& items) override;

  /// Writes the file anew, with `system::store_file`: for each node without a value a section, and in it the
  /// keys of the sections whose names are as long. True, also where the file cannot be written.
  ///
  /// Keys at the top are not written, nor is a key that follows an array. Text is not escaped; it is quoted
  /// where it holds a blank, a tab or a line end.
  bool save() override;
  /// Writes nothing. True.
  bool save(const item_list& items) override;

  void unload() override;
  file_item* clone() const override;

 protected:
  /// Reads the file that is named by now; none where the name is empty.
  void load_file();
  /// Moves `position` to the end of its line, or of the text. Text in quotes may take it over line ends.
  void parse_comment(std::string_view text, unsigned int& position) const;

 private:
  strings::ustring8 filename_;
};

}  // namespace ORVA_NAMESPACE::config
