#include "orva/generic/varg_list.hpp"

#include <algorithm>
#include <limits>
#include <stdexcept>
#include <utility>

namespace ORVA_NAMESPACE::generic {

const argument varg_list::nil_argument;

namespace {

/// Most lists are not longer, so they are allocated once.
constexpr std::size_t usual_size = 4;

/// For const and non-const lists.
template <typename List>
auto find_name(List& list, std::string_view name) {
  return std::find_if(list.begin(), list.end(), [name](const argument& each) { return each.name() == name; });
}

/// For const and non-const lists.
template <typename Arguments>
auto& checked_at(Arguments& arguments, std::size_t position) {
  if (position >= arguments.size()) throw std::out_of_range("invalid vector<T> subscript");
  return arguments[position];
}

}  // namespace

varg_list::varg_list(const argument& a1, const argument& a2, const argument& a3, const argument& a4,
                     const argument& a5, const argument& a6, const argument& a7, const argument& a8,
                     const argument& a9, const argument& a10, const argument& a11, const argument& a12,
                     const argument& a13, const argument& a14, const argument& a15, const argument& a16,
                     const argument& a17, const argument& a18, const argument& a19, const argument& a20,
                     const argument& a21, const argument& a22, const argument& a23, const argument& a24,
                     const argument& a25, const argument& a26) {
  const argument* const given[] = {&a1,  &a2,  &a3,  &a4,  &a5,  &a6,  &a7,  &a8,  &a9,
                                   &a10, &a11, &a12, &a13, &a14, &a15, &a16, &a17, &a18,
                                   &a19, &a20, &a21, &a22, &a23, &a24, &a25, &a26};
  const auto end = std::find_if(std::begin(given), std::end(given),
                                [](const argument* each) { return *each == types::nil; });
  arguments_.reserve(static_cast<std::size_t>(end - std::begin(given)));
  std::for_each(std::begin(given), end, [this](const argument* each) { push_back(*each); });
}

/// Returns false if the name is in the list. Reserves space for the first arguments.
bool varg_list::has_room_for(std::string_view name) {
  if (!name.empty() && has_argument(name)) return false;
  if (size() == std::numeric_limits<types::uint32>::max()) throw std::length_error("vector<T> too long");
  if (arguments_.capacity() == 0) arguments_.reserve(usual_size);
  return true;
}

bool varg_list::push_back(const argument& added) {
  if (!has_room_for(added.name())) return false;
  arguments_.push_back(added);
  return true;
}

bool varg_list::push_back(argument&& added) {
  if (!has_room_for(added.name())) return false;
  arguments_.push_back(std::move(added));
  return true;
}

bool varg_list::push_back(std::string_view name, const types::variant& value) {
  if (!has_room_for(name)) return false;
  arguments_.emplace_back(name, value);
  return true;
}

bool varg_list::push_back(std::string_view name, types::variant&& value) {
  if (!has_room_for(name)) return false;
  arguments_.emplace_back(name, std::move(value));
  return true;
}

bool varg_list::has_argument(std::string_view name) const {
  return find_name(arguments_, name) != arguments_.end();
}

varg_list::iterator varg_list::find(std::string_view name) { return find_name(arguments_, name); }

varg_list::const_iterator varg_list::find(std::string_view name) const { return find_name(arguments_, name); }

const argument& varg_list::at(std::string_view name) const {
  const auto found = find_name(arguments_, name);
  return found != arguments_.end() ? *found : nil_argument;
}

argument& varg_list::at(std::size_t position) { return checked_at(arguments_, position); }

const argument& varg_list::at(std::size_t position) const { return checked_at(arguments_, position); }

varg_list::iterator varg_list::erase(const_iterator position) {
  return position != end() ? arguments_.erase(position) : end();
}

void varg_list::erase(std::string_view name) { erase(find(name)); }

void varg_list::erase(std::size_t position) {
  if (position < arguments_.size()) arguments_.erase(begin() + static_cast<std::ptrdiff_t>(position));
}

}  // namespace ORVA_NAMESPACE::generic
