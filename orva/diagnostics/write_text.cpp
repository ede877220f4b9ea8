#include <optional>
#include <ostream>
#include <string>

#include "orva/diagnostics/internal/not_kept.hpp"
#include "orva/diagnostics/internal/source_excerpt.hpp"
#include "orva/diagnostics/write.hpp"
#include "orva/internal/text/visible_text.hpp"

namespace ORVA_NAMESPACE::diagnostics {

namespace {

using strings::ustring8;

// Select Graphic Rendition of ECMA-48.
constexpr std::string_view bold = "\x1B[1m";
constexpr std::string_view green = "\x1B[1;32m";
constexpr std::string_view plain = "\x1B[0m";

std::string_view colour_of(severity level) {
  constexpr std::string_view colours[] = {"\x1B[1;36m", "\x1B[1;35m", "\x1B[1;31m"};  // cyan, magenta, red
  return colours[static_cast<std::size_t>(level)];
}

/// Appends to a text, in a colour if that is wanted.
class text_writer {
 public:
  explicit text_writer(bool colour) : colour_(colour) {}

  void add(std::string_view trusted) { text_ += trusted; }
  void add_visible(std::string_view text) { internal::text::append_visible(text_, text); }
  void begin(std::string_view colour) {
    if (colour_) text_ += colour;
  }
  void end() { begin(plain); }
  void write_to(std::ostream& stream) const {
    stream.write(text_.data(), static_cast<std::streamsize>(text_.size()));
  }

 private:
  std::string text_;
  bool colour_;
};

void add_place(text_writer& output, const finding& found) {
  if (found.file.empty() && found.at.line == 0) return;
  output.begin(bold);
  output.add_visible(found.file);
  if (found.at.line != 0) {
    if (!found.file.empty()) output.add(":");
    output.add(std::to_string(found.at.line));
    if (found.at.column != 0) output.add(":" + std::to_string(found.at.column));
  }
  output.add(":");
  output.end();
  output.add(" ");
}

void add_line(text_writer& output, const finding& found, std::string_view sentence) {
  add_place(output, found);
  output.begin(colour_of(found.level));
  output.add(name_of(found.level));
  output.add(":");
  output.end();
  output.add(" ");
  output.add_visible(sentence);
  if (found.code.empty()) return;
  output.add(" [");
  output.add_visible(found.code);
  output.add("]");
}

void add_source(text_writer& output, const place& at, std::string_view line) {
  const _private::excerpt shown = _private::excerpt_around(line, at.column);
  std::string number = std::to_string(at.line);
  number.insert(0, number.size() < 5 ? 5 - number.size() : 0, ' ');
  output.add("\n" + number + " | " + shown.text);
  output.add("\n" + std::string(number.size(), ' ') + " | " + std::string(shown.caret, ' '));
  output.begin(green);
  output.add("^");
  output.end();
}

/// The lines of the sources that findings refer to. Findings of one file follow each other.
class source_lines {
 public:
  explicit source_lines(const text_options& options) : options_(options) {}

  /// The line of a finding, if it can be shown.
  std::optional<std::string_view> line_of(const finding& found) {
    if (!options_.source || found.at.line == 0 || found.at.column == 0) return std::nullopt;
    if (!lines_ || file_ != found.file) {
      const std::string_view text = options_.source(found.file);
      lines_.reset();
      if (!text.empty()) lines_.emplace(text);
      file_ = found.file;
    }
    if (!lines_ || found.at.line > lines_->size()) return std::nullopt;
    const std::string_view line = lines_->line(found.at.line);
    if (line.size() > max_source_line) return std::nullopt;
    return line;
  }

 private:
  const text_options& options_;
  ustring8 file_;
  std::optional<line_index> lines_;
};

void write_finding(std::ostream& stream, const finding& found, const text_options& options,
                   source_lines& sources) {
  text_writer output(options.colour);
  add_line(output, found, options.sentence(found));
  if (const auto line = sources.line_of(found)) add_source(output, found.at, *line);
  output.add("\n");
  output.write_to(stream);
}

}  // namespace

std::ostream& operator<<(std::ostream& stream, const finding& found) {
  text_writer output(false);
  add_line(output, found, sentence(found));
  output.write_to(stream);
  return stream;
}

void write_text(std::ostream& stream, const finding& found, const text_options& options) {
  source_lines sources(options);
  write_finding(stream, found, options, sources);
}

void write_text(std::ostream& stream, const report& findings, const text_options& options) {
  source_lines sources(options);
  for (const finding& found : findings.findings()) write_finding(stream, found, options, sources);
  if (const std::size_t count = findings.not_kept(); count != 0) {
    write_finding(stream, _private::not_kept(count), options, sources);
  }
}

}  // namespace ORVA_NAMESPACE::diagnostics
