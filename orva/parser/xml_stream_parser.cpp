#include "orva/parser/xml_stream_parser.hpp"

#include <ostream>
#include <vector>

#include "orva/internal/xml/lexical_rules.hpp"
#include "orva/parser/internal/parse_error_output.hpp"
#include "orva/parser/internal/xml_stream_implementation.hpp"

namespace ORVA_NAMESPACE::parser {

using error_type = xml_stream_parser::error_type;

xml_stream_parser::xml_stream_parser(const system::path_argument& file, unsigned int open_depth)
    : implementation_(std::make_unique<_private::xml_stream_implementation>(open_depth)) {
  init(file.get());
}

xml_stream_parser::~xml_stream_parser() = default;

const error_type& xml_stream_parser::parse() { return implementation_->parse(); }

const error_type& xml_stream_parser::recover(const std::list<ustring8>& tags) {
  return implementation_->recover({tags.begin(), tags.end()});
}

const error_type& xml_stream_parser::recover(const std::list<std::string>& tags) {
  return implementation_->recover({tags.begin(), tags.end()});
}

const error_type& xml_stream_parser::recover(std::initializer_list<const char*> tags) {
  return implementation_->recover({tags.begin(), tags.end()});
}

bool xml_stream_parser::node_queue_empty() const noexcept { return queue_size_less_than(1); }
types::uint32 xml_stream_parser::node_queue_size() const noexcept { return implementation_->queue().size(); }
xml_stream_parser::node& xml_stream_parser::node_queue_front() { return implementation_->queue().front(); }
xml_stream_parser::node xml_stream_parser::node_queue_pop() { return implementation_->pop(); }

const xml_stream_parser::ustring8& xml_stream_parser::root() const noexcept {
  return implementation_->root();
}
types::uint32 xml_stream_parser::line() const noexcept { return implementation_->lexer().line(); }
const error_type& xml_stream_parser::error() const noexcept { return implementation_->error(); }
xml_stream_parser::parse_error xml_stream_parser::last_error() const { return implementation_->last_error(); }
std::exception_ptr xml_stream_parser::cause() const noexcept { return implementation_->cause(); }
long long xml_stream_parser::parse_offset() const noexcept { return implementation_->window().offset(); }
diagnostics::place xml_stream_parser::place_of(long long offset) const {
  return implementation_->place_of(offset);
}
long long xml_stream_parser::file_length() const { return implementation_->window().file_length(); }

void xml_stream_parser::init(const strings::ustring16& file) { implementation_->init(file); }
std::size_t xml_stream_parser::load() { return implementation_->load(); }
void xml_stream_parser::do_parse() { implementation_->do_parse(); }
bool xml_stream_parser::parse_next() { return implementation_->parse_next(); }

std::string_view xml_stream_parser::parse_name() { return implementation_->lexer().name(); }
xml_stream_parser::ustring8 xml_stream_parser::parse_attrib_value() {
  return implementation_->lexer().value();
}
char xml_stream_parser::parse_entity() { return implementation_->lexer().character(); }
bool xml_stream_parser::finish_comment() { return implementation_->finish_comment(); }
void xml_stream_parser::skip_whitespace() noexcept { implementation_->lexer().skip_white_space(); }
bool xml_stream_parser::is_whitespace(char c) noexcept { return internal::xml::is_white_space(c); }

void xml_stream_parser::new_node(std::string_view name, error_type status, bool available) {
  implementation_->queue().open_element(name, status, available, line());
}
void xml_stream_parser::end_of_open_node(std::string_view name, error_type status) {
  implementation_->end_of_open_level(name, status);
}
void xml_stream_parser::close_tag() { implementation_->close_element(); }
bool xml_stream_parser::queue_size_less_than(std::size_t count) const noexcept {
  return implementation_->queue().has_less_than(count);
}

std::string_view name_of(xml_stream_parser::error_type type) noexcept {
  switch (type) {
    case xml_stream_parser::no_error:
      return "no_error";
    case xml_stream_parser::incomplete:
      return "incomplete";
    case xml_stream_parser::not_synchronized:
      return "not_synchronized";
    case xml_stream_parser::end_of_document:
      return "end_of_document";
    case xml_stream_parser::mismatched_tag:
      return "mismatched_tag";
    case xml_stream_parser::duplicate_attribute:
      return "duplicate_attribute";
    case xml_stream_parser::unexpected_character:
      return "unexpected_character";
    case xml_stream_parser::missing_quote:
      return "missing_quote";
    case xml_stream_parser::missing_equals:
      return "missing_equals";
    case xml_stream_parser::fatal_error:
      return "fatal_error";
    case xml_stream_parser::cannot_open_file:
      return "cannot_open_file";
    case xml_stream_parser::bad_header:
      return "bad_header";
  }
  return {};
}

std::ostream& operator<<(std::ostream& stream, const xml_stream_parser::parse_error& error) {
  if (error.type == xml_stream_parser::no_error) return stream << name_of(error.type);
  return _private::write_error(stream, name_of(error.type), error.offset, error.data, error.open_element);
}

// On Windows a program that refers to it by its address imports it.
constexpr int xml_stream_parser::smallest_file;

}  // namespace ORVA_NAMESPACE::parser
