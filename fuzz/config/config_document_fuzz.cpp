/// Reads any bytes as a configuration file and edits it. The text without an edit stays as it is; an edit
/// changes what `file_item` reads as it says, in one line, or is refused and changes nothing.
///
/// The input is the edits, a zero byte and the text. Edits are separated by 0x01, their fields by tabs: one
/// letter, the key, the comment, and one or more values.
#include <algorithm>
#include <cstddef>
#include <cstdint>
#include <iostream>
#include <string>
#include <vector>

#include "fuzz/config/fuzz_input.hpp"
#include "fuzz/require.hpp"
#include "orva/config/file_item.hpp"
#include "tests/support/document_edits.hpp"

namespace {

using namespace orva_fuzz;
using namespace orva_test;

constexpr std::size_t longest_document = 1024;
constexpr std::size_t most_edits = 8;

stored_nodes read_text(const std::string& text) {
  static const scratch_file file("-document.cfg");
  file.write(text);
  ORVA_NAMESPACE::config::file_item item(file.path());
  require(item.load());
  return stored_nodes_of(item);
}

std::string_view next_field(std::string_view& text, char separator) {
  const std::string_view field = text.substr(0, text.find(separator));
  text.remove_prefix(std::min(field.size() + 1, text.size()));
  return field;
}

document_edit edit_of(std::string_view text) {
  document_edit edit;
  const std::string_view kind = next_field(text, '\t');
  edit.what = static_cast<document_edit::kind>(kind.empty() ? 0 : static_cast<unsigned char>(kind[0]) % 5);
  edit.key = next_field(text, '\t');
  edit.comment = next_field(text, '\t');
  do edit.values.emplace_back(next_field(text, '\t'));
  while (!text.empty());
  return edit;
}

void must_be_right(const document_checker& document) {
  if (document.fault().empty()) return;
  std::cerr << document.fault() << "\n" << document.document().text() << "\n";
  require(false);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size > longest_document) return 0;
  std::string_view input = text_of(data, size);
  std::string_view edits = next_field(input, '\0');
  document_checker document{std::string(input), read_text};
  must_be_right(document);
  for (std::size_t count = 0; count < most_edits && !edits.empty(); ++count) {
    static_cast<void>(document.apply(edit_of(next_field(edits, '\x01'))));
    must_be_right(document);
  }
  return 0;
}
