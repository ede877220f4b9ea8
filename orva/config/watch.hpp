/// `watch`: settings that follow their files while the program runs.
///
///     watch settings(std_config_dispatch(argc, argv, environ, "app.cfg", ""));
///     ...
///     if (settings.changed()) settings.reload();                  // now and then, in one thread
///     ...
///     const auto config = settings.current();                     // in any thread
///     config->get_value("window.width", 640).as_int32()
///
/// A reload makes a new manager and then replaces the old one, at once for all readers. A reader that holds
/// the old one goes on with its values, which nothing changes any more; it is destroyed with the last reader.
/// The library starts no thread and waits for nothing: a program asks `changed` by its own timer, such as
/// every second.
///
/// Watched are the files of all `file_item`s, also those that do not exist and would be read if they came:
/// each file that a source names by "cfg_file", and that of the program's name. A file has changed if it came
/// or went, or if what its path leads to has another identity, size or time: also if a link or a directory on
/// the way was exchanged, as orchestrators do it. Writing the same contents again counts as a change, too. A
/// second change in one step of the file system's clock is not missed: contents are compared as long as it
/// could be.
///
/// The dispatch is copied. What it refers to, such as arguments and environment, must live as long as the
/// watch and the managers. Values that a program set in the items of a manager are not in the next one.
#pragma once

#include <functional>
#include <memory>
#include <vector>

#include "orva/config/config_dispatch.hpp"
#include "orva/config/config_manager.hpp"
#include "orva/export.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::config {

class ORVA_API watch {
 public:
  /// Loads the first manager. A load reads each file twice, so that no change between reading and watching is
  /// missed.
  explicit watch(const config_dispatch& dispatch);
  watch(const watch&) = delete;
  watch& operator=(const watch&) = delete;
  ~watch();

  /// The last manager. Any thread may call, also during a reload. It is loaded already: only read from it.
  [[nodiscard]] std::shared_ptr<const config_manager> current() const;

  // One thread at a time calls these.

  /// Watches one more file, such as one that a source of the program itself reads.
  void add_file(strings::ustring8 name);

  /// The files that are watched.
  [[nodiscard]] std::vector<strings::ustring8> files() const;

  /// Whether a file has changed since the last load.
  [[nodiscard]] bool changed();

  /// Loads a new manager. `accept` may look at it and refuse it, for wrong values perhaps; the old one then
  /// stays until a file changes again. Without one, every manager is accepted. Returns whether the manager
  /// was replaced. An exception leaves all as it was.
  bool reload(const std::function<bool(const config_manager&)>& accept = {});

 private:
  class state;

  std::unique_ptr<state> state_;
};

}  // namespace ORVA_NAMESPACE::config
