/// `config_tree`: the keys and values of one source of configuration.
///
///     config_tree tree;
///     tree.set_node("Window.Width", 640, 0);
///     tree.get_node("window/width")->second.as_int32()  =>  640
///     tree.get_node("window")->first                    =>  0, a node without a value of its own
///     tree.get_node("height")                           =>  null
///
/// A tree of named nodes, each with flags and a value. A key is a path of names, separated by `.`, `\` or
/// `/`. Case is ignored: `A.b/C\d` and `a/B.c.D` are one node. Bytes from 128 on are converted to lower case
/// by the C runtime's current locale, one by one. An empty name is a name like any other, except after a
/// separator at the very end: "a." is "a".
///
/// The tree owns its nodes; a copy shares none with its source. A pointer to a node is valid until `erase`,
/// an assignment to the tree or its destruction. Any number of threads may read a tree while none changes it.
/// No operation fails, and the stack that is used does not depend on the depth of the tree.
///
/// Edge cases: docs/edges.md#configuration
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
class lower_case_key;
}  // namespace _private

class ORVA_API config_tree : public generic::abilities::clone_ability,
                             public generic::abilities::reference_count_pointer_ability<config_tree> {
 public:
  /// The flags of a node. The other bits are free for the caller; they are stored unchanged.
  enum node_flags : unsigned int {
    NODE_VALUE_SET = 1,  // the node has a value; `set_node` always sets this flag
    NODE_ARRAY = 2,      // the node is an array; its elements are the children "0", "1", "2", ...
    NODE_LINK = 4        // the value is the name of another key; only `config_manager` follows it
  };

  /// Flags and value. A node that exists only as part of a longer key has flags 0 and the value true.
  using node_type = std::pair<unsigned int, types::variant>;
  /// A name with flags and value.
  using value_entry = std::pair<strings::ustring8, node_type>;

  config_tree();
  config_tree(const config_tree& other);
  /// Copies flags, value and children. Pointers to this tree stay valid, those to its nodes do not.
  config_tree& operator=(const config_tree& other);
  ~config_tree() override;

  /// Returns a copy on the heap. The caller owns it: give it to an `rc_pointer`.
  config_tree* clone() const;

  /// Removes all children. The flags and the value of the tree's own node stay.
  void erase();

  /// Replaces value and flags of the node, and adds NODE_VALUE_SET to the flags. Makes the nodes that are
  /// missing. Children stay: a value set over an array does not remove the elements.
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

  /// Appends the children of `key`, or of this tree where the key is empty. They are sorted by the bytes of
  /// their names: "10" comes before "2". With `recursive` each child is followed by the nodes below it. Nodes
  /// without a value are included.
  ///
  ///     a.b, a.c.d, e    key ""   recursive  =>  "a", "a.b", "a.c", "a.c.d", "e"
  ///     a.b, a.c.d, e    key "a"  recursive  =>  "b", "c", "c.d"        names are relative to the key
  ///
  /// `prefix` and a dot are put in front of each name, but only where the key is empty.
  void get_value_pair_array(std::string_view key, std::vector<value_entry>& out, bool recursive,
                            std::string_view prefix) const;

  /// Writes the tree in a form for people. Each node is indented by `depth` plus its own depth.
  void dump(std::ostream& stream, int depth) const;

 protected:
  /// Splits `key` at its first separator: `head` is the text before it in lower case, `tail` the text after
  /// it, unchanged.
  void parse_string(std::string_view key, strings::ustring8& head, strings::ustring8& tail) const;

 private:
  friend class base_config_item;              // sets arrays, and looks up keys that are in lower case already
  friend class _private::config_file_reader;  // finds the node of a section once for all its keys

  using child_pointer = memory::pointers::rc_pointer<config_tree>;
  using child_map = std::map<std::string, child_pointer, std::less<>>;
  using detached_nodes = std::multimap<std::string, child_pointer, std::less<>>;

  const config_tree* find(const _private::lower_case_key& key) const;
  const config_tree* find(std::string_view key) const;
  const config_tree* find_child(std::string_view lower_case_name) const;

  // These make what is missing.
  config_tree& ensure_child(std::string_view lower_case_name);
  /// The node of `key`.
  config_tree& ensure_node(std::string_view key);
  /// The node whose children have the keys `key` + "." + name. It is the node of `key`, unless `key` ends in
  /// a separator: "a." + "." + name has an empty name in the middle.
  config_tree& ensure_parent(std::string_view key);

  void store(const types::variant& value, unsigned int flags);
  /// Stores the elements of an array as children of this node.
  void store_elements(const generic::varg_list& values, const generic::varg_list& flags);

  /// Calls `visit` with the name and the node of each child, and with those below it if `visit` returned
  /// true. The names begin with `name` and a dot, if that is not empty.
  template <typename Visit>
  void visit_below(strings::ustring8 name, Visit visit) const;
  /// Appends the names of the nodes below that have a value, but none longer than `longest`.
  void append_keys(std::vector<strings::ustring8>& keys, std::size_t longest) const;

  void copy_children(const config_tree& source);
  static void detach_branches(child_map& from, detached_nodes& to);

  child_map children_;
  node_type node_;
};

/// `dump` with depth 0.
ORVA_API std::ostream& operator<<(std::ostream& stream, const config_tree& tree);

}  // namespace ORVA_NAMESPACE::config
