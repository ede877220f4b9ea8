#include "orva/config/declared_dispatch.hpp"

#include <utility>
#include <vector>

#include "orva/config/file_item.hpp"
#include "orva/config/internal/checked_settings.hpp"
#include "orva/config/internal/declared_item.hpp"
#include "orva/config/internal/named_files.hpp"
#include "orva/config/internal/settings_loader.hpp"

namespace ORVA_NAMESPACE::config {

using _private::checked_settings;
using _private::declared_item;
using _private::declared_program;
using _private::settings_loader;

namespace {

/// The file that an item names, or empty text.
strings::ustring8 named_file(const base_config_item& item) {
  const auto* const node = item.get_value(_private::named_file_key);
  return node != nullptr ? node->second.as_string() : strings::ustring8();
}

/// The items in the order of `setup`.
struct declared_items {
  declared_item* command_line = nullptr;
  file_item* named = nullptr;
  std::vector<file_item*> files;
  declared_item* environment = nullptr;
  declared_item* defaults = nullptr;

  declared_items(const item_list& items, bool has_named_file, std::size_t file_count) {
    auto next = items.begin();
    command_line = static_cast<declared_item*>((next++)->get());
    if (has_named_file) named = static_cast<file_item*>((next++)->get());
    for (std::size_t i = 0; i < file_count; ++i) files.push_back(static_cast<file_item*>((next++)->get()));
    environment = static_cast<declared_item*>((next++)->get());
    defaults = static_cast<declared_item*>(next->get());
  }
};

/// The user may have asked for the file. That of the defaults may be missing.
void check_named_file(const declared_items& sources, settings_loader& loader) {
  strings::ustring8 file = named_file(*sources.command_line);
  if (file.empty()) file = named_file(*sources.environment);
  const bool may_be_missing = file.empty();
  if (may_be_missing) file = named_file(*sources.defaults);
  loader.check_is_readable(file, may_be_missing);
  loader.check_file(*sources.named);
}

}  // namespace

declared_dispatch::declared_dispatch(declaration declared, int argc, const char* const* argv,
                                     const char* const* envp, settings_options options)
    : program_(std::make_shared<const declared_program>(std::move(declared))),
      result_(std::make_shared<_private::load_result>()),
      argc_(argc),
      argv_(argv),
      envp_(envp),
      options_(std::move(options)) {}

declared_dispatch::declared_dispatch(const declared_dispatch& other) = default;
declared_dispatch& declared_dispatch::operator=(const declared_dispatch& other) = default;
declared_dispatch::~declared_dispatch() = default;

void declared_dispatch::setup(item_list& items) const {
  append(items, declared_item("command line", origin_kind::argument, program_));
  if (program_->names.has_named_file()) append(items, file_item(""));
  for (const strings::ustring8& file : options_.files) append(items, file_item(file));
  append(items, declared_item("enviroment", origin_kind::variable, program_));
  append(items, declared_item("user_item", origin_kind::none, program_));
}

void declared_dispatch::load(item_list& items) const {
  const declared_items sources(items, program_->names.has_named_file(), options_.files.size());
  settings_loader loader(program_->names, options_);
  loader.read_command_line(argc_, argv_, *sources.command_line);
  loader.read_environment(envp_, *sources.environment);
  loader.read_defaults(*sources.defaults);
  if (sources.named != nullptr) sources.named->load(items);
  for (file_item* const file : sources.files) file->load();

  loader.check_command_line();
  if (sources.named != nullptr) check_named_file(sources, loader);
  for (file_item* const file : sources.files) {
    loader.check_is_readable(file->get_filename(), true);
    loader.check_file(*file);
  }
  loader.check_environment();
  sources.command_line->keep_origins(std::move(loader.command_line()));
  sources.environment->keep_origins(std::move(loader.environment()));
  sources.defaults->keep_origins(std::move(loader.defaults()));
  result_->last = std::make_shared<const checked_settings>(loader.finish());
}

void declared_dispatch::unload(item_list& items) const { unload_each(items); }

void declared_dispatch::save(item_list& items) const { save_each(items); }

declared_dispatch* declared_dispatch::clone() const { return new declared_dispatch(*this); }

}  // namespace ORVA_NAMESPACE::config
