#include <iostream>
#include <string>

#include "orva/orva.hpp"

using namespace orva;
using parser::xml_parser;
using parser::xml_token_stream;
using strings::ustring8;

// Events: the parser calls, and the application stores what it needs.
class outline {
 public:
  explicit outline(xml_parser& source) {
    using text_handler = functor::member_function_t<outline, void(const ustring8&)>;
    using attribute_handler = functor::member_function_t<outline, void(const ustring8&, const ustring8&)>;
    source.on_element_start = text_handler(this, &outline::start);
    source.on_element_end = text_handler(this, &outline::end);
    source.on_attribute = attribute_handler(this, &outline::attribute);
    source.on_character = text_handler(this, &outline::character);
    // on_space and on_comment stay empty: those events are skipped.
  }

 private:
  void start(const ustring8& name) { std::cout << std::string(2 * depth_++, ' ') << name << '\n'; }
  void end(const ustring8&) { --depth_; }
  void attribute(const ustring8& name, const ustring8& value) {
    std::cout << std::string(2 * depth_, ' ') << '@' << name << " = " << value << '\n';
  }
  void character(const ustring8& text) { std::cout << std::string(2 * depth_, ' ') << '"' << text << "\"\n"; }

  std::size_t depth_ = 0;
};

void report(const xml_parser::parse_error& error) {
  if (error.type == xml_parser::parse_error::no_error) return;
  std::cout << "failed: type " << error.type << ", line " << error.line << ", \"" << error.data << "\"\n";
}

// Tokens: the whole document as a list. An attribute's value follows its name.
ustring8 attribute_of(const xml_token_stream& stream, const ustring8& element, const ustring8& name) {
  using token = xml_token_stream::token;
  bool in_element = false;
  for (auto it = stream.begin(); it != stream.end(); ++it) {
    if (it->type() == token::element_start) in_element = it->value() == element;
    if (it->type() == token::start_tag_end) in_element = false;
    if (in_element && it->type() == token::attribute_name && it->value() == name) return (++it)->value();
  }
  return {};
}

// Errors in words. The line and column are exact.
void explain(const ustring8& text) {
  const auto error = xml_parser().parse(text);
  if (error.type == xml_parser::parse_error::no_error) return;
  std::cout << error << '\n' << parser::describe(error, text, "menu.xml") << '\n';
}

// Writing. Each call returns what was wrong with it, if anything.
ustring8 write_menu(const ustring8& label) {
  ustring8 text;
  parser::xml_writer writer(text, {.indent = 2});
  const auto must = [](const parser::xml_writer::result& done) {
    if (done.error != parser::xml_writer::error::none) std::cout << "refused: " << done << '\n';
  };
  must(writer.start_element("menu"));
  must(writer.attribute("title", "File & more"));
  must(writer.start_element("entry"));
  must(writer.attribute("data-key", "o"));
  must(writer.attribute("key", "o"));
  must(writer.text(label));
  must(writer.finish());
  return text;
}

int main() {
  const ustring8 document =
      "<?xml version='1.0'?>\n"
      "<menu title='File &amp; more'>\n"
      "  <entry key='o'>Open a file</entry>\n"
      "  <entry key='q'>Quit,  now</entry>\n"
      "</menu>\n";

  xml_parser events;
  outline printed(events);
  report(events.parse(document));

  // A parser that failed keeps its open elements: use a new one for the next text.
  report(xml_parser().parse("<?xml version='1.0'?>\n<menu>\n  <entry>\n</menu>"));
  report(xml_parser().parse("<?xml version='1.0'?>\n<menu key=o/>"));
  report(xml_parser().parse("<menu/>"));

  xml_token_stream stream;
  report(stream.parse(document));
  std::cout << stream.size() << " tokens, the title is " << attribute_of(stream, "menu", "title") << '\n';

  explain("<?xml version='1.0'?>\n<menu title='Text,\nmore text'>\n  <entry>\n</menu>");
  std::cout << write_menu("Open  a <file>");
}
