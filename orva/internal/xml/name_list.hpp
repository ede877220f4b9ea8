/// The collections of names that the parsers keep while they walk a document. Internal: installed because a
/// parser has them as members.
///
/// A name is a string of its own or, where the document outlives the collections, a view into it. Both
/// collections reuse the memory of names that were removed, since a document opens and closes elements by the
/// thousand. One object belongs to one thread.
#pragma once

#include <algorithm>
#include <array>
#include <cstddef>
#include <deque>
#include <set>
#include <string_view>

#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::internal::xml {

/// A stack of names.
template <typename Name>
class basic_name_list {
 public:
  bool empty() const noexcept { return size_ == 0; }
  std::size_t size() const noexcept { return size_; }
  /// The name that was added last. REQUIRES: not empty.
  const Name& back() const { return names_[size_ - 1]; }

  void push_back(std::string_view name) {
    if (size_ < names_.size()) {
      names_[size_] = name;
    } else {
      names_.emplace_back(name);
    }
    ++size_;
  }

  /// Does nothing if the list is empty.
  void pop_back() noexcept {
    if (empty()) return;
    --size_;
    if (size_ >= reused_names) names_.pop_back();
  }

  void clear() noexcept {
    while (!empty()) pop_back();
  }

 private:
  /// So many names keep their memory. A document that nests deeper than most gives the rest back.
  static constexpr std::size_t reused_names = 64;

  // The first `size_` are the list; the others are memory to reuse.
  std::deque<Name> names_;
  std::size_t size_ = 0;
};

/// A set of names. The first few are in an array, which is searched from end to end; most start tags need no
/// more. The others are in a tree, so that a tag of a million attributes stays cheap.
template <typename Name>
class basic_name_set {
 public:
  /// True if the name is new.
  bool insert(std::string_view name) {
    const auto end = first_.begin() + static_cast<std::ptrdiff_t>(listed_);
    if (std::find(first_.begin(), end, name) != end) return false;
    if (end == first_.end()) return rest_.emplace(name).second;
    *end = name;
    ++listed_;
    return true;
  }

  void clear() noexcept {
    listed_ = 0;
    if (!rest_.empty()) rest_.clear();
  }

 private:
  // The first `listed_` are in the set; the others are memory to reuse.
  std::array<Name, 16> first_;
  std::size_t listed_ = 0;
  std::set<Name> rest_;
};

using name_list = basic_name_list<strings::ustring8>;
using name_set = basic_name_set<strings::ustring8>;

}  // namespace ORVA_NAMESPACE::internal::xml
