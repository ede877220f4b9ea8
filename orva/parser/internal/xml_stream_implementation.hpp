/// The implementation of `xml_stream_parser`: its grammar, and how it feeds on the window and fills the
/// queue.
///
/// Internal. The parts are the window on the file (`stream_window`), the reader of names, values and texts
/// (`stream_lexer`), the queue (`node_queue`) and the search after an error (`find_start_tag`).
///
/// Parsing goes token by token. A token is consumed when it is whole; one that is cut off by the end of the
/// window is read again from its start after the window has moved.
#pragma once

#include <cstddef>
#include <cstdint>
#include <deque>
#include <exception>
#include <string_view>
#include <vector>

#include "orva/internal/xml/name_list.hpp"
#include "orva/parser/internal/file_place_cursor.hpp"
#include "orva/parser/internal/node_queue.hpp"
#include "orva/parser/internal/stream_lexer.hpp"
#include "orva/parser/internal/stream_window.hpp"
#include "orva/parser/xml_stream_parser.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::parser::_private {

class xml_stream_implementation {
 public:
  using ustring8 = strings::ustring8;
  using node = xml_stream_parser::node;
  using error_type = xml_stream_parser::error_type;
  using enum xml_stream_parser::error_type;

  explicit xml_stream_implementation(unsigned int open_depth) : open_depth_(open_depth) {}

  /// Starts anew, with this file.
  void init(const strings::ustring16& file);

  const error_type& parse();
  const error_type& recover(const std::vector<std::string_view>& tags);
  node pop();

  /// Moves the window and fills it. The number of bytes read. If the file cannot be read, it is 0 and the
  /// reason is in `error`.
  std::size_t load();
  /// Parses until enough nodes can be taken.
  void do_parse();
  /// Parses what is in the window. True if it stopped because enough nodes can be taken.
  bool parse_next();
  /// Skips the rest of a comment; false if its end is not in the window.
  bool finish_comment();
  void close_element();
  void end_of_open_level(std::string_view name, error_type status);

  stream_lexer& lexer() noexcept { return lexer_; }
  const stream_window& window() const noexcept { return window_; }
  node_queue& queue() noexcept { return queue_; }
  const ustring8& root() const noexcept { return root_; }
  const error_type& error() const noexcept { return error_; }
  xml_stream_parser::parse_error last_error() const;
  diagnostics::place place_of(std::int64_t offset) const { return cursor_.place_of(window_.path(), offset); }
  const std::exception_ptr& cause() const noexcept { return cause_; }

 private:
  enum class step { taken, cut_off, paused };

  static constexpr std::int64_t smallest_file = xml_stream_parser::smallest_file;
  static constexpr std::size_t shortest_header = 6;

  bool finished() const noexcept { return root_closed_ && !awaiting_close_; }
  void consume() noexcept;

  bool read_header();
  error_type scan_header();
  node parse_after_taking(node_queue::node_list& taken);

  // What is known about an error. The lexer stays where it stopped, and the window where the token begins.
  bool is_text_outside_a_record() const noexcept;
  std::string_view data_of_error() const noexcept;
  std::string_view open_element() const;

  // The tokens of the grammar.
  step next_token();
  step markup();
  step start_tag();
  void end_tag();
  void close_open_level(std::string_view name);
  void declaration();
  step self_close();
  void closing_bracket();
  void attribute();
  void text();

  stream_window window_;
  // Reads in the window. The bytes before its position are consumed, or will be with the current token.
  stream_lexer lexer_;
  types::uint32 line_of_window_ = 1;
  node_queue queue_;
  ustring8 root_;
  bool in_tag_ = false;
  bool awaiting_close_ = false;
  bool in_comment_ = false;
  bool header_done_ = false;
  bool root_closed_ = false;
  bool synchronized_ = true;
  unsigned int open_depth_;
  std::deque<ustring8> open_names_;
  internal::xml::name_set seen_attributes_;
  error_type error_ = no_error;
  std::exception_ptr cause_;
  mutable file_place_cursor cursor_;
};

}  // namespace ORVA_NAMESPACE::parser::_private
