/// The collections of names that the parsers keep while they walk a document. Not for use on their own.
///
/// Both keep the memory of some names that were taken off for the names that follow, since a document opens and
/// closes elements by the thousand. One object belongs to one thread.
#pragma once

#include <algorithm>
#include <cstddef>
#include <deque>
#include <set>
#include <string_view>

#include "orva/strings/ustring.hpp"

namespace ORVA_2_18::parser::_private {

/// A stack of names.
class name_list {
 public:
  bool empty() const noexcept { return size_ == 0; }
  std::size_t size() const noexcept { return size_; }
  /// The name that was added last. REQUIRES: not empty.
  const strings::ustring8& back() const { return names_[size_ - 1]; }

  void push_back(std::string_view name) {
    if (size_ < names_.size()) {
      names_[size_].assign(name);
    } else {
      names_.emplace_back(name);
    }
    ++size_;
  }

  /// Does nothing if the list is empty.
  void pop_back() noexcept {
    if (empty()) return;
    --size_;
    if (size_ >= kept) names_.pop_back();
  }

  void clear() noexcept {
    while (!empty()) pop_back();
  }

  bool contains(std::string_view name) const {
    const auto end = names_.begin() + static_cast<std::ptrdiff_t>(size_);
    return std::find(names_.begin(), end, name) != end;
  }

 private:
  /// As many names keep their memory; a document that nests deeper than most gives the rest back.
  static constexpr std::size_t kept = 64;

  // The first `size_` are the list; behind them stands only memory.
  std::deque<strings::ustring8> names_;
  std::size_t size_ = 0;
};

/// A set of names. The first few stand in a list that is searched from end to end, which is all that most start
/// tags need; only what comes behind them pays for a tree, so that a tag of a million attributes stays cheap.
class name_set {
 public:
  /// True if the name is new.
  bool insert(std::string_view name) {
    if (first_.contains(name)) return false;
    if (first_.size() == listed) return rest_.emplace(name).second;
    first_.push_back(name);
    return true;
  }

  void clear() noexcept {
    first_.clear();
    if (!rest_.empty()) rest_.clear();
  }

 private:
  static constexpr std::size_t listed = 16;

  name_list first_;
  std::set<strings::ustring8> rest_;
};

}  // namespace ORVA_2_18::parser::_private
