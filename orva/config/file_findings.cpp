#include "orva/config/file_findings.hpp"

#include <algorithm>
#include <cstdint>
#include <string>
#include <system_error>
#include <utility>
#include <vector>

#include "orva/config/internal/named_files.hpp"
#include "orva/config/linked_file_item.hpp"
#include "orva/platform/file.hpp"
#include "orva/platform/file_operations.hpp"
#include "orva/platform/symbolic_link.hpp"
#include "orva/system/path_argument.hpp"

namespace ORVA_NAMESPACE::config {

using diagnostics::finding;
using diagnostics::severity;
using strings::ustring8;

namespace {

/// More than this is not read.
constexpr std::uint64_t largest_size = 0x7FFFFFFF;

bool means_missing(const std::error_code& error) {
  return error == std::errc::no_such_file_or_directory || error == std::errc::not_a_directory;
}

/// Where a link leads; in a circle, to itself.
struct link_target {
  bool is_link = false;
  ustring8 path;
};

link_target target_of(const platform::native_string& path) {
  const auto followed = platform::follow_links(path);
  if (followed.path == path && followed.system_error == 0) return {};
  link_target target{true, {}};
  platform::append_native(target.path, followed.system_error == 0 ? followed.path : path);
  return target;
}

class file_check {
 public:
  file_check(std::string_view file, severity level) : file_(file), level_(level) {}

  std::optional<finding> run(file_links links) const {
    auto path = platform::to_native(system::path_argument(file_).view());
    if (path.empty() || path.find(platform::native_char{}) != path.npos) return found("config.file_missing");
    if (links == file_links::followed) {
      auto followed = platform::follow_links(path);
      if (followed.system_error != 0) return refused(followed.system_error);
      path = std::move(followed.path);
    } else if (const auto target = target_of(path); target.is_link) {
      return found("config.file_is_link", generic::argument("target", target.path));
    }
    return check_plain(path);
  }

 private:
  std::optional<finding> check_plain(const platform::native_string& path) const {
    const auto status = platform::status(path);
    const int error = platform::open_error(path);
    if (error != 0 && status.exists && !status.is_file) return found("config.file_not_a_file");
    if (error != 0) return refused(error);
    if (platform::stamp_of(path).size > largest_size) return found("config.file_too_large");
    return {};
  }

  std::optional<finding> refused(int system_error) const {
    const std::error_code error(system_error, std::system_category());
    if (means_missing(error)) return found("config.file_missing");
    return found("config.file_refused", generic::argument("reason", ustring8(error.message())));
  }

  template <typename... Arguments>
  finding found(const char* code, const Arguments&... arguments) const {
    return {level_, ustring8(code), file_, {}, {arguments...}};
  }

  ustring8 file_;
  severity level_;
};

}  // namespace

std::optional<finding> check_readable(std::string_view file, severity level, file_links links) {
  return file_check(file, level).run(links);
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
