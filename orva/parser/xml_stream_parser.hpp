/// `xml_stream_parser`: a pull parser for XML files of any size, in a few hundred kilobytes of memory.
///
/// It reads the file through a window of 65,536 bytes and keeps what it found as nodes in a queue of about a
/// hundred; the caller takes them one at a time. A node belongs to whoever popped it. Elements near the root,
/// the first `open_depth` levels, are told when they begin and again when they end; what stands below them
/// comes as whole nodes, once closed. After a syntax error `recover` finds the next record, and the walk goes
/// on.
///
/// The file is open only while a call reads from it. A symbolic link is refused before each time that it is
/// opened. One object belongs to one thread at a time: whatever takes a node may read the file.
///
///     xml_stream_parser feed("planet.osm", 1);
///     feed.parse();
///     while (!feed.node_queue_empty()) take(feed.node_queue_pop());     // reads on where nodes run out
///     if (feed.error() != xml_stream_parser::end_of_document) complain(feed.error(), feed.line());
///
/// With an `open_depth` of 1 the nodes come in this order, a parent in front of its children:
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
///     header       <?xml up to the first ?> or >; mandatory. Three bytes in front of it are skipped unseen, as room for
///                  a byte order mark, and white space too. A file of less than 50 bytes is never parsed
///     names        letters, digits, _ and all bytes from 128 on, in any order; white space may stand in front of them
///     attributes   no white space in front of the =
///     values       within ' or ", the other quote being plain; < is refused; nothing is normalised
///     text         only within elements below the root. White space in front of it is dropped, that behind it is
///                  kept; of several runs in one element the last one stays
///     comments     skipped, also those longer than the window; -- ends one
///     open levels  must not be closed by />. "include" is the exception: it never is an open level, and must be
///                  closed so where it stands for one
///     entities     &lt; &gt; &amp; &apos; &quot; and &nbsp;, which gives a plain space
///     references   &#65; and &#x41; give one byte, unencoded; above 255 they end the parser with `fatal_error`
///     not at all   CDATA, document type declarations, processing instructions, namespaces
///
/// Where the window's edge falls never shows: a token that is cut there is read whole once more. A token that
/// is longer than the window stays `incomplete`; `recover` gets past it.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <initializer_list>
#include <list>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "orva/export.hpp"
#include "orva/parser/internal/empty_node_queue.hpp"
#include "orva/internal/xml/name_list.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/system/path_argument.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::parser {

class ORVA_API xml_stream_parser {
 public:
  using ustring8 = strings::ustring8;
  using EmptyNodeQueue = parser::EmptyNodeQueue;

  /// What stopped the parser last. From `mismatched_tag` to `missing_equals` a `recover` helps; from
  /// `fatal_error` on the parser is done for good.
  enum error_type {
    no_error = 0,
    incomplete,            ///< the file ends inside a token, or the token is longer than the window
    not_synchronized,      ///< `recover` found none of its elements, and nothing is parsed until one does
    end_of_document,       ///< the root element was closed
    mismatched_tag,        ///< an end tag names another element than the innermost open one
    duplicate_attribute,   ///< an attribute's name comes twice in one start tag
    unexpected_character,  ///< a character that the grammar has no place for
    missing_quote,         ///< an attribute value does not start with a quote
    missing_equals = 9,    ///< no = right behind an attribute's name. 8 is no value of its own
    fatal_error,           ///< a symbolic link, a reference above 255, no memory, or `recover` without a root
    cannot_open_file,      ///< the file cannot be opened
    bad_header,            ///< the file does not start with <?xml
  };

  /// One element, or the end of an element of an open level.
  class ORVA_API node {
   public:
    using attribute_list = std::list<std::pair<ustring8, ustring8>>;

    /// `incomplete` for an element that is open, as an open level always is in its first node; `no_error` for
    /// one that is whole and for the end of an open level; `end_of_document` for the end of the root.
    error_type status() const noexcept { return status_; }
    /// Whether the node may be taken from the queue.
    bool available() const noexcept { return available_; }
    const ustring8& tag() const noexcept { return tag_; }
    /// The line on which the element's name ended, or the end tag's, as `xml_stream_parser::line` counts.
    types::uint32 line() const noexcept { return line_; }
    /// Counts the elements from 1 on. Of an end: the number of open levels, the one that ends included.
    types::uint32 id() const noexcept { return id_; }
    /// The `id` of the element around this one; 0 for the root, for an end, and for what follows a `recover`.
    types::uint32 parent_id() const noexcept { return parent_id_; }
    /// Names and values in the order of the document, entities expanded.
    const attribute_list& attribs() const noexcept { return attribs_; }
    /// The last run of text that stands directly in the element, entities expanded.
    const ustring8& data() const noexcept { return data_; }

   private:
    friend class xml_stream_parser;

    error_type status_ = incomplete;
    bool available_ = false;
    types::uint32 line_ = 0;
    types::uint32 id_ = 0;
    types::uint32 parent_id_ = 0;
    ustring8 tag_;
    attribute_list attribs_;
    ustring8 data_;
  };

  /// Nothing is read yet, and a file that is not there does not throw: `error` tells `no_error`,
  /// `cannot_open_file`, or `fatal_error` for a symbolic link.
  xml_stream_parser(const system::path_argument& file, unsigned int open_depth);
  xml_stream_parser(const xml_stream_parser&) = delete;
  xml_stream_parser& operator=(const xml_stream_parser&) = delete;
  ~xml_stream_parser();

  /// Reads on until a hundred nodes wait and two of them can be taken, or until something stops it. Returns
  /// `error()`:
  ///
  ///     no_error           go on: take nodes, then parse again. Where there are none to take, the file ends between
  ///                        two tokens, which a file that still grows may do
  ///     incomplete         the file ends inside a token. Once it has grown, a parse goes on
  ///     end_of_document    the root was closed; a further parse does nothing, and what follows it is not looked at
  ///     not_synchronized   a `recover` failed, and this did nothing
  ///     an error           a further parse fails again at the same place. The nodes in front of it can be taken
  ///     from fatal_error   a further parse does nothing
  ///
  /// Throws `std::ios_base::failure` with "ios_base::failbit set" where the file ends sooner than its size
  /// says. The parser is as before, and a further parse tries again.
  const error_type& parse();

  /// Gives up the element at hand and all nodes in the queue, and searches for the next start tag that bears
  /// one of these names, from the place of the error on. The open levels stay open. Lines that are passed
  /// over are not counted. Returns `error()`:
  ///
  ///     no_error           the next parse begins at that start tag
  ///     not_synchronized   there is none, or no name was given. Nothing is parsed until a `recover` succeeds
  ///     fatal_error        no root element was met yet: there is nothing to go on with
  ///
  /// Throws as `parse` does.
  const error_type& recover(const std::list<ustring8>& tags);
  const error_type& recover(const std::list<std::string>& tags);
  const error_type& recover(std::initializer_list<const char*> tags);

  /// Whether no node can be taken: none is there, or the first one is still open.
  bool node_queue_empty() const noexcept;
  /// How many nodes can be taken one after the other.
  types::uint32 node_queue_size() const noexcept;
  /// The node that a pop would take. Throws `EmptyNodeQueue` where `node_queue_empty`.
  node& node_queue_front();
  /// Takes the first node. Where the one behind it cannot be taken yet, this parses on, so that a caller who
  /// only pops goes through the whole file; `error` may change by it.
  ///
  /// Throws `EmptyNodeQueue` where `node_queue_empty`; a node that is still open is taken off the queue all
  /// the same and lost. Throws as `parse` does, and the node is in the queue then.
  node node_queue_pop();

  /// The name of the root element; empty until it was met.
  const ustring8& root() const noexcept { return root_; }
  /// The line reached, from 1 on. Line feeds count between tokens, within tags and in comments; those in the
  /// header, in texts, in values, and in what `recover` passes over do not.
  types::uint32 line() const noexcept { return line_; }
  const error_type& error() const noexcept { return error_; }
  /// How much of the file is parsed: the offset of the first token that was not taken.
  long long parse_offset() const noexcept { return bytes_read_ - (data_end_ - mark_); }
  /// The size of the file as it is now. -1 if it cannot be opened or is a symbolic link.
  long long file_length() const;

 protected:
  // The parts of the machine, for parsers that derive from this one. What scans throws an `error_type`, which
  // `parse_next` catches.

  /// Starts anew, with this file.
  void init(const strings::ustring16& file);
  /// Makes room in the window, behind the first token that was not taken, and fills it from the file. The
  /// number of bytes read; 0 with `error` telling if the file cannot be opened.
  std::size_t load();
  /// Parses until there is enough to take.
  void do_parse();
  /// Parses what is in the window. True if it stopped because there is enough to take.
  bool parse_next();

  /// A name, which may be empty, with the white space in front of it. Throws `incomplete` where the window's
  /// data end, as the name may go on.
  std::string_view parse_name();
  /// A value with the white space in front of it, from quote to quote.
  ustring8 parse_attrib_value();
  /// The byte that an entity or a character reference stands for.
  char parse_entity();
  /// Skips the rest of a comment; false if its end is not in the window.
  bool finish_comment();
  void skip_whitespace() noexcept;
  static bool is_whitespace(char c) noexcept { return c == ' ' || c == '\n' || c == '\t' || c == '\r'; }

  void new_node(std::string_view name, error_type status, bool available);
  void end_of_open_node(std::string_view name, error_type status);
  /// Closes the innermost element, whose node is whole by that.
  void close_tag();
  /// Whether less than `count` nodes can be taken.
  bool queue_size_less_than(std::size_t count) const noexcept;

 private:
  using node_list = std::list<node>;

  struct open_tag {
    ustring8 name;
    node_list::iterator position;
  };

  enum class step { taken, cut_off, paused };

  /// The queue grows no longer than that once there is something to take; only a single record can make it
  /// longer.
  static constexpr std::size_t enough_nodes = 100;

  bool finished() const noexcept { return root_closed_ && !awaiting_close_; }
  std::size_t left() const noexcept { return static_cast<std::size_t>(data_end_ - cursor_); }
  bool window_is_full() const noexcept;
  void make_room(std::size_t count) noexcept;

  bool read_header();
  error_type scan_header() noexcept;
  bool enough_to_take() const noexcept {
    return node_queue_.size() >= enough_nodes && !queue_size_less_than(2);
  }
  bool last_node_is_unfinished() const noexcept;
  node parse_behind(node_list& taken);
  void forget_open_tag_of(const node& taken) noexcept;

  step next_token();
  step markup();
  step start_tag();
  void end_tag();
  void close_open_level(std::string_view name);
  void comment();
  step self_close();
  void closing_bracket();
  void attribute();
  void text();
  bool scan_name(std::string_view& name) noexcept;
  void expand_up_to(std::uint8_t ending, ustring8& to);
  char character_reference();

  node* innermost_node() noexcept;
  void pop_open_tag() noexcept;
  void pop_id() noexcept;

  const error_type& recover_at(const std::vector<std::string_view>& tags);
  void give_up_open_records();
  bool find_start_tag(const std::vector<std::string_view>& tags);

  strings::ustring16 file_name_;
  std::string buffer_;
  ustring8 root_;
  long long bytes_read_ = 0;
  // Within the buffer: what is scanned, the first token not taken, the end of what was read.
  const char* cursor_ = nullptr;
  const char* mark_ = nullptr;
  char* data_end_ = nullptr;
  bool in_tag_ = false;
  bool awaiting_close_ = false;
  bool in_comment_ = false;
  bool header_done_ = false;
  bool root_closed_ = false;
  bool synchronized_ = true;
  types::uint32 line_ = 1;
  types::uint32 mark_line_ = 1;
  unsigned int open_depth_;
  node_list node_queue_;
  // The first nodes that can be taken, as far as they were counted: a caller may ask for their number at each
  // pop.
  mutable types::uint32 counted_ = 0;
  mutable node_list::const_iterator last_counted_;
  std::deque<open_tag> open_tags_;
  // Nodes leave the queue in the order in which their elements were opened, so that those of the open
  // elements that have left are always the first of them; their positions must not be followed.
  std::size_t open_tags_without_node_ = 0;
  std::deque<ustring8> open_names_;
  types::uint32 next_id_ = 1;
  std::deque<types::uint32> id_stack_;
  _private::name_set seen_attributes_;
  error_type error_ = no_error;
};

}  // namespace ORVA_NAMESPACE::parser
