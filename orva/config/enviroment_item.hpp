/// `enviroment_item`: an environment block as configuration.
///
/// Each entry is read as an expression, as `base_config_item::set` reads it: blanks outside quotes go from
/// names and values alike, and separators in a name make parts of it.
///
///     HOME=/home/ann              =>  home: "/home/ann"
///     P=C:\Program Files          =>  p: "C:\ProgramFiles"
///     A.B=1                       =>  a.b: "1"
///     EMPTY=                      =>  empty: ""
///
/// The block is the caller's and is not copied: it must live as long as the item and its copies.
#pragma once

#include "orva/config/base_config_item.hpp"
#include "orva/export.hpp"

namespace ORVA_NAMESPACE::config {

class ORVA_API enviroment_item : public base_config_item {
 public:
  /// Reads nothing yet. The id is "enviroment". The block ends with a null entry, and may itself be null.
  explicit enviroment_item(const char* const* envp);

  bool load() override;
  bool load(const item_list& items) override;
  void unload() override;
  enviroment_item* clone() const override;

  const char* const* get_envp() const { return envp_; }

 private:
  const char* const* envp_;
};

}  // namespace ORVA_NAMESPACE::config
