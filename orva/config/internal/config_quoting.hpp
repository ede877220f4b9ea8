/// Keys, section names and values as a configuration file spells them.
///
///     dark            =>  dark
///     dark blue       =>  "dark blue"
///     C:\My files\    =>  "C:\My files"\     a backslash at the end would protect the quote
///     a \"b\"         =>  "a \"b\""
///     a "b"           =>  not possible
///
/// Internal: not installed. The format has no escapes: in quotes a backslash keeps the next character from
/// ending the text, and stays in it. Therefore it holds every text in which a backslash comes before each
/// quote, and no other.
#pragma once

#include <optional>
#include <string>
#include <string_view>

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::config::_private {

/// Whether the format can hold the text as a key, a value or an element.
bool can_be_spelled(std::string_view text);

/// REQUIRES for each of these: can_be_spelled(text).

/// In quotes, and without them where that is not possible: a backslash at the end would protect the quote.
std::string quoted(std::string_view text);

/// A key, or the name of a section. In quotes only where it needs them.
std::string spelled_name(std::string_view text);

/// A value, or an element of an array. In quotes where it needs them, where it is empty, and where `always`
/// asks for them.
std::string spelled_value(std::string_view text, bool always);

/// The lines of a comment, each with its mark and line end. Empty for an empty text, nullopt for a text that
/// a comment cannot hold: a quote that its line does not close takes the lines after it.
std::optional<std::string> spelled_comment(std::string_view text, std::string_view indentation,
                                           std::string_view line_end);

}  // namespace ORVA_NAMESPACE::config::_private
