/// How `xml_writer` writes texts and values, so that every parser reads them back as they were.
///
/// Internal. Each function checks the text and adds it to a string in one pass. If the text is refused, it
/// has added the part before the fault; the caller takes that back.
///
///     append_text(to, "a < b  c", false)     =>  a &lt; b &#32;c
///     append_value(to, "a\n\"b\"")           =>  a&#10;&quot;b&quot;
///     append_literal(to, "a < b")            =>  a < b
#pragma once

#include <string>
#include <string_view>

#include "orva/parser/xml_writer.hpp"

namespace ORVA_NAMESPACE::parser::_private {

/// A name that all parsers read.
xml_writer::result append_name(std::string& to, std::string_view name);

/// Text between tags. Two white-space characters in a row would end a run, and white space before a run is
/// not part of it: there, white space is written as a reference. `white_space_may_follow` says whether the
/// text goes on after a character that is none.
xml_writer::result append_text(std::string& to, std::string_view text, bool white_space_may_follow);

/// An attribute's value between double quotes, without these. White space that a parser may replace by a
/// space is written as a reference.
xml_writer::result append_value(std::string& to, std::string_view value);

/// The contents of a comment or a CDATA section, which have no references.
xml_writer::result append_literal(std::string& to, std::string_view text);

}  // namespace ORVA_NAMESPACE::parser::_private
