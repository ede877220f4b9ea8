/// `find_code_page`: a code page by the name that a file, a protocol or a user gives it.
///
///     find_code_page("Shift_JIS")                         =>  code_page::cp_932
///     find_code_page(" CP1252 ")                          =>  code_page::cp_1252
///     find_code_page("latin1")                            =>  code_page::iso_8859_1
///     find_code_page("latin1", label_meaning::web)        =>  code_page::cp_1252
///     find_code_page("klingon")                           =>  nothing
///     code_page_name(code_page::cp_1252)                  =>  "windows-1252"
///
/// The labels are those of the IANA registry of character sets and of the WHATWG Encoding Standard, and
/// "cp932", "cp949" and "cp950". As in the latter, upper and lower case ASCII letters are equal, and blanks
/// around a label do not count: space, tab, line feed, form feed, carriage return. Nothing else is ignored.
///
/// A label of an encoding that is part of a page names the page, as on the web: "gb2312" is GBK, "euc-kr" is
/// the page 949, "ascii" is windows-1252. Bytes are read as they are meant; text may be written with
/// characters that only the page has. No label names a page that lacks characters of its encoding: 950 is not
/// "big5-hkscs".
///
/// For a label that is unknown, `diagnostics::unknown_code_page` (diagnostics/text_findings.hpp) has the
/// words.
///
/// The names are for the header of a protocol (`charset=`), and are labels too. Any thread may call.
#pragma once

#include <optional>
#include <span>
#include <string_view>

#include "orva/export.hpp"
#include "orva/strings/code_page.hpp"

namespace ORVA_NAMESPACE::strings {

/// The two lists differ in ISO-8859-1 and ISO-8859-9, of which web pages mostly mean the larger Windows page.
enum class label_meaning {
  iana,  ///< "iso-8859-1" and its aliases name `iso_8859_1`, "iso-8859-9" and its aliases `iso_8859_9`
  web,   ///< they name `cp_1252` and `cp_1254`, as all browsers read them
};

[[nodiscard]] ORVA_API std::optional<code_page> find_code_page(
    std::string_view label, label_meaning meaning = label_meaning::iana) noexcept;

/// The name of a page; of the one that the system assumes, for `ansi` and `oem`. Empty for an invalid type,
/// and for a page of the system that is not in `known_code_pages`.
[[nodiscard]] ORVA_API std::string_view code_page_name(const code_page& page) noexcept;

struct known_code_page {
  code_page::encoding_type type;
  std::string_view name;
  /// In lower case; the first is the name's.
  std::span<const std::string_view> labels;
};

/// All pages that have a name, for a list to choose from. `ansi` and `oem` are settings and not among them.
[[nodiscard]] ORVA_API std::span<const known_code_page> known_code_pages() noexcept;

}  // namespace ORVA_NAMESPACE::strings
