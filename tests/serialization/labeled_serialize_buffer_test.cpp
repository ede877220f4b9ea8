// Properties of labeled buffers of any class, and assignment between classes.
#include "orva/serialization/labeled_serialize_buffer.hpp"

#include <gtest/gtest.h>

#include <string>
#include <type_traits>

#include "orva/memory/pointers/rc_pointer.hpp"
#include "orva/serialization/labeled_text_buffer.hpp"

namespace {

using namespace ORVA_NAMESPACE;
using namespace ORVA_NAMESPACE::serialization;
using memory::pointers::rc_pointer;

/// A minimal class: it holds a flat form and has no labels.
class opaque_buffer final : public labeled_serialize_buffer {
 public:
  explicit opaque_buffer(std::string text = {}) : text_(std::move(text)) {}
  using labeled_serialize_buffer::operator=;

  opaque_buffer& assign(const char* data, int length) override {
    return assign(std::string(data, static_cast<std::size_t>(length)));
  }
  opaque_buffer& assign(const std::string& text) override {
    text_ = text;
    return *this;
  }
  opaque_buffer& assign(const labeled_serialize_buffer& other) override { return assign(other.as_str()); }
  const std::string& as_str() const override { return text_; }
  result_type add_value(const std::string&, const types::variant&) override { return label_set; }
  opaque_buffer* create_group(const std::string&) override { return nullptr; }
  bool has_label(const std::string&) const override { return false; }
  bool has_value(const std::string&) const override { return false; }
  bool has_group(const std::string&) const override { return false; }
  bool is_empty() const override { return text_.empty(); }
  types::variant retrieve_value(const std::string&) override { return {}; }
  opaque_buffer* retrieve_group(const std::string&) override { return nullptr; }
  const opaque_buffer* retrieve_group(const std::string&) const override { return nullptr; }
  opaque_buffer* create() const override { return generic::abilities::create_dynamic<opaque_buffer>(); }
  opaque_buffer* clone() const override { return generic::abilities::create_dynamic<opaque_buffer>(*this); }

 private:
  std::string text_;
};

TEST(labeled_serialize_buffer, results_have_their_numbers) {
  static_assert(labeled_serialize_buffer::label_set == 0);
  static_assert(labeled_serialize_buffer::label_replaced == 1);
}

TEST(labeled_serialize_buffer, has_its_abilities) {
  using namespace generic::abilities;
  using buffer = labeled_serialize_buffer;
  static_assert(std::is_abstract_v<buffer>);
  static_assert(std::is_base_of_v<create_ability, buffer> && std::is_base_of_v<clone_ability, buffer>);
  static_assert(std::is_base_of_v<reference_count_pointer_ability<buffer>, buffer>);
}

TEST(labeled_serialize_buffer, content_passes_between_classes_as_text) {
  labeled_text_buffer text;
  text.add_value("a", 5);
  opaque_buffer opaque;
  opaque.assign(text);
  labeled_text_buffer again;
  again.assign(opaque);
  EXPECT_EQ(again.retrieve_value("a").as_int32(), 5);
  EXPECT_TRUE(again.retrieve_value("a").type() == typeid(std::string));
}

TEST(labeled_serialize_buffer, operators_of_the_base_assign) {
  labeled_text_buffer source;
  source.add_value("a", 5);
  labeled_text_buffer target;
  target.add_value("old", 1);
  labeled_serialize_buffer& base = target;
  EXPECT_EQ(&(base = source), &base);
  EXPECT_EQ(target.retrieve_value("a").as_int32(), 5);
  EXPECT_TRUE(target.retrieve_value("a").type() == typeid(std::string)) << "assigned by the flat form";
  EXPECT_FALSE(target.has_label("old"));
  base = std::string(
      "1\x01"
      "b\x01"
      "1\x01"
      "2\x01");
  EXPECT_EQ(target.retrieve_value("b").as_int32(), 2);
  target = opaque_buffer(
      "1\x01"
      "c\x01"
      "1\x01"
      "3\x01");
  EXPECT_EQ(target.retrieve_value("c").as_int32(), 3);
}

TEST(labeled_serialize_buffer, base_assigned_to_itself_turns_values_into_text) {
  labeled_text_buffer buffer;
  buffer.add_value("a", 5);
  labeled_serialize_buffer& base = buffer;
  base.assign(base);
  EXPECT_EQ(buffer.retrieve_value("a").as_int32(), 5);
  EXPECT_TRUE(buffer.retrieve_value("a").type() == typeid(std::string));
}

TEST(labeled_serialize_buffer, group_assigned_by_its_flat_form_to_the_buffer_that_holds_it) {
  labeled_text_buffer buffer;
  buffer.create_group("g")->add_value("x", 5);
  const labeled_serialize_buffer& group = *buffer.retrieve_group("g");
  buffer.assign(group);
  EXPECT_EQ(buffer.retrieve_value("x").as_int32(), 5);
}

TEST(labeled_serialize_buffer, create_and_clone_return_objects_for_counted_pointers) {
  labeled_text_buffer text;
  text.add_value("a", 5);
  text.create_group("g")->add_value("x", 6);
  const labeled_serialize_buffer& base = text;
  const rc_pointer<labeled_serialize_buffer> made(base.create());
  EXPECT_TRUE(made->is_created_dynamic());
  EXPECT_TRUE(made->is_empty());
  const rc_pointer<labeled_serialize_buffer> copy(base.clone());
  EXPECT_TRUE(copy->is_created_dynamic());
  text.retrieve_group("g")->add_value("x", 7);
  EXPECT_EQ(copy->retrieve_group("g")->retrieve_value("x").as_int32(), 6) << "deep";
}

}  // namespace
