/// `explain`: how the value of a key came about.
///
///     write_text(std::cout, explain(config, "window.width", 800));
///         =>  key           source                   value  result
///             window.width  argument 2: -width=640   640    used
///             window.width  app.cfg:3:9              1024   hidden
///             window.width  variable WINDOW.WIDTH    320    hidden
///
/// It is the speaking sibling of `config_manager::get_value`, and its value is always the same. The steps are
/// all sources that have the key, in the order of precedence, so the first of them counts. Where that is a
/// link, the sources of the key that it names follow; where it is an array, its first element; where no
/// source has the key, the default.
///
///     explainer sources(config);                       // reads the files again, once
///     const explanation width = sources.explain("window.width");
///     width.value                                      the value, as get_value has it
///     width.steps[0].origin.argument                   2
///
/// The places in files are those of the files now. A value that a file does not have any more, or that the
/// program changed, has a file and no line; the same holds for arguments and variables.
///
/// Nothing fails, whatever the files hold. Threads: as for reads of the manager. A value may be a secret:
/// whoever shows an explanation takes care of that.
#pragma once

#include <cstddef>
#include <iosfwd>
#include <memory>
#include <string_view>
#include <vector>

#include "orva/config/config_manager.hpp"
#include "orva/config/value_origin.hpp"
#include "orva/export.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/types/variant.hpp"

namespace ORVA_NAMESPACE::config {

/// What a source has for a key.
enum class node_kind {
  none,  ///< nothing: only in the step of a default, and for the first element of an empty array
  value,
  link,     ///< the name of another key
  array,    ///< elements, of which `get_value` shows the first
  section,  ///< no value of its own; `get_value` gives true
};

/// What came of it.
enum class step_result {
  used,           ///< it is the value
  hidden,         ///< a source before it has the key
  followed,       ///< the next steps are those of the key that the link names
  closes_circle,  ///< the link names a key that was followed already; its text is the value
  first_element,  ///< the next step is the first element of this array; the others are hidden
  defaulted,      ///< no source has the key
};

struct explained_step {
  /// The key that was looked for.
  strings::ustring8 key;
  value_origin origin;
  node_kind kind = node_kind::none;
  types::variant value;
  /// The number of elements of an array.
  std::size_t elements = 0;
  step_result result = step_result::used;
};

/// How the value of a key came about: the value, and the steps that led to it.
struct explanation {
  strings::ustring8 key;
  types::variant value;
  std::vector<explained_step> steps;
};

/// The longest name that `explainer::keys` returns, in bytes.
inline constexpr std::size_t max_listed_key = 1024;

/// Explains many keys of one manager: reads files, arguments and environment once.
class ORVA_API explainer {
 public:
  /// REQUIRES: arguments and environment of the manager still exist.
  explicit explainer(const config_manager& manager);
  explainer(const explainer& other);
  explainer& operator=(const explainer& other);
  ~explainer();

  /// Explains `manager.get_value(key, default_value)`. A load of the manager counts at once; new places in a
  /// file have a new explainer.
  [[nodiscard]] explanation explain(std::string_view key, const types::variant& default_value = {}) const;

  /// The names of all values of all sources, sorted; the elements of arrays by their own names. Keys that
  /// name one node are one. Names longer than `max_listed_key` are left out: each has those of its sections
  /// in front, so that all names of a file may take far more memory than the file. `explain` takes them too.
  [[nodiscard]] std::vector<strings::ustring8> keys() const;

 private:
  class source;

  std::shared_ptr<const std::vector<source>> sources_;
};

/// Explains one key, by an explainer of its own.
[[nodiscard]] ORVA_API explanation explain(const config_manager& manager, std::string_view key,
                                           const types::variant& default_value = {});

/// A table: a heading, then a line for each step, aligned by the columns of a terminal. Characters that would
/// not show, or change how others show, are U+FFFD. Texts have the form of `as_string`; an array has its
/// number of elements.
ORVA_API void write_text(std::ostream& stream, const explanation& explained);

/// A line for each step, with an object of JSON:
///
///     {"key":"window.width","source":"file","id":"standard file","name":"app.cfg","line":3,"column":9,
///      "kind":"value","value":"1024","result":"hidden"}
///
/// `source` is the name of an `origin_kind`; "argument" is the number of an argument, and "elements" that of
/// an array. Parts that a step does not have are left out. Values are texts in the form of `as_string`, and
/// nil is null.
ORVA_API void write_json(std::ostream& stream, const explanation& explained);

/// "argument", "file", "variable", "program", "other"; "default" for `none`.
[[nodiscard]] ORVA_API std::string_view name_of(origin_kind kind) noexcept;
/// "none", "value", "link", "array", "section".
[[nodiscard]] ORVA_API std::string_view name_of(node_kind kind) noexcept;
/// "used", "hidden", "followed", "closes circle", "first element", "default".
[[nodiscard]] ORVA_API std::string_view name_of(step_result result) noexcept;

}  // namespace ORVA_NAMESPACE::config
