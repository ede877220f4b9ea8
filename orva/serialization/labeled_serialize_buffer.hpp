/// `labeled_serialize_buffer`: values and nested groups under labels, to be stored or sent as one text.
///
///     void load(labeled_serialize_buffer& settings) {
///       if (settings.has_value("width")) width = settings.retrieve_value("width").as_int32();
///     }
///
/// A `serialize_buffer` must be read in the order in which it was written. A labeled buffer is read by label:
/// programs of different versions read the labels that they know and keep the others. A label can have a
/// value, a group, both or neither. `labeled_text_buffer` implements this class.
///
/// A buffer belongs to one thread: `as_str` stores its result in it even if it is const. Buffers may be held
/// by `memory::pointers::rc_pointer`.
///
/// `add_value` and `create_group` remove blanks, tabs and line ends from both ends of a label. Lookups do
/// not: what was added as " a " is found as "a" only.
///
/// Edge cases: docs/edges.md#serialization
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
    label_replaced = 1,  ///< The label had a value before, which is replaced.
  };

  labeled_serialize_buffer() noexcept = default;
  labeled_serialize_buffer(const labeled_serialize_buffer&) noexcept = default;
  ~labeled_serialize_buffer() override;

  /// The same as `assign`.
  labeled_serialize_buffer& operator=(const labeled_serialize_buffer& other) { return assign(other); }
  labeled_serialize_buffer& operator=(const std::string& text) { return assign(text); }

  /// Replaces the content by that of a flat form. A negative length throws `std::length_error`, "string too
  /// long".
  virtual labeled_serialize_buffer& assign(const char* data, int length) = 0;
  virtual labeled_serialize_buffer& assign(const std::string& text) = 0;
  /// Assigns the `as_str` of the other buffer, which may be of any class.
  virtual labeled_serialize_buffer& assign(const labeled_serialize_buffer& other) = 0;

  /// The flat form. The inverse is `assign`. The reference is valid until the next call on this buffer.
  virtual const std::string& as_str() const = 0;

  /// Sets the value of the label. A group of the label stays.
  virtual result_type add_value(const std::string& label, const types::variant& value) = 0;
  /// Sets the group of the label to an empty one; a group that it had loses its content. A value of the label
  /// stays. The buffer owns the group.
  virtual labeled_serialize_buffer* create_group(const std::string& label) = 0;

  /// Whether the label exists, also without value and group.
  virtual bool has_label(const std::string& label) const = 0;
  /// Whether the label has a value that is not nil.
  virtual bool has_value(const std::string& label) const = 0;
  /// Whether the label has a group that is not empty.
  virtual bool has_group(const std::string& label) const = 0;
  /// Whether the buffer has no labels.
  virtual bool is_empty() const = 0;

  /// The value, or nil if the label is absent or has no value.
  virtual types::variant retrieve_value(const std::string& label) = 0;
  /// The group, which the buffer owns: empty if the label has no group, null if the label is absent.
  virtual labeled_serialize_buffer* retrieve_group(const std::string& label) = 0;
  virtual const labeled_serialize_buffer* retrieve_group(const std::string& label) const = 0;

  /// A new empty buffer of the same class; the caller owns it.
  virtual labeled_serialize_buffer* create() const = 0;
  /// A new deep copy; the caller owns it.
  virtual labeled_serialize_buffer* clone() const = 0;
};

}  // namespace ORVA_NAMESPACE::serialization
