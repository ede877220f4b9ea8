/// Helpers that read XMC text in tests.
#pragma once

#include <string>
#include <string_view>

#include "orva/i18n/message_catalogs.hpp"
#include "orva/i18n/xmc_file_loader.hpp"

namespace orva_test {

using ORVA_NAMESPACE::i18n::message_item;
using ORVA_NAMESPACE::i18n::message_t;
using ORVA_NAMESPACE::i18n::_private::load_error;
using ORVA_NAMESPACE::i18n::_private::xmc_file_loader;
using ORVA_NAMESPACE::strings::ustring8;

/// A document with `content` in its root element.
inline ustring8 xmc(std::string_view content) {
  return ustring8("<?xml version=\"1.0\"?><xmc version=\"1.1\">") + content + "</xmc>";
}

/// A catalog "app" with `messages`.
inline ustring8 app(std::string_view language, std::string_view messages) {
  return ustring8("<catalog name=\"app\" lang=\"") + language + "\">" + messages + "</catalog>";
}

/// The result of reading a text.
struct reading {
  load_error error;
  xmc_file_loader::catalog_map catalogs;
  ORVA_NAMESPACE::types::uint32 stored = 0;

  const message_t& message(const ustring8& name, const ustring8& catalog = "app") const {
    const auto found = catalogs.find(catalog);
    return found == catalogs.end() ? ORVA_NAMESPACE::i18n::catalog_t::m_nil_message
                                   : found->second->message(name);
  }
};

inline reading read(const ustring8& text, const ustring8& language = "de") {
  xmc_file_loader loader;
  loader.handle_language(language);
  reading result;
  result.error = loader.parse_string(text, "test.xmc");
  result.stored = loader.combine_data(result.catalogs);
  return result;
}

/// The message "m" with `content`, read from a document with no other message.
inline message_t read_message(std::string_view content) {
  const reading result = read(xmc(app("de", ustring8("<msg name=\"m\">") + content + "</msg>")));
  return result.message("m");
}

/// The pieces of a message: text as "T[...]", a placeholder as "P[...]", the byte 0x01 as "|".
///
///     Free: <arg name="n" type="mem"/> left  =>  "T[Free: ]P[n]T[ left]"
inline std::string pieces(const message_t& message) {
  std::string result;
  for (const message_item& item : message) {
    std::string data = item.data();
    for (char& c : data) c = c == '\x01' ? '|' : c;
    result += (item.type() == message_item::text ? "T[" : "P[") + data + "]";
  }
  return result;
}

/// The message of a `load_error` without the common prefix.
inline std::string words(const load_error& error) {
  constexpr std::string_view prefix = "xmc_file_loader::load_error - ";
  const std::string text = error.message();
  return text.compare(0, prefix.size(), prefix) == 0 ? text.substr(prefix.size()) : "no prefix: " + text;
}

}  // namespace orva_test
