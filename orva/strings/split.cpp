#include "orva/strings/split.hpp"

#include "orva/strings/internal/search.hpp"

namespace ORVA_NAMESPACE::strings {

namespace {

template <typename String>
void append_pieces(typename ustring_for<String>::view text, typename ustring_for<String>::view delimiter,
                   int max, std::vector<String>& pieces) {
  if (delimiter.empty()) {
    pieces.emplace_back(text);
    return;
  }
  _private::searcher<typename String::value_type> delimiters(delimiter);
  std::size_t start = 0;
  int count = 0;
  // A delimiter at the end yields no element, so that the search stops at the end.
  while (start < text.size()) {
    const std::size_t match = delimiters.find(text, start);
    if (match == text.npos) break;
    pieces.emplace_back(text.substr(start, match - start));
    start = match + delimiter.size();
    if (max > 0 && ++count == max) break;
  }
  if (start < text.size()) pieces.emplace_back(text.substr(start));
}

}  // namespace

template <code_unit Unit>
void append_split(std::basic_string_view<Unit> text, std::basic_string_view<Unit> delimiter, int max,
                  std::vector<basic_ustring<Unit>>& pieces) {
  append_pieces(text, delimiter, max, pieces);
}

template <code_unit Unit>
void append_split(std::basic_string_view<Unit> text, std::basic_string_view<Unit> delimiter, int max,
                  std::vector<std::basic_string<Unit>>& pieces) {
  append_pieces(text, delimiter, max, pieces);
}

template void append_split(ustring8::view, ustring8::view, int, std::vector<ustring8>&);
template void append_split(ustring8::view, ustring8::view, int, std::vector<std::string>&);
template void append_split(ustring16::view, ustring16::view, int, std::vector<ustring16>&);
template void append_split(ustring16::view, ustring16::view, int, std::vector<wide_string>&);
template void append_split(ustring32::view, ustring32::view, int, std::vector<ustring32>&);
template void append_split(ustring32::view, ustring32::view, int, std::vector<ustring32::standard_string>&);

}  // namespace ORVA_NAMESPACE::strings
