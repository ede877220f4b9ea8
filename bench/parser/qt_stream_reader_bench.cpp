// Qt's QXmlStreamReader at the same work as xml_stream_parser_bench.cpp. Its texts are UTF-16, so that a
// program that keeps UTF-8 converts each of them.
#include <benchmark/benchmark.h>

#include <QByteArray>
#include <QFile>
#include <QString>
#include <QXmlStreamReader>
#include <cstddef>
#include <stdexcept>
#include <string>

#include "bench/parser/owned_records.hpp"

namespace {

using bench::record;
using bench::totals;

std::string utf8(const QStringRef& text) { return text.toUtf8().toStdString(); }

void start(const QXmlStreamReader& reader, record& receiver) {
  auto& node = receiver.start(reader.qualifiedName().toUtf8().constData());
  const auto attributes = reader.attributes();
  for (const auto& attribute : attributes) {
    node.attributes.emplace_back(utf8(attribute.qualifiedName()), utf8(attribute.value()));
  }
}

void add_text(const QXmlStreamReader& reader, record& receiver) {
  if (reader.isWhitespace()) return;
  const QByteArray text = reader.text().toUtf8();
  receiver.text(text.constData(), static_cast<std::size_t>(text.size()));
}

totals parse_with_qt() {
  totals result;
  record receiver(result);
  QFile file(QString::fromStdString(bench::feed().path()));
  if (!file.open(QIODevice::ReadOnly)) throw std::runtime_error("not opened");
  QXmlStreamReader reader(&file);
  while (!reader.atEnd()) {
    const auto token = reader.readNext();
    if (token == QXmlStreamReader::StartElement) start(reader, receiver);
    if (token == QXmlStreamReader::Characters) add_text(reader, receiver);
    if (token == QXmlStreamReader::EndElement) receiver.end();
  }
  if (reader.hasError()) throw std::runtime_error(reader.errorString().toStdString());
  return result;
}

void qt_stream_reader_with_owning_nodes(benchmark::State& state) { bench::measure(state, parse_with_qt); }
BENCHMARK(qt_stream_reader_with_owning_nodes)->Unit(benchmark::kMillisecond);

}  // namespace
