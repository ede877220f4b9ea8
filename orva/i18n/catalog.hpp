/// `catalog_t`: one named set of messages, after the choice of language was made.
///
/// Each name holds one message, which remembers in `_orginal_locale` the language that it came from. The
/// catalog owns its messages; what it hands out stays valid until the message is replaced or the catalog
/// goes. Catalogs are counted objects, held by `memory::pointers::shared_pointer` in `message_catalogs`.
///
/// Many threads may read a filled catalog, with one exception: the first question about languages fills a
/// cache behind the const interface. Call `gen_lang_set` once before a catalog is shared.
///
///     catalog.message("disk_free").as_utf8(args);
///     catalog.message("unknown") == types::nil;          // nothing to check before rendering: the text is empty
#pragma once

#include <set>
#include <vector>

#include "orva/export.hpp"
#include "orva/generic/abilities/reference_count_pointer_ability.hpp"
#include "orva/i18n/message.hpp"
#include "orva/i18n/message_table.hpp"
#include "orva/strings/text_argument.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/types/integers.hpp"
#include "orva/types/nil.hpp"

namespace ORVA_NAMESPACE::i18n {

namespace _private {
class xmc_file_loader;
}

class ORVA_API catalog_t : public generic::abilities::reference_count_pointer_ability<catalog_t> {
 public:
  using message_map = _private::message_table::map;
  using language_set = std::set<strings::ustring8>;
  using const_iterator = message_map::const_iterator;
  using language_iterator = language_set::const_iterator;

  /// What a lookup that finds nothing returns a reference to.
  static const message_t m_nil_message;

  catalog_t() = default;
  /// `languages` is taken as it stands; an empty one is filled from the messages when it is first asked for.
  catalog_t(const strings::ustring8& name, const std::vector<strings::ustring8>& languages,
            message_map messages);
  /// A copy of the name, the languages and the messages. It is a counted object of its own.
  catalog_t(const catalog_t& other);

  /// Takes over name, languages and messages. Whoever points at this catalog goes on pointing at it.
  catalog_t& assign(const catalog_t& other);
  /// Empties the catalog.
  catalog_t& assign(const types::nil_t&);
  catalog_t& operator=(const catalog_t& other) { return assign(other); }
  catalog_t& operator=(const types::nil_t& nil) { return assign(nil); }

  const strings::ustring8& name() const noexcept { return name_; }
  void _name(const strings::ustring8& name) { name_ = name; }

  bool has_message(const strings::text_argument& name) const;
  /// The message, or `m_nil_message`.
  const message_t& message(const strings::text_argument& name) const;
  /// Stores `value` under `name` in place of any message of that name, and returns the stored one. A language
  /// that is new with it does not show once the languages have been asked for.
  const message_t& message(const strings::text_argument& name, const message_t& value);

  /// The number of messages.
  types::uint32 size() const noexcept { return static_cast<types::uint32>(messages_.size()); }
  /// The messages, sorted by name.
  const_iterator begin() const noexcept { return messages_.begin(); }
  const_iterator end() const noexcept { return messages_.end(); }

  /// The languages of the messages, sorted, as the files spell them.
  language_iterator languages_begin() const;
  language_iterator languages_end() const;
  /// Whether a message came from exactly this language: `.` and `-` count as `_`, and no parent is tried.
  ///
  ///     messages of "de_DE"   is_language_loaded("de-DE")  =>  true
  ///     messages of "de"      is_language_loaded("de-DE")  =>  false
  bool is_language_loaded(const strings::text_argument& language) const;
  /// Adds the language of each message to the languages.
  void gen_lang_set() const;

  /// Without name, languages and messages.
  bool equal(const types::nil_t&) const noexcept;
  bool operator==(const types::nil_t& nil) const noexcept { return equal(nil); }
  bool operator!=(const types::nil_t& nil) const noexcept { return !equal(nil); }

 private:
  friend class _private::xmc_file_loader;  // merges whole maps of messages

  void need_languages() const;

  strings::ustring8 name_;
  mutable language_set languages_;
  _private::message_table messages_;
};

}  // namespace ORVA_NAMESPACE::i18n
