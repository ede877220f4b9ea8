/// What a streaming parser returns to its caller, as text: the same calls to the library's parser and to the
/// plain one give two transcripts to compare.
#pragma once

#include <cstddef>
#include <exception>
#include <list>
#include <sstream>
#include <string>
#include <string_view>
#include <vector>

namespace orva_test {

template <typename Node>
std::string describe_node(const Node& node) {
  std::ostringstream out;
  out << node.tag() << " #" << node.id() << '<' << node.parent_id() << " status "
      << static_cast<int>(node.status()) << " line " << node.line();
  for (const auto& [name, value] : node.attribs()) out << ' ' << name << "=\"" << value << '"';
  if (!node.data().empty()) out << " [" << node.data() << ']';
  if (!node.available()) out << " unavailable";
  return out.str();
}

template <typename Parser>
std::string describe_state(const Parser& parser) {
  std::ostringstream out;
  out << "error " << static_cast<int>(parser.error()) << " line " << parser.line() << " offset "
      << parser.parse_offset() << " root " << parser.root() << " takeable " << parser.node_queue_size()
      << (parser.node_queue_empty() ? " empty" : "");
  return out.str();
}

using transcript = std::vector<std::string>;

/// Pops all nodes that can be popped.
template <typename Parser>
void take_all(Parser& parser, transcript& seen) {
  while (!parser.node_queue_empty()) seen.push_back(describe_node(parser.node_queue_pop()));
}

/// Parses and takes until neither gives anything new, as callers do.
template <typename Parser>
transcript read_all(Parser& parser) {
  transcript seen;
  do {
    parser.parse();
    take_all(parser, seen);
  } while (!parser.node_queue_empty());
  seen.push_back(describe_state(parser));
  return seen;
}

/// The same with a `recover` at each error that it can help with, as long as that leads on.
template <typename Parser>
transcript read_all_recovering(Parser& parser, const std::list<std::string>& tags) {
  transcript seen = read_all(parser);
  while (parser.error() > 2 && parser.error() < 10 && parser.error() != 3) {
    parser.recover(tags);
    seen.push_back("recovered: " + describe_state(parser));
    const auto more = read_all(parser);
    seen.insert(seen.end(), more.begin(), more.end());
  }
  return seen;
}

/// Makes one call for each byte of the script, and records its result and the state after it.
template <typename Parser>
transcript run_script(Parser& parser, std::string_view script) {
  static const std::vector<std::list<std::string>> tag_lists = {{"a"},       {"b", "a"},  {"s"}, {"r"},
                                                                {"include"}, {"nothing"}, {""},  {}};
  transcript seen;
  for (const char command : script) {
    const auto code = static_cast<unsigned char>(command);
    std::string line;
    try {
      switch (code % 8) {
        case 0:
        case 1:
          line = "parse " + std::to_string(parser.parse());
          break;
        case 2:
          parser.recover(tag_lists[code / 8 % tag_lists.size()]);
          line = "recover";
          break;
        case 3:
          line = "front " + describe_node(parser.node_queue_front());
          break;
        case 4:
          for (int i = 0; i < code / 8; ++i) line += "pop " + describe_node(parser.node_queue_pop()) + '\n';
          break;
        case 5:
          while (!parser.node_queue_empty()) line += "pop " + describe_node(parser.node_queue_pop()) + '\n';
          break;
        default:
          line = "pop " + describe_node(parser.node_queue_pop());
      }
    } catch (const std::exception& thrown) {
      line += std::string("threw ") + thrown.what();
    }
    seen.push_back(line + " => " + describe_state(parser));
  }
  return seen;
}

}  // namespace orva_test
