// xml_stream_parser and its alternatives for files that do not fit into memory: expat whose
// handlers build records that own their texts, and the readers of libxml2 and, in qt_stream_reader_bench.cpp,
// of Qt. All deliver the same nodes, record by record.
//
// ORVA_FEED_MB=500 measures a file of that size. The growth of memory is that of the process: to measure one
// parser, select it with --benchmark_filter.
#include "orva/parser/xml_stream_parser.hpp"

#include <benchmark/benchmark.h>
#include <expat.h>
#include <libxml/xmlreader.h>

#include <cstddef>
#include <fstream>
#include <string>
#include <vector>

#include "bench/parser/owned_records.hpp"

namespace {

using bench::feed;
using bench::measure;
using bench::record;
using bench::totals;
using ORVA_NAMESPACE::parser::xml_stream_parser;

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
