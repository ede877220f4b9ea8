// xml_writer beside the two writers that a program would use instead: libxml2's, which writes calls like this
// one, and pugixml's, which writes a tree that is already built. All write the same message catalog. Of the
// three, only xml_writer checks names, characters and UTF-8.
#include "orva/parser/xml_writer.hpp"

#include <benchmark/benchmark.h>
#include <libxml/xmlwriter.h>

#include <ostream>
#include <pugixml.hpp>
#include <streambuf>
#include <string>
#include <string_view>

#include "bench/parser/message_catalog.hpp"
#include "orva/parser/xml_token_stream.hpp"

namespace {

using ORVA_NAMESPACE::parser::xml_token_stream;
using ORVA_NAMESPACE::parser::xml_writer;
using token = xml_token_stream::token;

/// The constructs of the catalog. The white space between them is left out.
const xml_token_stream& catalog() {
  static const xml_token_stream tokens = [] {
    xml_token_stream read;
    if (read.parse(bench::message_catalog()).type != 0) std::abort();
    return read;
  }();
  return tokens;
}

void report(benchmark::State& state, std::size_t document_size) {
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(document_size));
  state.counters["bytes"] = static_cast<double>(document_size);
}

/// Writes all tokens. False if one was refused.
bool write(xml_writer& writer) {
  const auto done = [](const xml_writer::result& result) { return result.error == xml_writer::error::none; };
  bool all = true;
  const ORVA_NAMESPACE::strings::ustring8* name = nullptr;
  for (const auto& each : catalog()) {
    switch (each.type()) {
      case token::element_start:
        all &= done(writer.start_element(each.value()));
        break;
      case token::element_end:
        all &= done(writer.end_element());
        break;
      case token::attribute_name:
        name = &each.value();
        break;
      case token::attribute_value:
        all &= done(writer.attribute(*name, each.value()));
        break;
      case token::character:
        all &= done(writer.text(each.value()));
        break;
      case token::comment:
        all &= done(writer.comment(each.value()));
        break;
      default:
        break;
    }
  }
  return all && done(writer.finish());
}

void orva_xml_writer_to_a_string(benchmark::State& state) {
  catalog();
  std::size_t size = 0;
  for (auto _ : state) {
    std::string text;
    xml_writer writer(text);
    if (!write(writer)) state.SkipWithError("refused");
    size = text.size();
    benchmark::DoNotOptimize(text.data());
  }
  report(state, size);
}
BENCHMARK(orva_xml_writer_to_a_string)->Unit(benchmark::kMillisecond);

/// Counts what it gets.
class counting_buffer : public std::streambuf {
 public:
  std::size_t size = 0;

 protected:
  int_type overflow(int_type c) override { return ++size, traits_type::not_eof(c); }
  std::streamsize xsputn(const char*, std::streamsize count) override {
    size += static_cast<std::size_t>(count);
    return count;
  }
};

void orva_xml_writer_to_a_stream(benchmark::State& state) {
  catalog();
  std::size_t size = 0;
  for (auto _ : state) {
    counting_buffer buffer;
    std::ostream stream(&buffer);
    xml_writer writer(stream);
    if (!write(writer)) state.SkipWithError("refused");
    size = buffer.size;
  }
  report(state, size);
}
BENCHMARK(orva_xml_writer_to_a_stream)->Unit(benchmark::kMillisecond);

const xmlChar* xml_text(const std::string& text) { return reinterpret_cast<const xmlChar*>(text.c_str()); }

bool write(xmlTextWriterPtr writer) {
  bool all = xmlTextWriterStartDocument(writer, nullptr, "UTF-8", "yes") >= 0;
  const std::string* name = nullptr;
  for (const auto& each : catalog()) {
    switch (each.type()) {
      case token::element_start:
        all &= xmlTextWriterStartElement(writer, xml_text(each.value())) >= 0;
        break;
      case token::element_end:
        all &= xmlTextWriterEndElement(writer) >= 0;
        break;
      case token::attribute_name:
        name = &each.value();
        break;
      case token::attribute_value:
        all &= xmlTextWriterWriteAttribute(writer, xml_text(*name), xml_text(each.value())) >= 0;
        break;
      case token::character:
        all &= xmlTextWriterWriteString(writer, xml_text(each.value())) >= 0;
        break;
      case token::comment:
        all &= xmlTextWriterWriteComment(writer, xml_text(each.value())) >= 0;
        break;
      default:
        break;
    }
  }
  return all && xmlTextWriterEndDocument(writer) >= 0;
}

void libxml2_text_writer_to_memory(benchmark::State& state) {
  catalog();
  std::size_t size = 0;
  for (auto _ : state) {
    const xmlBufferPtr buffer = xmlBufferCreate();
    const xmlTextWriterPtr writer = xmlNewTextWriterMemory(buffer, 0);
    if (!write(writer)) state.SkipWithError("refused");
    xmlFreeTextWriter(writer);
    size = static_cast<std::size_t>(xmlBufferLength(buffer));
    xmlBufferFree(buffer);
  }
  report(state, size);
}
BENCHMARK(libxml2_text_writer_to_memory)->Unit(benchmark::kMillisecond);

class string_output : public pugi::xml_writer {
 public:
  std::string text;
  void write(const void* data, std::size_t size) override {
    text.append(static_cast<const char*>(data), size);
  }
};

/// Builds the tree from the tokens.
void build(pugi::xml_document& document) {
  pugi::xml_node at = document;
  const std::string* name = nullptr;
  for (const auto& each : catalog()) {
    const char* const text = each.value().c_str();
    switch (each.type()) {
      case token::element_start:
        at = at.append_child(text);
        break;
      case token::element_end:
        at = at.parent();
        break;
      case token::attribute_name:
        name = &each.value();
        break;
      case token::attribute_value:
        at.append_attribute(name->c_str()) = text;
        break;
      case token::character:
        at.append_child(pugi::node_pcdata).set_value(text);
        break;
      case token::comment:
        at.append_child(pugi::node_comment).set_value(text);
        break;
      default:
        break;
    }
  }
}

void save(const pugi::xml_document& document, benchmark::State& state) {
  string_output output;
  document.save(output, "", pugi::format_raw, pugi::encoding_utf8);
  benchmark::DoNotOptimize(output.text.data());
  state.counters["bytes"] = static_cast<double>(output.text.size());
}

void pugixml_builds_a_tree_and_saves_it(benchmark::State& state) {
  catalog();
  for (auto _ : state) {
    pugi::xml_document document;
    build(document);
    save(document, state);
  }
}
BENCHMARK(pugixml_builds_a_tree_and_saves_it)->Unit(benchmark::kMillisecond);

void pugixml_saves_a_tree(benchmark::State& state) {
  pugi::xml_document document;
  build(document);
  for (auto _ : state) save(document, state);
}
BENCHMARK(pugixml_saves_a_tree)->Unit(benchmark::kMillisecond);

}  // namespace
