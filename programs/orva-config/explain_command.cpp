#include <algorithm>
#include <string>
#include <utility>
#include <vector>

#include "commands.hpp"
#include "files.hpp"
#include "key_argument.hpp"
#include "orva/config/config_document.hpp"
#include "orva/config/config_manager.hpp"
#include "orva/config/explain.hpp"
#include "orva/config/linked_file_item.hpp"

namespace orva_config {

using namespace orva::config;
using orva::diagnostics::report;
using orva::diagnostics::severity;

namespace {

/// Files, the first with the highest precedence.
class files_dispatch : public config_dispatch {
 public:
  explicit files_dispatch(std::vector<std::string> names) : names_(std::move(names)) {}

  void setup(item_list& items) const override {
    for (const std::string& name : names_) append(items, linked_file_item(name));
  }
  /// No file is searched for: a key "cfg_file" in a file is a key like any other.
  void load(item_list& items) const override {
    for (const auto& item : items) item->load();
  }
  void unload(item_list& items) const override { unload_each(items); }
  void save(item_list& items) const override { save_each(items); }
  files_dispatch* clone() const override { return new files_dispatch(*this); }

 private:
  std::vector<std::string> names_;
};

/// The names of the files that can be read; a finding for each of the others.
std::vector<std::string> readable(const std::vector<std::string>& names, report& found) {
  std::vector<std::string> result;
  for (const std::string& name : names) {
    if (read_file(name, found)) result.push_back(name);
  }
  return result;
}

bool is_defaulted(const explained_step& step) { return step.result == step_result::defaulted; }

}  // namespace

exit_code explain(const settings& values, console& shown) {
  auto names = values.get_list<std::string>("explain.files_and_key");
  if (names.size() < 2) {
    shown.complain(program_finding(severity::error, "no_key", "", "The command needs a file and a key."));
    return wrong_usage;
  }
  const key_argument key(std::move(names.back()));
  names.pop_back();

  report found;
  config_manager manager;
  manager.init(files_dispatch(readable(names, found)));
  manager.load();
  const explanation explained = orva::config::explain(manager, key.name);
  if (is_defaulted(explained.steps.front())) {
    found.add(describe(config_document::result{config_document::error::no_such_key}, key.name));
  } else if (shown.as_json()) {
    write_json(shown.output(), explained);
  } else {
    write_text(shown.output(), explained);
  }
  shown.complain(found);
  return found.empty() && std::ranges::none_of(explained.steps, is_defaulted) ? all_is_well : failure;
}

}  // namespace orva_config
