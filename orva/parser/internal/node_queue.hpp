/// `node_queue`: the nodes that wait for the caller of `xml_stream_parser`, and the elements that are open.
///
/// Internal. A node enters the queue with its start tag, in the order of the document, and can be taken when
/// it is available. The node of an open level is available before its element is closed; attributes and text
/// that come after it was taken are dropped.
///
///     node_queue queue;
///     queue.open_element("a", xml_stream_parser::incomplete, false, line);
///     queue.add_attribute("x", "1");
///     queue.close_element();                      // now it can be taken
#pragma once

#include <cstddef>
#include <deque>
#include <list>
#include <string_view>

#include "orva/parser/xml_stream_parser.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::parser::_private {

class node_queue {
 public:
  using node = xml_stream_parser::node;
  using error_type = xml_stream_parser::error_type;
  using node_list = std::list<node>;

  // The document.

  void open_element(std::string_view name, error_type status, bool available, types::uint32 line);
  /// Closes the innermost element, whose node is complete now. REQUIRES: an element is open.
  void close_element();
  /// Adds a node for the end of an open level; the innermost element is no parent any more. `id` is the
  /// number of open levels.
  void add_end(std::string_view name, error_type status, types::uint32 line, types::uint32 id);
  /// Forgets the innermost element without a change to its node. Does nothing if none is open.
  void forget_element() noexcept;
  /// To the node of the innermost element. REQUIRES: an element is open.
  void add_attribute(std::string_view name, strings::ustring8&& value);
  void set_text(strings::ustring8&& text);

  std::size_t open_elements() const noexcept { return open_.size(); }
  /// REQUIRES: an element is open.
  const strings::ustring8& innermost_name() const { return open_.back().name; }

  /// Drops all nodes, and all elements but so many of the outermost ones.
  void give_up(std::size_t elements_to_keep);

  // The caller.

  /// Whether a hundred nodes wait and two of them can be taken. Only one large record makes the queue longer.
  bool is_full() const noexcept { return nodes_.size() >= enough && !has_less_than(2); }
  /// Whether more than a hundred wait.
  bool is_overfull() const noexcept { return nodes_.size() > enough && !has_less_than(2); }
  /// Whether the last node is an open level, which can be taken, though attributes and text may follow.
  bool ends_with_an_open_level() const noexcept;
  /// Whether fewer than `count` nodes can be taken.
  bool has_less_than(std::size_t count) const noexcept;
  /// How many nodes can be taken one after the other.
  types::uint32 size() const noexcept;
  /// Throws `EmptyNodeQueue` if it cannot be taken.
  node& front();

  /// Takes the first node out, available or not, as a list of one. What is read for it goes on going to it
  /// until `let_go`. Throws `EmptyNodeQueue` if there is none.
  node_list take_first();
  /// What is read for this node from now on is dropped.
  void let_go(const node& taken) noexcept;
  /// Undoes `take_first`.
  void put_back(node_list& taken) noexcept;

 private:
  static constexpr std::size_t enough = 100;

  struct open_element_entry {
    strings::ustring8 name;
    node_list::iterator position;
  };

  node* innermost_node() noexcept;
  void pop_id() noexcept;

  node_list nodes_;
  // The first nodes that can be taken, as far as they were counted: a caller may ask for the size at each
  // pop.
  mutable types::uint32 counted_ = 0;
  mutable node_list::const_iterator last_counted_;
  std::deque<open_element_entry> open_;
  // Nodes leave in the order in which their elements were opened. So the open elements whose nodes were let
  // go are the first ones; their positions are not valid.
  std::size_t open_without_node_ = 0;
  types::uint32 next_id_ = 1;
  std::deque<types::uint32> ids_{0};
};

}  // namespace ORVA_NAMESPACE::parser::_private
