/// Places in a source of any bytes, and findings about it, as text and as JSON: an index agrees with single
/// lookups, and nothing of the source reaches a terminal that it would act on.
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>
#include <string_view>

#include "fuzz/require.hpp"
#include "orva/diagnostics/write.hpp"

namespace {

using namespace ORVA_NAMESPACE::diagnostics;
using orva_fuzz::require;
using ORVA_NAMESPACE::generic::argument;

/// Whether all control characters are line feeds. U+0080 to U+009F begin with 0xC2 in UTF-8.
bool is_harmless(std::string_view text) {
  for (std::size_t i = 0; i < text.size(); ++i) {
    const auto byte = static_cast<unsigned char>(text[i]);
    if ((byte < 0x20 && byte != '\n') || byte == 0x7F) return false;
    if (byte == 0xC2 && static_cast<unsigned char>(text.at(i + 1)) < 0xA0) return false;
  }
  return true;
}

std::size_t count_of(char unit, std::string_view text) {
  std::size_t count = 0;
  for (const char each : text) count += each == unit ? 1 : 0;
  return count;
}

void check_text(const finding& found, std::string_view source) {
  text_options options;
  options.source = [source](const auto&) { return source; };
  std::ostringstream stream;
  write_text(stream, found, options);
  require(is_harmless(stream.str()));
  const std::size_t lines = count_of('\n', stream.str());
  require(lines == 1 || lines == 3);
}

void check_json(const finding& found) {
  std::ostringstream stream;
  write_json(stream, found);
  require(is_harmless(stream.str()));
  require(count_of('\n', stream.str()) == 1 && stream.str().ends_with("}\n"));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string_view source(reinterpret_cast<const char*>(data), size);
  const line_index lines(source);
  // Each lookup reads its line: not all of them in a long one.
  const std::size_t step = size / 64 + 1;
  for (std::size_t offset = 0; offset <= size; offset += step) {
    require(lines.place_of(offset) == place_of(source, offset));
  }
  const std::size_t offset = size == 0 ? 0 : data[0] * size / 255;
  const std::string text(source.substr(0, 40));
  const std::string file(source.substr(size / 2, 40));
  const finding found{severity::error, text, file, place_of(source, offset), argument("text", text)};
  check_text(found, source);
  check_json(found);
  return 0;
}
