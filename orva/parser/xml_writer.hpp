/// `xml_writer`: writes documents that the parsers of this folder, and any other XML reader, read back.
///
///     xml_writer writer(text);                          // adds to a string, or writes to a std::ostream
///     must(writer.start_element("menu"));               // `must` is yours: each call returns what was wrong
///     must(writer.attribute("title", "File & more"));
///     must(writer.text("Quit"));
///     must(writer.finish());                            // closes what is open
///
///     <?xml version="1.0" encoding="UTF-8" standalone="yes"?>
///     <menu title="File &amp; more">Quit</menu>
///
/// Each call adds one construct. A call that is refused changes nothing: the output is as it was, and the
/// next call may be another attempt. End tags take no name, so they always match.
///
/// What goes in, and what the parsers read back:
///
///     names        a letter, then letters, digits and _, all ASCII: what every parser here reads
///     texts        well-formed UTF-8 of characters that XML has: tab, line feed, carriage return and all
///                  from U+0020 on but surrogates, U+FFFE and U+FFFF
///     values       come back as they are. " & < tab and line ends are written as entities and references
///     text         comes back as one run, not as runs and space: < > and & are written as entities; white
///                  space at the beginning of a run, after another one, and each carriage return as
///                  references
///     CDATA        comes back as text. `xml_stream_parser` does not read it
///     comments     come back as they are; `xml_stream_parser` skips them
///
/// The declaration comes first by itself. It makes each document long enough for `xml_stream_parser`, which
/// also needs `xml_writer_settings::open_depth`, no text in the root, and no token of more than 65,536 bytes.
///
/// With `indent`, each element and comment begins a line, except in an element that contains text or CDATA
/// and in all that is inside it. There, white space would change the content. An element that has children
/// before its first text must be started by `start_mixed_element`; otherwise the text is refused, as its
/// children are indented already.
///
/// A stream that fails is reported by the call that wrote to it, and by all later ones. Exceptions that the
/// program enabled in its stream pass through.
///
/// One object belongs to one thread at a time. The string or stream must live as long. Memory is in
/// proportion to the nesting and to one call's text. `xml_parser` is the inverse.
#pragma once

#include <cstddef>
#include <cstdint>
#include <iosfwd>
#include <string>
#include <string_view>

#include "orva/export.hpp"
#include "orva/internal/xml/name_list.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::parser {

/// How a writer lays out its document, and for which reader.
struct xml_writer_settings {
  /// The number of spaces for each level, of which a line gets `xml_writer::longest_indentation` at most. 0
  /// adds no white space anywhere.
  unsigned int indent = 0;
  /// Whether the document begins with a declaration. Without one, the output is a fragment that none of our
  /// parsers reads alone.
  bool declaration = true;
  /// An empty element of the first levels, so many, gets an end tag instead of />, except for "include". This
  /// is what `xml_stream_parser` with the same `open_depth` reads.
  unsigned int open_depth = 1;
};

class ORVA_API xml_writer {
 public:
  /// Keeps the size of a document that nests deeply in proportion to its number of elements.
  static constexpr std::size_t longest_indentation = 256;

  /// Why a call was refused.
  enum class error {
    none = 0,
    bad_name,             ///< a name is an ASCII letter, then ASCII letters, digits and _
    malformed_text,       ///< text is well-formed UTF-8
    bad_character,        ///< XML has no such character; in comments and CDATA also the carriage return
    closing_mark,         ///< a comment has no -- and does not end with -; CDATA has no ]]>
    no_start_tag,         ///< an attribute comes after a start tag or another attribute
    duplicate_attribute,  ///< an attribute comes once in a start tag
    nothing_open,         ///< an end tag needs an open element
    outside_root,         ///< text and CDATA are inside the root element
    second_root,          ///< a document has one root element
    no_root,              ///< a document has a root element
    children_on_lines,    ///< text comes after indented children only in `start_mixed_element`
    finished,             ///< nothing comes after `finish`
    stream_failed,        ///< the stream took not all of it; what it took is unknown
  };

  /// What every call returns: whether it was refused, and why.
  struct result {
    xml_writer::error error = xml_writer::error::none;
    /// The first byte of the name, value or text that is at fault. 0 if no single byte is.
    std::size_t offset = 0;

    bool operator==(const result&) const = default;
  };

  /// Adds to the end of the string.
  explicit xml_writer(std::string& to, const xml_writer_settings& settings = {});
  /// Writes each call's output at once; `finish` flushes. A file stream should be a binary one.
  explicit xml_writer(std::ostream& to, const xml_writer_settings& settings = {});
  xml_writer(const xml_writer&) = delete;
  xml_writer& operator=(const xml_writer&) = delete;
  /// Closes nothing: a document that was not finished stays incomplete.
  ~xml_writer();

  [[nodiscard]] result start_element(std::string_view name);
  /// The same for an element of text and elements: nothing inside it is indented.
  [[nodiscard]] result start_mixed_element(std::string_view name);
  /// An attribute of the start tag that was written last.
  [[nodiscard]] result attribute(std::string_view name, std::string_view value);
  /// Text of the innermost element. Texts that follow each other are read back as one. An empty one changes
  /// nothing.
  [[nodiscard]] result text(std::string_view text);
  /// A CDATA section, whose contents are written as they are.
  [[nodiscard]] result cdata(std::string_view text);
  /// Also allowed before and after the root element.
  [[nodiscard]] result comment(std::string_view text);
  /// Closes the innermost element, by /> if it is empty.
  [[nodiscard]] result end_element();
  /// Closes all open elements and flushes the stream. A second call does nothing.
  [[nodiscard]] result finish();

  /// The number of open elements.
  std::size_t depth() const noexcept { return open_.size(); }

 private:
  class addition;

  result state() const noexcept;
  bool indents() const noexcept { return settings_.indent > 0 && inline_from_ == 0; }
  void begin_markup(std::string& to) const;
  void break_line(std::string& to, std::uint64_t level) const;
  result start(std::string_view name, bool mixed);
  result check_place_of_text() const noexcept;
  void take_as_text() noexcept;

  std::string call_output_;
  std::string& to_;
  std::ostream* stream_;
  xml_writer_settings settings_;
  internal::xml::name_list open_;
  internal::xml::name_set attributes_;
  /// The level of the outermost open element without indentation inside, from 1 on; 0 if there is none.
  std::size_t inline_from_ = 0;
  bool begun_ = false;
  bool root_seen_ = false;
  bool in_start_tag_ = false;
  /// The innermost element has children on lines of their own.
  bool has_lines_ = false;
  /// The output ends in a text on which white space may follow as it is.
  bool after_text_ = false;
  bool finished_ = false;
  bool stream_failed_ = false;
};

/// The name of the enumerator.
[[nodiscard]] ORVA_API std::string_view name_of(xml_writer::error error) noexcept;

/// Writes the error, the offset and the rule:
///
///     bad_name at byte 3: a name is an ASCII letter, then ASCII letters, digits and _
ORVA_API std::ostream& operator<<(std::ostream& stream, const xml_writer::result& result);

}  // namespace ORVA_NAMESPACE::parser
