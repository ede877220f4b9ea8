/// `xml_parser`: an event parser for a small subset of XML, for documents that are whole in memory.
///
///     xml_parser parser;
///     using handler = member_function_t<reader, void(const ustring8&, const ustring8&)>;
///     parser.on_attribute = handler(&reader, &reader::take);
///     const auto error = parser.parse("<?xml version='1.0'?><a b='1'/>");
///     if (error.type != xml_parser::parse_error::no_error) complain(error.offset, error.data);
///
/// It reads the bytes once, calls a delegate for each element, attribute, text, white space and comment, and
/// returns a `parse_error` that describes how the document ended. The texts that a delegate gets live until
/// the delegate returns. `xml_token_stream` keeps the events as a list; `xml_stream_parser` reads files that
/// are larger than memory. `xml_writer` is the inverse.
///
/// `parse` is declared const but writes scratch state: one parser serves one thread at a time, and a delegate
/// must not parse with the parser that called it. Delegates run on the caller's thread.
///
/// The grammar:
///
///     header       <?xml up to the first ?>; mandatory. Its contents have no effect, neither the version nor
///                  the encoding. Any three bytes before it are skipped, as room for a byte order mark
///     names        a letter, then letters, digits and _ (isalpha and isalnum of the C runtime, byte by
///                  byte). A name has no : - or . and, unless the locale has such letters, no byte of a
///                  multi-byte character
///     values       within ' or ", the other quote being plain; < is refused; nothing is normalised
///     text         delivered in runs: two white-space characters in a row end a run and arrive as space
///     CDATA        delivered as text, unchanged
///     entities     &lt; &gt; &amp; &apos; &quot; and &nbsp;, which gives a plain space
///     references   &#65; and &#x41; give one byte, unencoded: &#233; is the byte 0xE9, also in UTF-8 text
///     not at all   document type declarations, processing instructions, namespaces
///
///     <a>b c</a>          =>  start a, character "b c", end a
///     <a>b  c</a>         =>  start a, character "b", space "  ", character "c", end a
///     <a b="1" c='2'/>    =>  start a, attribute b "1", attribute c "2", end a
///     <a><!-- x --></a>   =>  start a, comment " x ", end a
///     <a>&lt;&#65;</a>    =>  start a, character "<A", end a
///
/// Time and memory are in proportion to the length of the text. Nesting costs no stack.
///
/// Edge cases: docs/edges.md#xml
#pragma once

#include <cstddef>
#include <iosfwd>
#include <string>
#include <string_view>

#include "orva/export.hpp"
#include "orva/functor/delegate.hpp"
#include "orva/internal/xml/name_list.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::parser {

class ORVA_API xml_parser {
 public:
  using ustring8 = strings::ustring8;
  /// A position in a byte string. An `iterator` of a string that may be written to converts to it.
  using iterator = std::string::const_iterator;
  using text_delegate = functor::delegate_t<void(const ustring8& text)>;
  using attribute_delegate = functor::delegate_t<void(const ustring8& name, const ustring8& value)>;

  /// How a parse ended. `parser::describe` says it in words, with line and column.
  struct ORVA_API parse_error {
    enum error_type {
      no_error = 0,    ///< the text was read to its end, and no element is open
      unexpected_eof,  ///< the text ends in a comment, CDATA section or end tag, or with elements open
      mismatched_end_element,  ///< an end tag names another element than the innermost open one, or none is
                               ///< open
      no_root_element,         ///< the text ends in the header or directly after it
      bad_header,              ///< the text does not begin with <?xml, or the header holds < or > before ?>
      unexpected_character,    ///< a character that the grammar has no place for
      missing_quote,        ///< an attribute value does not start with a quote, or the text ends inside one
      unknown_entity,       ///< & followed by something that opens no known entity
      missing_equals,       ///< no = after an attribute's name
      attribute_redefined,  ///< an attribute's name comes twice in one start tag
      data_after_root,      ///< a second top-level element starts
    };

    error_type type = no_error;
    /// The number of line feeds in the white space between and inside tags. Those in text, comments, values
    /// and the header are not counted. 0 on the first line, and also if the text was read to its end.
    /// `offset` is exact.
    types::uint32 line = 0;
    /// The text that the error is about:
    ///
    ///     unexpected_character                    that one character; empty if the text ended instead
    ///     mismatched_end_element                  the end tag's name; empty for />
    ///     missing_quote                           the attribute's name if the text ended inside the value
    ///     missing_equals, attribute_redefined     the attribute's name
    ///     any other                               empty
    ustring8 data;
    /// The place of the error, as an offset in the text; never more than its length:
    ///
    ///     no_error, no_root_element               the end of the text
    ///     unexpected_eof                          the beginning of the comment or CDATA section, the name
    ///                                             in the end tag, or the end of the text if elements are
    ///                                             open
    ///     bad_header                              where <?xml is missing, or the < or >
    ///     unknown_entity                          the &
    ///     data_after_root                         the < of the start tag
    ///     any other, with data                    the data
    ///     any other, without data                 where reading stopped: at the > of a />, at what is in the
    ///                                             place of a quote, at the end of the text
    ///
    /// Of a `parse_error` that a scanner below throws, it counts from the position that the scanner got.
    std::size_t offset = 0;
    /// The name of the innermost element that is open at that place, which an end tag must have; empty if
    /// none is. An element is open from its name on. An end tag that the text cuts off has closed its
    /// element.
    ustring8 open_element;
  };

  /// The name of each start tag.
  text_delegate on_element_start;
  /// The name of each element that is closed, by an end tag or by />.
  text_delegate on_element_end;
  /// Each attribute, its entities expanded. A value that the end of the text cuts off is delivered before the
  /// parse fails.
  attribute_delegate on_attribute;
  /// Each run of text, its entities expanded, and each CDATA section unchanged.
  text_delegate on_character;
  /// White space between tags and between runs of text, but not inside a tag and not directly after the
  /// header.
  text_delegate on_space;
  /// The inner text of each comment.
  text_delegate on_comment;

  /// A parser without delegates. An event whose delegate is empty is skipped.
  xml_parser();
  /// Clones the delegates; the clones are bound to the same objects. Also copies the names of the elements
  /// that a failed parse left open.
  xml_parser(const xml_parser& other);
  xml_parser& operator=(const xml_parser& other);
  ~xml_parser();

  /// Reads the text and calls the delegates until its end or the first error.
  ///
  /// A malformed text is reported by the result, not by an exception. Exceptions of a delegate pass through,
  /// and so does `exceptions::overflow_error` for a character reference above 255.
  ///
  /// A parse that failed leaves its elements open, and the next one on the same object starts with them: its
  /// end tags will not match. Use a new parser after a failure.
  [[nodiscard]] parse_error parse(const ustring8& text) const;
  /// The same for a range of a byte string. Reads nothing outside [first, last).
  [[nodiscard]] parse_error parse(iterator first, iterator last) const;

  /// Where the last parse stopped, as an offset in its text: the `offset` of its error or, if an exception
  /// passed through, the & of the character reference above 255, or a place in or after the construct whose
  /// delegate threw.
  std::size_t offset() const noexcept { return offset_; }

 protected:
  // The scanners of the grammar, for classes that derive from this one. Each takes the position `it` and the
  // end of the text, and moves `it`. A malformed text throws a `parse_error` and leaves `it` unchanged.

  /// Reads the whole document. `it` ends where reading ended.
  parse_error do_parse(iterator& it, iterator& end) const;

  /// A name. `it` ends on its last character.
  /// Throws `unexpected_character` if there is no letter at `it`.
  ustring8 parse_name(iterator& it, iterator& end) const;

  /// A value from its opening quote on. `it` ends on the closing quote, or at the end of the text, which is
  /// no error here. Throws `missing_quote` if there is no quote at `it`, `unexpected_character` for a <, and
  /// what `parse_character` throws.
  ustring8 parse_attrib_value(iterator& it, iterator& end) const;

  /// The one byte that an entity or a character reference gives. `it` goes from the & to the semicolon.
  ///
  ///     &#65;  &#x41;      =>  "A"
  ///     &#;                =>  a zero byte: no digits are read as 0
  ///     &#256;             =>  throws exceptions::overflow_error
  ///     &#12x  &#X41;      =>  throws unexpected_character with the character that is no digit
  ///     &amx;  &lx;  &l    =>  throws unexpected_character with the second character after the &
  ///     &foo;  &           =>  throws unknown_entity
  ustring8 parse_character(iterator& it, iterator& end) const;

  /// White space, which may be empty. `it` ends after it. Each line feed counts as a line.
  ustring8 parse_whitespace(iterator& it, iterator& end) const;

  /// True for space, tab, carriage return and line feed. REQUIRES: `it` is not the end of the text.
  bool is_white_space(const iterator& it) const;

 private:
  class delegate_events;

  mutable internal::xml::name_list open_elements_;
  mutable internal::xml::name_set seen_attributes_;
  mutable types::uint32 line_ = 0;
  mutable std::size_t offset_ = 0;
};

/// The name of the enumerator.
[[nodiscard]] ORVA_API std::string_view name_of(xml_parser::parse_error::error_type type) noexcept;

/// Writes the error in one line. Bytes of `data` that are not printable ASCII are written as a backslash, x
/// and two figures.
///
///     mismatched_end_element at byte 41: "menu", open element "entry"
///     unexpected_character at byte 22: "\x0A"
///     no_error
ORVA_API std::ostream& operator<<(std::ostream& stream, const xml_parser::parse_error& error);

}  // namespace ORVA_NAMESPACE::parser
