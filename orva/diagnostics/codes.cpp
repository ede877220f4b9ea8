// The codes of the library. Each has a page entry in docs/diagnostic_codes.md, and a message in each catalog
// of orva/diagnostics/messages; a test holds them together.
#include "orva/diagnostics/finding.hpp"

namespace ORVA_NAMESPACE::diagnostics {

namespace {

constexpr code_description codes[] = {
    {"code_page.best_fit", "The code page lacks {character}; {result}, which resembles it, is written."},
    {"code_page.cut", "The text ends within the character at offset {offset}; {result} stands for it."},
    {"code_page.invalid", "The code page is not valid."},
    {"code_page.malformed", "The text is malformed at offset {offset}; {result} stands for this part."},
    {"code_page.missing", "The code page lacks {character}, which is lost; {result} is written."},
    {"code_page.undefined",
     "The bytes {bytes} at offset {offset} are no character of the code page; they are read as {result}."},
    {"code_page.unknown", "No code page has the label {label}."},
    {"data.bad_label", "The label at offset {offset} is empty, is not trimmed, or is there twice."},
    {"data.bad_number", "The text at offset {item} is not a number; it is wrong at offset {offset}."},
    {"data.ended", "The data ends at offset {offset}, in the item that begins at offset {item}."},
    {"data.left", "Data is left after the last item, from offset {offset} on."},
    {"data.no_separator",
     "The string that begins at offset {item} has no closing byte 0x01 at offset {offset}."},
    {"data.out_of_range", "The number at offset {offset} does not fit into its type."},
    {"date.bad_day", "A day is 01 to the length of its month."},
    {"date.bad_hour", "An hour is 00 to 23."},
    {"date.bad_minute", "A minute is 00 to 59."},
    {"date.bad_month", "A month is 01 to 12."},
    {"date.bad_second", "A second is 00 to 59, and 60 only in a leap second."},
    {"date.bad_year", "The time in UTC is outside the years 0000 to 9999."},
    {"date.ends_early", "The text ends before its last field."},
    {"date.leap_second", "The second 60 of a leap second is read as 59."},
    {"date.no_digit", "A digit is required here."},
    {"date.no_offset", "Z or an offset such as +01:00 is required here."},
    {"date.no_separator",
     "A separator is required here: - in a date, : in a time or an offset, T between date and time."},
    {"date.rest", "The text goes on after the date or the time."},
    {"date.rounded", "Digits below the millisecond are dropped."},
    {"diagnostics.not_kept", "Findings that are not shown: {count}."},
    {"frame.damaged", "The part of the frame that begins at offset {offset} is damaged."},
    {"frame.data_after_end", "Data follows the frame, from offset {offset} on."},
    {"frame.invalid", "The writer of the frame broke a rule of its format at offset {offset}."},
    {"frame.not_a_frame", "The data is not a frame, as the byte at offset {offset} shows."},
    {"frame.truncated", "The data ends at offset {offset}, before the frame does."},
    {"number.bad_radix", "A number of this type cannot be read in this radix."},
    {"number.no_number", "No number begins here."},
    {"number.rest", "Other text follows the number {number}."},
    {"number.too_large", "The number {number} is too large; the limit is {limit}."},
    {"number.too_small", "The number {number} is too small; the limit is {limit}."},
    {"text.cut_short", "A character lacks its last bytes: {units}."},
    {"text.incomplete", "The text ends within a character: {units}."},
    {"text.invalid_byte", "A byte does not occur in UTF-8: {units}."},
    {"text.overlong", "A character that begins here has more bytes than it needs: {units}."},
    {"text.stray_continuation", "A byte continues no character: {units}."},
    {"text.surrogate", "A surrogate is not in a pair of UTF-16: {units}."},
    {"text.too_large", "A value above U+10FFFF begins here: {units}."},
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
