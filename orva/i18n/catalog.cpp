#include "orva/i18n/catalog.hpp"

#include <utility>

#include "orva/i18n/language_tag.hpp"

namespace ORVA_NAMESPACE::i18n {

using strings::text_argument;
using strings::ustring8;

const message_t catalog_t::m_nil_message;

catalog_t::catalog_t(const ustring8& name, const std::vector<ustring8>& languages, message_map messages)
    : name_(name),
      languages_(languages.begin(), languages.end()),
      messages_(_private::message_table(std::move(messages))) {}

catalog_t::catalog_t(const catalog_t& other) = default;

catalog_t& catalog_t::assign(const catalog_t& other) {
  // The ability's own assignment would take the count of the other's pointers over.
  name_ = other.name_;
  languages_ = other.languages_;
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

catalog_t::language_iterator catalog_t::languages_begin() const {
  need_languages();
  return languages_.begin();
}

catalog_t::language_iterator catalog_t::languages_end() const {
  need_languages();
  return languages_.end();
}

bool catalog_t::is_language_loaded(const text_argument& language) const {
  need_languages();
  return languages_.count(_private::normalized_language_tag(language.get())) != 0;
}

void catalog_t::gen_lang_set() const {
  for (const auto& [name, message] : messages_) languages_.insert(message._orginal_locale());
}

void catalog_t::need_languages() const {
  if (languages_.empty() && !messages_.empty()) gen_lang_set();
}

bool catalog_t::equal(const types::nil_t&) const noexcept {
  return name_.empty() && languages_.empty() && messages_.empty();
}

}  // namespace ORVA_NAMESPACE::i18n
