// The codes of the library. Each has a page entry in docs/diagnostic_codes.md, and a message in each catalog
// of orva/diagnostics/messages; a test holds them together.
#include "orva/diagnostics/finding.hpp"

namespace ORVA_NAMESPACE::diagnostics {

namespace {

constexpr code_description codes[] = {
    {"diagnostics.not_kept", "Findings that are not shown: {count}."},
    {"xml.attribute_redefined", "The attribute {name} comes twice in one start tag."},
    {"xml.bad_header", "The declaration <?xml ... ?> at the beginning is missing or malformed."},
    {"xml.cannot_open_file", "The file cannot be opened."},
    {"xml.data_after_root", "Another element begins after the root element."},
    {"xml.end_without_start", "A tag ends an element, but none is open."},
    {"xml.fatal_error", "The file is a symbolic link, or has no root element to go on with."},
    {"xml.file_too_short", "The file has fewer than {smallest} bytes."},
    {"xml.incomplete",
     "What begins here does not end in the file, is too long, or is an end tag without a name."},
    {"xml.mismatched_end_element", "The end tag </{found}> does not match <{expected}>, which is open."},
    {"xml.missing_equals", "The attribute {name} has no = after its name."},
    {"xml.missing_quote", "The value of an attribute does not begin with a quote."},
    {"xml.no_root_element", "The document ends before its root element."},
    {"xml.not_synchronized", "None of the elements that were searched for follows."},
    {"xml.reading_failed", "Reading failed: {reason}"},
    {"xml.reference_above_255", "A character reference is above 255."},
    {"xml.unclosed_element", "The document ends before the end tag </{name}>."},
    {"xml.unclosed_value", "The value of the attribute {name} has no closing quote."},
    {"xml.unexpected_character", "The character {character} is not expected here."},
    {"xml.unexpected_eof", "The document ends in the middle of a tag, a comment, a section or an entity."},
    {"xml.unknown_entity", "An & begins no known entity; a plain & is written as &amp;."},
};

}  // namespace

std::span<const code_description> known_codes() noexcept { return codes; }

}  // namespace ORVA_NAMESPACE::diagnostics
