#include "orva/config/check_file.hpp"

#include <limits>
#include <stdexcept>

#include "orva/config/internal/encoding_checker.hpp"
#include "orva/config/internal/file_line_checker.hpp"
#include "orva/exceptions/exception.hpp"
#include "orva/system/file_utility.hpp"
#include "orva/system/io.hpp"

namespace ORVA_NAMESPACE::config {

namespace {

/// Positions have 32 bits, as in the reader.
constexpr std::size_t longest_text = std::numeric_limits<unsigned int>::max() - 1;

bool exists(const strings::ustring8& name) {
  try {
    return system::io::exists(name);
  } catch (const std::runtime_error&) {
    return true;  // its status cannot be asked for
  }
}

bool read_whole(const strings::ustring8& name, strings::ustring8& text) {
  try {
    return system::load_file(name, text) == 0;
  } catch (const exceptions::exception&) {
    return false;  // too large for a string
  } catch (const std::runtime_error&) {
    return false;  // its status cannot be asked for
  }
}

}  // namespace

void check_file(const strings::text_argument& path, diagnostics::report& found) {
  const strings::ustring8 name(path.view());
  strings::ustring8 text;
  if (read_whole(name, text)) return check_text(text, name, found);
  const char* const code = exists(name) ? "config.file_unreadable" : "config.file_missing";
  found.add({diagnostics::severity::error, code, name, {}, {}});
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
