#include "orva/parser/internal/node_queue.hpp"

#include <algorithm>
#include <iterator>
#include <utility>

namespace ORVA_NAMESPACE::parser::_private {

void node_queue::open_element(std::string_view name, error_type status, bool available, types::uint32 line) {
  node& made = nodes_.emplace_back();
  made.status_ = status;
  made.available_ = available;
  made.line_ = line;
  made.id_ = next_id_++;
  made.parent_id_ = ids_.back();
  made.tag_ = name;
  ids_.push_back(made.id_);
  open_.push_back({made.tag_, std::prev(nodes_.end())});
}

void node_queue::close_element() {
  if (node* const closed = innermost_node()) {
    closed->status_ = xml_stream_parser::no_error;
    closed->available_ = true;
  }
  forget_element();
  pop_id();
}

void node_queue::add_end(std::string_view name, error_type status, types::uint32 line, types::uint32 id) {
  node& made = nodes_.emplace_back();
  made.status_ = status;
  made.available_ = true;
  made.line_ = line;
  made.id_ = id;
  made.tag_ = name;
  pop_id();
}

/// An open level that was closed by /> has left fewer elements than open levels, so that there may be none.
void node_queue::forget_element() noexcept {
  if (!open_.empty()) open_.pop_back();
  open_without_node_ = std::min(open_without_node_, open_.size());
}

/// The 0 at the bottom stays, for the same reason.
void node_queue::pop_id() noexcept {
  if (ids_.size() > 1) ids_.pop_back();
}

node_queue::node* node_queue::innermost_node() noexcept {
  return open_.size() > open_without_node_ ? &*open_.back().position : nullptr;
}

void node_queue::add_attribute(std::string_view name, strings::ustring8&& value) {
  if (node* const owner = innermost_node()) owner->attribs_.emplace_back(name, std::move(value));
}

void node_queue::set_text(strings::ustring8&& text) {
  if (node* const owner = innermost_node()) owner->data_ = std::move(text);
}

void node_queue::give_up(std::size_t elements_to_keep) {
  while (open_.size() > elements_to_keep) open_.pop_back();
  open_without_node_ = open_.size();
  nodes_.clear();
  counted_ = 0;
  ids_.assign(1, 0);
}

bool node_queue::ends_with_an_open_level() const noexcept {
  return !nodes_.empty() && nodes_.back().available_ &&
         nodes_.back().status_ == xml_stream_parser::incomplete;
}

bool node_queue::has_less_than(std::size_t count) const noexcept {
  for (const node& each : nodes_) {
    if (count == 0 || !each.available_) break;
    --count;
  }
  return count > 0;
}

types::uint32 node_queue::size() const noexcept {
  auto next = counted_ == 0 ? nodes_.begin() : std::next(last_counted_);
  for (; next != nodes_.end() && next->available_; ++next) {
    last_counted_ = next;
    ++counted_;
  }
  return counted_;
}

node_queue::node& node_queue::front() {
  if (has_less_than(1)) throw EmptyNodeQueue();
  return nodes_.front();
}

node_queue::node_list node_queue::take_first() {
  if (nodes_.empty()) throw EmptyNodeQueue();
  node_list taken;
  taken.splice(taken.begin(), nodes_, nodes_.begin());
  if (counted_ > 0) --counted_;
  return taken;
}

void node_queue::let_go(const node& taken) noexcept {
  if (open_without_node_ == open_.size()) return;
  if (&*open_[open_without_node_].position == &taken) ++open_without_node_;
}

void node_queue::put_back(node_list& taken) noexcept {
  nodes_.splice(nodes_.begin(), taken);
  counted_ = 0;
}

}  // namespace ORVA_NAMESPACE::parser::_private
