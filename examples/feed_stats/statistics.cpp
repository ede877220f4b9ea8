#include "statistics.hpp"

#include <list>

namespace feed_stats {

namespace {

using orva::parser::xml_stream_parser;

/// The number of records between two reports of progress.
constexpr std::uint64_t records_of_a_step = 1000;

class walk {
 public:
  walk(const std::string& file, const observer& observer) : feed_(file, 1), observer_(observer) {}

  statistics run() {
    feed_.parse();
    take_nodes();
    while (is_damage(feed_.error()) && pass_over()) take_nodes();
    report_progress();
    result_.root = feed_.root();
    result_.ended_by = feed_.error();
    return result_;
  }

 private:
  static bool is_damage(xml_stream_parser::error_type error) {
    return error > xml_stream_parser::end_of_document && error < xml_stream_parser::fatal_error;
  }

  /// A pop reads on when needed: this ends at the end of the feed or at a damage.
  void take_nodes() {
    while (!feed_.node_queue_empty()) count(feed_.node_queue_pop());
  }

  void count(const xml_stream_parser::node& node) {
    // There is a node for the beginning of the root and another one for its end.
    if (node.status() == xml_stream_parser::incomplete) {
      root_id_ = node.id();
      return;
    }
    if (node.status() == xml_stream_parser::end_of_document) return;
    // After a damage, records have no parent.
    const bool is_record = node.parent_id() == root_id_ || node.parent_id() == 0;
    if (is_record) {
      current_ = &result_.kinds[node.tag()];
      ++current_->records;
      if (++records_ % records_of_a_step == 0) report_progress();
    }
    ++current_->elements;
    current_->attributes += node.attribs().size();
  }

  bool pass_over() {
    ++result_.damages;
    observer_.damage(feed_.error(), feed_.parse_offset(), feed_.line());
    std::list<std::string> known;
    for (const auto& [kind, counts] : result_.kinds) known.push_back(kind);
    if (feed_.recover(known) != xml_stream_parser::no_error) return false;
    feed_.parse();
    return true;
  }

  void report_progress() { observer_.progress(feed_.parse_offset(), feed_.file_length()); }

  xml_stream_parser feed_;
  const observer& observer_;
  statistics result_;
  kind_count* current_ = nullptr;
  orva::types::uint32 root_id_ = 0;
  std::uint64_t records_ = 0;
};

}  // namespace

statistics gather(const std::string& file, const observer& observer) { return walk(file, observer).run(); }

const char* words(xml_stream_parser::error_type error) {
  switch (error) {
    case xml_stream_parser::no_error:
      return "the file ends before its root is closed";
    case xml_stream_parser::incomplete:
      return "the file ends in the middle, or is no feed at all";
    case xml_stream_parser::not_synchronized:
      return "no further record was found";
    case xml_stream_parser::end_of_document:
      return "the feed is whole";
    case xml_stream_parser::mismatched_tag:
      return "an end tag names another element than the one that is open";
    case xml_stream_parser::duplicate_attribute:
      return "an attribute comes twice";
    case xml_stream_parser::unexpected_character:
      return "there is a character that has no place there";
    case xml_stream_parser::missing_quote:
      return "an attribute value does not start with a quote";
    case xml_stream_parser::missing_equals:
      return "an attribute has no value";
    case xml_stream_parser::fatal_error:
      return "the file is a symbolic link, or holds what cannot be read";
    case xml_stream_parser::cannot_open_file:
      return "the file cannot be opened";
    case xml_stream_parser::bad_header:
      return "the file does not start with <?xml";
  }
  return "unknown";
}

}  // namespace feed_stats
