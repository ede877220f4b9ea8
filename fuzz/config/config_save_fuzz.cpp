/// Saves a tree of any keys and values, loads it again, and compares the values that the format preserves.
///
/// A line of the input is a key, a blank and its value. Names and values consist of characters that need no
/// quotes or that the writer quotes. The format preserves those that are in a section and are not empty, if
/// there is no array in the tree.
#include <algorithm>
#include <cstddef>
#include <cstdint>

#include "fuzz/config/fuzz_input.hpp"
#include "fuzz/require.hpp"
#include "orva/config/file_item.hpp"
#include "tests/support/config_item.hpp"

namespace {

using namespace orva_fuzz;
using ORVA_NAMESPACE::config::file_item;
using ORVA_NAMESPACE::strings::ustring8;

/// The text with each byte replaced by one of `letters`, so that most inputs are values that are preserved.
ustring8 mapped(std::string_view text, std::string_view letters) {
  ustring8 result;
  for (const char c : text) result += letters[static_cast<unsigned char>(c) % letters.size()];
  return result;
}

void set_lines(file_item& item, std::string_view text) {
  while (!text.empty()) {
    const std::string_view line = text.substr(0, text.find('\n'));
    text.remove_prefix(std::min(line.size() + 1, text.size()));
    const auto blank = std::min(line.find(' '), line.size());
    const ustring8 name = mapped(line.substr(0, blank), "abcdefgh.ABC_012");
    const ustring8 value = mapped(line.substr(blank), "ab \tcd\n\r=+-:;\xC3\xA4[");
    // Names with an empty part can be in a tree, but not in a file.
    if (("." + name + ".").find("..") == name.npos && !name.empty()) item.set(name, value, 0);
  }
}

using value_entry = ORVA_NAMESPACE::config::base_config_item::value_entry;

/// The last part of a name, with its dot.
std::string_view last_part(std::string_view name) {
  return name.substr(std::min(name.rfind('.'), name.size()));
}

/// A key is written in every section whose name is as long as that of its own section. If two such sections
/// have a key of the same name, both get the value of the later one.
bool is_alone(const value_entry& entry, const std::vector<value_entry>& entries) {
  const auto is_rival = [&](const value_entry& other) {
    return other.second.first != 0 && other.first.size() == entry.first.size() &&
           last_part(other.first) == last_part(entry.first);
  };
  return std::count_if(entries.begin(), entries.end(), is_rival) == 1;
}

bool preserved(const value_entry& entry, const file_item& item, const std::vector<value_entry>& entries) {
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
    if (!preserved(entry, item, entries)) continue;
    const auto* const found = again.get_value(entry.first);
    require(found != nullptr);
    require(found->second.as_string() == entry.second.second.as_string());
  }

  // Every file that can be loaded can be saved.
  file.write(text_of(data, size));
  file_item any(file.path());
  require(any.load());
  require(any.save());
  require(file_item(file.path()).load());
  return 0;
}
