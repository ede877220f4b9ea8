#include "orva/config/watch.hpp"

#include <algorithm>
#include <mutex>
#include <utility>

#include "orva/config/file_item.hpp"
#include "orva/config/internal/named_files.hpp"
#include "orva/config/internal/watched_file.hpp"

namespace ORVA_NAMESPACE::config {

using _private::watched_file;
using strings::ustring8;

namespace {

std::vector<watched_file> watched_files(const std::vector<ustring8>& names) {
  std::vector<watched_file> files;
  files.reserve(names.size());
  for (const ustring8& name : names) {
    const auto is_same = [&](const watched_file& file) { return file.name() == name; };
    if (!name.empty() && std::none_of(files.begin(), files.end(), is_same)) files.emplace_back(name);
  }
  return files;
}

/// Each under the name that its load has found: a search could find another one now, as all items have
/// loaded.
void read_files_again(const item_list& items) {
  for (const auto& item : items) {
    if (dynamic_cast<const file_item*>(item.get()) == nullptr) continue;
    item->unload();
    item->load();
  }
}

}  // namespace

class watch::state {
 public:
  explicit state(const config_dispatch& dispatch) : dispatch_(dispatch.clone()) {}

  std::shared_ptr<const config_manager> current() const {
    const std::lock_guard lock(mutex_);
    return current_;
  }

  void add_file(ustring8 name) {
    files_.emplace_back(name);
    added_.push_back(std::move(name));
  }

  std::vector<ustring8> names() const {
    std::vector<ustring8> names;
    for (const watched_file& file : files_) names.push_back(file.name());
    return names;
  }

  bool changed() {
    return std::any_of(files_.begin(), files_.end(), [](watched_file& file) { return file.changed(); });
  }

  /// The names of the files are known only after a load. What counts is read after their state was recorded.
  bool reload(const std::function<bool(const config_manager&)>& accept) {
    auto next = std::make_shared<config_manager>();
    next->init(*dispatch_);
    next->load();
    std::vector<ustring8> names = _private::files_to_watch(next->items_);
    names.insert(names.end(), added_.begin(), added_.end());
    std::vector<watched_file> files = watched_files(names);
    read_files_again(next->items_);
    const bool accepted = !accept || accept(*next);
    files_.swap(files);
    if (accepted) replace(std::move(next));
    return accepted;
  }

 private:
  void replace(std::shared_ptr<const config_manager> next) {
    const std::lock_guard lock(mutex_);
    current_.swap(next);
    // The old manager is destroyed after the lock, with the argument.
  }

  const std::unique_ptr<const config_dispatch> dispatch_;
  std::vector<ustring8> added_;
  std::vector<watched_file> files_;
  mutable std::mutex mutex_;
  std::shared_ptr<const config_manager> current_;
};

watch::watch(const config_dispatch& dispatch) : state_(std::make_unique<state>(dispatch)) {
  state_->reload({});
}

watch::~watch() = default;

std::shared_ptr<const config_manager> watch::current() const { return state_->current(); }
void watch::add_file(ustring8 name) { state_->add_file(std::move(name)); }
std::vector<ustring8> watch::files() const { return state_->names(); }
bool watch::changed() { return state_->changed(); }
bool watch::reload(const std::function<bool(const config_manager&)>& accept) {
  return state_->reload(accept);
}

}  // namespace ORVA_NAMESPACE::config
