/// `config_tree`: the keys and values of one source of configuration.
///
/// A tree of named nodes, each with flags and a value. A key is a path of names, with `.`, `\` or `/` between
/// them, in any case: `A.b/C\d` and `a/B.c.D` are one node. Bytes from 128 on are lowered by the C runtime's
/// current locale, one by one. An empty name is a name like any other, but for one at the very end behind a
/// separator: "a." is "a".
///
/// The tree owns its nodes; a copy shares none with its source. What is handed out by pointer stays valid
/// until `erase`, an assignment or the end of the tree. Many threads may read a tree that nobody changes. No
/// operation fails, and none takes stack in proportion to the depth of the tree.
#pragma once

#include <functional>
#include <iosfwd>
#include <map>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "orva/export.hpp"
#include "orva/generic/abilities/clone_ability.hpp"
#include "orva/generic/abilities/reference_count_pointer_ability.hpp"
#include "orva/memory/pointers/rc_pointer.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/types/variant.hpp"

namespace ORVA_NAMESPACE::generic {
class varg_list;
}

namespace ORVA_NAMESPACE::config {

namespace _private {
class config_file_reader;
class lowered_key;
}  // namespace _private

class ORVA_API config_tree : public generic::abilities::clone_ability,
                             public generic::abilities::reference_count_pointer_ability<config_tree> {
 public:
  /// The flags of a node. The other bits are the caller's: they are kept as they come.
  enum node_flags : unsigned int {
    NODE_VALUE_SET = 1,  // the node was given a value; `set_node` always sets it
    NODE_ARRAY = 2,      // the node heads an array, whose elements are its children "0", "1", "2", ...
    NODE_LINK = 4        // the value is the name of another key; only `config_manager` follows it
  };

  /// Flags and value. A node that is there only because a longer key passes through it has flags 0 and the
  /// value true.
  using node_type = std::pair<unsigned int, types::variant>;
  /// A name with flags and value.
  using value_entry = std::pair<strings::ustring8, node_type>;

  config_tree();
  config_tree(const config_tree& other);
  /// The flags, the value and the children of `other` in place of its own. Who points at this tree goes on
  /// pointing at it.
  config_tree& operator=(const config_tree& other);
  ~config_tree() override;

  /// A copy on the heap, which is the caller's: hand it to an `rc_pointer`.
  config_tree* clone() const;

  /// Removes all children. The flags and the value of the tree's own node stay.
  void erase();

  /// Stores value and flags, with NODE_VALUE_SET, in place of the node's earlier ones, and makes the nodes on
  /// the way that are not there. Children stay: a value set over an array leaves the elements where they are.
  ///
  /// Inverse: `get_node`.
  void set_node(std::string_view key, const types::variant& value, unsigned int flags);

  /// The node of that key, or null.
  ///
  ///     set_node("A.b", 5, 0)
  ///     get_node("a.B")   =>  flags 1, value 5
  ///     get_node("a")     =>  flags 0, value true
  ///     get_node("")      =>  null
  const node_type* get_node(std::string_view key) const;

  /// Appends the elements "0", "1", "2", ... of an array up to the first that is missing, each under that
  /// name. Nothing for a node without NODE_ARRAY.
  void get_array(std::string_view key, std::vector<value_entry>& out) const;

  /// Appends the children of `key`, or of this tree where the key is empty, in the order of their names'
  /// bytes: "10" comes before "2". With `recursive` each child is followed by all that is below it. Nodes
  /// without a value are among them.
  ///
  ///     a.b, a.c.d, e    key ""   recursive  =>  "a", "a.b", "a.c", "a.c.d", "e"
  ///     a.b, a.c.d, e    key "a"  recursive  =>  "b", "c", "c.d"        names are relative to the key
  ///
  /// A `prefix` stands before each name, with a dot between; it is left out where a key is given.
  void get_value_pair_array(std::string_view key, std::vector<value_entry>& out, bool recursive,
                            std::string_view prefix) const;

  /// Writes the tree for people to read, each node indented by `depth` and its own depth.
  void dump(std::ostream& stream, int depth) const;

 protected:
  /// Cuts `key` at its first separator, which is dropped: what is before it, in lower case, and what is
  /// behind it, as it is.
  void parse_string(std::string_view key, strings::ustring8& head, strings::ustring8& tail) const;

 private:
  friend class base_config_item;              // sets arrays, and looks up keys that are lowered already
  friend class _private::config_file_reader;  // sets the keys of a section without walking to it for each

  using child_pointer = memory::pointers::rc_pointer<config_tree>;
  using child_map = std::map<std::string, child_pointer, std::less<>>;
  using detached_nodes = std::multimap<std::string, child_pointer, std::less<>>;

  const config_tree* find(const _private::lowered_key& key) const;
  const config_tree* find(std::string_view key) const;
  const config_tree* find_child(std::string_view lowered_name) const;

  config_tree& child(std::string_view lowered_name);
  /// The node of `key`, made where it is not there.
  config_tree& path(std::string_view key);
  /// The node that `key` and a separator lead to: `path(key)`, except that an empty name at the end counts.
  config_tree& branch(std::string_view key);

  void store(const types::variant& value, unsigned int flags);
  /// The elements of an array, as children of this node.
  void store_elements(const generic::varg_list& values, const generic::varg_list& flags);

  void copy_children(const config_tree& source);
  static void detach_branches(child_map& from, detached_nodes& to);

  child_map children_;
  node_type node_;
};

/// `dump` with depth 0.
ORVA_API std::ostream& operator<<(std::ostream& stream, const config_tree& tree);

}  // namespace ORVA_NAMESPACE::config
