#include "orva/diagnostics/internal/source_excerpt.hpp"

#include <algorithm>
#include <vector>

#include "orva/diagnostics/write.hpp"
#include "orva/internal/text/display_width.hpp"
#include "orva/internal/text/visible_text.hpp"
#include "orva/internal/text/well_formed_utf8.hpp"

namespace ORVA_NAMESPACE::diagnostics::_private {

namespace {

struct shown_character {
  std::string_view text;
  std::size_t width;
};

/// The characters of a line, as they will be shown.
std::vector<shown_character> characters_of(std::string_view line) {
  std::vector<shown_character> characters;
  while (!line.empty()) {
    const auto character = internal::text::decode_well_formed(line);
    const bool visible = character.well_formed && !internal::text::is_hidden(character.code_point);
    characters.push_back(
        {line.substr(0, character.units), visible ? internal::text::display_width(character.code_point) : 1});
    line.remove_prefix(character.units);
  }
  return characters;
}

std::size_t width_of(const std::vector<shown_character>& characters, std::size_t begin, std::size_t end) {
  std::size_t width = 0;
  for (std::size_t i = begin; i < end; ++i) width += characters[i].width;
  return width;
}

/// The characters from `begin` to `end`.
struct window {
  std::size_t begin = 0;
  std::size_t end = 0;
};

constexpr std::string_view cut = "...";

/// As much as fits around the caret. Half of the room is left of it, if there is as much text.
window window_around(const std::vector<shown_character>& characters, std::size_t caret) {
  constexpr std::size_t half = max_source_columns / 2 - cut.size();
  window result{caret, caret};
  for (std::size_t width = 0; result.begin > 0; --result.begin) {
    width += characters[result.begin - 1].width;
    if (width > half) break;
  }
  result.end = result.begin;
  for (std::size_t width = 0; result.end < characters.size(); ++result.end) {
    width += characters[result.end].width;
    if (width > 2 * half) break;
  }
  return result;
}

}  // namespace

excerpt excerpt_around(std::string_view line, std::size_t column) {
  const std::vector<shown_character> characters = characters_of(line);
  const std::size_t caret = std::min(column - 1, characters.size());
  window shown{0, characters.size()};
  if (width_of(characters, 0, characters.size()) > max_source_columns)
    shown = window_around(characters, caret);
  excerpt result;
  if (shown.begin > 0) result.text = cut;
  result.caret = result.text.size() + width_of(characters, shown.begin, caret);
  for (std::size_t i = shown.begin; i < shown.end; ++i)
    internal::text::append_visible(result.text, characters[i].text);
  if (shown.end < characters.size()) result.text += cut;
  return result;
}

}  // namespace ORVA_NAMESPACE::diagnostics::_private
