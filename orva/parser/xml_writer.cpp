#include "orva/parser/xml_writer.hpp"

#include <algorithm>
#include <array>
#include <ostream>

#include "orva/parser/internal/xml_text_output.hpp"
#include "orva/parser/xml_stream_parser.hpp"

namespace ORVA_NAMESPACE::parser {

using error = xml_writer::error;
using result = xml_writer::result;

namespace {

// With "standalone", the shortest document is long enough for `xml_stream_parser`.
constexpr std::string_view declaration = "<?xml version=\"1.0\" encoding=\"UTF-8\" standalone=\"yes\"?>\n";
constexpr std::string_view shortest_root = "<r/>";
static_assert(declaration.size() + shortest_root.size() >= xml_stream_parser::smallest_file);

bool is_refused(const result& done) noexcept { return done.error != error::none; }

}  // namespace

/// The output of one call. It is taken back unless it is kept.
class xml_writer::addition {
 public:
  explicit addition(xml_writer& writer) : writer_(writer), size_before_(writer.to_.size()) {}
  addition(const addition&) = delete;
  addition& operator=(const addition&) = delete;
  ~addition() {
    if (!kept_) text().resize(size_before_);
  }

  std::string& text() const noexcept { return writer_.to_; }

  /// Passes it on to the stream, if there is one.
  result keep() {
    if (writer_.stream_ == nullptr) {
      kept_ = true;
      return {};
    }
    // Until the stream has taken it, the document may have a gap.
    writer_.stream_failed_ = true;
    writer_.stream_->write(text().data(), static_cast<std::streamsize>(text().size()));
    writer_.stream_failed_ = !writer_.stream_->good();
    return {writer_.stream_failed_ ? error::stream_failed : error::none, 0};
  }

 private:
  xml_writer& writer_;
  std::size_t size_before_;
  bool kept_ = false;
};

xml_writer::xml_writer(std::string& to, const xml_writer_settings& settings)
    : to_(to), stream_(nullptr), settings_(settings) {}

xml_writer::xml_writer(std::ostream& to, const xml_writer_settings& settings)
    : to_(call_output_), stream_(&to), settings_(settings), stream_failed_(!to.good()) {}

xml_writer::~xml_writer() = default;

/// Whether anything can be written at all.
result xml_writer::state() const noexcept {
  if (stream_failed_) return {error::stream_failed, 0};
  return {finished_ ? error::finished : error::none, 0};
}

/// Writes what comes before a tag, a comment or a section: the declaration, or the end of the start tag.
void xml_writer::begin_markup(std::string& to) const {
  if (!begun_ && settings_.declaration) to += declaration;
  if (in_start_tag_) to += '>';
}

void xml_writer::break_line(std::string& to, std::uint64_t level) const {
  if (!begun_ || !indents()) return;
  to += '\n';
  to.append(static_cast<std::size_t>(std::min<std::uint64_t>(level * settings_.indent, longest_indentation)),
            ' ');
}

result xml_writer::start_element(std::string_view name) { return start(name, false); }
result xml_writer::start_mixed_element(std::string_view name) { return start(name, true); }

result xml_writer::start(std::string_view name, bool mixed) {
  if (const result now = state(); is_refused(now)) return now;
  if (depth() == 0 && root_seen_) return {error::second_root, 0};
  addition added(*this);
  begin_markup(added.text());
  break_line(added.text(), depth());
  added.text() += '<';
  if (const result name_written = _private::append_name(added.text(), name); is_refused(name_written))
    return name_written;
  open_.push_back(name);
  if (const result kept = added.keep(); is_refused(kept)) return kept;
  if (mixed && inline_from_ == 0) inline_from_ = depth();
  attributes_.clear();
  begun_ = root_seen_ = in_start_tag_ = true;
  has_lines_ = after_text_ = false;
  return {};
}

result xml_writer::attribute(std::string_view name, std::string_view value) {
  if (const result now = state(); is_refused(now)) return now;
  if (!in_start_tag_) return {error::no_start_tag, 0};
  addition added(*this);
  added.text() += ' ';
  if (const result written = _private::append_name(added.text(), name); is_refused(written)) return written;
  added.text() += "=\"";
  if (const result written = _private::append_value(added.text(), value); is_refused(written)) return written;
  added.text() += '"';
  if (!attributes_.insert(name)) return {error::duplicate_attribute, 0};
  return added.keep();
}

result xml_writer::check_place_of_text() const noexcept {
  if (const result now = state(); is_refused(now)) return now;
  if (depth() == 0) return {error::outside_root, 0};
  return {indents() && has_lines_ ? error::children_on_lines : error::none, 0};
}

/// The innermost element contains text from now on.
void xml_writer::take_as_text() noexcept {
  if (inline_from_ == 0) inline_from_ = depth();
  in_start_tag_ = false;
}

result xml_writer::text(std::string_view text) {
  if (const result place = check_place_of_text(); is_refused(place)) return place;
  if (text.empty()) return {};
  addition added(*this);
  begin_markup(added.text());
  if (const result written = _private::append_text(added.text(), text, after_text_); is_refused(written))
    return written;
  // White space at the end is there as it is, or as a reference, which ends in a semicolon.
  const char last = added.text().back();
  if (const result kept = added.keep(); is_refused(kept)) return kept;
  take_as_text();
  after_text_ = last != ' ' && last != '\t' && last != '\n';
  return {};
}

result xml_writer::cdata(std::string_view text) {
  if (const result place = check_place_of_text(); is_refused(place)) return place;
  if (const auto mark = text.find("]]>"); mark != text.npos) return {error::closing_mark, mark};
  addition added(*this);
  begin_markup(added.text());
  added.text() += "<![CDATA[";
  if (const result written = _private::append_literal(added.text(), text); is_refused(written))
    return written;
  added.text() += "]]>";
  if (const result kept = added.keep(); is_refused(kept)) return kept;
  take_as_text();
  after_text_ = false;
  return {};
}

result xml_writer::comment(std::string_view text) {
  if (const result now = state(); is_refused(now)) return now;
  if (const auto mark = text.find("--"); mark != text.npos) return {error::closing_mark, mark};
  if (text.ends_with('-')) return {error::closing_mark, text.size() - 1};
  addition added(*this);
  begin_markup(added.text());
  break_line(added.text(), depth());
  added.text() += "<!--";
  if (const result written = _private::append_literal(added.text(), text); is_refused(written))
    return written;
  added.text() += "-->";
  if (const result kept = added.keep(); is_refused(kept)) return kept;
  begun_ = true;
  has_lines_ = has_lines_ || indents();
  in_start_tag_ = after_text_ = false;
  return {};
}

result xml_writer::end_element() {
  if (const result now = state(); is_refused(now)) return now;
  if (depth() == 0) return {error::nothing_open, 0};
  const strings::ustring8& name = open_.back();
  // On an open level, `xml_stream_parser` wants an end tag, but /> for "include".
  const bool ends_by_slash = in_start_tag_ && (depth() > settings_.open_depth || name == "include");
  addition added(*this);
  if (ends_by_slash) {
    added.text() += "/>";
  } else {
    begin_markup(added.text());
    if (has_lines_) break_line(added.text(), depth() - 1);
    added.text().append("</").append(name) += '>';
  }
  if (const result kept = added.keep(); is_refused(kept)) return kept;
  if (inline_from_ == depth()) inline_from_ = 0;
  open_.pop_back();
  has_lines_ = indents();
  in_start_tag_ = after_text_ = false;
  return {};
}

result xml_writer::finish() {
  if (stream_failed_) return {error::stream_failed, 0};
  if (finished_) return {};
  if (!root_seen_) return {error::no_root, 0};
  while (depth() > 0) {
    if (const result ended = end_element(); is_refused(ended)) return ended;
  }
  addition added(*this);
  break_line(added.text(), 0);
  if (const result kept = added.keep(); is_refused(kept)) return kept;
  finished_ = true;
  if (stream_ == nullptr) return {};
  stream_failed_ = true;
  stream_failed_ = !stream_->flush().good();
  return {stream_failed_ ? error::stream_failed : error::none, 0};
}

namespace {

struct error_words {
  std::string_view name;
  std::string_view rule;
};

constexpr std::array<error_words, 14> words{{
    {"none", ""},
    {"bad_name", "a name is an ASCII letter, then ASCII letters, digits and _"},
    {"malformed_text", "text is well-formed UTF-8"},
    {"bad_character", "XML has no such character here"},
    {"closing_mark", "a comment has no -- and does not end with -; CDATA has no ]]>"},
    {"no_start_tag", "an attribute comes after a start tag or another attribute"},
    {"duplicate_attribute", "an attribute comes once in a start tag"},
    {"nothing_open", "an end tag needs an open element"},
    {"outside_root", "text and CDATA are inside the root element"},
    {"second_root", "a document has one root element"},
    {"no_root", "a document has a root element"},
    {"children_on_lines", "text comes after indented children only in start_mixed_element"},
    {"finished", "nothing comes after finish"},
    {"stream_failed", "the stream took not all of it"},
}};

const error_words& words_of(error which) noexcept { return words[static_cast<std::size_t>(which)]; }

}  // namespace

std::string_view name_of(xml_writer::error which) noexcept { return words_of(which).name; }

std::ostream& operator<<(std::ostream& stream, const xml_writer::result& done) {
  const auto& [name, rule] = words_of(done.error);
  if (rule.empty()) return stream << name;
  return stream << name << " at byte " << done.offset << ": " << rule;
}

// On Windows a program that refers to it by its address imports it.
constexpr std::size_t xml_writer::longest_indentation;

}  // namespace ORVA_NAMESPACE::parser
