// xml_token_stream beside expat that fills a list of the same tokens, over a message catalog.
#include "orva/parser/xml_token_stream.hpp"

#include <benchmark/benchmark.h>

#include <list>
#include <string>

#include "bench/parser/expat_events.hpp"
#include "bench/parser/message_catalog.hpp"

namespace {

struct token {
  int type;
  std::string value;
};

class token_list {
 public:
  void start_tag(std::string&& name) {
    close_start_tag();
    tokens_.push_back({0, std::move(name)});
    open_ = true;
  }
  void end_tag(std::string&& name) { add(1, std::move(name)); }
  void attribute(std::string&& name, std::string&& value) {
    tokens_.push_back({2, std::move(name)});
    tokens_.push_back({3, std::move(value)});
  }
  void comment(std::string&& text) { tokens_.push_back({5, std::move(text)}); }
  void space(std::string&& text) { add(6, std::move(text)); }
  void text(std::string&& text) { add(7, std::move(text)); }

  const std::list<token>& tokens() const { return tokens_; }

 private:
  void close_start_tag() {
    if (open_) tokens_.push_back({4, {}});
    open_ = false;
  }
  void add(int type, std::string&& value) {
    close_start_tag();
    tokens_.push_back({type, std::move(value)});
  }

  bool open_ = false;
  std::list<token> tokens_;
};

void report(benchmark::State& state, std::size_t tokens, std::size_t document_size) {
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(document_size));
  state.counters["tokens"] = static_cast<double>(tokens);
}

void orva_xml_token_stream(benchmark::State& state) {
  const ORVA_NAMESPACE::strings::ustring8 document = bench::message_catalog();
  std::size_t tokens = 0;
  for (auto _ : state) {
    ORVA_NAMESPACE::parser::xml_token_stream stream;
    if (stream.parse(document).type != 0) state.SkipWithError("parse error");
    tokens = stream.size();
  }
  report(state, tokens, document.size());
}
BENCHMARK(orva_xml_token_stream)->Unit(benchmark::kMillisecond);

void expat_with_token_list(benchmark::State& state) {
  const std::string document = bench::message_catalog();
  std::size_t tokens = 0;
  for (auto _ : state) {
    token_list list;
    if (!bench::expat_events<token_list>(list).parse(document)) state.SkipWithError("parse error");
    tokens = list.tokens().size();
  }
  report(state, tokens, document.size());
}
BENCHMARK(expat_with_token_list)->Unit(benchmark::kMillisecond);

}  // namespace
