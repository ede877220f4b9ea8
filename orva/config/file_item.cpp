#include "orva/config/file_item.hpp"

#include <stdexcept>
#include <utility>

#include "orva/config/internal/config_file_reader.hpp"
#include "orva/config/internal/config_file_scanner.hpp"
#include "orva/config/internal/config_file_writer.hpp"
#include "orva/config/internal/named_files.hpp"
#include "orva/config/internal/read_file.hpp"
#include "orva/platform/file.hpp"
#include "orva/platform/native_path.hpp"
#include "orva/system/file_utility.hpp"

namespace ORVA_NAMESPACE::config {

namespace {

bool can_be_opened(const strings::ustring8& name) {
  return platform::input_file(platform::to_native(system::path_argument(name).view())).is_open();
}

/// The first of the names whose file can be opened. Empty if there is none.
strings::ustring8 first_file(const std::vector<strings::ustring8>& names, bool follows_links) {
  for (const strings::ustring8& name : names)
    if (can_be_opened(follows_links ? _private::linked_file(name) : name)) return name;
  return {};
}

void write_whole(const strings::ustring8& name, const strings::ustring8& contents) {
  try {
    static_cast<void>(system::store_file(name, contents));
  } catch (const std::runtime_error&) {
    // Ignored, as is the result for a file that cannot be opened.
  }
}

}  // namespace

file_item::file_item(strings::ustring8 filename) : filename_(std::move(filename)) { id_ = "standard file"; }

bool file_item::load() {
  load_file();
  return true;
}

bool file_item::load(const item_list& items) {
  using namespace _private;
  strings::ustring8 found = first_file(names_by(items, named_file_key, ""), follows_links_);
  if (found.empty() && filename_.empty())
    found = first_file(names_by(items, program_file_key, program_file_ending), follows_links_);
  if (!found.empty()) filename_ = std::move(found);
  load_file();
  return true;
}

bool file_item::save() {
  std::vector<value_entry> entries;
  get_value_pair_array("", entries, true);
  write_whole(filename_, _private::write_config_file(entries));
  return true;
}

void file_item::unload() { tree_.erase(); }

file_item* file_item::clone() const { return generic::abilities::create_dynamic<file_item>(*this); }

void file_item::load_file() {
  strings::ustring8 text;
  if (filename_.empty()) return;
  const auto read = follows_links_ ? _private::read_linked_file : _private::read_file;
  if (!read(filename_, text)) return;
  _private::config_file_reader(text, tree_).read();
}

void file_item::parse_comment(std::string_view text, unsigned int& position) const {
  _private::skip_comment(text, position);
}

}  // namespace ORVA_NAMESPACE::config
