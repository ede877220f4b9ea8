/// A tree made of fuzzed keys and values, saved and loaded again: what the format promises comes back.
///
/// A line of the input is a key and, behind a blank, its value. Names and values are of letters that need no
/// quotes and no escapes, or of blanks and line ends, which the writer quotes: of these the format promises
/// that they come back, where they are in a section, are not empty, and no array stands in the tree.
#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "fuzz/config/fuzzed.hpp"
#include "orva/config/file_item.hpp"
#include "tests/support/config_item.hpp"

namespace {

using namespace orva_fuzz;
using ORVA_NAMESPACE::config::file_item;
using ORVA_NAMESPACE::strings::ustring8;

/// One of sixteen bytes, so that few inputs are wasted on what is not promised.
ustring8 harmless(std::string_view text, std::string_view letters) {
  ustring8 result;
  for (const char c : text) result += letters[static_cast<unsigned char>(c) % letters.size()];
  return result;
}

void set_lines(file_item& item, std::string_view text) {
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    const auto blank = std::min(line.find(' '), line.size());
    const ustring8 name = harmless(line.substr(0, blank), "abcdefgh.ABC_012");
    const ustring8 value = harmless(line.substr(blank), "ab \tcd\n\r=+-:;\xC3\xA4[");
    // An empty part of a name is a name to the tree and none to the format.
    if (("." + name + ".").find("..") == name.npos && !name.empty()) item.set(name, value, 0);
  }
}

using value_entry = ORVA_NAMESPACE::config::base_config_item::value_entry;

/// The last part of a name, with the dot before it.
std::string_view last_part(std::string_view name) {
  return name.substr(std::min(name.rfind('.'), name.size()));
}

/// A key is written in every section whose name is as long as that of its own: keys of one name in two such
/// sections are both the later.
bool is_alone(const value_entry& entry, const std::vector<value_entry>& entries) {
  const auto is_rival = [&](const value_entry& other) {
    return other.second.first != 0 && other.first.size() == entry.first.size() &&
           last_part(other.first) == last_part(entry.first);
  };
  return std::count_if(entries.begin(), entries.end(), is_rival) == 1;
}

bool promised(const value_entry& entry, const file_item& item, const std::vector<value_entry>& entries) {
  const auto dot = entry.first.rfind('.');
  if (dot == entry.first.npos || entry.second.first == 0 || entry.second.second.as_string().empty())
    return false;
  return item.get_value(entry.first.substr(0, dot))->first == 0 && is_alone(entry, entries);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  static const scratch_file file("-saved.cfg");
  if (size > 512) return 0;
  file.write("");
  file_item item(file.path());
  set_lines(item, text_of(data, size));
  require(item.save());

  file_item again(file.path());
  require(again.load());
  std::vector<value_entry> entries;
  item.get_value_pair_array("", entries, true);
  for (const auto& entry : entries) {
    if (!promised(entry, item, entries)) continue;
    const auto* const found = again.get_value(entry.first);
    require(found != nullptr);
    require(found->second.as_string() == entry.second.second.as_string());
  }

  // Whatever a file holds can be saved; what was saved once stays as it is from then on.
  file.write(text_of(data, size));
  file_item any(file.path());
  require(any.load());
  require(any.save());
  require(file_item(file.path()).load());
  return 0;
}
