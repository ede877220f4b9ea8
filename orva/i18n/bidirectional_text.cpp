#include "orva/i18n/bidirectional_text.hpp"

#include <algorithm>
#include <cstdint>
#include <iterator>

#include "orva/i18n/internal/packed_tag.hpp"

namespace ORVA_NAMESPACE::i18n {

using _private::packed;
using _private::tag_separators;

namespace {

struct language_direction {
  std::uint64_t tag;
  bool is_right_to_left;
};

#include "orva/i18n/internal/text_directions.inc"

constexpr std::string_view first_strong_isolate = "\xE2\x81\xA8";
constexpr std::string_view pop_directional_isolate = "\xE2\x81\xA9";

constexpr std::size_t script_size = 4;

/// Takes the first part off the tag.
std::string_view next_part(std::string_view& tag) {
  const std::string_view part = tag.substr(0, tag.find_first_of(tag_separators));
  tag.remove_prefix(std::min(part.size() + 1, tag.size()));
  return part;
}

bool is_right_to_left_script(std::string_view script) {
  return std::binary_search(std::begin(right_to_left_scripts), std::end(right_to_left_scripts),
                            packed(script));
}

const language_direction* find_direction(std::string_view tag) {
  const std::uint64_t wanted = packed(tag);
  const auto found = std::lower_bound(
      std::begin(language_directions), std::end(language_directions), wanted,
      [](const language_direction& entry, std::uint64_t number) { return entry.tag < number; });
  return found != std::end(language_directions) && found->tag == wanted ? found : nullptr;
}

}  // namespace

bool is_right_to_left(std::string_view language) noexcept {
  std::string_view rest = language;
  const std::string_view alone = next_part(rest);
  const std::string_view second = next_part(rest);
  if (second.size() == script_size) return is_right_to_left_script(second);
  const language_direction* found = nullptr;
  if (!second.empty()) found = find_direction(language.substr(0, alone.size() + 1 + second.size()));
  if (!found) found = find_direction(alone);
  return found && found->is_right_to_left;
}

strings::ustring8 isolated_utf8(const message_t& message, const generic::varg_list& args) {
  if (!is_right_to_left(message._orginal_locale())) return message.as_utf8(args);
  strings::ustring8 text;
  for (const message_item& item : message) {
    const strings::ustring8 part = item.as_string(args);
    if (item.type() == message_item::text || part.empty()) {
      text += part;
    } else {
      text.append(first_strong_isolate).append(part).append(pop_directional_isolate);
    }
  }
  return text;
}

}  // namespace ORVA_NAMESPACE::i18n
