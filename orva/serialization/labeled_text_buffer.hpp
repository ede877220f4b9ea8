/// `labeled_text_buffer`: the labeled buffer, a sorted map in memory with a flat form of text.
///
/// The flat form is a row of strings as `serialize_text_buf` writes them, in the order of the labels by their
/// bytes: for a value the label and its text, for a group the label with a blank behind it and the group's
/// flat form. A label never ends in a blank of its own. {a=1, g={x=2}}, with the byte 0x01 written ~:
///
///     1~a~1~1~2~g ~8~1~x~1~2~~
///
/// Reading it back, every value has become a byte string, which a `variant` hides from those who ask for a
/// number; nil has become the empty string. A text that is no flat form gives what can be read of it:
///
///     an empty label                  ends the reading; so does one that was stored, with all labels behind it
///     a text that ends in a label     std::out_of_range, "invalid string position", where a length overran the end
///     1~a~                            {a=""}: behind the last item the reader begins again, and reading ends
///
/// The buffer owns its groups: pointers to them stay valid until the buffer is assigned or destroyed, and see
/// what `create_group` does to them. Time, memory and the length of the flat form grow with the content,
/// whatever its nesting: a level adds its label and a length. Nothing here calls itself for a level.
#pragma once

#include <memory>
#include <string>

#include "orva/export.hpp"
#include "orva/serialization/labeled_serialize_buffer.hpp"
#include "orva/types/variant.hpp"

namespace ORVA_NAMESPACE::serialization {

class ORVA_API labeled_text_buffer : public labeled_serialize_buffer {
 public:
  labeled_text_buffer() noexcept;
  /// Reads the flat form, as `assign` does.
  explicit labeled_text_buffer(const std::string& text);
  labeled_text_buffer(const labeled_text_buffer& other);
  /// The source is left empty.
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

  /// Throws `std::length_error`, "string too long", where the text would pass 4294967294 bytes.
  const std::string& as_str() const override;

  result_type add_value(const std::string& label, const types::variant& value) override;
  labeled_text_buffer* create_group(const std::string& label) override;

  bool has_label(const std::string& label) const override;
  bool has_value(const std::string& label) const override;
  bool has_group(const std::string& label) const override;
  bool is_empty() const override;

  types::variant retrieve_value(const std::string& label) override;
  labeled_text_buffer* retrieve_group(const std::string& label) override;
  const labeled_text_buffer* retrieve_group(const std::string& label) const override;

  /// Lays the other over this buffer: what it holds is added or replaces what is here, group by group, and
  /// what it does not hold stays. Nothing is removed, but a label with neither value nor group takes the
  /// value away here. `other` may be this buffer, or a group of it, and is taken as it is before the call.
  ///
  ///     {a=1, b=2}  overlaid by  {b=3, c=4}      =>  {a=1, b=3, c=4}
  ///     {a=1}       overlaid by  {a=nil}         =>  {a=nil}
  ///     {a=1}       overlaid by  {a=nil,{x=2}}   =>  {a=1,{x=2}}
  void overlay(const labeled_text_buffer& other);

  labeled_text_buffer* create() const override;
  labeled_text_buffer* clone() const override;

 private:
  struct entry;
  struct contents;
  /// Takes groups apart one after the other, however deep they are nested.
  struct destroy_contents {
    void operator()(contents* root) const noexcept;
  };
  using owned_contents = std::unique_ptr<contents, destroy_contents>;
  class flat_writer;

  static owned_contents copy(const contents* source);
  contents& filled();
  const entry* find(const std::string& label) const;

  /// Null as long as nothing was stored: every label has a group, and most are empty.
  owned_contents contents_;
};

}  // namespace ORVA_NAMESPACE::serialization
