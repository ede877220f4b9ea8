/// `varg_list`: an ordered list of arguments, positional and named.
///
/// This is how a caller hands any number of typed values to a message, and how arrays travel through the
/// configuration. The order is that of adding. A name stands in a list once: a second argument of that name
/// is refused and the first one stays. Positional arguments, whose name is empty, are never refused.
///
/// The list is a plain value: a copy is independent, sharing only the immutable payloads of the values.
/// Iterators and references are those of a vector. A list that nobody changes may be read by many threads.
///
///     varg_list args(argument("name", "disk"), argument("free", 1500000));
///     args.push_back("free", 0)     =>  false: the name is taken
///     args["free"].value()          =>  1500000
///     args["used"] == nil           =>  true: a name that is not there gives `nil_argument`
///     args[1].name()                =>  "free"
///     args[2]                       =>  throws std::out_of_range("invalid vector<T> subscript")
///
/// Names are compared byte by byte in UTF-8, and looked up from the front; the first match wins. The empty
/// name finds the first positional argument. Lists are short and built for one call, so no index is kept.
#pragma once

#include <concepts>
#include <cstddef>
#include <string_view>
#include <utility>
#include <vector>

#include "orva/export.hpp"
#include "orva/generic/argument.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/types/integers.hpp"
#include "orva/types/nil.hpp"
#include "orva/types/variant.hpp"

namespace ORVA_NAMESPACE::generic {

class ORVA_API varg_list {
 public:
  using iterator = std::vector<argument>::iterator;
  using const_iterator = std::vector<argument>::const_iterator;

  /// What a lookup by name returns when there is no such argument. Lives as long as the library.
  static const argument nil_argument;

  varg_list() = default;
  /// Adds the arguments up to the first that equals nil; that one and all behind it are dropped. A name that
  /// occurred before is skipped.
  varg_list(const argument& a1, const argument& a2 = nil_argument, const argument& a3 = nil_argument,
            const argument& a4 = nil_argument, const argument& a5 = nil_argument,
            const argument& a6 = nil_argument, const argument& a7 = nil_argument,
            const argument& a8 = nil_argument, const argument& a9 = nil_argument,
            const argument& a10 = nil_argument, const argument& a11 = nil_argument,
            const argument& a12 = nil_argument, const argument& a13 = nil_argument,
            const argument& a14 = nil_argument, const argument& a15 = nil_argument,
            const argument& a16 = nil_argument, const argument& a17 = nil_argument,
            const argument& a18 = nil_argument, const argument& a19 = nil_argument,
            const argument& a20 = nil_argument, const argument& a21 = nil_argument,
            const argument& a22 = nil_argument, const argument& a23 = nil_argument,
            const argument& a24 = nil_argument, const argument& a25 = nil_argument,
            const argument& a26 = nil_argument);

  varg_list& assign(const varg_list& other) { return *this = other; }

  /// Adds at the end, a nil argument like any other. False, and nothing is changed, when the name is taken.
  /// An argument or a value that is given away with `std::move` is taken only when it is added.
  bool push_back(const argument& added);
  bool push_back(argument&& added);
  bool push_back(std::string_view name, const types::variant& value);
  bool push_back(std::string_view name, types::variant&& value);
  // A name is text: neither `nullptr`, nor a 0 that would be taken for a null pointer.
  template <_private::not_a_name T>
  bool push_back(T name, const types::variant& value) = delete;

  bool has_argument(std::string_view name) const;
  template <_private::not_a_name T>
  bool has_argument(T name) const = delete;
  /// The first argument of that name, or `end()`.
  iterator find(std::string_view name);
  const_iterator find(std::string_view name) const;
  template <_private::not_a_name T>
  iterator find(T name) const = delete;

  /// The first argument of that name, or `nil_argument`. To change a named argument use `find`, or its
  /// position.
  const argument& at(std::string_view name) const;
  const argument& operator[](std::string_view name) const { return at(name); }
  template <std::same_as<std::nullptr_t> Null>
  const argument& at(Null name) const = delete;
  template <std::same_as<std::nullptr_t> Null>
  const argument& operator[](Null name) const = delete;

  /// The argument at that position, counted from 0. At or past the end throws `std::out_of_range` with the
  /// words "invalid vector<T> subscript".
  argument& at(std::size_t position);
  const argument& at(std::size_t position) const;
  argument& operator[](std::size_t position) { return at(position); }
  const argument& operator[](std::size_t position) const { return at(position); }

  iterator begin() noexcept { return arguments_.begin(); }
  iterator end() noexcept { return arguments_.end(); }
  const_iterator begin() const noexcept { return arguments_.begin(); }
  const_iterator end() const noexcept { return arguments_.end(); }

  types::uint32 size() const noexcept { return static_cast<types::uint32>(arguments_.size()); }
  /// The same as `size`.
  types::uint32 count() const noexcept { return size(); }

  bool empty() const noexcept { return arguments_.empty(); }
  /// A list equals nil when it is empty; one that holds a nil argument does not.
  bool equal(const types::nil_t&) const noexcept { return empty(); }
  bool operator==(const types::nil_t& nothing) const noexcept { return equal(nothing); }

  /// Both remove all arguments.
  void clear() noexcept { arguments_.clear(); }
  void erase() noexcept { clear(); }

  /// Removes one argument, or those from `first` up to `last`, and returns the place of what stood behind.
  /// The end as `position`, which `find` gives for a missing name, removes nothing.
  iterator erase(const_iterator position);
  iterator erase(const_iterator first, const_iterator last) { return arguments_.erase(first, last); }
  /// Removes the first argument of that name, if there is one.
  void erase(std::string_view name);
  template <std::same_as<std::nullptr_t> Null>
  void erase(Null name) = delete;
  /// Removes the argument at that position. At or past the end there is nothing to remove, and nothing is
  /// thrown: a lookup must give an answer, a removal has none to give.
  void erase(std::size_t position);

 private:
  bool has_room_for(std::string_view name);

  std::vector<argument> arguments_;
};

}  // namespace ORVA_NAMESPACE::generic
