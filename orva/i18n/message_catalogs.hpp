/// `message_catalogs`: the messages of an application, loaded from XMC files and looked up by catalog and
/// name.
///
///     i18n::message_catalogs catalogs;
///     const auto result = catalogs.load("messages", "de_DE");
///     if (result != i18n::message_catalogs::no_error) std::cerr << result << '\n';
///     catalogs.message("app", "disk_free").as_utf8(args);
///
/// Each load adds to the set. A loaded message replaces one of the same name, unless this load prefers the
/// language of the one that is there. A load for another language therefore replaces messages, too.
///
/// Copies of a set share its catalogs. A load into one copy that adds messages to a shared catalog shows in
/// all copies. A catalog that one copy adds or drops is added or dropped in that copy alone.
///
/// Paths are a `std::filesystem::path` or text of any of the three widths. Names of catalogs, messages and
/// languages are text of any of the three widths, see `strings::text_argument`.
///
/// No lookup fails: an unknown message is the nil message, which renders as empty text. References and
/// iterators stay valid until the next load or `erase`.
///
/// Threads: any number of threads may look up messages, catalogs and languages while none loads or erases.
///
/// Edge cases: docs/edges.md#messages.
#pragma once

#include <iosfwd>
#include <map>
#include <vector>

#include "orva/export.hpp"
#include "orva/i18n/catalog.hpp"
#include "orva/i18n/load_error.hpp"
#include "orva/i18n/message.hpp"
#include "orva/i18n/path_list.hpp"
#include "orva/memory/pointers/shared_pointer.hpp"
#include "orva/strings/text_argument.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/types/integers.hpp"
#include "orva/types/nil.hpp"

namespace ORVA_NAMESPACE::i18n {

class ORVA_API message_catalogs {
 public:
  /// Text means the text that a result is constructed with.
  enum error_type : int {
    no_error = 0,
    no_catalog = 1,           ///< text: the file, or the directory whose load leaves the set empty
    no_default_locale = 2,    ///< the caller gave no language
    file_not_found = 3,       ///< text: the file
    directory_not_found = 4,  ///< text: the directory
    entity_not_found = 5,     ///< neither a file nor a directory; text: the path
    xml_parse_error = 6,      ///< not well-formed
    xmc_invalid = 7,          ///< well-formed, but not a valid XMC file
    unexpected_error = 8      ///< the file or the directory cannot be read completely
  };

  /// The result of a load: a code, and a text for humans.
  class ORVA_API result_type {
   public:
    /// Codes 2, 6, 7 and 8 have texts of their own only if they come from a `load_error`. Here they give
    /// "unknown, or unhandle case happened!", as does a code that is not listed.
    result_type(error_type type, const strings::ustring8& text);
    template <strings::other_text Text>
    result_type(error_type type, const Text& text) : result_type(type, strings::text_argument(text).get()) {}
    /// The message is a heading, and the message of `error` on the lines below it.
    result_type(const _private::load_error& error);

    error_type type() const noexcept { return type_; }
    operator error_type() const noexcept { return type_; }
    /// `if (catalogs.load(...))` would be true on failure. Compare with `no_error` instead.
    explicit operator bool() const = delete;
    const strings::ustring8& message() const noexcept { return message_; }

   protected:
    static strings::ustring8 format_message(error_type type, const strings::ustring8& text);

   private:
    error_type type_;
    strings::ustring8 message_;
  };

  using catalog_map = std::map<strings::ustring8, memory::pointers::shared_pointer<catalog_t>>;
  using iterator = catalog_map::iterator;
  using const_iterator = catalog_map::const_iterator;
  using resolve_map = std::map<strings::ustring8, strings::ustring8>;

  /// A load gives up after this many directories: a tree in which links lead back up has no end.
  static constexpr types::uint32 max_directories = 10000;

  /// Returned by lookups that find nothing.
  static const catalog_t s_nil_catalog;
  static const message_t s_nil_message;

  // The implicit constructors and assignments copy pointers: copies share their catalogs.

  message_catalogs& assign(const message_catalogs& other) { return *this = other; }
  /// Drops all catalogs.
  message_catalogs& assign(const types::nil_t&);
  message_catalogs& operator=(const types::nil_t& nil) { return assign(nil); }

  /// Loads a file or a directory for `language`, its parents, English and the neutral language ".". With
  /// `catalog`, only the catalog of that name is loaded.
  ///
  /// A failure leaves all earlier loads as they were, and nothing of the failing file is kept. An empty
  /// language gives `no_default_locale`. A directory that leaves the set without any catalog gives
  /// `no_catalog`.
  [[nodiscard]] result_type load(const strings::text_argument& path, const strings::text_argument& language,
                                 const strings::text_argument& catalog = "");
  /// Loads files and directories in the order given, and stops at the first failure, which is the result. The
  /// paths before it stay loaded. A directory that leaves the set without any catalog is no failure here.
  [[nodiscard]] result_type load(const path_list& paths, const strings::text_argument& language,
                                 const strings::text_argument& catalog = "");

  /// Loads a file. A missing one gives `file_not_found`.
  [[nodiscard]] result_type load_file(const strings::text_argument& file,
                                      const strings::text_argument& language,
                                      const strings::text_argument& catalog = "");

  /// Loads each file of the directory, and of the directories below it, whose name ends in ".xmc" or ".xml",
  /// capital letters or not, in the order of `system::list_directory`. Stops at the first file that fails. A
  /// file without a catalog for the language fails.
  [[nodiscard]] result_type load_directory(const strings::text_argument& directory,
                                           const strings::text_argument& language,
                                           const strings::text_argument& catalog = "");

  /// Drops all catalogs.
  void erase() { catalogs_.clear(); }
  void remove() { erase(); }
  /// Drops one catalog. An unknown name is no error.
  void erase(const strings::text_argument& name);

  bool has_catalog(const strings::text_argument& name) const;
  /// Whether a message of the catalog came from exactly this language (see `catalog_t::is_language_loaded`).
  bool has_catalog(const strings::text_argument& name, const strings::text_argument& language) const;
  /// The catalog, or `s_nil_catalog`.
  const catalog_t& catalog(const strings::text_argument& name) const;

  /// The number of catalogs.
  types::uint32 count() const noexcept { return static_cast<types::uint32>(catalogs_.size()); }
  types::uint32 size() const noexcept { return count(); }
  /// The number of messages in a catalog; 0 if it is unknown.
  types::uint32 count(const strings::text_argument& name) const { return catalog(name).size(); }
  types::uint32 size(const strings::text_argument& name) const { return count(name); }

  /// The catalogs, sorted by name.
  iterator begin() noexcept { return catalogs_.begin(); }
  iterator end() noexcept { return catalogs_.end(); }
  const_iterator begin() const noexcept { return catalogs_.begin(); }
  const_iterator end() const noexcept { return catalogs_.end(); }
  /// The messages of one catalog, sorted by name; those of `s_nil_catalog` if it is unknown.
  catalog_t::const_iterator begin(const strings::text_argument& name) const { return catalog(name).begin(); }
  catalog_t::const_iterator end(const strings::text_argument& name) const { return catalog(name).end(); }

  /// Whether the catalog is there and its message is not nil.
  bool has_message(const strings::text_argument& catalog, const strings::text_argument& name) const;
  /// The message. `s_nil_message` if the catalog is unknown, `catalog_t::m_nil_message` if only the message
  /// is.
  const message_t& message(const strings::text_argument& catalog, const strings::text_argument& name) const;

  /// Stores the map. It has no effect on messages, as `message_t::resolve` does nothing.
  void set_resolve_container(const resolve_map& container) { resolve_container_ = container; }

  /// Nil means no catalogs.
  bool equal(const types::nil_t&) const noexcept { return catalogs_.empty(); }
  bool operator==(const types::nil_t& nil) const noexcept { return equal(nil); }
  bool operator!=(const types::nil_t& nil) const noexcept { return !equal(nil); }

 private:
  class load_operation;

  catalog_map catalogs_;
  resolve_map resolve_container_;
};

/// Writes `message()`.
ORVA_API std::ostream& operator<<(std::ostream& stream, const message_catalogs::result_type& result);

}  // namespace ORVA_NAMESPACE::i18n
