/// `xml_stream_parser`: a pull parser for XML files of any size, in a few hundred kilobytes of memory.
///
///     xml_stream_parser feed("planet.osm", 1);
///     feed.parse();
///     while (!feed.node_queue_empty()) take(feed.node_queue_pop());     // reads on when nodes run out
///     if (feed.error() != xml_stream_parser::end_of_document) complain(feed.last_error());
///
/// It reads the file through a window of 65,536 bytes and puts nodes into a queue of about a hundred; the
/// caller takes them one at a time. Elements near the root, the first `open_depth` levels, are reported when
/// they begin and again when they end. Elements below them are reported as complete nodes, once closed. After
/// a syntax error `recover` finds the next record and parsing goes on there. `xml_parser` reads documents
/// that are in memory.
///
/// A popped node belongs to the caller. The file is open only while a call reads from it. A symbolic link is
/// refused each time the file is opened. One object belongs to one thread at a time: taking a node may read
/// the file.
///
/// With an `open_depth` of 1 the nodes come in this order, a parent before its children:
///
///     <?xml?><r><a x="1"><b>t</b></a><c/></r>
///
///         node     status           id  parent_id
///         r        incomplete        1  0          the beginning of an open level
///         a x="1"  no_error          2  1
///         b "t"    no_error          3  2
///         c        no_error          4  1
///         r        end_of_document   1  0          its end: `id` is the number of open levels, with this one
///
/// The grammar, which is not that of `xml_parser`:
///
///     header       <?xml up to the first ?> or >; mandatory. Any three bytes before it are skipped, as room
///                  for a byte order mark, and so is white space that fits into the window. A file of less
///                  than 50 bytes is not parsed
///     names        letters, digits, _ and all bytes from 128 on, in any order; white space may precede them
///     attributes   no white space before the =
///     values       within ' or ", the other quote being plain; < is refused; nothing is normalised
///     text         only in elements below the root. White space before it is dropped, white space after it
///                  is kept; of several runs in one element the last one is kept
///     comments     skipped, also if longer than the window; -- ends one
///     open levels  must not be closed by />. "include" is the exception: it is never an open level, and
///                  where one is expected it must be closed by />
///     entities     &lt; &gt; &amp; &apos; &quot; and &nbsp;, which gives a plain space
///     references   &#65; and &#x41; give one byte, unencoded; above 255 they give a `fatal_error`
///     not at all   CDATA, document type declarations, processing instructions, namespaces
///
/// A token that is cut off by the end of the window is read again as a whole: the position of that end has no
/// effect but on how many nodes wait after a `parse`. A token that is longer than the window stays
/// `incomplete`; `recover` passes over it.
///
/// Edge cases: docs/edges.md#xml
#pragma once

#include <cstddef>
#include <exception>
#include <initializer_list>
#include <iosfwd>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <utility>

#include "orva/diagnostics/place.hpp"
#include "orva/export.hpp"
#include "orva/parser/internal/empty_node_queue.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/system/path_argument.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::parser {

namespace _private {
class node_queue;
class xml_stream_implementation;
}  // namespace _private

class ORVA_API xml_stream_parser {
 public:
  using ustring8 = strings::ustring8;
  using EmptyNodeQueue = parser::EmptyNodeQueue;

  /// A file of fewer bytes is not parsed.
  static constexpr int smallest_file = 50;

  /// What stopped the parser last; `parser::describe` says it in words. After `mismatched_tag` to
  /// `missing_equals`, `recover` helps. The values from `fatal_error` on are final.
  enum error_type {
    no_error = 0,
    incomplete,            ///< the data end inside a token, or an end tag has no name; see `parse`
    not_synchronized,      ///< a `recover` found none of its elements, or a `parse` followed such a `recover`
    end_of_document,       ///< the root element was closed
    mismatched_tag,        ///< an end tag names another element than the innermost open one
    duplicate_attribute,   ///< an attribute's name comes twice in one start tag
    unexpected_character,  ///< a character that the grammar has no place for
    missing_quote,         ///< an attribute value does not start with a quote
    missing_equals = 9,    ///< no = directly after an attribute's name. The value 8 is not used
    fatal_error,  ///< a symbolic link, an exception while parsing (see `cause`), or `recover` without a root
    cannot_open_file,  ///< the file cannot be opened
    bad_header,        ///< the file does not start with <?xml
  };

  /// An error with its place.
  struct ORVA_API parse_error {
    error_type type = no_error;
    /// As `xml_stream_parser::line` counts.
    types::uint32 line = 0;
    /// The text that the error is about:
    ///
    ///     mismatched_tag                          the end tag's name; empty for />
    ///     duplicate_attribute, missing_equals     the attribute's name
    ///     unexpected_character                    that one byte; & for one that begins no entity
    ///     any other                               empty
    ustring8 data;
    /// The place of the error, as an offset in the file:
    ///
    ///     unexpected_character                    the character; the beginning of a text outside a record
    ///     mismatched_tag, duplicate_attribute,    the name that is in `data`; the > of a />
    ///     missing_equals
    ///     missing_quote                           what is in the place of the quote
    ///     fatal_error                             the & of a character reference above 255
    ///     bad_header                              where <?xml is missing
    ///     any other                               how much is parsed, as `parse_offset` says
    long long offset = 0;
    /// The name of the innermost element that is open at that place, which an end tag must have; empty if
    /// none is. An element is open from its name on.
    ustring8 open_element;
  };

  /// One element, or the end of an element of an open level.
  class ORVA_API node {
   public:
    using attribute_list = std::list<std::pair<ustring8, ustring8>>;

    /// `incomplete` for an open element, such as the first node of an open level; `no_error` for a complete
    /// element and for the end of an open level; `end_of_document` for the end of the root.
    error_type status() const noexcept { return status_; }
    /// Whether the node may be taken from the queue.
    bool available() const noexcept { return available_; }
    const ustring8& tag() const noexcept { return tag_; }
    /// The line on which the element's name ended, or the end tag's, as `xml_stream_parser::line` counts.
    types::uint32 line() const noexcept { return line_; }
    /// The number of the element, from 1 on. For an end: the number of open levels, including the one that
    /// ends.
    types::uint32 id() const noexcept { return id_; }
    /// The `id` of the enclosing element; 0 for the root, for an end, and for the elements of an open level
    /// after a `recover`.
    types::uint32 parent_id() const noexcept { return parent_id_; }
    /// Names and values in the order of the document, entities expanded.
    const attribute_list& attribs() const noexcept { return attribs_; }
    /// The last run of text that is directly in the element, entities expanded.
    const ustring8& data() const noexcept { return data_; }

   private:
    friend class _private::node_queue;

    error_type status_ = incomplete;
    bool available_ = false;
    types::uint32 line_ = 0;
    types::uint32 id_ = 0;
    types::uint32 parent_id_ = 0;
    ustring8 tag_;
    attribute_list attribs_;
    ustring8 data_;
  };

  /// Nothing is read yet. A missing file does not throw: `error` is then `cannot_open_file`, and
  /// `fatal_error` for a symbolic link.
  xml_stream_parser(const system::path_argument& file, unsigned int open_depth);
  xml_stream_parser(const xml_stream_parser&) = delete;
  xml_stream_parser& operator=(const xml_stream_parser&) = delete;
  ~xml_stream_parser();

  /// Reads on until a hundred nodes wait and two of them can be taken, or until something stops it. Returns
  /// `error()`:
  ///
  ///     no_error           enough nodes wait, or all that the file has now is parsed: take nodes, then parse
  ///                        again. If then none can be taken, the file ends before its root, between two
  ///                        tokens or after the / of a />
  ///     incomplete         the file ends inside a token, or has fewer than 50 bytes: parse again when it has
  ///                        grown. Or a token is longer than the window, or an end tag has no name: only
  ///                        `recover` helps
  ///     end_of_document    the root was closed; a further parse does nothing, what follows is not read
  ///     not_synchronized   a `recover` failed, and this call did nothing
  ///     an error           the nodes before it can be taken. A further parse reads the same token again and
  ///                        fails again, as long as the file is the same; but while a hundred nodes wait, it
  ///                        does nothing and returns `no_error`
  ///     from fatal_error   a further parse does nothing
  ///
  /// Throws `std::ios_base::failure` with "ios_base::failbit set" if the file ends sooner than its size says.
  /// Nodes that were read before that are in the queue, and a further parse tries again.
  const error_type& parse();

  /// Gives up the current record and all nodes in the queue, and searches from the position of the error for
  /// the next start tag with one of these names. The open levels stay open. Lines that are passed over are
  /// not counted. Returns `error()`:
  ///
  ///     no_error           the next parse begins at that start tag
  ///     not_synchronized   there is none, or no name was given, or the file cannot be read now. Parse does
  ///                        nothing until a `recover` succeeds
  ///     end_of_document    the root was closed before, and the rest of the window has no such start tag. If
  ///                        it has one, the result is `no_error`, but nothing more is parsed
  ///     fatal_error        no root element was read yet, so that there is nothing to go on with
  ///
  /// Throws as `parse` does.
  const error_type& recover(const std::list<ustring8>& tags);
  const error_type& recover(const std::list<std::string>& tags);
  const error_type& recover(std::initializer_list<const char*> tags);

  /// Whether no node can be taken: there is none, or the first one is not complete.
  bool node_queue_empty() const noexcept;
  /// How many nodes can be taken one after the other.
  types::uint32 node_queue_size() const noexcept;
  /// The node that a pop would take. Throws `EmptyNodeQueue` if `node_queue_empty`.
  node& node_queue_front();
  /// Takes the first node. If the next one cannot be taken yet, this parses on, so that a caller who only
  /// pops reads the whole file; `error` may change.
  ///
  /// Throws `EmptyNodeQueue` if `node_queue_empty`; a first node that is not complete is removed all the
  /// same, and lost. Throws as `parse` does; the node is then still in the queue, with its attributes and
  /// text.
  node node_queue_pop();

  /// The name of the root element; empty until it was read.
  const ustring8& root() const noexcept;
  /// The current line, from 1 on. Line feeds count between tokens, within tags and in comments. They do not
  /// count in the header, in texts, in values, and where `recover` passes over them.
  types::uint32 line() const noexcept;
  const error_type& error() const noexcept;
  /// The same with what is known about it, until the parser is used again.
  parse_error last_error() const;
  /// The exception that made `error` a `fatal_error`, such as `exceptions::overflow_error` for a reference
  /// above 255 or `std::bad_alloc`. Null if the error has another reason.
  std::exception_ptr cause() const noexcept;
  /// How much of the file is parsed: the offset of the first token that is not consumed. After `bad_header`
  /// it is that of the start.
  long long parse_offset() const noexcept;
  /// The line and column of an offset in the file, such as that of an error. Reads the file up to there, or
  /// from the last such place on. None if the file cannot be opened.
  diagnostics::place place_of(long long offset) const;
  /// The size of the file as it is now. -1 if it cannot be opened or is a symbolic link.
  long long file_length() const;

 protected:
  // The steps of parsing, for classes that derive from this one. The readers of a construct throw an
  // `error_type`, which `parse_next` catches.

  /// Starts anew, with this file.
  void init(const strings::ustring16& file);
  /// Moves the window to the first token that is not consumed and fills it from the file. Returns the number
  /// of bytes read; if the file cannot be read, that is 0, and the reason is in `error`.
  std::size_t load();
  /// Parses until enough nodes can be taken.
  void do_parse();
  /// Parses what is in the window. True if it stopped because enough nodes can be taken.
  bool parse_next();

  /// A name, which may be empty, with the white space before it. Throws `incomplete` if it reaches the end of
  /// the window, where the name may go on.
  std::string_view parse_name();
  /// A value with the white space before it, from quote to quote.
  ustring8 parse_attrib_value();
  /// The byte that an entity or a character reference gives.
  char parse_entity();
  /// Skips the rest of a comment; false if its end is not in the window.
  bool finish_comment();
  void skip_whitespace() noexcept;
  static bool is_whitespace(char c) noexcept;

  void new_node(std::string_view name, error_type status, bool available);
  void end_of_open_node(std::string_view name, error_type status);
  /// Closes the innermost element, whose node is complete then. REQUIRES: an element is open.
  void close_tag();
  /// Whether fewer than `count` nodes can be taken.
  bool queue_size_less_than(std::size_t count) const noexcept;

 private:
  std::unique_ptr<_private::xml_stream_implementation> implementation_;
};

/// The name of the enumerator. An `error_type` that is written to a stream gives its number.
[[nodiscard]] ORVA_API std::string_view name_of(xml_stream_parser::error_type type) noexcept;

/// Writes the error in one line. Bytes of `data` that are not printable ASCII are written as a backslash, x
/// and two figures.
///
///     mismatched_tag at byte 41: "menu", open element "entry"
///     no_error
ORVA_API std::ostream& operator<<(std::ostream& stream, const xml_stream_parser::parse_error& error);

}  // namespace ORVA_NAMESPACE::parser
