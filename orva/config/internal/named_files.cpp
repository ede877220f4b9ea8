#include "orva/config/internal/named_files.hpp"

#include "orva/config/file_item.hpp"

namespace ORVA_NAMESPACE::config::_private {

std::vector<strings::ustring8> names_by(const item_list& items, std::string_view key,
                                        std::string_view ending) {
  std::vector<strings::ustring8> names;
  for (const auto& item : items)
    if (const auto* const node = item->get_value(key)) names.push_back(node->second.as_string() + ending);
  return names;
}

std::vector<strings::ustring8> files_to_watch(const item_list& items) {
  std::vector<strings::ustring8> names = names_by(items, named_file_key, "");
  for (const auto& item : items)
    if (const auto* const file = dynamic_cast<const file_item*>(item.get()))
      names.push_back(file->get_filename());
  for (auto& name : names_by(items, program_file_key, program_file_ending)) names.push_back(std::move(name));
  return names;
}

}  // namespace ORVA_NAMESPACE::config::_private
