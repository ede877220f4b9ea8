/// Formats any bytes as a configuration file: `file_item` reads the same before and after, nothing but blanks
/// and line ends differs, and a text in the layout does not change.
#include <cstddef>
#include <cstdint>
#include <string>

#include "fuzz/config/fuzz_input.hpp"
#include "fuzz/require.hpp"
#include "orva/config/file_item.hpp"
#include "orva/config/format_document.hpp"
#include "tests/support/document_edits.hpp"

namespace {

using namespace orva_fuzz;

orva_test::stored_nodes read_text(const std::string& text) {
  static const scratch_file file("-format.cfg");
  file.write(text);
  ORVA_NAMESPACE::config::file_item item(file.path());
  require(item.load());
  return orva_test::stored_nodes_of(item);
}

std::string without_blanks(std::string text) {
  std::erase_if(text, [](char c) { return c == ' ' || c == '\t' || c == '\n' || c == '\r'; });
  return text;
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(text_of(data, size));
  const std::string formatted = ORVA_NAMESPACE::config::format_document(text);
  require(ORVA_NAMESPACE::config::format_document(formatted) == formatted);
  require(without_blanks(formatted) == without_blanks(text));
  require(read_text(formatted) == read_text(text));
  return 0;
}
