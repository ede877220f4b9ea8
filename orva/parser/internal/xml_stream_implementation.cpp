#include "orva/parser/internal/xml_stream_implementation.hpp"

#include <utility>

#include "orva/parser/internal/start_tag_search.hpp"

namespace ORVA_NAMESPACE::parser::_private {

namespace {

using file_state = stream_window::file_state;

xml_stream_parser::error_type error_of(file_state state) {
  if (state == file_state::symbolic_link) return xml_stream_parser::fatal_error;
  return state == file_state::readable ? xml_stream_parser::no_error : xml_stream_parser::cannot_open_file;
}

}  // namespace

void xml_stream_implementation::init(const strings::ustring16& file) {
  const unsigned int open_depth = open_depth_;
  *this = xml_stream_implementation(open_depth);
  error_ = error_of(window_.open(file));
  lexer_.start(window_.first(), window_.last(), line_of_window_);
}

std::size_t xml_stream_implementation::load() {
  if (finished()) return 0;
  error_ = no_error;
  try {
    const auto [state, count] = window_.load();
    error_ = error_of(state);
    if (count > 0) lexer_.restart(window_.first(), window_.last());
    return count;
  } catch (...) {
    // The window may have moved in memory.
    lexer_.restart(window_.first(), window_.last());
    throw;
  }
}

/// What the lexer has read is consumed.
void xml_stream_implementation::consume() noexcept {
  window_.consume_up_to(lexer_.position());
  line_of_window_ = lexer_.line();
}

const xml_stream_parser::error_type& xml_stream_implementation::parse() {
  if (error_ >= fatal_error || finished()) return error_;
  if (!synchronized_) return error_ = not_synchronized;
  error_ = no_error;
  if (header_done_ || read_header()) do_parse();
  return error_;
}

/// If the header is not complete, returns false, with the reason in `error_`.
bool xml_stream_implementation::read_header() {
  if (load() == 0 && window_.bytes_read() == 0) return false;
  if (error_ != no_error) return false;
  if (window_.bytes_read() < smallest_file) return error_ = incomplete, false;
  error_type found = scan_header();
  while (found == incomplete && load() > 0) found = scan_header();
  if (error_ == no_error) error_ = found;
  return header_done_ = error_ == no_error;
}

/// `incomplete` if the header begins in the window and does not end in it. The window begins with it then.
xml_stream_parser::error_type xml_stream_implementation::scan_header() {
  static constexpr std::string_view opener = "<?xml";
  lexer_.start(window_.first(), window_.last(), line_of_window_);
  if (window_.offset() == 0 && lexer_.current(3) == '<') lexer_.step(3);
  lexer_.skip_white_space();
  const std::string_view header = lexer_.rest();
  if (header.size() < shortest_header || !header.starts_with(opener)) return bad_header;
  const auto end = header.find_first_of("?>", opener.size());
  const auto size = end == header.npos ? end : end + (header[end] == '?' ? 2u : 1u);
  const bool is_whole = size <= header.size();
  if (is_whole) {
    lexer_.step(size);
    lexer_.skip_white_space();
  }
  consume();
  return is_whole ? no_error : incomplete;
}

void xml_stream_implementation::do_parse() {
  if (finished() || queue_.is_full()) return;
  for (bool paused = false; !paused;) {
    paused = parse_next();
    if (finished() || error_ > incomplete) return;
    const error_type stopped_by = error_;
    if (load() == 0) {
      if (error_ == no_error) error_ = stopped_by;
      return;
    }
    if (queue_.is_full() && !queue_.ends_with_an_open_level()) return;
  }
}

xml_stream_parser::node xml_stream_implementation::pop() {
  auto taken = queue_.take_first();
  if (!taken.front().available()) {
    queue_.let_go(taken.front());
    throw EmptyNodeQueue();
  }
  if (error_ <= incomplete && queue_.has_less_than(1) && !finished()) return parse_after_taking(taken);
  queue_.let_go(taken.front());
  return std::move(taken.front());
}

/// Parses on without the first node. If that throws, the node goes back to the queue, with all that was read
/// for it in the meantime. If not, the caller gets it as it was before.
xml_stream_parser::node xml_stream_implementation::parse_after_taking(node_queue::node_list& taken) {
  const error_type error_before = error_;
  try {
    node result = taken.front();
    do_parse();
    queue_.let_go(taken.front());
    return result;
  } catch (...) {
    queue_.put_back(taken);
    error_ = error_before;
    throw;
  }
}

const xml_stream_parser::error_type& xml_stream_implementation::recover(
    const std::vector<std::string_view>& tags) {
  if (root_.empty()) return error_ = fatal_error;
  if (error_ >= fatal_error) return error_;
  if (tags.empty()) return error_ = not_synchronized;
  seen_attributes_.clear();
  in_comment_ = awaiting_close_ = in_tag_ = synchronized_ = false;
  queue_.give_up(open_names_.size());
  lexer_.start(lexer_.position(), window_.last(), line_of_window_);
  do {
    synchronized_ = find_start_tag(lexer_, tags, stream_window::size);
    consume();
  } while (!synchronized_ && load() > 0);
  if (synchronized_) return error_ = no_error;
  // A file that cannot be read now may be there again when the caller tries once more.
  if (error_ != end_of_document) error_ = not_synchronized;
  return error_;
}

}  // namespace ORVA_NAMESPACE::parser::_private
