#include "orva/diagnostics/number_findings.hpp"

#include "orva/diagnostics/internal/place_in.hpp"
#include "orva/strings/standard_transforms.hpp"

namespace ORVA_NAMESPACE::diagnostics::_private {

namespace {

using generic::convert::number_error;
using strings::text_view;

std::size_t size_of(const text_view& text) {
  return text.visit([](auto units) { return units.size(); });
}

strings::ustring8 front(const text_view& text, std::size_t length) {
  return text.visit([&](auto units) { return strings::to_utf8(units.substr(0, length)).text; });
}

/// A finding about the number at the front of the text.
finding about_number(const char* code, const text_view& text, std::size_t length) {
  return {severity::error, code, {}, place_in(text, 0), {{"number", front(text, length)}}};
}

finding out_of_range(const char* code, const text_view& text, std::size_t length,
                     const types::variant& limit) {
  finding found = about_number(code, text, length);
  found.arguments.push_back("limit", limit);
  return found;
}

finding followed(const text_view& text, std::size_t length) {
  if (length >= size_of(text)) return {severity::note, {}, {}, {}, {}};
  finding found = about_number("number.rest", text, length);
  found.at = place_in(text, length);
  return found;
}

finding described(number_error error, const text_view& text, std::size_t length,
                  const types::variant& limit) {
  switch (error) {
    case number_error::none:
      return followed(text, length);
    case number_error::no_number:
      return {severity::error, "number.no_number", {}, place_in(text, 0), {}};
    case number_error::too_large:
      return out_of_range("number.too_large", text, length, limit);
    case number_error::too_small:
      return out_of_range("number.too_small", text, length, limit);
    case number_error::bad_radix:
      break;
  }
  return {severity::error, "number.bad_radix", {}, {}, {}};
}

}  // namespace

finding describe_number(number_error error, std::size_t length, const types::variant& limit,
                        const text_view& text, std::string_view file) {
  finding found = described(error, text, length, limit);
  found.file = strings::ustring8(file);
  return found;
}

}  // namespace ORVA_NAMESPACE::diagnostics::_private
