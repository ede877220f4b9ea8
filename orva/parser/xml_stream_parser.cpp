#include "orva/parser/xml_stream_parser.hpp"

#include <algorithm>
#include <cstring>
#include <ios>
#include <stdexcept>
#include <string_view>
#include <utility>

#include "orva/platform/file.hpp"
#include "orva/platform/native_path.hpp"
#include "orva/platform/symbolic_link.hpp"

namespace ORVA_NAMESPACE::parser {

namespace {

constexpr std::ptrdiff_t window_size = 0x10000;
constexpr long long smallest_file = 50;
constexpr std::size_t shortest_header = 6;

/// The standard stream failure with nothing but its words: the standard library adds its own to them.
class stream_failure : public std::ios_base::failure {
 public:
  explicit stream_failure(const char* words) : failure(words), words_(words) {}
  const char* what() const noexcept override { return words_; }

 private:
  const char* words_;
};

/// Why a file must not be opened, or `no_error`.
xml_stream_parser::error_type refusal(const platform::native_string& path) {
  try {
    return platform::is_symbolic_link(path) ? xml_stream_parser::fatal_error : xml_stream_parser::no_error;
  } catch (const std::runtime_error&) {
    // Its status cannot be asked for.
    return xml_stream_parser::cannot_open_file;
  }
}

}  // namespace

xml_stream_parser::xml_stream_parser(const system::path_argument& file, unsigned int open_depth)
    : open_depth_(open_depth) {
  init(file.get());
}

xml_stream_parser::~xml_stream_parser() = default;

void xml_stream_parser::init(const strings::ustring16& file) {
  line_ = mark_line_ = 1;
  synchronized_ = true;
  in_tag_ = awaiting_close_ = in_comment_ = header_done_ = root_closed_ = false;
  bytes_read_ = 0;
  root_.clear();
  buffer_.resize(2 * window_size);
  cursor_ = mark_ = data_end_ = buffer_.data();
  node_queue_.clear();
  counted_ = 0;
  open_tags_.clear();
  open_tags_without_node_ = 0;
  open_names_.clear();
  seen_attributes_.clear();
  file_name_ = file;
  const auto path = platform::to_native(file_name_);
  error_ = refusal(path);
  if (error_ == no_error && !platform::input_file(path).is_open()) error_ = cannot_open_file;
  next_id_ = 1;
  id_stack_.assign(1, 0);
}

std::size_t xml_stream_parser::load() {
  if (finished()) return 0;
  const auto path = platform::to_native(file_name_);
  error_ = refusal(path);
  if (error_ != no_error) return 0;
  platform::input_file file(path);
  if (!file.is_open()) {
    error_ = cannot_open_file;
    return 0;
  }
  const long long end_of_window = parse_offset() + static_cast<long long>(window_size);
  const long long end = std::min<long long>(file.size(), end_of_window);
  if (end <= bytes_read_) return 0;
  const auto count = static_cast<std::size_t>(end - bytes_read_);
  make_room(count);
  if (file.read(bytes_read_, data_end_, count) < count) throw stream_failure("ios_base::failbit set");
  bytes_read_ += static_cast<long long>(count);
  data_end_ += count;
  return count;
}

/// The buffer holds two windows, so that the window moves through it, and is copied back to its start only
/// once for each window of text.
void xml_stream_parser::make_room(std::size_t count) noexcept {
  if (static_cast<std::size_t>(buffer_.data() + buffer_.size() - data_end_) >= count) return;
  const auto kept = static_cast<std::size_t>(data_end_ - mark_);
  std::memmove(buffer_.data(), mark_, kept);
  cursor_ = mark_ = buffer_.data();
  data_end_ = buffer_.data() + kept;
}

bool xml_stream_parser::window_is_full() const noexcept { return data_end_ - mark_ == window_size; }

const xml_stream_parser::error_type& xml_stream_parser::parse() {
  if (error_ >= fatal_error || finished()) return error_;
  if (!synchronized_) return error_ = not_synchronized;
  error_ = no_error;
  if (header_done_ || read_header()) do_parse();
  return error_;
}

/// False with the reason in `error_` if the header is not over.
bool xml_stream_parser::read_header() {
  if (load() == 0 && bytes_read_ == 0) return false;
  if (error_ != no_error) return false;
  if (bytes_read_ < smallest_file) return error_ = incomplete, false;
  error_type found = scan_header();
  while (found == incomplete && load() > 0) found = scan_header();
  if (error_ == no_error) error_ = found;
  return header_done_ = error_ == no_error;
}

/// `incomplete` if the header begins in the window and does not end in it; it is the first token then.
xml_stream_parser::error_type xml_stream_parser::scan_header() noexcept {
  static constexpr std::string_view opener = "<?xml";
  cursor_ = mark_;
  line_ = mark_line_;
  if (parse_offset() == 0 && mark_[3] == '<') cursor_ += 3;
  skip_whitespace();
  const std::string_view header(cursor_, left());
  if (header.size() < shortest_header || !header.starts_with(opener)) return bad_header;
  const auto end = header.find_first_of("?>", opener.size());
  const auto size = end == header.npos ? end : end + (header[end] == '?' ? 2u : 1u);
  const bool is_whole = size <= header.size();
  if (is_whole) {
    cursor_ += size;
    skip_whitespace();
  }
  mark_ = cursor_;
  mark_line_ = line_;
  return is_whole ? no_error : incomplete;
}

void xml_stream_parser::do_parse() {
  if (finished() || enough_to_take()) return;
  for (bool paused = false; !paused;) {
    paused = parse_next();
    if (finished() || error_ > incomplete) return;
    const error_type stopped_by = error_;
    if (load() == 0) {
      if (error_ == no_error) error_ = stopped_by;
      return;
    }
    if (enough_to_take() && !last_node_is_unfinished()) return;
  }
}

/// Whether the last node is an open level whose attributes and text may still follow, and which could be
/// taken without them.
bool xml_stream_parser::last_node_is_unfinished() const noexcept {
  const node& last = node_queue_.back();
  return last.available_ && last.status_ == incomplete;
}

bool xml_stream_parser::node_queue_empty() const noexcept { return queue_size_less_than(1); }

bool xml_stream_parser::queue_size_less_than(std::size_t count) const noexcept {
  for (const node& each : node_queue_) {
    if (count == 0 || !each.available_) break;
    --count;
  }
  return count > 0;
}

types::uint32 xml_stream_parser::node_queue_size() const noexcept {
  auto next = counted_ == 0 ? node_queue_.begin() : std::next(last_counted_);
  for (; next != node_queue_.end() && next->available_; ++next) {
    last_counted_ = next;
    ++counted_;
  }
  return counted_;
}

xml_stream_parser::node& xml_stream_parser::node_queue_front() {
  if (node_queue_empty()) throw EmptyNodeQueue();
  return node_queue_.front();
}

xml_stream_parser::node xml_stream_parser::node_queue_pop() {
  if (node_queue_.empty()) throw EmptyNodeQueue();
  node_list taken;
  taken.splice(taken.begin(), node_queue_, node_queue_.begin());
  if (counted_ > 0) --counted_;
  node& front = taken.front();
  if (!front.available_) {
    forget_open_tag_of(front);
    throw EmptyNodeQueue();
  }
  if (error_ > incomplete || !node_queue_empty() || finished()) {
    forget_open_tag_of(front);
    return std::move(front);
  }
  return parse_behind(taken);
}

/// Parses on while the first node is out of the queue. If that throws, the node goes back, with all that was
/// read for it meanwhile; the caller gets it as it was before.
xml_stream_parser::node xml_stream_parser::parse_behind(node_list& taken) {
  const error_type error_before = error_;
  try {
    node result = taken.front();
    do_parse();
    forget_open_tag_of(taken.front());
    return result;
  } catch (...) {
    node_queue_.splice(node_queue_.begin(), taken);
    counted_ = 0;
    error_ = error_before;
    throw;
  }
}

/// What comes late for a node that has left is dropped.
void xml_stream_parser::forget_open_tag_of(const node& taken) noexcept {
  if (open_tags_without_node_ == open_tags_.size()) return;
  if (&*open_tags_[open_tags_without_node_].position == &taken) ++open_tags_without_node_;
}

long long xml_stream_parser::file_length() const {
  const auto path = platform::to_native(file_name_);
  if (refusal(path) != no_error) return -1;
  const platform::input_file file(path);
  return file.is_open() ? file.size() : -1;
}

const xml_stream_parser::error_type& xml_stream_parser::recover(const std::list<ustring8>& tags) {
  return recover_at({tags.begin(), tags.end()});
}

const xml_stream_parser::error_type& xml_stream_parser::recover(const std::list<std::string>& tags) {
  return recover_at({tags.begin(), tags.end()});
}

const xml_stream_parser::error_type& xml_stream_parser::recover(std::initializer_list<const char*> tags) {
  return recover_at({tags.begin(), tags.end()});
}

const xml_stream_parser::error_type& xml_stream_parser::recover_at(
    const std::vector<std::string_view>& tags) {
  if (root_.empty()) return error_ = fatal_error;
  if (error_ >= fatal_error) return error_;
  if (tags.empty()) return error_ = not_synchronized;
  give_up_open_records();
  while (!find_start_tag(tags)) {
    if (load() > 0) continue;
    // A file that cannot be read now may be back for the next attempt.
    if (error_ != end_of_document) error_ = not_synchronized;
    return error_;
  }
  synchronized_ = true;
  return error_ = no_error;
}

void xml_stream_parser::give_up_open_records() {
  seen_attributes_.clear();
  in_comment_ = awaiting_close_ = in_tag_ = synchronized_ = false;
  while (open_tags_.size() > open_names_.size()) pop_open_tag();
  open_tags_without_node_ = open_tags_.size();
  node_queue_.clear();
  counted_ = 0;
  id_stack_.assign(1, 0);
}

/// Ends at the start tag; or, with false, at what must be looked at again once there is more data.
bool xml_stream_parser::find_start_tag(const std::vector<std::string_view>& tags) {
  line_ = mark_line_;
  const auto is_wanted = [&tags](std::string_view name) {
    return std::find(tags.begin(), tags.end(), name) != tags.end();
  };
  for (;; ++cursor_) {
    cursor_ = mark_ = std::find(cursor_, static_cast<const char*>(data_end_), '<');
    if (left() < 2) return false;
    if (cursor_[1] == '/' || cursor_[1] == '!') continue;
    ++cursor_;
    std::string_view name;
    const bool is_whole = scan_name(name);
    cursor_ = mark_;
    line_ = mark_line_;
    // A name that is longer than the window is passed over: none of those wanted is that long.
    if (!is_whole && !window_is_full()) return false;
    if (is_whole && is_wanted(name)) return true;
  }
}

}  // namespace ORVA_NAMESPACE::parser
