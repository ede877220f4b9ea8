#include "orva/strings/ustring.hpp"

#include <ostream>

#include "orva/strings/standard_transforms.hpp"

namespace ORVA_NAMESPACE::strings::_private {

std::ostream& write_utf8(std::ostream& stream, ustring16::view text) { return stream << to_utf8(text).text; }
std::ostream& write_utf8(std::ostream& stream, ustring32::view text) { return stream << to_utf8(text).text; }

void write_quoted(std::ostream& stream, ustring8::view text) { stream << '"' << text << '"'; }
void write_quoted(std::ostream& stream, ustring16::view text) { write_quoted(stream, to_utf8(text).text); }
void write_quoted(std::ostream& stream, ustring32::view text) { write_quoted(stream, to_utf8(text).text); }

}  // namespace ORVA_NAMESPACE::strings::_private
