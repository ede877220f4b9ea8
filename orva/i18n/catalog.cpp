#include "orva/i18n/catalog.hpp"

#include <utility>

#include "orva/i18n/internal/language_tag.hpp"

namespace ORVA_NAMESPACE::i18n {

using strings::text_argument;
using strings::ustring8;

const message_t catalog_t::m_nil_message;

catalog_t::catalog_t(const ustring8& name, const std::vector<ustring8>& languages, message_map messages)
    : name_(name),
      languages_(languages.begin(), languages.end()),
      messages_(_private::message_table(std::move(messages))) {}

catalog_t::catalog_t(const catalog_t& other)
    : generic::abilities::reference_count_pointer_ability<catalog_t>(other),
      name_(other.name_),
      languages_(other.copy_of_languages()),
      messages_(other.messages_) {}

catalog_t& catalog_t::assign(const catalog_t& other) {
  // The base class is left alone: its assignment would copy the number of pointers to `other`.
  language_set languages = other.copy_of_languages();
  name_ = other.name_;
  languages_ = std::move(languages);
  messages_ = other.messages_;
  return *this;
}

catalog_t& catalog_t::assign(const types::nil_t&) {
  name_.clear();
  languages_.clear();
  messages_ = {};
  return *this;
}

bool catalog_t::has_message(const text_argument& name) const { return messages_.find(name) != nullptr; }

const message_t& catalog_t::message(const text_argument& name) const {
  const message_t* const found = messages_.find(name);
  return found != nullptr ? *found : m_nil_message;
}

const message_t& catalog_t::message(const text_argument& name, const message_t& value) {
  return messages_.insert_or_assign(name, value);
}

catalog_t::language_iterator catalog_t::languages_begin() const { return filled_languages().begin(); }

catalog_t::language_iterator catalog_t::languages_end() const { return filled_languages().end(); }

bool catalog_t::is_language_loaded(const text_argument& language) const {
  return filled_languages().contains(_private::normalized_language_tag(language.get()));
}

void catalog_t::gen_lang_set() const {
  const std::lock_guard lock(languages_mutex_);
  add_languages();
}

/// A filled set is read without the lock: nothing is added to it while the catalog stays unchanged.
const catalog_t::language_set& catalog_t::filled_languages() const {
  const std::lock_guard lock(languages_mutex_);
  if (languages_.empty()) add_languages();
  return languages_;
}

catalog_t::language_set catalog_t::copy_of_languages() const {
  const std::lock_guard lock(languages_mutex_);
  return languages_;
}

void catalog_t::add_languages() const {
  for (const auto& [name, message] : messages_) {
    // A set that lacks nothing is not written to: other threads may be reading it.
    if (!languages_.contains(message._orginal_locale())) languages_.insert(message._orginal_locale());
  }
}

bool catalog_t::equal(const types::nil_t&) const noexcept {
  // Another thread may be filling the languages, but never those of a catalog without messages.
  return name_.empty() && messages_.empty() && languages_.empty();
}

}  // namespace ORVA_NAMESPACE::i18n
