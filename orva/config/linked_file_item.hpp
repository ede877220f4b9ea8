/// `linked_file_item`: a configuration file that may be a symbolic link.
///
///     config_manager config;
///     config.init(link_following_dispatch(std_config_dispatch(argc, argv, environ, "app.cfg", "")));
///     config.load();                                      // also where app.cfg is a link to another file
///
/// `file_item` opens no symbolic link as the last component of a name: whoever may make links in a directory
/// would choose what a program reads. A program that trusts the directory follows links by choice. Links are
/// followed at each load. Nothing else is different; `save` still does not write through a link.
#pragma once

#include <memory>

#include "orva/config/config_dispatch.hpp"
#include "orva/config/file_item.hpp"
#include "orva/export.hpp"

namespace ORVA_NAMESPACE::config {

class ORVA_API linked_file_item : public file_item {
 public:
  explicit linked_file_item(strings::ustring8 filename);
  template <strings::other_text Text>
  explicit linked_file_item(const Text& filename)
      : linked_file_item(strings::text_argument(filename).get()) {}
  /// The file, the id and the values of an item that follows no links.
  explicit linked_file_item(const file_item& item);
  linked_file_item(const linked_file_item& other) = default;

  linked_file_item* clone() const override;
};

/// The sources of another dispatch, with a `linked_file_item` for each `file_item`.
class ORVA_API link_following_dispatch : public config_dispatch {
 public:
  /// Copies the dispatch.
  explicit link_following_dispatch(const config_dispatch& dispatch);
  link_following_dispatch(const link_following_dispatch& other) = default;

  void setup(item_list& items) const override;
  void load(item_list& items) const override;
  void unload(item_list& items) const override;
  void save(item_list& items) const override;
  link_following_dispatch* clone() const override;

 private:
  std::shared_ptr<const config_dispatch> dispatch_;
};

}  // namespace ORVA_NAMESPACE::config
