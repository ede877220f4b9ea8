#include "orva/config/format_document.hpp"

#include <algorithm>
#include <cstddef>
#include <utility>
#include <vector>

#include "orva/config/config_document.hpp"
#include "orva/config/internal/config_file_scanner.hpp"

namespace ORVA_NAMESPACE::config {

namespace {

using _private::scanned_part;
using _private::scanned_token;
using _private::scanned_value;
using tok_types = config_token::tok_types;
using part_type = scanned_part::type;

constexpr std::string_view before_comment = "  ";
constexpr std::string_view array_indentation = "    ";

/// Without blanks at both ends, and without line ends at the end. A carriage return alone is text.
std::string_view trimmed(std::string_view text) {
  text.remove_prefix(std::min(text.find_first_not_of(" \t"), text.size()));
  while (text.ends_with(' ') || text.ends_with('\t') || text.ends_with('\n')) {
    text.remove_suffix(text.ends_with("\r\n") ? 2 : 1);
  }
  return text;
}

/// A part, with the comment after it in its line.
struct layout_line {
  std::string text;
  part_type kind = part_type::comment;
  bool after_empty_line = false;
};

class layout {
 public:
  explicit layout(std::string_view text) : text_(text) {}

  std::string format() {
    _private::config_file_scanner scanner(text_);
    scanned_part part;
    while (scanner.next(part)) add(part);
    separate_sections();
    return joined();
  }

 private:
  struct range {
    std::size_t begin = 0;
    std::size_t end = 0;
  };

  /// Blanks and line ends that do not stay: those before the `=` of a key, or before the `]` of a section.
  range dropped_gap(const scanned_part& part) const {
    if (is_open_) return {};
    if (part.has_values()) return {part.name_end, text_.find('=', part.name_end)};
    if (!is_closed_section(part)) return {};
    const std::string_view name = name_of_section(part);
    return {static_cast<std::size_t>(name.data() - text_.data()) + name.size(), part.end};
  }

  /// The first one from a part on that stays, so that the next layout finds the same.
  std::string_view first_line_end(const scanned_part& part) const {
    const range gap = dropped_gap(part);
    std::size_t at = text_.find('\n', part.begin);
    if (at >= gap.begin && at < gap.end) at = text_.find('\n', gap.end);
    return at != text_.npos && at > 0 && text_[at - 1] == '\r' ? "\r\n" : "\n";
  }

  bool is_closed_section(const scanned_part& part) const {
    return part.kind == part_type::section && slice(part.begin, part.end).ends_with(']');
  }

  std::string_view name_of_section(const scanned_part& part) const {
    return trimmed(slice(part.begin + 1, part.end - 1));
  }

  std::string_view slice(std::size_t begin, std::size_t end) const {
    return text_.substr(begin, std::min(end, text_.size()) - begin);
  }

  void add(const scanned_part& part) {
    is_open_ = part.end > text_.size();
    if (lines_.empty()) line_end_ = first_line_end(part);
    const std::string_view gap = slice(end_, part.begin);
    const auto line_ends = std::count(gap.begin(), gap.end(), '\n') + (ends_line_ ? 1 : 0);
    const bool ends_its_line = part.kind == part_type::comment && line_ends == 0 && !lines_.empty();
    if (!ends_its_line) {
      lines_.push_back({{}, part.kind, line_ends > 1});
    } else if (!gap.empty()) {
      line() += before_comment;
    }
    append(part);
    end_ = std::min<std::size_t>(part.end, text_.size());
    ends_line_ = part.has_values() && text_[end_ - 1] == '\n';
  }

  std::string& line() { return lines_.back().text; }

  void append(const scanned_part& part) {
    const std::string_view spelling = slice(part.begin, part.end);
    if (is_open_) {
      line() += spelling;
    } else if (is_closed_section(part)) {
      line() += '[';
      line() += name_of_section(part);
      line() += ']';
    } else if (part.has_values()) {
      line() += slice(part.begin, part.name_end);
      line() += " =";
      append_values(part);
    } else {
      line() += trimmed(spelling);
    }
  }

  void append_values(const scanned_part& part) {
    value_ = 0;
    last_ = item::equals;
    // Only blanks and line ends are before the `=`.
    auto position = static_cast<unsigned int>(text_.find('=', part.name_end) + 1);
    for (unsigned int gap = position; position < part.end;) position = append_item(part, position, gap);
  }

  /// Reads an element, a comma, a comment or what is between them, which begins at `gap`. Returns its end.
  unsigned int append_item(const scanned_part& part, unsigned int position, unsigned int& gap) {
    const scanned_value& value = part.values[value_];
    if (position == value.begin && position < value.end) {
      begin_item(gap, position, item::element);
      line() += slice(value.begin, value.end);
      return gap = value.end;
    }
    const unsigned int begin = position;
    scanned_token token;
    _private::scan_token(text_, position, token);
    if (token.is_white_space()) return position;
    if (token.text == ",") {
      begin_item(gap, begin, item::comma);
      line() += ',';
      ++value_;
    } else {
      _private::skip_comment(text_, position);
      begin_item(gap, begin, item::comment);
      line() += trimmed(slice(begin, position));
    }
    return gap = position;
  }

  enum class item { equals, element, comma, comment };

  void begin_item(unsigned int gap_begin, unsigned int gap_end, item next) {
    const std::string_view gap = slice(gap_begin, gap_end);
    if (gap.find('\n') != gap.npos) {
      end_line(line());
      line() += array_indentation;
    } else if (next == item::comment) {
      if (!gap.empty()) line() += before_comment;
    } else if (last_ != item::element) {
      line() += ' ';
    }
    last_ = next;
  }

  /// A carriage return that is text does not become a part of the line end.
  void end_line(std::string& text) const {
    if (text.ends_with('\r')) text += ' ';
    text += line_end_;
  }

  /// The comments directly above a section belong to it.
  void separate_sections() {
    for (std::size_t i = lines_.size(); i-- > 0;) {
      if (lines_[i].kind != part_type::section) continue;
      while (!lines_[i].after_empty_line && i > 0 && lines_[i - 1].kind == part_type::comment) --i;
      lines_[i].after_empty_line = true;
    }
  }

  std::string joined() const {
    std::string result;
    result.reserve(text_.size() + text_.size() / 8);
    for (const layout_line& each : lines_) {
      if (each.after_empty_line && !result.empty()) result += line_end_;
      result += each.text;
      if (&each != &lines_.back() || !is_open_) end_line(result);
    }
    return result;
  }

  std::string_view text_;
  std::string_view line_end_;
  std::vector<layout_line> lines_;
  /// The end of the part before, and whether it is the end of a line.
  std::size_t end_ = 0;
  bool ends_line_ = false;
  /// The last part ends in a quote that is open, and takes what follows.
  bool is_open_ = false;
  /// Of the part that is written: the element that comes next, and what was written last.
  std::size_t value_ = 0;
  item last_ = item::equals;
};

}  // namespace

std::string format_document(std::string_view text) {
  return text.size() > config_document::max_size ? std::string(text) : layout(text).format();
}

}  // namespace ORVA_NAMESPACE::config
