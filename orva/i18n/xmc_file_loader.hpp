/// `xmc_file_loader`: reads XMC files, the XML files of localised messages, for one language.
///
///     <?xml version="1.0" encoding="UTF-8"?>
///     <xmc version="1.1">
///       <catalog name="app" lang="de_DE">
///         <msg name="disk_free" meta="shown in the status bar">Frei: <arg name="n" type="mem"/></msg>
///       </catalog>
///       <include file="more.xmc"/>
///     </xmc>
///
/// A loader is a local object of one load: it collects messages over the file and the files that it includes,
/// and `combine_data` merges them into a set of catalogs. Applications use `message_catalogs`, which does
/// both.
///
/// No bad file throws: every failure is a `load_error`. The first error ends the file, and what was read
/// before it stays in the loader. Input of any bytes costs time and memory in proportion to its size. One
/// loader belongs to one thread.
#pragma once

#include <map>
#include <string_view>
#include <vector>

#include "orva/export.hpp"
#include "orva/i18n/catalog.hpp"
#include "orva/i18n/internal/language_tag.hpp"
#include "orva/i18n/load_error.hpp"
#include "orva/i18n/message.hpp"
#include "orva/i18n/internal/message_table.hpp"
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

  /// How deep files may include each other: a cycle ends here, with `invalid_element` and the file's name.
  static constexpr types::uint32 max_include_depth = 64;
  /// How many files one load may include: without it, a short chain of files that each include the next one
  /// twice would take as long as one likes. The same error.
  static constexpr types::uint32 max_included_files = 10000;

  /// Reads a file for the neutral languages "." and "en" only.
  [[nodiscard]] load_error parse(const strings::text_argument& file);
  /// Reads a file for a language, its parents, English and the neutral language. An empty language gives
  /// `no_default_locale`, and the file is not read.
  [[nodiscard]] load_error parse(const strings::text_argument& file, const strings::text_argument& language);
  /// The same, but from now on only the catalog of that name is read. An empty name stands for all catalogs.
  [[nodiscard]] load_error parse(const strings::text_argument& file, const strings::text_argument& language,
                                 const strings::text_argument& catalog);

  /// Reads a file for the languages set before; without any, no catalog is wanted. A file that exists but
  /// cannot be opened reads as empty, which is a file without XML header.
  [[nodiscard]] load_error parse_file(const strings::ustring8& file);
  /// Reads the text of a file. Errors name it `file`. Relative paths of includes start from the directory of
  /// the last file that `parse_file` read.
  [[nodiscard]] load_error parse_string(const strings::ustring8& text, const strings::ustring8& file);

  /// Merges what was read into `target`, making the catalogs that it lacks, and returns the number of
  /// messages stored, new or in place of another. A message that `target` holds stays only if its language
  /// weighs more.
  ///
  /// An empty pointer in `target` under the name of a catalog that was read throws the text "unreferanced
  /// object".
  types::uint32 combine_data(catalog_map& target) const;
  /// The same, but moves: the loader is left without messages.
  types::uint32 move_data(catalog_map& target);

  /// Keeps `message` for the catalog, unless it holds one of that name whose language weighs as much or more.
  void set_message(const message_t& message, const strings::ustring8& catalog);
  /// Forgets what was read, but not the languages.
  void reset();

  /// Sets the accepted languages; see `accepted_languages`. A new loader accepts none.
  void handle_language(const strings::text_argument& language);
  /// The place of a language among the accepted ones, counted from 1. The bigger, the better; 0 is not
  /// wanted.
  types::uint32 get_locale_weight(const strings::text_argument& language) const;
  bool is_lang_id_good(const strings::text_argument& language) const {
    return get_locale_weight(language) != 0;
  }
  /// Whether the load is restricted to one catalog.
  bool is_cat_id_set() const noexcept { return !catalog_id_.empty(); }
  bool is_catalog_matched(const strings::text_argument& name) const;

 protected:
  using token = parser::xml_token_stream::token;
  using token_iterator = parser::xml_token_stream::iterator;

  // Each stands on the first token of its construct, throws a `load_error`, and leaves `it` behind the
  // construct.
  //
  // `Iterator` is `token_iterator`, and names and texts are then moved out of the tokens. A file that the
  // loader reads itself never becomes such tokens: it is read through views into its text.
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
  load_error told_as_error(const strings::ustring8& file, Read read);
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
  void keep(message_batch& messages, const strings::ustring8& catalog);
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
