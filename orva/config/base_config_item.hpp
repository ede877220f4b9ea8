/// `base_config_item`: one source of configuration, a named tree of keys that can be loaded, changed, saved
/// and emptied.
///
/// The base of `commandline_item`, `file_item`, `enviroment_item` and `user_item`, and of sources that a
/// program makes for itself: such a class fills `tree_` in `load`. A `config_manager` holds a list of items
/// and asks them in turn.
///
/// An item owns its values, and a copy has values of its own. Items are counted objects: those in a list live
/// on the heap, made by `clone`. Many threads may read an item that nobody changes or loads.
#pragma once

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
  /// Takes over id and values. Who points at this item goes on pointing at it.
  base_config_item& operator=(const base_config_item& other);
  ~base_config_item() override;

  /// Adds what the source says to the values; of a key that is set twice the later value stays. True.
  virtual bool load();
  /// The same for an item that needs to ask others of the list while it loads.
  virtual bool load(const item_list& items);
  /// Writes the values to where they came from, if the source can be written. True.
  virtual bool save();
  /// What a manager's `save` calls: true, and nothing is written by any item. A program that wants its file
  /// written asks the item itself.
  virtual bool save(const item_list& items);
  /// Removes the values; here nothing.
  virtual void unload();
  /// A copy on the heap, which is the caller's: hand it to an `rc_pointer`.
  virtual base_config_item* clone() const = 0;

  /// The name by which `config_manager::get_config_item` finds the item.
  strings::ustring8 get_id() const { return id_; }

  /// Flags and value of a key, or null. Valid until the key's item is unloaded, assigned or gone.
  const node_type* get_value(std::string_view key) const { return tree_.get_node(key); }
  /// Appends the elements of an array.
  void get_array(std::string_view key, std::vector<value_entry>& out) const { tree_.get_array(key, out); }
  /// Appends what stands below a key, under names relative to it; see `config_tree`.
  void get_value_pair_array(std::string_view key, std::vector<value_entry>& out, bool recursive) const {
    tree_.get_value_pair_array(key, out, recursive, "");
  }

  /// Stores a value; `flags` are those of `config_tree`, so that `config_tree::NODE_LINK` stores a link.
  void set(const std::pair<strings::ustring8, types::variant>& entry, unsigned int flags);
  void set(std::string_view key, const types::variant& value, unsigned int flags);
  /// Stores what `make_key_value` reads from the expression with `=` between key and value.
  void set(std::string_view expression, unsigned int flags);

  /// Reads key and value from text. Blanks and tabs go, unless they stand in quotes; the quotes themselves
  /// go. The first token of type `separator` separates, and the value, a `ustring8`, ends with its line.
  ///
  ///     a b = c d          =>  "ab", "cd"
  ///     k = "c d" e        =>  "k", "c de"
  ///     a=b=c              =>  "a", "b=c"
  ///     flag               =>  "flag", ""
  ///     a\nb=c\nd          =>  "ab", "c"
  std::pair<strings::ustring8, types::variant> make_key_value(std::string_view expression,
                                                              config_token::tok_types separator) const;

  /// Makes the key an array of these values: the key itself gets flags 3 and nil, and "key.0", "key.1", ...
  /// the values.
  ///
  /// Flags of elements come from the numbers in `flags`. Where that list is not empty but shorter, the
  /// elements behind its end are stored as unsigned 32-bit numbers. Elements of a longer array that was there
  /// before stay.
  void set_array(std::string_view key, const generic::varg_list& values, const generic::varg_list& flags);

  /// Writes id and values for people to read.
  void dump(std::ostream& stream) const;

 protected:
  /// Cuts the token at `position` out of `source` and moves `position` behind it. Start with `position` 0 and
  /// go on to T_END; no text is refused.
  ///
  /// The result is the type of the token, but for `*/`: there `token.type` is T_ENDCOMMENT and the result
  /// T_FSFS. T_SPACE leaves the token's text as it was before, T_END all of it but the type, so that who
  /// appends texts without a look at the type appends the one before a blank again.
  config_token::tok_types get_token(std::string_view source, unsigned int& position,
                                    config_token& token) const;

  strings::ustring8 id_;
  config_tree tree_;

 private:
  friend class config_manager;  // lowers a key once for all items

  const node_type* get_value(const _private::lowered_key& key) const;
};

/// As `dump`.
ORVA_API std::ostream& operator<<(std::ostream& stream, const base_config_item& item);

}  // namespace ORVA_NAMESPACE::config
