#include "orva/strings/split.hpp"

#include "orva/strings/search.hpp"

namespace ORVA_2_18::strings::_private {

template <code_unit Unit>
std::vector<std::basic_string_view<Unit>> pieces(std::basic_string_view<Unit> text,
                                                 std::basic_string_view<Unit> delimiter, int max) {
  if (delimiter.empty()) return {text};
  std::vector<std::basic_string_view<Unit>> result;
  searcher<Unit> delimiters(delimiter);
  std::size_t start = 0;
  int count = 0;
  // Text behind the last delimiter is an element only if there is any, so the search may stop at the end.
  while (start < text.size()) {
    const std::size_t match = delimiters.find(text, start);
    if (match == text.npos) break;
    result.push_back(text.substr(start, match - start));
    start = match + delimiter.size();
    if (max > 0 && ++count == max) break;
  }
  if (start < text.size()) result.push_back(text.substr(start));
  return result;
}

template std::vector<ustring8::view> pieces(ustring8::view, ustring8::view, int);
template std::vector<ustring16::view> pieces(ustring16::view, ustring16::view, int);
template std::vector<ustring32::view> pieces(ustring32::view, ustring32::view, int);

}  // namespace ORVA_2_18::strings::_private
