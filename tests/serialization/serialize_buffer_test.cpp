// Properties of both forms, tested through their base class.
#include "orva/serialization/serialize_buffer.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <type_traits>
#include <variant>
#include <vector>

#include "orva/memory/pointers/rc_pointer.hpp"
#include "orva/serialization/serialize_binary_buf.hpp"
#include "orva/serialization/serialize_text_buf.hpp"
#include "tests/support/random_engine.hpp"

namespace {

using namespace ORVA_NAMESPACE;
using namespace ORVA_NAMESPACE::serialization;
using memory::pointers::rc_pointer;
using types::int32;
using types::uint32;

/// The bytes of a nested buffer, as a type of its own.
struct nested {
  std::string bytes;
  bool operator==(const nested& other) const { return bytes == other.bytes; }
};
using value = std::variant<signed char, short, int32, long long, unsigned char, unsigned short, uint32,
                           unsigned long long, float, double, std::string, nested>;

struct append_to {
  serialize_buffer& buffer;

  void operator()(signed char number) const { buffer.append_int8(number); }
  void operator()(short number) const { buffer.append_int16(number); }
  void operator()(int32 number) const { buffer.append_int32(number); }
  void operator()(long long number) const { buffer.append_int64(number); }
  void operator()(unsigned char number) const { buffer.append_uint8(number); }
  void operator()(unsigned short number) const { buffer.append_uint16(number); }
  void operator()(uint32 number) const { buffer.append_uint32(number); }
  void operator()(unsigned long long number) const { buffer.append_uint64(number); }
  void operator()(float number) const { buffer.append_float(number, 9); }
  void operator()(double number) const { buffer.append_double(number, 17); }
  void operator()(const std::string& text) const { buffer.append_string(text); }
  void operator()(const nested& other) const { buffer.append_buffer(serialize_binary_buf(other.bytes)); }
};

/// Reads a value of the type of its argument.
struct read_from {
  serialize_buffer& buffer;

  value operator()(signed char) const { return buffer.read_int8(); }
  value operator()(short) const { return buffer.read_int16(); }
  value operator()(int32) const { return buffer.read_int32(); }
  value operator()(long long) const { return buffer.read_int64(); }
  value operator()(unsigned char) const { return buffer.read_uint8(); }
  value operator()(unsigned short) const { return buffer.read_uint16(); }
  value operator()(uint32) const { return buffer.read_uint32(); }
  value operator()(unsigned long long) const { return buffer.read_uint64(); }
  value operator()(float) const { return buffer.read_float(); }
  value operator()(double) const { return buffer.read_double(); }
  value operator()(const std::string&) const { return buffer.read_string(); }
  value operator()(const nested&) const {
    const rc_pointer<serialize_buffer> other(buffer.read_buffer());
    return nested{other ? other->as_str() : ""};
  }
};

/// Random values of every type; half of the integers are limits.
class value_source {
 public:
  value next() { return make(below(std::variant_size_v<value>)); }
  bool flip() { return random_() % 2 == 0; }

 private:
  std::size_t below(std::size_t limit) { return static_cast<std::size_t>(random_() % limit); }

  template <typename Integer>
  Integer integer() {
    switch (random_() % 4) {
      case 0:
        return std::numeric_limits<Integer>::min();
      case 1:
        return std::numeric_limits<Integer>::max();
      default:
        return static_cast<Integer>(random_.bits64() >> random_() % 64);
    }
  }

  template <typename Floating, typename Bits>
  Floating floating() {
    for (;;) {
      const auto bits = static_cast<Bits>(random_.bits64());
      Floating number;
      std::memcpy(&number, &bits, sizeof number);
      // The text form does not keep the bits of NaN, and reads the smallest numbers as 0.
      if (std::isnormal(number)) return number;
    }
  }

  std::string bytes() {
    std::string text(below(5) == 0 ? below(300) : below(6), '\0');
    for (char& byte : text) byte = static_cast<char>(random_() % 3 == 0 ? random_() % 3 : random_());
    return text;
  }

  value make(std::size_t type) {
    switch (type) {
      case 0:
        return integer<signed char>();
      case 1:
        return integer<short>();
      case 2:
        return integer<int32>();
      case 3:
        return integer<long long>();
      case 4:
        return integer<unsigned char>();
      case 5:
        return integer<unsigned short>();
      case 6:
        return integer<uint32>();
      case 7:
        return integer<unsigned long long>();
      case 8:
        return floating<float, std::uint32_t>();
      case 9:
        return floating<double, std::uint64_t>();
      case 10:
        return bytes();
      default:
        return nested{bytes()};
    }
  }

  orva_test::random_engine random_;
};

template <typename Buffer>
class serialize_buffer_forms : public testing::Test {
 protected:
  Buffer form;
  serialize_buffer& shared = form;
};
using forms = testing::Types<serialize_binary_buf, serialize_text_buf>;
TYPED_TEST_SUITE(serialize_buffer_forms, forms);

TYPED_TEST(serialize_buffer_forms, empty_buffer_reads_as_zeros) {
  const auto fresh = [] { return TypeParam(); };
  EXPECT_TRUE(fresh().at_end());
  EXPECT_EQ(fresh().read_int8(), 0);
  EXPECT_EQ(fresh().read_int16(), 0);
  EXPECT_EQ(fresh().read_int32(), 0);
  EXPECT_EQ(fresh().read_int64(), 0);
  EXPECT_EQ(fresh().read_uint8(), 0);
  EXPECT_EQ(fresh().read_uint16(), 0);
  EXPECT_EQ(fresh().read_uint32(), 0U);
  EXPECT_EQ(fresh().read_uint64(), 0U);
  EXPECT_EQ(fresh().read_float(), 0.0F);
  EXPECT_EQ(fresh().read_double(), 0.0);
  EXPECT_EQ(fresh().read_string(), "");
  EXPECT_EQ(fresh().as_str(), "");
}

TYPED_TEST(serialize_buffer_forms, what_is_written_is_read_in_every_interleaving) {
  value_source source;
  for (int run = 0; run < 300; ++run) {
    TypeParam buffer;
    std::vector<value> written;
    std::size_t read = 0;
    for (int step = 0; step < 60; ++step) {
      ASSERT_EQ(buffer.at_end(), read == written.size());
      if (read < written.size() && source.flip()) {
        ASSERT_EQ(std::visit(read_from{buffer}, written[read]), written[read]) << "value " << read;
        ++read;
      } else {
        written.push_back(source.next());
        std::visit(append_to{buffer}, written.back());
      }
    }
  }
}

TYPED_TEST(serialize_buffer_forms, reset_reads_the_same_values_again) {
  value_source source;
  std::vector<value> written;
  for (int i = 0; i < 100; ++i) std::visit(append_to{this->shared}, written.emplace_back(source.next()));
  for (int round = 0; round < 3; ++round) {
    for (const value& expected : written) ASSERT_EQ(std::visit(read_from{this->shared}, expected), expected);
    EXPECT_TRUE(this->shared.at_end());
    this->shared.reset_read();
  }
}

TYPED_TEST(serialize_buffer_forms, const_buffer_is_read) {
  this->shared.append_int32(5);
  const serialize_buffer& reader = this->shared;
  EXPECT_EQ(reader.read_int32(), 5);
  reader.reset_read();
  EXPECT_EQ(reader.read_int32(), 5);
}

TYPED_TEST(serialize_buffer_forms, text_with_zero_bytes_and_separators_survives) {
  const std::string text("\0\x01\0zero\x01\0", 9);
  this->shared.append_string(text);
  this->shared.append_string("next");
  EXPECT_EQ(this->shared.read_string(), text);
  EXPECT_EQ(this->shared.read_string(), "next");
}

TYPED_TEST(serialize_buffer_forms, large_text_survives) {
  const std::string text(10'000'000, 'x');
  this->shared.append_string(text);
  this->shared.append_int8(1);
  EXPECT_TRUE(this->shared.read_string() == text);
  EXPECT_EQ(this->shared.read_int8(), 1);
}

TYPED_TEST(serialize_buffer_forms, buffer_may_be_appended_to_itself) {
  this->shared.append_int32(7);
  this->shared.append_buffer(this->shared);
  EXPECT_EQ(this->shared.read_int32(), 7);
  const rc_pointer<serialize_buffer> inner(this->shared.read_buffer());
  ASSERT_TRUE(inner);
  EXPECT_EQ(inner->read_int32(), 7);
  EXPECT_TRUE(inner->at_end());
  EXPECT_TRUE(this->shared.at_end());
}

TYPED_TEST(serialize_buffer_forms, own_data_may_be_appended_as_text) {
  this->shared.append_string(std::string(200, 'x'));
  const std::string before = this->shared.as_str();
  this->shared.append_string(this->shared.as_str());
  this->shared.read_string();
  EXPECT_EQ(this->shared.read_string(), before);
}

TYPED_TEST(serialize_buffer_forms, buffers_nest_to_any_depth) {
  TypeParam innermost;
  innermost.append_int16(42);
  rc_pointer<serialize_buffer> nest(innermost.clone());
  for (int depth = 0; depth < 50; ++depth) {
    rc_pointer<serialize_buffer> outer(nest->create());
    outer->append_buffer(*nest);
    nest = outer;
  }
  for (int depth = 0; depth < 50; ++depth) nest = nest->read_buffer();
  EXPECT_EQ(nest->read_int16(), 42);
}

TYPED_TEST(serialize_buffer_forms, empty_nested_buffer_in_the_middle_is_an_empty_buffer) {
  this->shared.append_buffer(TypeParam());
  this->shared.append_int8(1);
  const rc_pointer<serialize_buffer> inner(this->shared.read_buffer());
  ASSERT_TRUE(inner);
  EXPECT_TRUE(inner->at_end());
  EXPECT_EQ(this->shared.read_int8(), 1);
}

TYPED_TEST(serialize_buffer_forms, nested_buffer_has_the_same_class_and_belongs_to_the_caller) {
  this->shared.append_buffer(TypeParam("x"));
  this->shared.append_int8(0);
  const rc_pointer<serialize_buffer> inner(this->shared.read_buffer());
  EXPECT_NE(dynamic_cast<TypeParam*>(inner.get()), nullptr);
  EXPECT_TRUE(inner->is_created_dynamic());
}

TYPED_TEST(serialize_buffer_forms, create_gives_an_empty_buffer_of_the_class) {
  this->shared.append_int32(5);
  const rc_pointer<serialize_buffer> made(this->shared.create());
  EXPECT_NE(dynamic_cast<TypeParam*>(made.get()), nullptr);
  EXPECT_TRUE(made->is_created_dynamic());
  EXPECT_EQ(made->as_str(), "");
}

TYPED_TEST(serialize_buffer_forms, clone_continues_at_the_position_of_its_source) {
  this->shared.append_int32(1);
  this->shared.append_int32(2);
  this->shared.read_int32();
  const rc_pointer<serialize_buffer> copy(this->shared.clone());
  EXPECT_TRUE(copy->is_created_dynamic());
  EXPECT_EQ(copy->read_int32(), 2);
  EXPECT_TRUE(copy->at_end());
  EXPECT_FALSE(this->shared.at_end()) << "the source has not moved";
  EXPECT_EQ(this->shared.read_int32(), 2);
}

TYPED_TEST(serialize_buffer_forms, copies_have_the_position_too) {
  this->form.append_int8(1);
  this->form.append_int8(2);
  this->form.read_int8();
  TypeParam copy(this->form);
  EXPECT_EQ(copy.read_int8(), 2);
  TypeParam assigned("other");
  assigned = this->form;
  EXPECT_EQ(assigned.read_int8(), 2);
  EXPECT_EQ(assigned.as_str(), this->form.as_str());
}

TYPED_TEST(serialize_buffer_forms, assignment_copies_neither_count_nor_mark) {
  const rc_pointer<TypeParam> counted(this->form.clone());
  const rc_pointer<TypeParam> second(counted);
  *counted = this->form;
  EXPECT_TRUE(counted->is_created_dynamic());
  TypeParam local;
  local = *counted;
  EXPECT_FALSE(local.is_created_dynamic());
}

TYPED_TEST(serialize_buffer_forms, buffer_made_from_another_or_from_bytes_starts_at_the_first) {
  this->form.append_int8(1);
  this->form.append_int8(2);
  this->form.read_int8();
  const serialize_buffer& other = this->form;
  EXPECT_EQ(TypeParam(other).read_int8(), 1);
  EXPECT_EQ(TypeParam(other.as_str()).read_int8(), 1);
}

TYPED_TEST(serialize_buffer_forms, assign_and_its_operators_leave_the_position) {
  TypeParam other;
  other.append_int8(7);
  other.append_int8(8);
  const auto expect_second = [&](auto assign) {
    TypeParam buffer(other);
    buffer.reset_read();
    buffer.read_int8();
    assign(buffer);
    EXPECT_EQ(buffer.as_str(), other.as_str());
    EXPECT_EQ(buffer.read_int8(), 8);
  };
  const serialize_buffer& base = other;
  expect_second([&](serialize_buffer& buffer) { buffer.assign(base); });
  expect_second([&](serialize_buffer& buffer) { buffer.assign(base.as_str()); });
  expect_second([&](serialize_buffer& buffer) {
    buffer.assign(base.as_str().data(), static_cast<int>(base.as_str().size()));
  });
  expect_second([&](serialize_buffer& buffer) { EXPECT_EQ(&(buffer = base), &buffer); });
  expect_second([&](serialize_buffer& buffer) { EXPECT_EQ(&(buffer = base.as_str()), &buffer); });
  expect_second([&](TypeParam& buffer) { buffer = base.as_str(); });
  expect_second([&](TypeParam& buffer) { buffer = base; });
}

TYPED_TEST(serialize_buffer_forms, new_data_may_be_at_its_end_at_once) {
  this->shared.append_string("0123456789");
  this->shared.read_string();
  this->shared.assign("short");
  EXPECT_TRUE(this->shared.at_end());
  this->shared.reset_read();
  EXPECT_FALSE(this->shared.at_end());
}

TYPED_TEST(serialize_buffer_forms, last_counted_pointer_destroys_a_buffer_that_was_read) {
  this->shared.append_buffer(TypeParam("nested"));
  this->shared.append_int8(0);
  rc_pointer<serialize_buffer> first(this->shared.read_buffer());
  rc_pointer<serialize_buffer> second = first;
  first = nullptr;
  EXPECT_EQ(second->as_str(), "nested");
}

TEST(serialize_buffer, bytes_pass_from_form_to_form_unchanged) {
  serialize_text_buf text;
  text.append_int32(-5);
  serialize_binary_buf binary;
  binary.append_buffer(text);
  binary.append_int32(9);
  serialize_text_buf outer;
  outer.append_buffer(binary);

  const rc_pointer<serialize_buffer> inner(outer.read_buffer());
  EXPECT_EQ(inner->as_str(), binary.as_str());
  serialize_binary_buf binary_again(*inner);
  const rc_pointer<serialize_buffer> innermost(binary_again.read_buffer());
  EXPECT_EQ(serialize_text_buf(*innermost).read_int32(), -5);
  EXPECT_EQ(binary_again.read_int32(), 9);
}

TEST(serialize_buffer, binary_buffer_of_a_text_buffer_holds_its_text) {
  serialize_text_buf text;
  text.append_int32(-5);
  text.read_int32();
  const serialize_binary_buf binary(text);
  EXPECT_EQ(binary.as_str(), "-5\x01");
  EXPECT_EQ(binary.read_int8(), '-');
}

TEST(serialize_buffer, has_its_abilities) {
  using namespace generic::abilities;
  static_assert(std::is_abstract_v<serialize_buffer>);
  static_assert(std::is_base_of_v<create_ability, serialize_buffer>);
  static_assert(std::is_base_of_v<clone_ability, serialize_buffer>);
  static_assert(std::is_base_of_v<reference_count_pointer_ability<serialize_buffer>, serialize_buffer>);
}

}  // namespace
