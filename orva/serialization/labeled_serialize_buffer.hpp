/// `labeled_serialize_buffer`: values under labels, and groups of them nested under labels.
///
/// Where the plain buffers rely on the order of the calls, a labeled one answers for what its reader knows
/// and keeps the rest, so that programs of different age can share it. One label can hold a value, a group,
/// both or neither. `labeled_text_buffer` is the form there is. A buffer belongs to one thread, even where it
/// is const, for `as_str` keeps its result in it. Buffers may be held by `memory::pointers::rc_pointer`.
///
/// `add_value` and `create_group` cut blanks, tabs and line ends from both ends of a label. The lookups take
/// it as it is: what was added under " a " is found under "a" only.
#pragma once

#include <string>

#include "orva/export.hpp"
#include "orva/generic/abilities/clone_ability.hpp"
#include "orva/generic/abilities/create_ability.hpp"
#include "orva/generic/abilities/reference_count_pointer_ability.hpp"
#include "orva/types/variant.hpp"

namespace ORVA_NAMESPACE::serialization {

class ORVA_API labeled_serialize_buffer
    : public generic::abilities::create_ability,
      public generic::abilities::clone_ability,
      public generic::abilities::reference_count_pointer_ability<labeled_serialize_buffer> {
 public:
  enum result_type {
    label_set = 0,       ///< The label had no value before, or nil.
    label_replaced = 1,  ///< The label had another value before.
  };

  labeled_serialize_buffer() noexcept = default;
  labeled_serialize_buffer(const labeled_serialize_buffer&) noexcept = default;
  ~labeled_serialize_buffer() override;

  /// Does what `assign` does.
  labeled_serialize_buffer& operator=(const labeled_serialize_buffer& other) { return assign(other); }
  labeled_serialize_buffer& operator=(const std::string& text) { return assign(text); }

  /// Replaces the content by what the flat form tells. A negative length throws `std::length_error`, "string
  /// too long".
  virtual labeled_serialize_buffer& assign(const char* data, int length) = 0;
  virtual labeled_serialize_buffer& assign(const std::string& text) = 0;
  /// Goes through the other's `as_str`, and so works across classes.
  virtual labeled_serialize_buffer& assign(const labeled_serialize_buffer& other) = 0;

  /// The flat form; its inverse is `assign`. Valid until the next call on this buffer.
  virtual const std::string& as_str() const = 0;

  /// Stores the value under the label, in place of the one before. A group of that label stays.
  virtual result_type add_value(const std::string& label, const types::variant& value) = 0;
  /// Makes an empty group under the label, in place of the one before, whose content goes. A value of that
  /// label stays. The buffer owns the group.
  virtual labeled_serialize_buffer* create_group(const std::string& label) = 0;

  /// Whether the label is there, with a value, a group or neither.
  virtual bool has_label(const std::string& label) const = 0;
  /// Whether the label has a value that is not nil.
  virtual bool has_value(const std::string& label) const = 0;
  /// Whether the label has a group that is not empty.
  virtual bool has_group(const std::string& label) const = 0;
  /// Whether there is no label.
  virtual bool is_empty() const = 0;

  /// The value; nil where the label is absent or has none.
  virtual types::variant retrieve_value(const std::string& label) = 0;
  /// The group; null where the label is absent, and an empty group where it has none. The buffer owns it.
  virtual labeled_serialize_buffer* retrieve_group(const std::string& label) = 0;
  virtual const labeled_serialize_buffer* retrieve_group(const std::string& label) const = 0;

  /// A new empty buffer of the same class; the caller owns it.
  virtual labeled_serialize_buffer* create() const = 0;
  /// A new copy, deep in its groups; the caller owns it.
  virtual labeled_serialize_buffer* clone() const = 0;
};

}  // namespace ORVA_NAMESPACE::serialization
