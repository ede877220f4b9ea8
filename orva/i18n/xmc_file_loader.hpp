/// `xmc_file_loader`: reads XMC files, the XML files of localised messages, for one language. Applications
/// use `message_catalogs` instead, which loads files and holds the messages.
///
///     xmc_file_loader loader;
///     const load_error error = loader.parse("messages/app.xmc", "de");
///     if (error.type() == load_error::no_error) loader.move_data(catalogs);
///
/// A file looks like this:
///
///     <?xml version="1.0" encoding="UTF-8"?>
///     <xmc version="1.1">
///       <catalog name="app" lang="de">
///         <msg name="disk_free" meta="shown in the status bar">Frei: <arg name="n" type="mem"/></msg>
///       </catalog>
///       <include file="more.xmc"/>
///     </xmc>
///
/// A loader collects the messages of a file and of the files that it includes. `combine_data` or `move_data`
/// merges them into a set of catalogs.
///
/// A bad file never throws: each failure is a `load_error`. Reading ends at the first error, and the messages
/// before it stay in the loader. Any input costs time and memory in proportion to its size.
///
/// Threads: a loader is used by one thread at a time.
///
/// Edge cases: docs/edges.md#messages.
#pragma once

#include <map>
#include <string_view>
#include <vector>

#include "orva/export.hpp"
#include "orva/i18n/catalog.hpp"
#include "orva/i18n/internal/language_tag.hpp"
#include "orva/i18n/internal/message_table.hpp"
#include "orva/i18n/load_error.hpp"
#include "orva/i18n/message.hpp"
#include "orva/memory/pointers/shared_pointer.hpp"
#include "orva/parser/xml_token_stream.hpp"
#include "orva/strings/text_argument.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::i18n::_private {

class message_batch;

class ORVA_API xmc_file_loader {
 public:
  using load_error = _private::load_error;
  using error_type = load_error::error_type;
  using enum load_error::error_type;
  using catalog_map = std::map<strings::ustring8, memory::pointers::shared_pointer<catalog_t>>;

  /// How deep files may include each other. A cycle ends at this depth, with `invalid_element` and the file's
  /// name.
  static constexpr types::uint32 max_include_depth = 64;
  /// How many files one load may include, with the same error. Without a limit, 60 files that each include
  /// the next one twice would never be read to the end.
  static constexpr types::uint32 max_included_files = 10000;

  /// Reads a file for the neutral language "." and English alone.
  [[nodiscard]] load_error parse(const strings::text_argument& file);
  /// Reads a file for a language, its parents, English and the neutral language. An empty language gives
  /// `no_default_locale`, and the file is not read.
  [[nodiscard]] load_error parse(const strings::text_argument& file, const strings::text_argument& language);
  /// The same, but from now on only the catalog of that name is read. An empty name selects all catalogs.
  [[nodiscard]] load_error parse(const strings::text_argument& file, const strings::text_argument& language,
                                 const strings::text_argument& catalog);

  /// Reads a file for the languages set before; without any, no catalog is wanted. A file that exists but
  /// cannot be opened reads as empty, which is a file without XML header.
  [[nodiscard]] load_error parse_file(const strings::text_argument& file);
  /// Reads the text of a file. Errors name it `file`. Relative paths of includes start from the directory of
  /// the last file that `parse_file` read.
  [[nodiscard]] load_error parse_string(const strings::ustring8& text, const strings::text_argument& file);

  /// Merges the messages into `target`, adds the catalogs that it lacks, and returns the number of messages
  /// stored, new or in place of another. A message in `target` stays only if its language has the greater
  /// weight.
  ///
  /// If `target` has an empty pointer for a catalog that was read, the text "unreferanced object" is thrown.
  types::uint32 combine_data(catalog_map& target) const;
  /// The same, but moves the messages: the loader has none afterwards.
  types::uint32 move_data(catalog_map& target);

  /// Adds `message` to the catalog, unless that has one of the same name whose language has the same weight
  /// or a greater one.
  void set_message(const message_t& message, const strings::text_argument& catalog);
  /// Drops the messages, but not the languages.
  void reset();

  /// Sets the accepted languages; see `accepted_languages`. A new loader accepts none.
  void handle_language(const strings::text_argument& language);
  /// The position of a language in the list of accepted ones, counted from 1. A greater weight is a better
  /// match; 0 means not accepted.
  types::uint32 get_locale_weight(const strings::text_argument& language) const;
  bool is_lang_id_good(const strings::text_argument& language) const {
    return get_locale_weight(language) != 0;
  }
  /// Whether only one catalog is read.
  bool is_cat_id_set() const noexcept { return !catalog_id_.empty(); }
  bool is_catalog_matched(const strings::text_argument& name) const;

 protected:
  using token = parser::xml_token_stream::token;
  using token_iterator = parser::xml_token_stream::iterator;

  // Each starts at the first token of its construct, leaves `it` after the construct, and throws a
  // `load_error`.
  //
  // `Iterator` is `token_iterator`; names and texts are moved out of the tokens. The loader itself uses
  // another iterator, which reads views of a file's text.
  template <typename Iterator>
  void parse_xmc_header(Iterator& it, Iterator end);
  template <typename Iterator>
  void parse_catalog(Iterator& it, Iterator end);
  template <typename Iterator>
  void parse_include(Iterator& it, Iterator end);
  template <typename Iterator>
  message_t parse_message(Iterator& it, Iterator end);
  template <typename Iterator>
  message_item parse_message_arg(Iterator& it, Iterator end);
  /// The type for a type word; `string` for an unknown one.
  message_item::type_t parse_message_type(std::string_view word) const;
  /// Steps over comments, white space and text.
  template <typename Iterator>
  void parse_ignorable(Iterator& it, Iterator end);

 private:
  class message_body;

  template <typename Read>
  load_error result_of(Read read, const strings::ustring8& file);
  void parse_text(const strings::ustring8& text);
  template <typename Iterator>
  void parse_document(Iterator it, Iterator end);
  template <typename Iterator>
  void parse_catalog_content(Iterator& it, Iterator end, const strings::ustring8& name,
                             const strings::ustring8& language, message_batch& messages);
  template <typename Iterator>
  std::vector<message_item> parse_message_content(Iterator& it, Iterator end, const strings::ustring8& name);
  template <typename Iterator>
  void parse_message_element(Iterator& it, Iterator end, message_body& body);
  void parse_included_file(const strings::ustring8& file);
  void add_messages(message_batch& messages, const strings::ustring8& catalog);
  bool outweighs(const message_t& one, const message_t& other) const;
  template <typename Data>
  types::uint32 merge(Data& data, catalog_map& target) const;
  template <typename Messages>
  types::uint32 merge_messages(Messages& messages, message_table& target) const;

  accepted_languages languages_;
  std::map<strings::ustring8, message_table> data_;
  strings::ustring8 base_directory_;
  strings::ustring8 catalog_id_;
  types::uint32 include_depth_ = 0;
  types::uint32 included_files_ = 0;
};

}  // namespace ORVA_NAMESPACE::i18n::_private
