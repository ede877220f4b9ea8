// xml_parser beside expat whose handlers make strings: both deliver the same events of a message catalog.
#include "orva/parser/xml_parser.hpp"

#include <benchmark/benchmark.h>

#include <string>

#include "bench/parser/expat_events.hpp"
#include "bench/parser/message_catalog.hpp"
#include "orva/functor/member_function.hpp"

namespace {

using ORVA_NAMESPACE::strings::ustring8;

/// Counts the events, so that both sides show that they delivered the same.
struct counter {
  std::size_t events = 0;
  std::size_t bytes = 0;

  void take(const ustring8& text) {
    ++events;
    bytes += text.size();
  }
  void take_attribute(const ustring8& name, const ustring8& value) {
    ++events;
    bytes += name.size() + value.size();
  }

  void start_tag(const std::string& name) { count(name); }
  void end_tag(const std::string& name) { count(name); }
  void text(const std::string& text) { count(text); }
  void space(const std::string& text) { count(text); }
  void comment(const std::string& text) { count(text); }
  void attribute(const std::string& name, const std::string& value) {
    ++events;
    bytes += name.size() + value.size();
  }

 private:
  void count(const std::string& text) {
    ++events;
    bytes += text.size();
  }
};

void report(benchmark::State& state, const counter& last, std::size_t document_size) {
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(document_size));
  state.counters["events"] = static_cast<double>(last.events);
  state.counters["event_bytes"] = static_cast<double>(last.bytes);
}

void orva_xml_parser(benchmark::State& state) {
  using text_handler = ORVA_NAMESPACE::functor::member_function_t<counter, void(const ustring8&)>;
  using attribute_handler =
      ORVA_NAMESPACE::functor::member_function_t<counter, void(const ustring8&, const ustring8&)>;
  const ustring8 document = bench::message_catalog();
  counter receiver;
  ORVA_NAMESPACE::parser::xml_parser parser;
  parser.on_element_start = text_handler(&receiver, &counter::take);
  parser.on_element_end = text_handler(&receiver, &counter::take);
  parser.on_character = text_handler(&receiver, &counter::take);
  parser.on_space = text_handler(&receiver, &counter::take);
  parser.on_comment = text_handler(&receiver, &counter::take);
  parser.on_attribute = attribute_handler(&receiver, &counter::take_attribute);
  for (auto _ : state) {
    receiver = {};
    if (parser.parse(document).type != 0) state.SkipWithError("parse error");
  }
  report(state, receiver, document.size());
}
BENCHMARK(orva_xml_parser)->Unit(benchmark::kMillisecond);

void expat_with_strings(benchmark::State& state) {
  const std::string document = bench::message_catalog();
  counter receiver;
  for (auto _ : state) {
    receiver = {};
    if (!bench::expat_events<counter>(receiver).parse(document)) state.SkipWithError("parse error");
  }
  report(state, receiver, document.size());
}
BENCHMARK(expat_with_strings)->Unit(benchmark::kMillisecond);

}  // namespace
