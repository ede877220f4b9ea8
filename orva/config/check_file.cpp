#include "orva/config/check_file.hpp"

#include <limits>

#include "orva/config/file_findings.hpp"
#include "orva/config/internal/encoding_checker.hpp"
#include "orva/config/internal/file_line_checker.hpp"
#include "orva/config/internal/read_file.hpp"

namespace ORVA_NAMESPACE::config {

namespace {

/// Positions have 32 bits, as in the reader.
constexpr std::size_t longest_text = std::numeric_limits<unsigned int>::max() - 1;

}  // namespace

void check_file(const strings::text_argument& path, diagnostics::report& found) {
  const strings::ustring8 name(path.view());
  strings::ustring8 text;
  if (_private::read_file(name, text)) return check_text(text, name, found);
  constexpr auto error = diagnostics::severity::error;
  const auto unread = check_readable(name, error);
  // If it can be read by now, it was missing.
  found.add(unread ? *unread : diagnostics::finding{error, "config.file_missing", name, {}, {}});
}

void check_text(std::string_view text, std::string_view file_name, diagnostics::report& found) {
  text = text.substr(0, longest_text);
  _private::finding_list list(found.max_findings() - found.findings().size());
  if (const auto begin = _private::check_encoding(text, list)) {
    _private::file_line_checker(text, *begin, list).check();
  }
  list.write(text, file_name, found);
}

}  // namespace ORVA_NAMESPACE::config
