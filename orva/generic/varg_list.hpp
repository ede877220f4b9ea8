/// `varg_list`: an ordered list of positional and named arguments.
///
/// Messages are formatted with such a list, and arrays of the configuration are read and written through it.
///
///     varg_list args{{"name", "disk"}, {"free", 1500000}};
///     args.push_back("free", 0)     =>  false: the name is in the list
///     args["free"].value()          =>  1500000
///     args["used"] == nil           =>  true: a missing name gives `nil_argument`
///     args[1].name()                =>  "free"
///     args[2]                       =>  throws std::out_of_range("invalid vector<T> subscript")
///
/// Arguments stay in the order in which they were added. A second argument with the same name is refused, and
/// the first one stays. Positional arguments, which have an empty name, are never refused.
///
/// Names are compared byte by byte, as UTF-8. A lookup searches from the front and finds the first match. The
/// empty name finds the first positional argument. There is no index: lists are short and made for one call.
///
/// A list is a plain value. A copy is independent; it shares the payloads of the values, which never change.
/// Iterators and references are those of a vector. Any number of threads may read a list while none changes
/// it.
///
/// Edge cases: docs/edges.md#values
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

  /// The result of a lookup of a missing name. Lives as long as the library.
  static const argument nil_argument;

  varg_list() = default;
  /// Adds the arguments up to the first one that equals nil. That one and all after it are dropped. An
  /// argument whose name is already in the list is skipped. Neither is reported; `push_back` adds a nil
  /// argument like any other, and returns whether it added it.
  ///
  ///     varg_list(argument("n", 5), argument("name", user))
  ///     varg_list{{"n", 5}, {"name", user}}            the same
  ///     varg_list(argument(optional), argument(2))     empty if `optional` is: it is nil without a name
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

  /// Adds an argument at the end; a nil argument is added like any other. Returns false if the name is in the
  /// list; then nothing changes, also not an argument or a value that was passed with `std::move`.
  bool push_back(const argument& added);
  bool push_back(argument&& added);
  bool push_back(std::string_view name, const types::variant& value);
  bool push_back(std::string_view name, types::variant&& value);
  // A name is text. `nullptr`, and a 0 that would be taken for a null pointer, do not compile.
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

  /// The first argument of that name, or `nil_argument`. To change a named argument, use `find` or its
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
  /// Same as `size`.
  types::uint32 count() const noexcept { return size(); }

  [[nodiscard]] bool empty() const noexcept { return arguments_.empty(); }
  /// A list equals nil when it is empty; one that holds a nil argument does not.
  bool equal(const types::nil_t&) const noexcept { return empty(); }
  bool operator==(const types::nil_t& nothing) const noexcept { return equal(nothing); }

  /// Both remove all arguments.
  void clear() noexcept { arguments_.clear(); }
  void erase() noexcept { clear(); }

  /// Removes one argument, or those from `first` up to `last`. Returns the position after the removed ones.
  /// If `position` is the end, which `find` returns for a missing name, nothing is removed.
  iterator erase(const_iterator position);
  iterator erase(const_iterator first, const_iterator last) { return arguments_.erase(first, last); }
  /// Removes the first argument of that name, if there is one.
  void erase(std::string_view name);
  template <std::same_as<std::nullptr_t> Null>
  void erase(Null name) = delete;
  /// Removes the argument at that position. A position at or past the end removes nothing; unlike a lookup,
  /// it does not throw.
  void erase(std::size_t position);

 private:
  bool has_room_for(std::string_view name);

  std::vector<argument> arguments_;
};

}  // namespace ORVA_NAMESPACE::generic
