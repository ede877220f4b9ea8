/// A second implementation of the streaming parser, slow and plain, that the library's is compared with. It
/// holds the whole document, reads a character at a time, and finds each node by its number. The window is a
/// limit that moves through the document; with a large one the document is read in one piece.
#pragma once

#include <cctype>
#include <cstddef>
#include <exception>
#include <list>
#include <optional>
#include <set>
#include <string>
#include <utility>
#include <vector>

namespace orva_test {

class reference_xml_stream {
 public:
  // The numbers of the library's `error_type`.
  enum : int {
    no_error = 0,
    incomplete = 1,
    not_synchronized = 2,
    end_of_document = 3,
    mismatched_tag = 4,
    duplicate_attribute = 5,
    unexpected_character = 6,
    missing_quote = 7,
    missing_equals = 9,
    fatal_error = 10,
    bad_header = 12,
  };

  struct node {
    int status_ = incomplete;
    bool available_ = false;
    std::string tag_;
    unsigned line_ = 0, id_ = 0, parent_id_ = 0;
    std::list<std::pair<std::string, std::string>> attribs_;
    std::string data_;
    unsigned key = 0;

    int status() const { return status_; }
    bool available() const { return available_; }
    const std::string& tag() const { return tag_; }
    unsigned line() const { return line_; }
    unsigned id() const { return id_; }
    unsigned parent_id() const { return parent_id_; }
    const auto& attribs() const { return attribs_; }
    const std::string& data() const { return data_; }
  };

  struct empty_queue : std::exception {
    const char* what() const noexcept override { return "empty node queue"; }
  };

  static constexpr std::size_t in_one_piece = static_cast<std::size_t>(-1);

  reference_xml_stream(std::string document, unsigned open_depth, std::size_t window = 65'536)
      : text_(std::move(document)), window_(window), open_depth_(open_depth) {}

  /// Lets the file grow.
  void append(const std::string& more) { text_ += more; }

  int parse() {
    if (error_ >= fatal_error || finished()) return error_;
    if (!synchronized_) return error_ = not_synchronized;
    error_ = no_error;
    if (!header_done_) header();
    if (header_done_) pump();
    return error_;
  }

  int recover(const std::list<std::string>& tags) {
    if (root_.empty()) return error_ = fatal_error;
    if (error_ >= fatal_error) return error_;
    if (tags.empty()) return error_ = not_synchronized;
    seen_.clear();
    in_comment_ = awaiting_close_ = in_tag_ = false;
    if (open_tags_.size() > open_names_.size()) open_tags_.resize(open_names_.size());
    queue_.clear();
    ids_ = {0};
    synchronized_ = false;
    line_ = mark_line_;
    if (find_start_tag(tags)) {
      synchronized_ = true;
      return error_ = no_error;
    }
    if (error_ != end_of_document) error_ = not_synchronized;
    return error_;
  }

  bool node_queue_empty() const { return takeable() == 0; }
  std::size_t node_queue_size() const { return takeable(); }
  node& node_queue_front() {
    if (takeable() == 0) throw empty_queue();
    return queue_.front();
  }
  node node_queue_pop() {
    if (queue_.empty()) throw empty_queue();
    const node taken = queue_.front();
    queue_.pop_front();
    if (!taken.available_) throw empty_queue();
    if (error_ <= incomplete && takeable() == 0 && !finished()) pump();
    return taken;
  }

  const std::string& root() const { return root_; }
  unsigned line() const { return line_; }
  int error() const { return error_; }
  long long parse_offset() const { return static_cast<long long>(mark_); }

 private:
  struct stop {
    int error;
  };
  struct quiet {};
  struct paused {};

  bool finished() const { return root_closed_ && !awaiting_close_; }
  bool ended() const { return at_ == read_; }
  std::size_t left() const { return read_ - at_; }
  bool at(const std::string& expected) const { return text_.compare(at_, expected.size(), expected) == 0; }
  static bool white(char c) { return c == ' ' || c == '\t' || c == '\r' || c == '\n'; }
  static bool name_unit(char c) {
    const auto byte = static_cast<unsigned char>(c);
    return byte >= 128 || std::isalnum(byte) != 0 || c == '_';
  }

  std::size_t takeable() const {
    std::size_t count = 0;
    for (const auto& each : queue_) {
      if (!each.available_) break;
      ++count;
    }
    return count;
  }
  node* find(unsigned key) {
    for (auto& each : queue_) {
      if (each.key == key) return &each;
    }
    return nullptr;
  }

  /// Moves the window to the first token that is not consumed. False if that gives no more bytes.
  bool load() {
    if (finished()) return false;
    const std::size_t before = read_;
    read_ = window_ < text_.size() - mark_ ? mark_ + window_ : text_.size();
    if (read_ == before) return false;
    at_ = mark_;
    return true;
  }

  bool find_start_tag(const std::list<std::string>& tags) {
    for (;; ++at_) {
      while (!ended() && text_[at_] != '<') ++at_;
      mark_ = at_;
      while (start_tag_is_cut()) {
        if (!load()) return false;
        while (!ended() && text_[at_] != '<') ++at_;
        mark_ = at_;
      }
      if (text_[at_ + 1] == '/' || text_[at_ + 1] == '!') continue;
      const auto found = start_tag_name();
      for (const auto& tag : tags) {
        if (found && tag == *found) return true;
      }
    }
  }

  bool start_tag_is_cut() const {
    if (left() < 2) return true;
    if (text_[at_ + 1] == '/' || text_[at_ + 1] == '!') return false;
    return !start_tag_name() && read_ - mark_ < window_;
  }

  /// None if it may go on after the window.
  std::optional<std::string> start_tag_name() const {
    std::size_t first = at_ + 1;
    while (first < read_ && white(text_[first])) ++first;
    std::size_t last = first;
    while (last < read_ && name_unit(text_[last])) ++last;
    if (last == read_) return std::nullopt;
    return text_.substr(first, last - first);
  }

  void header() {
    load();
    if (read_ == 0) return;
    if (read_ < 50) {
      error_ = incomplete;
      return;
    }
    do {
      at_ = mark_ == 0 && text_[3] == '<' ? 3 : mark_;
      line_ = mark_line_;
      white_space();
      if (left() < 6 || !at("<?xml")) {
        error_ = bad_header;
        return;
      }
      std::size_t end = at_ + 5;
      while (end < read_ && text_[end] != '?' && text_[end] != '>') ++end;
      const std::size_t after = end + (end < read_ && text_[end] == '>' ? 1 : 2);
      header_done_ = after <= read_;
      if (header_done_) {
        at_ = after;
        white_space();
      }
      mark_ = at_;
      mark_line_ = line_;
    } while (!header_done_ && load());
    if (!header_done_) error_ = incomplete;
  }

  bool enough() const { return queue_.size() >= 100 && takeable() >= 2; }
  /// An open level whose attributes and text may still follow.
  bool last_is_unfinished() const { return queue_.back().available_ && queue_.back().status_ == incomplete; }

  void pump() {
    if (finished() || enough()) return;
    for (bool may_go_on = true; may_go_on;) {
      may_go_on = parse_window();
      if (finished() || error_ > incomplete || !load()) return;
      error_ = no_error;
      if (enough() && !last_is_unfinished()) return;
    }
  }

  /// False at a start tag that is left for later because enough nodes wait.
  bool parse_window() {
    at_ = mark_;
    line_ = mark_line_;
    error_ = no_error;
    try {
      if (in_comment_) comment_rest();
      while (!ended() && !finished()) {
        token();
        mark_ = at_;
        mark_line_ = line_;
      }
    } catch (const stop& why) {
      error_ = why.error;
    } catch (const quiet&) {
    } catch (const paused&) {
      return false;
    }
    return true;
  }

  void token() {
    if (text_[at_] == '\n') return ++line_, void(++at_);
    if (white(text_[at_])) return void(++at_);
    if (text_[at_] == '<') return bracket();
    if (text_[at_] == '/' && in_tag_) return slash();
    if (text_[at_] == '>') return closing();
    if (in_tag_) return attribute();
    text_run();
  }

  void bracket() {
    if (in_tag_) throw stop{unexpected_character};
    if (left() < 2) throw stop{incomplete};
    if (text_[at_ + 1] == '/') return end_tag();
    if (text_[at_ + 1] == '!') return declaration();
    if (queue_.size() > 100 && takeable() >= 2) throw paused();
    ++at_;
    const auto tag = name();
    if (tag.empty()) throw stop{unexpected_character};
    in_tag_ = true;
    const bool open = open_names_.size() < open_depth_ && tag != "include";
    if (open && root_.empty()) root_ = tag;
    if (open) open_names_.push_back(tag);
    node made;
    made.key = ++last_key_;
    made.available_ = open;
    made.tag_ = tag;
    made.line_ = line_;
    made.id_ = next_id_++;
    made.parent_id_ = ids_.back();
    ids_.push_back(made.id_);
    queue_.push_back(made);
    open_tags_.push_back({tag, made.key});
    seen_.clear();
  }

  void end_tag() {
    at_ += 2;
    const auto tag = name();
    if (tag.empty()) throw stop{incomplete};
    if (open_tags_.size() > open_depth_) {
      if (open_tags_.back().first != tag) throw stop{mismatched_tag};
      close();
    } else {
      if (open_names_.empty() || open_names_.back() != tag) throw stop{mismatched_tag};
      node made;
      made.key = ++last_key_;
      made.status_ = tag == root_ ? end_of_document : no_error;
      made.available_ = true;
      made.tag_ = tag;
      made.line_ = line_;
      made.id_ = static_cast<unsigned>(open_names_.size());
      queue_.push_back(made);
      if (ids_.size() > 1) ids_.pop_back();
      if (tag == root_) root_closed_ = true;
      if (!open_tags_.empty()) open_tags_.pop_back();
      open_names_.pop_back();
    }
    awaiting_close_ = true;
  }

  void close() {
    if (node* const closed = find(open_tags_.back().second)) {
      closed->status_ = no_error;
      closed->available_ = true;
    }
    open_tags_.pop_back();
    seen_.clear();
    if (ids_.size() > 1) ids_.pop_back();
  }

  void declaration() {
    if (left() < 4) throw stop{incomplete};
    if (!at("<!--")) return void(++at_);
    at_ += 4;
    comment_rest();
  }

  void comment_rest() {
    for (; left() >= 4; ++at_) {
      if (text_[at_] == '\n') ++line_;
      if (!at("--")) continue;
      if (!at("-->")) throw stop{unexpected_character};
      at_ += 3;
      in_comment_ = false;
      mark_ = at_;
      mark_line_ = line_;
      return;
    }
    in_comment_ = true;
    mark_ = at_;
    mark_line_ = line_;
    throw stop{incomplete};
  }

  void slash() {
    if (left() < 2) throw quiet();
    ++at_;
    if (text_[at_] != '>') throw stop{unexpected_character};
    if (open_tags_.empty()) throw stop{mismatched_tag};
    ++at_;
    in_tag_ = false;
    close();
  }

  void closing() {
    if (in_tag_) {
      in_tag_ = false;
    } else if (awaiting_close_) {
      awaiting_close_ = false;
      if (root_closed_) error_ = end_of_document;
    } else {
      throw stop{unexpected_character};
    }
    ++at_;
  }

  void attribute() {
    const auto attribute_name = name();
    if (attribute_name.empty()) throw stop{unexpected_character};
    if (text_[at_] != '=') throw stop{missing_equals};
    ++at_;
    white_space();
    if (ended()) throw stop{incomplete};
    const char quote = text_[at_];
    if (quote != '"' && quote != '\'') throw stop{missing_quote};
    ++at_;
    std::string value;
    while (!ended() && text_[at_] != quote) {
      if (text_[at_] == '<') throw stop{unexpected_character};
      value += text_[at_] == '&' ? entity() : text_[at_++];
    }
    if (ended()) throw stop{incomplete};
    ++at_;
    if (!seen_.insert(attribute_name).second) throw stop{duplicate_attribute};
    if (node* const owner = find(open_tags_.back().second))
      owner->attribs_.emplace_back(attribute_name, value);
  }

  void text_run() {
    std::string run;
    while (!ended() && text_[at_] != '<') run += text_[at_] == '&' ? entity() : text_[at_++];
    if (ended()) throw stop{incomplete};
    if (open_tags_.size() < 2) throw stop{unexpected_character};
    if (node* const owner = find(open_tags_.back().second)) owner->data_ = run;
  }

  char entity() {
    if (left() < 5) throw stop{incomplete};
    if (text_[at_ + 1] == '#') return text_[at_ + 2] == 'x' ? reference(3, 16) : reference(2, 10);
    if (text_[at_ + 1] == 'l') return named("&lt;", '<');
    if (text_[at_ + 1] == 'g') return named("&gt;", '>');
    if (text_[at_ + 1] == 'q') return named("&quot;", '"');
    if (text_[at_ + 1] == 'n') return named("&nbsp;", ' ');
    if (at("&am")) return named("&amp;", '&');
    if (at("&ap")) return named("&apos;", '\'');
    throw stop{unexpected_character};
  }

  char named(const std::string& whole, char value) {
    if (left() < whole.size()) throw stop{incomplete};
    if (!at(whole)) throw stop{unexpected_character};
    at_ += whole.size();
    return value;
  }

  char reference(std::size_t opener, unsigned radix) {
    std::size_t digit = at_ + opener;
    unsigned value = 0;
    for (;; ++digit) {
      if (digit == read_) throw stop{incomplete};
      const auto c = static_cast<unsigned char>(text_[digit]);
      if (c >= 128 || (radix == 16 ? std::isxdigit(c) : std::isdigit(c)) == 0) break;
      value = value * radix +
              (std::isdigit(c) != 0 ? c - '0' : static_cast<unsigned>(std::tolower(c)) - 'a' + 10);
      if (value > 255) value = 256;
    }
    if (text_[digit] != ';') throw stop{unexpected_character};
    if (value > 255) throw stop{fatal_error};
    at_ = digit + 1;
    return static_cast<char>(value);
  }

  std::string name() {
    white_space();
    std::string result;
    while (!ended() && name_unit(text_[at_])) result += text_[at_++];
    if (ended()) throw stop{incomplete};
    return result;
  }

  void white_space() {
    for (; !ended() && white(text_[at_]); ++at_) {
      if (text_[at_] == '\n') ++line_;
    }
  }

  std::string text_;
  std::size_t window_;
  // How much of the text was in the window.
  std::size_t read_ = 0;
  unsigned open_depth_;
  std::size_t at_ = 0;
  std::size_t mark_ = 0;
  unsigned line_ = 1;
  unsigned mark_line_ = 1;
  int error_ = no_error;
  bool header_done_ = false;
  bool in_tag_ = false;
  bool in_comment_ = false;
  bool awaiting_close_ = false;
  bool root_closed_ = false;
  bool synchronized_ = true;
  std::string root_;
  std::list<node> queue_;
  std::vector<std::pair<std::string, unsigned>> open_tags_;
  std::vector<std::string> open_names_;
  std::vector<unsigned> ids_{0};
  std::set<std::string> seen_;
  unsigned next_id_ = 1;
  unsigned last_key_ = 0;
};

}  // namespace orva_test
