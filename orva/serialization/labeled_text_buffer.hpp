/// `labeled_text_buffer`: a labeled buffer in memory, with a flat form of text to store or send.
///
///     labeled_text_buffer settings;
///     settings.add_value("a", 1);
///     settings.create_group("g")->add_value("x", 2);
///     const std::string text = settings.as_str();
///     labeled_text_buffer copy(text);                  // copy.retrieve_value("a").as_int32() == 1
///
/// The flat form is a sequence of strings as `serialize_text_buf` writes them, sorted by the bytes of the
/// labels. A value is its label and its text. A group is its label with a blank appended and the flat form of
/// the group; no label ends in a blank otherwise. The text above, with the byte 0x01 written as ~:
///
///     1~a~1~1~2~g ~8~1~x~1~2~~
///
/// Reading turns every value into a byte string; `variant` converts it when a caller asks for a number. Nil
/// becomes the empty string. A text that is not a flat form gives what can be read of it:
///
///     an empty label            ends its level; a stored one hides the labels after it
///     a length past the end     the string is cut; std::out_of_range, "invalid string position", for a value
///                               that would begin after the end, and for a last length without a separator
///     a length below 0          the string is the rest of its level, and reading goes back by the length
///     1~a~                      {a=""}: after the last string, reading starts again at the beginning
///
/// A level ends where reading returns to a label that it has read before, as it would repeat without end. All
/// reading ends when more than `max_reread` bytes have been read again.
///
/// Floating values are written with six digits, with the point of the global locale. exact_flat_form.hpp
/// writes them exactly in every locale, and reads a flat form as a whole or reports what is wrong, and where.
///
/// A buffer owns its groups. A pointer to a group is valid until the buffer is assigned or destroyed. Time,
/// memory and the length of the flat form are proportional to the content at any depth; nothing is recursive.
///
/// Edge cases: docs/edges.md#serialization
#pragma once

#include <cstddef>
#include <map>
#include <memory>
#include <string>
#include <utility>

#include "orva/export.hpp"
#include "orva/serialization/labeled_serialize_buffer.hpp"
#include "orva/types/variant.hpp"

namespace ORVA_NAMESPACE::serialization {

class ORVA_API labeled_text_buffer : public labeled_serialize_buffer {
 public:
  /// How many bytes one `assign` reads more than once, where lengths below 0 lead back. Without a limit, a
  /// text of nested groups takes time that doubles with each of them.
  static constexpr std::size_t max_reread = 0x100000;

  labeled_text_buffer() noexcept;
  /// Reads the flat form, as `assign` does.
  explicit labeled_text_buffer(const std::string& text);
  labeled_text_buffer(const labeled_text_buffer& other);
  /// Leaves the source empty.
  labeled_text_buffer(labeled_text_buffer&& other) noexcept;
  ~labeled_text_buffer() override;

  labeled_text_buffer& operator=(const labeled_text_buffer& other) { return assign(other); }
  labeled_text_buffer& operator=(labeled_text_buffer&& other) noexcept;
  using labeled_serialize_buffer::operator=;

  labeled_text_buffer& assign(const char* data, int length) override;
  labeled_text_buffer& assign(const std::string& text) override;
  labeled_text_buffer& assign(const labeled_serialize_buffer& other) override;
  /// A deep copy: values keep their types. `other` may be a group of this buffer.
  virtual labeled_text_buffer& assign(const labeled_text_buffer& other);

  /// Throws `std::length_error`, "string too long", if the text would exceed `stored_buffer::max_size` bytes.
  const std::string& as_str() const override;

  result_type add_value(const std::string& label, const types::variant& value) override;
  labeled_text_buffer* create_group(const std::string& label) override;

  bool has_label(const std::string& label) const override;
  bool has_value(const std::string& label) const override;
  bool has_group(const std::string& label) const override;
  bool is_empty() const override;

  types::variant retrieve_value(const std::string& label) override;
  /// The same for a const buffer.
  types::variant retrieve_value(const std::string& label) const;
  labeled_text_buffer* retrieve_group(const std::string& label) override;
  const labeled_text_buffer* retrieve_group(const std::string& label) const override;

  /// A label's value, which is nil if it has none, and its group, which is empty if it has none.
  struct entry;
  /// The labels with their entries, sorted by the bytes of the labels. A lookup here distinguishes a label
  /// that is absent from one without a value. Valid until the buffer is assigned or destroyed.
  ///
  ///     for (const auto& [label, stored] : settings.entries()) show(label, stored.value, stored.group);
  const std::map<std::string, entry>& entries() const;

  /// Merges `other` into this buffer, group by group: its values are added or replace those here. Nothing is
  /// removed, except that a label with neither value nor group in `other` sets the value here to nil. `other`
  /// may be this buffer or a group of it; its content before the call counts.
  ///
  ///     {a=1, b=2}  overlay  {b=3, c=4}      =>  {a=1, b=3, c=4}
  ///     {a=1}       overlay  {a=nil}         =>  {a=nil}
  ///     {a=1}       overlay  {a=nil,{x=2}}   =>  {a=1,{x=2}}
  void overlay(const labeled_text_buffer& other);

  labeled_text_buffer* create() const override;
  labeled_text_buffer* clone() const override;

 private:
  struct contents;
  /// Destroys nested groups one after another, without recursion.
  struct destroy_contents {
    void operator()(contents* root) const noexcept;
  };
  using owned_contents = std::unique_ptr<contents, destroy_contents>;

  static owned_contents copy(const contents* source);
  contents& filled();
  const entry* find(const std::string& label) const;

  /// Null until something is stored: every label has a group, and most groups are empty.
  owned_contents contents_;
};

struct labeled_text_buffer::entry {
  explicit entry(types::variant stored) : value(std::move(stored)) {}

  types::variant value;
  labeled_text_buffer group;
};

}  // namespace ORVA_NAMESPACE::serialization
