/// `base_config_item`: one source of configuration, a tree of keys and values with an id.
///
///     user_item settings;                              // one of the classes derived from it
///     settings.set("window.width", 640, 0);            // key, value, flags
///     settings.set("window.title = \"Free space\"", 0);  // the same as text
///     settings.get_value("Window/Width")->second.as_int32()  =>  640
///
/// It is the base of `commandline_item`, `file_item`, `enviroment_item` and `user_item`. A `config_manager`
/// holds a list of items and asks them in turn.
///
/// A program adds a source of its own by a derived class, which fills `tree_` in `load`:
///
///     class clock_item : public base_config_item {
///      public:
///       clock_item() { id_ = "clock"; }
///       using base_config_item::load;  // load(items) calls load(); without this line it is hidden
///       bool load() override {
///         set("clock.ticks", 42, 0);
///         return true;
///       }
///       void unload() override { tree_.erase(); }
///       clock_item* clone() const override {
///         return generic::abilities::create_dynamic<clock_item>(*this);
///       }
///     };
///
/// `clone` must use `create_dynamic`: it marks the copy as one that the last `rc_pointer` deletes. A copy
/// made by plain `new` is never deleted. A `config_dispatch` puts the item into the list of a manager.
///
/// An item owns its values. A copy has values of its own. Any number of threads may read an item while none
/// loads or changes it.
///
/// Edge cases: docs/edges.md#configuration
#pragma once

#include <concepts>
#include <iosfwd>
#include <list>
#include <string_view>
#include <utility>
#include <vector>

#include "orva/config/config_token.hpp"
#include "orva/config/config_tree.hpp"
#include "orva/export.hpp"
#include "orva/generic/abilities/clone_ability.hpp"
#include "orva/generic/abilities/reference_count_pointer_ability.hpp"
#include "orva/generic/varg_list.hpp"
#include "orva/memory/pointers/rc_pointer.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/types/variant.hpp"

namespace ORVA_NAMESPACE::config {

class base_config_item;

/// The sources of a manager; the first has the highest precedence.
using item_list = std::list<memory::pointers::rc_pointer<base_config_item>>;

class ORVA_API base_config_item
    : public generic::abilities::clone_ability,
      public generic::abilities::reference_count_pointer_ability<base_config_item> {
 public:
  /// Flags and value of a key, and a name with them; as in `config_tree`.
  using node_type = config_tree::node_type;
  using value_entry = config_tree::value_entry;

  /// Without id and values.
  base_config_item() = default;
  base_config_item(const base_config_item& other) = default;
  /// Copies id and values. Pointers to this item stay valid.
  base_config_item& operator=(const base_config_item& other);
  ~base_config_item() override;

  /// Adds the values of the source. A key that is there already gets the new value. Here: does nothing, true.
  virtual bool load();
  /// As `load()`, for an item that reads other items of the list while it loads. A manager calls this form.
  /// Here: calls `load()`.
  virtual bool load(const item_list& items);
  /// Writes the values to their source, where it can be written. Here: does nothing, true.
  virtual bool save();
  /// A manager calls this form. It writes nothing in any item of the library: a program that wants its file
  /// written calls `save()` of that item. Here: does nothing, true.
  virtual bool save(const item_list& items);
  /// Removes the values. Here: does nothing.
  virtual void unload();
  /// Returns a copy on the heap, made by `create_dynamic`. The caller owns it: give it to an `rc_pointer`
  /// first.
  virtual base_config_item* clone() const = 0;

  /// The name by which `config_manager::get_config_item` finds the item.
  strings::ustring8 get_id() const { return id_; }

  /// Flags and value of a key, or null. Valid until the item is unloaded, assigned or destroyed.
  const node_type* get_value(std::string_view key) const { return tree_.get_node(key); }
  /// Appends the elements of an array.
  void get_array(std::string_view key, std::vector<value_entry>& out) const { tree_.get_array(key, out); }
  /// Appends the nodes below a key, under names relative to it; see `config_tree`.
  void get_value_pair_array(std::string_view key, std::vector<value_entry>& out, bool recursive) const {
    tree_.get_value_pair_array(key, out, recursive, "");
  }

  /// Stores a value. `flags` are those of `config_tree`: `config_tree::NODE_LINK` stores a link, 0 a plain
  /// value.
  void set(const std::pair<strings::ustring8, types::variant>& entry, unsigned int flags);
  void set(std::string_view key, const types::variant& value, unsigned int flags);
  /// Stores the key and the value that `make_key_value` reads from the expression, separated by `=`.
  void set(std::string_view expression, unsigned int flags);
  /// Without flags, `set("verbose", true)` and `set("zoom", 2.5)` would store an empty text and take the
  /// value for flags. Write `set("verbose", true, 0)`.
  template <typename T>
  void set(std::string_view key, T value) requires(std::same_as<T, bool> || std::floating_point<T>) = delete;

  /// Reads key and value from text. Blanks and tabs outside quotes are dropped, and so are the quotes. The
  /// first token of type `separator` ends the key. The value is a `ustring8`, and ends with its line.
  ///
  ///     a b = c d          =>  "ab", "cd"
  ///     k = "c d" e        =>  "k", "c de"
  ///     a=b=c              =>  "a", "b=c"
  ///     flag               =>  "flag", ""
  ///     a newline b=c      =>  "ab", "c"   the value ends with its line
  std::pair<strings::ustring8, types::variant> make_key_value(std::string_view expression,
                                                              config_token::tok_types separator) const;

  /// Makes the key an array of these values: the key itself gets flags 3 and the value nil, and the elements
  /// are stored under "key.0", "key.1", ...
  ///
  /// The flags of element i are number i of `flags`. Where `flags` is shorter than `values`, but not empty,
  /// the remaining elements are stored as unsigned 32-bit numbers. Where the array was longer before, its
  /// remaining elements stay.
  void set_array(std::string_view key, const generic::varg_list& values, const generic::varg_list& flags);

  /// Writes id and values in a form for people.
  void dump(std::ostream& stream) const;

 protected:
  /// Reads the token at `position` and moves `position` to its end. Start with `position` 0 and call it until
  /// T_END. Every text has tokens.
  ///
  /// The result is the type of the token, with one exception: for `*/` it is T_FSFS, and `token.type` is
  /// T_ENDCOMMENT. T_SPACE leaves `token.text` unchanged, so that code which appends every text repeats the
  /// text before a blank. T_END changes only `token.type`.
  config_token::tok_types get_token(std::string_view source, unsigned int& position,
                                    config_token& token) const;

  strings::ustring8 id_;
  config_tree tree_;

 private:
  friend class config_manager;  // converts a key to lower case once for all items
  friend class explainer;       // lists the keys of all items

  const node_type* get_value(const _private::lower_case_key& key) const;
  /// Appends the names of all values, but none longer than `longest`.
  void append_keys(std::vector<strings::ustring8>& keys, std::size_t longest) const {
    tree_.append_keys(keys, longest);
  }
};

/// As `dump`.
ORVA_API std::ostream& operator<<(std::ostream& stream, const base_config_item& item);

}  // namespace ORVA_NAMESPACE::config
