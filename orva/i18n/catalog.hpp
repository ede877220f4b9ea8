/// `catalog_t`: a named set of messages, each in the best language that was loaded for it.
///
///     const i18n::catalog_t& catalog = catalogs.catalog("app");
///     catalog.message("disk_free").as_utf8(args)         =>  "Free: 1.5 KB"
///     catalog.message("unknown").as_utf8()               =>  ""         no check is needed before rendering
///     catalog.message("unknown") == types::nil           =>  true
///     catalog.is_language_loaded("de")                   =>  true
///
/// A catalog holds one message per name. The message keeps the language that it came from in
/// `_orginal_locale`. References to a message stay valid until the message is replaced or the catalog is
/// destroyed. Catalogs are counted objects; `message_catalogs` holds them by
/// `memory::pointers::shared_pointer`.
///
/// Threads: any number of threads may call the const functions of a catalog while none changes it.
///
/// Edge cases: docs/edges.md#messages.
#pragma once

#include <mutex>
#include <set>
#include <utility>
#include <vector>

#include "orva/export.hpp"
#include "orva/generic/abilities/reference_count_pointer_ability.hpp"
#include "orva/i18n/internal/message_table.hpp"
#include "orva/i18n/message.hpp"
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

  /// Returned by lookups that find nothing.
  static const message_t m_nil_message;

  catalog_t() = default;
  /// `languages` is stored unchanged. An empty one is filled from the messages by the first lookup of a
  /// language.
  catalog_t(const strings::ustring8& name, const std::vector<strings::ustring8>& languages,
            message_map messages);
  template <strings::other_text Text>
  catalog_t(const Text& name, const std::vector<strings::ustring8>& languages, message_map messages)
      : catalog_t(strings::text_argument(name).get(), languages, std::move(messages)) {}
  /// Copies name, languages and messages. The copy has a count of its own.
  catalog_t(const catalog_t& other);

  /// Copies name, languages and messages. Pointers to this catalog stay valid.
  catalog_t& assign(const catalog_t& other);
  /// Empties the catalog.
  catalog_t& assign(const types::nil_t&);
  catalog_t& operator=(const catalog_t& other) { return assign(other); }
  catalog_t& operator=(const types::nil_t& nil) { return assign(nil); }

  const strings::ustring8& name() const noexcept { return name_; }
  void _name(const strings::ustring8& name) { name_ = name; }
  template <strings::other_text Text>
  void _name(const Text& name) {
    _name(strings::text_argument(name).get());
  }

  bool has_message(const strings::text_argument& name) const;
  /// The message, or `m_nil_message`.
  const message_t& message(const strings::text_argument& name) const;
  /// Stores `value` under `name`, in place of any message of that name, and returns the stored message. Once
  /// the set of languages is filled, the language of `value` is not added to it.
  const message_t& message(const strings::text_argument& name, const message_t& value);

  /// The number of messages.
  types::uint32 size() const noexcept { return static_cast<types::uint32>(messages_.size()); }
  /// The messages, sorted by name.
  const_iterator begin() const noexcept { return messages_.begin(); }
  const_iterator end() const noexcept { return messages_.end(); }

  // The set of languages is filled from the messages by the first of these calls that finds it empty, and is
  // never refreshed.

  /// The languages of the messages, sorted, in the spelling of the files.
  language_iterator languages_begin() const;
  language_iterator languages_end() const;
  /// Whether the set holds exactly this language. `.` and `-` count as `_`, and parents are not tried.
  ///
  ///     messages of "de_DE"   is_language_loaded("de-DE")  =>  true
  ///     messages of "de"      is_language_loaded("de-DE")  =>  false
  bool is_language_loaded(const strings::text_argument& language) const;
  /// Adds the language of each message to the set. Adding one that is not in the set yet is a change of the
  /// catalog: other threads must not use it meanwhile.
  void gen_lang_set() const;

  /// Without name, languages and messages.
  bool equal(const types::nil_t&) const noexcept;
  bool operator==(const types::nil_t& nil) const noexcept { return equal(nil); }
  bool operator!=(const types::nil_t& nil) const noexcept { return !equal(nil); }

 private:
  friend class _private::xmc_file_loader;  // merges whole maps of messages

  const language_set& filled_languages() const;
  language_set copy_of_languages() const;
  /// REQUIRES: `languages_mutex_` is locked.
  void add_languages() const;

  strings::ustring8 name_;
  // The set is filled in const functions, which several threads may call.
  mutable std::mutex languages_mutex_;
  mutable language_set languages_;
  _private::message_table messages_;
};

}  // namespace ORVA_NAMESPACE::i18n
