/// `value_origin`: the place in a source from which a value comes.
///
///     for (const explained_step& step : explain(config, "width").steps)
///       if (step.origin.kind == origin_kind::file) open_editor(step.origin.name, step.origin.at.line);
///
/// A source that is no class of the library says where its values come from by being an `origin_provider`,
/// too:
///
///     class clock_item : public base_config_item, public origin_provider {
///       value_origin origin_of(std::string_view) const override {
///         return {origin_kind::other, {}, "the clock", 0, {}};
///       }
#pragma once

#include <cstddef>
#include <string_view>

#include "orva/diagnostics/place.hpp"
#include "orva/export.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::config {

enum class origin_kind {
  none,      ///< no source: the default
  argument,  ///< of the command line
  file,
  variable,  ///< of the environment
  program,   ///< set by the program itself
  other,     ///< a source that the library does not know
};

struct value_origin {
  origin_kind kind = origin_kind::none;
  /// The id of the item, as `config_manager::get_config_item` takes it.
  strings::ustring8 source;
  /// The argument, the file or the variable. Of the first and the last empty where it is not known.
  strings::ustring8 name;
  /// The number of the argument, as in `argv`.
  std::size_t argument = 0;
  /// The first byte of the value in a file. Without a line where the file does not have the value now.
  diagnostics::place at;

  bool operator==(const value_origin&) const = default;
};

/// The origin in a few words: "argument 2: -width=640", "app.cfg:3:9", "variable WIDTH", "program",
/// "default". For another kind the id of the source.
[[nodiscard]] ORVA_API strings::ustring8 describe(const value_origin& origin);

/// A base for items that are no class of the library and say where their values come from.
class ORVA_API origin_provider {
 public:
  virtual ~origin_provider();
  /// Where the value that the item has for the key comes from. `source` may be left empty.
  [[nodiscard]] virtual value_origin origin_of(std::string_view key) const = 0;
};

}  // namespace ORVA_NAMESPACE::config
