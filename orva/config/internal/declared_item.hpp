/// `declared_item`: the command line, the environment or the defaults of a declared program.
///
///     declared_item item("command line", origin_kind::argument, program);
///     item.set("threads", "8", 0);                       // a loader fills it
///     item.keep_origins(given);                          // and leaves what it has read
///     item.origin_of("threads")                          // argument 1: --threads
///
/// Internal: not installed.
#pragma once

#include <memory>
#include <optional>
#include <string_view>

#include "orva/config/base_config_item.hpp"
#include "orva/config/internal/checked_settings.hpp"
#include "orva/config/internal/given_settings.hpp"
#include "orva/config/value_origin.hpp"

namespace ORVA_NAMESPACE::config::_private {

class declared_item : public base_config_item, public origin_provider {
 public:
  /// `kind` is that of all its values.
  declared_item(std::string_view id, origin_kind kind, std::shared_ptr<const declared_program> program);
  declared_item(const declared_item& other) = default;
  declared_item& operator=(const declared_item& other) = default;
  ~declared_item() override;

  void keep_origins(given_settings given) { given_.emplace(std::move(given)); }

  /// A value that the program has changed since comes from the program.
  value_origin origin_of(std::string_view key) const override;

  void unload() override;
  declared_item* clone() const override;

 private:
  origin_kind kind_;
  std::shared_ptr<const declared_program> program_;
  std::optional<given_settings> given_;
};

}  // namespace ORVA_NAMESPACE::config::_private
