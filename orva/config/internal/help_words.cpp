#include "orva/config/internal/help_words.hpp"

#include <algorithm>
#include <optional>

#include "orva/internal/text/placeholders.hpp"
#include "orva/internal/text/visible_text.hpp"

namespace ORVA_NAMESPACE::config::_private {

namespace {

/// The first line of a text, which it takes away, without its line end.
std::string_view take_line(std::string_view& text) {
  const std::size_t length = std::min(text.find('\n'), text.size());
  std::string_view line = text.substr(0, length);
  text.remove_prefix(std::min(length + 1, text.size()));
  if (line.ends_with('\r')) line.remove_suffix(1);
  return line;
}

std::string joined_lines(std::string_view text, char between) {
  std::string joined;
  for (bool is_first = true; !text.empty(); is_first = false) {
    if (!is_first) joined += between;
    internal::text::append_visible(joined, take_line(text));
  }
  return joined;
}

std::string with_arguments(std::string_view text, std::initializer_list<help_words::argument> arguments) {
  return internal::text::with_placeholders(text, [&](std::string_view name) {
    const auto named = std::ranges::find(arguments, name, &help_words::argument::name);
    return named == arguments.end() ? std::nullopt : std::optional(named->value);
  });
}

}  // namespace

std::string one_line(std::string_view text) { return joined_lines(text, ' '); }

strings::ustring8 help_words::look_up(std::string_view name, std::string_view english) const {
  strings::ustring8 found;
  if (lookup_) found = lookup_(name, english);
  if (found.empty()) found.assign(english);
  return found;
}

std::string help_words::word(std::string_view name, std::initializer_list<argument> arguments) const {
  const auto known = std::ranges::lower_bound(known_texts(), name, {}, &known_text::name);
  return with_arguments(line(name, known->english), arguments);
}

std::string help_words::line(std::string_view name, std::string_view english) const {
  return one_line(look_up(name, english));
}

std::string help_words::paragraphs(std::string_view name, std::string_view english) const {
  return joined_lines(look_up(name, english), '\n');
}

}  // namespace ORVA_NAMESPACE::config::_private
