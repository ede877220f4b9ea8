#include "orva/i18n/message_catalogs.hpp"

#include <string_view>
#include <utility>

#include "orva/i18n/xmc_file_loader.hpp"
#include "orva/strings/case_mapping.hpp"
#include "orva/system/file_utility.hpp"
#include "orva/system/io.hpp"

namespace ORVA_NAMESPACE::i18n {

using strings::text_argument;
using strings::ustring8;

const catalog_t message_catalogs::s_nil_catalog;
const message_t message_catalogs::s_nil_message;

namespace {

bool is_catalog_file(const ustring8& path) {
  constexpr std::size_t ending_size = 4;
  if (path.size() < ending_size) return false;
  const ustring8 ending = strings::to_lower(path.substr(path.size() - ending_size));
  return ending == ".xmc" || ending == ".xml";
}

}  // namespace

/// One call of a load function.
class message_catalogs::load_operation {
 public:
  load_operation(catalog_map& catalogs, const ustring8& language, const ustring8& catalog)
      : catalogs_(catalogs), language_(language), catalog_(catalog) {}

  result_type load(const ustring8& path) {
    if (system::io::is_file(path)) return load_file(path);
    if (system::io::is_directory(path)) return load_directory(path);
    return {entity_not_found, path};
  }

  result_type load_file(const ustring8& file) {
    _private::xmc_file_loader loader;
    const _private::load_error error = loader.parse(file, language_, catalog_);
    if (error.type() == _private::load_error::no_error) loader.move_data(catalogs_);
    return error;
  }

  result_type load_directory(const ustring8& directory) {
    result_type result = enter_directory(directory);
    while (result == no_error && !path_.empty()) {
      listing& innermost = path_.back();
      if (innermost.next == innermost.entries.size()) {
        path_.pop_back();
        continue;
      }
      const ustring8 entry = std::move(innermost.entries[innermost.next++]);
      if (system::io::is_directory(entry)) {
        result = enter_directory(entry);
      } else if (is_catalog_file(entry) && system::io::is_file(entry)) {
        result = load_file(entry);
      }
    }
    path_.clear();
    return result;
  }

 private:
  /// The entries of a directory, and the index of the next one to load.
  struct listing {
    std::vector<ustring8> entries;
    std::size_t next = 0;
  };

  result_type enter_directory(const ustring8& directory) {
    if (!system::io::exists(directory)) return {directory_not_found, directory};
    if (directories_entered_++ == max_directories) return too_many_directories(directory);
    path_.push_back({system::list_directory(directory)});
    return {no_error, ""};
  }

  static result_type too_many_directories(const ustring8& directory) {
    _private::load_error error(_private::load_error::unexpected_parse_error, "");
    error.append_error_stack(_private::load_error::in_file, directory);
    return error;
  }

  catalog_map& catalogs_;
  const ustring8& language_;
  const ustring8& catalog_;
  // The directories from the outermost to the innermost one.
  std::vector<listing> path_;
  types::uint32 directories_entered_ = 0;
};

message_catalogs& message_catalogs::assign(const types::nil_t&) {
  catalogs_.clear();
  resolve_container_.clear();
  return *this;
}

message_catalogs::result_type message_catalogs::load(const text_argument& path, const text_argument& language,
                                                     const text_argument& catalog) {
  const result_type result = load_operation(catalogs_, language, catalog).load(path);
  if (result == no_error && catalogs_.empty()) return {no_catalog, path};
  return result;
}

message_catalogs::result_type message_catalogs::load(const path_list& paths, const text_argument& language,
                                                     const text_argument& catalog) {
  result_type result(no_error, "");
  for (const ustring8& path : paths) {
    result = load_operation(catalogs_, language, catalog).load(path);
    if (result != no_error) break;
  }
  return result;
}

message_catalogs::result_type message_catalogs::load_file(const text_argument& file,
                                                          const text_argument& language,
                                                          const text_argument& catalog) {
  return load_operation(catalogs_, language, catalog).load_file(file);
}

message_catalogs::result_type message_catalogs::load_directory(const text_argument& directory,
                                                               const text_argument& language,
                                                               const text_argument& catalog) {
  return load_operation(catalogs_, language, catalog).load_directory(directory);
}

void message_catalogs::erase(const text_argument& name) { catalogs_.erase(name.get()); }

bool message_catalogs::has_catalog(const text_argument& name) const {
  return catalogs_.find(name) != catalogs_.end();
}

bool message_catalogs::has_catalog(const text_argument& name, const text_argument& language) const {
  return !language.get().empty() && catalog(name).is_language_loaded(language);
}

const catalog_t& message_catalogs::catalog(const text_argument& name) const {
  const auto found = catalogs_.find(name);
  // A caller can set the pointer of an entry to null through `begin()`.
  return found != catalogs_.end() && found->second ? *found->second : s_nil_catalog;
}

bool message_catalogs::has_message(const text_argument& catalog, const text_argument& name) const {
  return !(message(catalog, name) == types::nil);
}

const message_t& message_catalogs::message(const text_argument& catalog, const text_argument& name) const {
  const catalog_t& found = this->catalog(catalog);
  return &found != &s_nil_catalog ? found.message(name) : s_nil_message;
}

// On Windows a program that refers to it by its address imports it.
constexpr types::uint32 message_catalogs::max_directories;

}  // namespace ORVA_NAMESPACE::i18n
