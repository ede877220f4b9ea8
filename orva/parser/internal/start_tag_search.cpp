#include "orva/parser/internal/start_tag_search.hpp"

#include <algorithm>

namespace ORVA_NAMESPACE::parser::_private {

namespace {

enum class candidate { wanted, other, cut_off };

/// What begins at the < that the lexer is at.
candidate candidate_at(stream_lexer lexer, const std::vector<std::string_view>& names) {
  if (lexer.left() < 2) return candidate::cut_off;
  if (lexer.current(1) == '/' || lexer.current(1) == '!') return candidate::other;
  lexer.step();
  std::string_view name;
  if (!lexer.scan_name(name)) return candidate::cut_off;
  return std::find(names.begin(), names.end(), name) != names.end() ? candidate::wanted : candidate::other;
}

}  // namespace

bool find_start_tag(stream_lexer& lexer, const std::vector<std::string_view>& names,
                    std::size_t largest_token) {
  for (;; lexer.step()) {
    const auto bracket = lexer.rest().find('<');
    lexer.step(bracket == std::string_view::npos ? lexer.left() : bracket);
    const candidate found = candidate_at(lexer, names);
    if (found == candidate::wanted) return true;
    if (found == candidate::cut_off && lexer.left() < largest_token) return false;
  }
}

}  // namespace ORVA_NAMESPACE::parser::_private
