// xml_stream_parser beside what a user would pick instead for files that do not fit into memory: expat whose handlers build
// records that own their texts, and the reader of libxml2. All deliver the same nodes, record by record.
//
// ORVA_FEED_MB=500 measures a file of that size. The growth of memory is that of the process, so that it tells of one
// parser only where --benchmark_filter leaves one.
#include "orva/parser/xml_stream_parser.hpp"

#include <benchmark/benchmark.h>
#include <expat.h>
#include <libxml/xmlreader.h>

#include <cstddef>
#include <cstdint>
#include <fstream>
#include <list>
#include <string>
#include <utility>
#include <vector>

#include "bench/parser/peak_memory.hpp"
#include "bench/parser/record_file.hpp"

namespace {

using ORVA_2_18::parser::xml_stream_parser;

const bench::record_file& feed() {
  static const bench::record_file file;
  return file;
}

/// Counts what it is given, so that all sides show that they delivered the same.
struct totals {
  std::size_t nodes = 0;
  std::size_t bytes = 0;

  template <typename Attributes>
  void add(const std::string& tag, const Attributes& attributes, const std::string& data) {
    ++nodes;
    bytes += tag.size() + data.size();
    for (const auto& [name, value] : attributes) bytes += name.size() + value.size();
  }
};

struct owned_node {
  std::string tag;
  std::list<std::pair<std::string, std::string>> attributes;
  std::string data;
};

/// The nodes of one record, and of the element that is open around the records.
class record {
 public:
  explicit record(totals& receiver) : receiver_(receiver) {}

  owned_node& start(const char* tag) {
    open_.push_back(&nodes_.emplace_back());
    open_.back()->tag = tag;
    return *open_.back();
  }
  void text(const char* text, std::size_t length) {
    if (open_.size() > 1) open_.back()->data.append(text, length);
  }
  void end() {
    open_.pop_back();
    if (open_.size() > 1) return;
    for (const auto& node : nodes_)
      receiver_.add(node.tag, node.attributes, is_blank(node.data) ? "" : node.data);
    // The root stays: it is told with the first record, as by the library.
    if (open_.empty()) return;
    nodes_.clear();
    open_.front() = &root_;
  }

 private:
  static bool is_blank(const std::string& text) { return text.find_first_not_of(" \n") == text.npos; }

  totals& receiver_;
  std::list<owned_node> nodes_;
  std::vector<owned_node*> open_;
  owned_node root_;
};

void measure(benchmark::State& state, totals (*parse)()) {
  feed();
  totals last;
  static const bench::peak_memory memory;
  for (auto _ : state) last = parse();
  state.counters["peak_growth"] =
      benchmark::Counter(memory.growth(), benchmark::Counter::kDefaults, benchmark::Counter::kIs1024);
  state.SetBytesProcessed(state.iterations() * feed().size());
  state.counters["nodes"] = static_cast<double>(last.nodes);
  state.counters["node_bytes"] = static_cast<double>(last.bytes);
}

totals parse_with_orva() {
  totals result;
  xml_stream_parser parser(feed().path(), 1);
  parser.parse();
  while (!parser.node_queue_empty()) {
    const auto node = parser.node_queue_pop();
    if (node.parent_id() != 0 || node.status() == xml_stream_parser::incomplete) {
      result.add(node.tag(), node.attribs(), node.data());
    }
  }
  return result;
}

void orva_xml_stream_parser(benchmark::State& state) { measure(state, parse_with_orva); }
BENCHMARK(orva_xml_stream_parser)->Unit(benchmark::kMillisecond);

void expat_start(void* user_data, const XML_Char* name, const XML_Char** attributes) {
  auto& node = static_cast<record*>(user_data)->start(name);
  for (; *attributes != nullptr; attributes += 2) node.attributes.emplace_back(attributes[0], attributes[1]);
}
void expat_end(void* user_data, const XML_Char*) { static_cast<record*>(user_data)->end(); }
void expat_text(void* user_data, const XML_Char* text, int length) {
  static_cast<record*>(user_data)->text(text, static_cast<std::size_t>(length));
}

totals parse_with_expat() {
  totals result;
  record receiver(result);
  XML_Parser parser = XML_ParserCreate("UTF-8");
  XML_SetUserData(parser, &receiver);
  XML_SetElementHandler(parser, expat_start, expat_end);
  XML_SetCharacterDataHandler(parser, expat_text);
  std::ifstream file(feed().path(), std::ios::binary);
  std::vector<char> buffer(0x10000);
  bool more = true;
  while (more) {
    more = static_cast<bool>(file.read(buffer.data(), static_cast<std::streamsize>(buffer.size())));
    XML_Parse(parser, buffer.data(), static_cast<int>(file.gcount()), more ? XML_FALSE : XML_TRUE);
  }
  XML_ParserFree(parser);
  return result;
}

void expat_with_owning_nodes(benchmark::State& state) { measure(state, parse_with_expat); }
BENCHMARK(expat_with_owning_nodes)->Unit(benchmark::kMillisecond);

const char* text_of(const xmlChar* text) { return reinterpret_cast<const char*>(text); }

void libxml2_start(xmlTextReaderPtr reader, record& receiver) {
  auto& node = receiver.start(text_of(xmlTextReaderConstName(reader)));
  while (xmlTextReaderMoveToNextAttribute(reader) == 1) {
    node.attributes.emplace_back(text_of(xmlTextReaderConstName(reader)),
                                 text_of(xmlTextReaderConstValue(reader)));
  }
  xmlTextReaderMoveToElement(reader);
  if (xmlTextReaderIsEmptyElement(reader) == 1) receiver.end();
}

totals parse_with_libxml2() {
  totals result;
  record receiver(result);
  const xmlTextReaderPtr reader = xmlReaderForFile(feed().path().c_str(), nullptr, XML_PARSE_HUGE);
  while (xmlTextReaderRead(reader) == 1) {
    switch (xmlTextReaderNodeType(reader)) {
      case XML_READER_TYPE_ELEMENT:
        libxml2_start(reader, receiver);
        break;
      case XML_READER_TYPE_END_ELEMENT:
        receiver.end();
        break;
      case XML_READER_TYPE_TEXT: {
        const std::string text = text_of(xmlTextReaderConstValue(reader));
        receiver.text(text.data(), text.size());
        break;
      }
      default:
        break;
    }
  }
  xmlFreeTextReader(reader);
  return result;
}

void libxml2_reader_with_owning_nodes(benchmark::State& state) { measure(state, parse_with_libxml2); }
BENCHMARK(libxml2_reader_with_owning_nodes)->Unit(benchmark::kMillisecond);

}  // namespace
