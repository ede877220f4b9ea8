#include "orva/diagnostics/finding.hpp"

#include <algorithm>
#include <optional>

#include "orva/diagnostics/internal/argument_text.hpp"
#include "orva/internal/text/placeholders.hpp"

namespace ORVA_NAMESPACE::diagnostics {

namespace {

using strings::ustring8;

ustring8 with_arguments(std::string_view text, const generic::varg_list& arguments) {
  return ustring8(internal::text::with_placeholders(text, [&](std::string_view name) {
    const auto argument = arguments.find(name);
    return argument == arguments.end() ? std::nullopt
                                       : std::optional(_private::text_of(argument->value()).text);
  }));
}

}  // namespace

std::string_view name_of(severity level) noexcept {
  constexpr std::string_view names[] = {"note", "warning", "error"};
  return names[static_cast<std::size_t>(level)];
}

ustring8 sentence(const finding& found) {
  const auto codes = known_codes();
  const auto known =
      std::ranges::lower_bound(codes, std::string_view(found.code), {}, &code_description::code);
  if (known != codes.end() && known->code == found.code)
    return with_arguments(known->english, found.arguments);
  const auto text = found.arguments.find("text");
  return text == found.arguments.end() ? found.code : _private::text_of(text->value()).text;
}

generic::varg_list arguments_as_text(const finding& found) {
  generic::varg_list texts;
  for (const generic::argument& argument : found.arguments) {
    if (argument.has_name()) texts.push_back(argument.name(), _private::text_of(argument.value()).text);
  }
  return texts;
}

}  // namespace ORVA_NAMESPACE::diagnostics
