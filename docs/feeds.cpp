#include <iostream>
#include <string>

#include "orva/orva.hpp"

using namespace orva;
using parser::xml_stream_parser;

void print(const xml_stream_parser::node& node) {
  std::cout << node.tag() << " id " << node.id() << " parent " << node.parent_id() << " line " << node.line();
  for (const auto& [name, value] : node.attribs()) std::cout << ' ' << name << '=' << value;
  if (!node.data().empty()) std::cout << " \"" << node.data() << '"';
  // There is a node for the beginning of the root and one for its end.
  if (node.status() == xml_stream_parser::incomplete) std::cout << " begins";
  if (node.status() == xml_stream_parser::end_of_document) std::cout << " ends";
  std::cout << '\n';
}

bool is_damage(xml_stream_parser::error_type error) {
  return error > xml_stream_parser::end_of_document && error < xml_stream_parser::fatal_error;
}

int main() {
  const std::string file = "feed.xml";
  const std::string text =
      "<?xml version='1.0'?>\n"
      "<catalogue date='2026-11-21'>\n"
      "  <product key='t1'><name>Tea &amp; cups</name></product>\n"
      "  <product key='t2'><name>Not closed</product>\n"
      "  <product key='t3'/>\n"
      "</catalogue>\n";
  if (system::store_file(file, text) != 0) return 1;

  xml_stream_parser feed(file, 1);
  feed.parse();
  for (;;) {
    // A pop reads on when needed: the queue is empty only at the end of the feed or at a damage.
    while (!feed.node_queue_empty()) print(feed.node_queue_pop());
    if (!is_damage(feed.error())) break;
    std::cout << "error " << feed.error() << " at byte " << feed.parse_offset() << " of "
              << feed.file_length() << ", line " << feed.line() << '\n';
    if (feed.recover({"product"}) != xml_stream_parser::no_error) break;
    feed.parse();
  }
  std::cout << "ended by " << feed.error() << '\n';
  system::io::remove_file(file);
}
