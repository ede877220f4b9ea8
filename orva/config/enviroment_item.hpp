/// `enviroment_item`: an environment block as configuration.
///
/// Each entry is read by `base_config_item::set`: up to the first `=` it is the key, after that the value.
///
///     HOME=/home/ann              =>  home: "/home/ann"
///     P=C:\Program Files          =>  p: "C:\ProgramFiles"        blanks outside quotes are dropped
///     A.B=1                       =>  a.b: "1"                    separators nest
///     EMPTY=                      =>  empty: ""
///     URL=http://x#y              =>  url: "http://x#y"           there are no comments
///     LIST[]=a,b                  =>  list[]: "a,b"               and no arrays
///
/// The item does not copy the block: it must outlive the item and its copies.
///
/// Speaking sibling: `settings`, which reads the variables that the program declares.
///
/// Edge cases: docs/edges.md#configuration
#pragma once

#include "orva/config/base_config_item.hpp"
#include "orva/export.hpp"

namespace ORVA_NAMESPACE::config {

class ORVA_API enviroment_item : public base_config_item {
 public:
  /// Reads nothing yet. The id is "enviroment". The block ends with a null entry, and may itself be null.
  explicit enviroment_item(const char* const* envp);

  bool load() override;
  using base_config_item::load;
  void unload() override;
  enviroment_item* clone() const override;

  const char* const* get_envp() const { return envp_; }

 private:
  const char* const* envp_;
};

}  // namespace ORVA_NAMESPACE::config
