#include "orva/parser/internal/xml_text_output.hpp"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstdint>

#include "orva/internal/text/character_class.hpp"
#include "orva/internal/text/well_formed_utf8.hpp"
#include "orva/internal/xml/lexical_rules.hpp"

namespace ORVA_NAMESPACE::parser::_private {

namespace {

namespace xml = internal::xml;
using error = xml_writer::error;
using result = xml_writer::result;

/// What is to be done with a byte.
enum action : std::uint8_t {
  copy,
  copy_once,  ///< white space: copied if the byte before it is none, else escaped
  escape,
  check_sequence,  ///< the byte is one of a multi-byte character
  refuse,
};

using action_table = std::array<action, 256>;

consteval action_table actions(std::string_view once, std::string_view escaped, std::string_view refused) {
  action_table table{};
  const auto set = [&table](std::string_view bytes, action to) {
    for (const char byte : bytes) table[static_cast<unsigned char>(byte)] = to;
  };
  std::fill_n(table.begin(), ' ', refuse);
  std::fill(table.begin() + 0x80, table.end(), check_sequence);
  set("\t\n\r", copy);
  set(once, copy_once);
  set(escaped, escape);
  set(refused, refuse);
  return table;
}

// A carriage return that is written as it is reaches other XML readers as a line feed. A > is an error at the
// begin of a text of `xml_parser`, and after ]] everywhere.
constexpr action_table text_actions = actions(" \t\n", "<>&\r", "");
constexpr action_table value_actions = actions("", "<&\"\t\n\r", "");
constexpr action_table literal_actions = actions("", "", "\r");

std::string_view escaped(char c) {
  switch (c) {
    case '<':
      return "&lt;";
    case '>':
      return "&gt;";
    case '&':
      return "&amp;";
    case '"':
      return "&quot;";
    case '\t':
      return "&#9;";
    case '\n':
      return "&#10;";
    case '\r':
      return "&#13;";
    default:
      return "&#32;";
  }
}

constexpr bool is_in_xml(std::uint32_t code_point) { return code_point != 0xFFFE && code_point != 0xFFFF; }

/// Adds the text as the table says.
result append(std::string& to, std::string_view text, const action_table& table, bool may_copy_once) {
  const char* const end = text.data() + text.size();
  const char* copied = text.data();
  const char* at = copied;
  const auto refused = [&](error why) { return result{why, static_cast<std::size_t>(at - text.data())}; };
  for (;;) {
    const char* const run = at;
    while (at != end && table[static_cast<unsigned char>(*at)] == copy) ++at;
    if (at != run) may_copy_once = true;
    if (at == end) break;
    switch (table[static_cast<unsigned char>(*at)]) {
      case refuse:
        return refused(error::bad_character);
      case check_sequence: {
        const auto character = internal::text::decode_well_formed({at, static_cast<std::size_t>(end - at)});
        if (!character.well_formed) return refused(error::malformed_text);
        if (!is_in_xml(character.code_point)) return refused(error::bad_character);
        at += character.units;
        may_copy_once = true;
        continue;
      }
      case copy_once:
        if (may_copy_once) {
          ++at;
          may_copy_once = false;
          continue;
        }
        break;
      default:
        break;
    }
    to.append(copied, at).append(escaped(*at));
    copied = ++at;
    may_copy_once = true;
  }
  to.append(copied, end);
  return {};
}

/// Whether the byte is the same letter in every locale.
bool is_name_start(char c) { return xml::is_in(c, xml::ascii_name) && internal::character_class::isalpha(c); }

}  // namespace

result append_name(std::string& to, std::string_view name) {
  if (name.empty() || !is_name_start(name.front())) return {error::bad_name, 0};
  const auto fault = std::ranges::find_if_not(name, [](char c) { return xml::is_in(c, xml::ascii_name); });
  if (fault != name.end()) return {error::bad_name, static_cast<std::size_t>(fault - name.begin())};
  to += name;
  return {};
}

result append_text(std::string& to, std::string_view text, bool white_space_may_follow) {
  return append(to, text, text_actions, white_space_may_follow);
}

result append_value(std::string& to, std::string_view value) {
  return append(to, value, value_actions, false);
}

result append_literal(std::string& to, std::string_view text) {
  return append(to, text, literal_actions, false);
}

}  // namespace ORVA_NAMESPACE::parser::_private
