#include "orva/config/file_findings.hpp"

#include <algorithm>
#include <utility>
#include <vector>

#include "orva/config/internal/named_files.hpp"
#include "orva/config/internal/unread_file.hpp"
#include "orva/config/linked_file_item.hpp"
#include "orva/platform/native_path.hpp"
#include "orva/platform/symbolic_link.hpp"
#include "orva/system/path_argument.hpp"

namespace ORVA_NAMESPACE::config {

using diagnostics::finding;
using diagnostics::severity;
using strings::ustring8;

namespace {

/// Nothing if the path names no link. In a circle, a link leads to itself.
std::optional<ustring8> link_target(const platform::native_string& path) {
  const auto followed = platform::follow_links(path);
  const bool is_circle = followed.system_error == platform::too_many_links;
  if (!is_circle && (followed.system_error != 0 || followed.path == path)) return std::nullopt;
  ustring8 target;
  platform::append_native(target, is_circle ? path : followed.path);
  return target;
}

}  // namespace

std::optional<finding> check_readable(std::string_view file, severity level, file_links links) {
  const auto path = platform::to_native(system::path_argument(file).view());
  if (links == file_links::refused) {
    if (const auto target = link_target(path)) {
      return finding{level, "config.file_is_link", ustring8(file), {}, generic::argument("target", *target)};
    }
  }
  const auto result = _private::try_to_read(path);
  if (result.error == config_document::load_error::none) return std::nullopt;
  return _private::finding_of(result, file, level);
}

void check_files(const config_manager& manager, diagnostics::report& findings, severity level) {
  std::vector<ustring8> checked;
  const auto check = [&](const ustring8& name, file_links links) {
    if (name.empty() || std::find(checked.begin(), checked.end(), name) != checked.end()) return;
    checked.push_back(name);
    if (auto found = check_readable(name, level, links)) findings.add(std::move(*found));
  };
  // Those after a file have not loaded when it looks for its name.
  item_list before;
  for (const auto& item : manager.items_) {
    if (const auto* const file = dynamic_cast<const file_item*>(item.get())) {
      const bool follows = dynamic_cast<const linked_file_item*>(file) != nullptr;
      const auto links = follows ? file_links::followed : file_links::refused;
      for (const ustring8& name : _private::names_by(before, _private::named_file_key, ""))
        check(name, links);
      check(file->get_filename(), links);
    }
    before.push_back(item);
  }
}

}  // namespace ORVA_NAMESPACE::config
