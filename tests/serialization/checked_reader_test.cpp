#include "orva/serialization/checked_reader.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <functional>
#include <limits>
#include <optional>
#include <set>
#include <sstream>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "orva/serialization/exact_flat_form.hpp"
#include "orva/serialization/labeled_text_buffer.hpp"
#include "tests/support/comma_locale.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/shown_separators.hpp"

namespace {

using namespace ORVA_NAMESPACE;
using namespace ORVA_NAMESPACE::serialization;
using form = checked_reader::form;
using orva_test::bytes;
using orva_test::comma_locale;
using types::int32;
using types::uint32;

TEST(checked_reader, documentation_example) {
  serialize_binary_buf stored;
  stored.append_string("/home");
  stored.append_uint32(1500);
  const std::string data = stored.as_str();
  checked_reader in(data, form::binary);
  const auto path = in.read_string();
  const auto size = in.read_uint32();
  EXPECT_TRUE(in.finish());
  EXPECT_EQ(path, "/home");
  EXPECT_EQ(size, 1500U);
  EXPECT_EQ(describe(in.failure()).code, "");
}

// The table of the header: data, read, failure.

template <typename Read>
read_failure failure_of(std::string_view data, form stored_as, Read read) {
  checked_reader in(data, stored_as);
  EXPECT_FALSE(read(in)) << data;
  return in.failure();
}

TEST(checked_reader, reports_what_is_wrong_and_where) {
  using reader = checked_reader;
  const auto in_binary = [](std::string_view data, auto read) {
    return failure_of(data, form::binary, read);
  };
  const auto in_text = [](std::string_view shown, auto read) {
    return failure_of(bytes(shown), form::text, read);
  };
  using enum read_error;
  EXPECT_EQ(in_binary({"\5\0", 2}, std::mem_fn(&reader::read_uint32)), (read_failure{data_ended, 0, 2}));
  EXPECT_EQ(in_binary({"\5\0\0\0a", 5}, std::mem_fn(&reader::read_string)), (read_failure{data_ended, 0, 5}));
  EXPECT_EQ(in_text("12", std::mem_fn(&reader::read_int32)), (read_failure{data_ended, 0, 2}));
  EXPECT_EQ(in_text("12abc~", std::mem_fn(&reader::read_int32)), (read_failure{bad_number, 0, 2}));
  EXPECT_EQ(in_text("300~", std::mem_fn(&reader::read_uint8)), (read_failure{out_of_range, 0, 0}));
  EXPECT_EQ(in_text("9~abc~", std::mem_fn(&reader::read_string)), (read_failure{data_ended, 0, 6}));
  EXPECT_EQ(in_text("2~abc~", std::mem_fn(&reader::read_string)), (read_failure{no_separator, 0, 4}));
  EXPECT_EQ(in_text("-1~~", std::mem_fn(&reader::read_string)), (read_failure{out_of_range, 0, 0}));
  EXPECT_EQ(in_text("18446744073709551615~a~", std::mem_fn(&reader::read_string)),
            (read_failure{data_ended, 0, 23}));
}

std::string in_words(const read_failure& failure) {
  return (std::ostringstream() << describe(failure, "a.bin")).str();
}

TEST(checked_reader, failure_is_described_in_words) {
  EXPECT_EQ(in_words({read_error::data_ended, 4, 5}),
            "a.bin: error: The data ends at offset 5, in the item that begins at offset 4. [data.ended]");
  EXPECT_EQ(in_words({read_error::data_left, 9, 9}),
            "a.bin: error: Data is left after the last item, from offset 9 on. [data.left]");
  EXPECT_EQ(in_words({read_error::bad_number, 0, 2}),
            "a.bin: error: The text at offset 0 is not a number; it is wrong at offset 2. [data.bad_number]");
  EXPECT_EQ(in_words({read_error::out_of_range, 3, 3}),
            "a.bin: error: The number at offset 3 does not fit into its type. [data.out_of_range]");
  EXPECT_EQ(in_words({read_error::no_separator, 0, 4}),
            "a.bin: error: The string that begins at offset 0 has no closing byte 0x01 at offset 4. "
            "[data.no_separator]");
  EXPECT_EQ(in_words({read_error::bad_label, 0, 0}),
            "a.bin: error: The label at offset 0 is empty, is not trimmed, or is there twice. "
            "[data.bad_label]");
}

TEST(checked_reader, the_inputs_of_the_page_of_codes_give_their_code) {
  const auto text = [](std::string_view shown, auto read) {
    const std::string data = bytes(shown);
    checked_reader in(data, form::text);
    EXPECT_FALSE(read(in)) << shown;
    return std::string(describe(in.failure()).code);
  };
  EXPECT_EQ(text("12abc~", std::mem_fn(&checked_reader::read_int32)), "data.bad_number");
  EXPECT_EQ(text("007~", std::mem_fn(&checked_reader::read_int32)), "data.bad_number");
  EXPECT_EQ(text("1,5~", std::mem_fn(&checked_reader::read_double)), "data.bad_number");
  EXPECT_EQ(text("2~abc~", std::mem_fn(&checked_reader::read_string)), "data.no_separator");
  EXPECT_EQ(text("300~", std::mem_fn(&checked_reader::read_uint8)), "data.out_of_range");
  const std::string_view two_bytes("\x05\x00", 2);
  checked_reader cut(two_bytes, form::binary);
  EXPECT_FALSE(cut.read_uint32());
  EXPECT_EQ(describe(cut.failure()).code, "data.ended");
  checked_reader left(two_bytes, form::binary);
  EXPECT_TRUE(left.read_int8() && !left.finish());
  EXPECT_EQ(describe(left.failure()).code, "data.left");
  labeled_text_buffer buffer;
  EXPECT_EQ(describe(read_exact_flat_form(bytes("0~~1~x~"), buffer)).code, "data.bad_label");
}

TEST(checked_reader, every_error_has_a_code_of_its_own) {
  std::set<std::string> codes;
  const auto last = static_cast<int>(read_error::bad_label);
  for (int error = 1; error <= last; ++error) {
    const auto found = describe({static_cast<read_error>(error), 4, 5}, "a.bin");
    EXPECT_EQ(found.level, diagnostics::severity::error);
    EXPECT_EQ(found.at, diagnostics::place());
    EXPECT_EQ(found.arguments.at("item").value().as_uint64(), 4u);
    EXPECT_EQ(found.arguments.at("offset").value().as_uint64(), 5u);
    EXPECT_TRUE(found.code.starts_with("data."));
    codes.insert(found.code);
  }
  EXPECT_EQ(codes.size(), static_cast<std::size_t>(last));
  EXPECT_EQ(describe(read_failure{}).level, diagnostics::severity::note);
}

TEST(checked_reader, first_failure_stays_and_every_later_read_is_empty) {
  for (const form stored_as : {form::binary, form::text}) {
    // 97 is an int8 of the binary form; the text form ends within the number after it.
    const std::string data = stored_as == form::binary ? "abc" : bytes("97~98");
    checked_reader in(data, stored_as);
    EXPECT_EQ(in.read_int8(), 97);
    const std::size_t at = in.position();
    EXPECT_FALSE(in.read_int32());
    const read_failure first{read_error::data_ended, at, data.size()};
    EXPECT_EQ(in.failure(), first);
    EXPECT_FALSE(in.read_int8());
    EXPECT_FALSE(in.read_int16());
    EXPECT_FALSE(in.read_int64());
    EXPECT_FALSE(in.read_uint8());
    EXPECT_FALSE(in.read_uint16());
    EXPECT_FALSE(in.read_uint32());
    EXPECT_FALSE(in.read_uint64());
    EXPECT_FALSE(in.read_float());
    EXPECT_FALSE(in.read_double());
    EXPECT_FALSE(in.read_string());
    EXPECT_FALSE(in.read_string_view());
    EXPECT_FALSE(in.read_buffer());
    EXPECT_FALSE(in.finish());
    EXPECT_FALSE(in.at_end());
    EXPECT_EQ(in.failure(), first);
    EXPECT_EQ(in.position(), at);
  }
}

TEST(checked_reader, data_that_is_left_is_a_failure) {
  checked_reader in("ab", form::binary);
  EXPECT_EQ(in.read_int8(), 'a');
  EXPECT_FALSE(in.at_end());
  EXPECT_FALSE(in.finish());
  EXPECT_EQ(in.failure(), (read_failure{read_error::data_left, 1, 1}));
}

TEST(checked_reader, empty_data_is_at_its_end_and_holds_no_item) {
  for (const form stored_as : {form::binary, form::text}) {
    checked_reader in({}, stored_as);
    EXPECT_TRUE(in.at_end());
    EXPECT_FALSE(in.read_string());
    EXPECT_EQ(in.failure(), (read_failure{read_error::data_ended, 0, 0}));
    EXPECT_TRUE(checked_reader({}, stored_as).finish());
  }
}

TEST(checked_reader, reads_the_data_of_a_buffer_from_its_beginning) {
  serialize_text_buf text;
  text.append_int8(1);
  text.append_int8(2);
  text.read_int8();
  EXPECT_EQ(checked_reader(text).read_int8(), 1);
  EXPECT_EQ(text.read_int8(), 2) << "its position has not moved";
  static_assert(!std::is_constructible_v<checked_reader, serialize_text_buf&&>, "the data would be gone");
}

TEST(checked_reader, string_view_is_a_part_of_the_data) {
  const std::string data = bytes("3~a~b~");
  checked_reader in(data, form::text);
  const auto view = in.read_string_view();
  ASSERT_TRUE(view);
  EXPECT_EQ(*view, bytes("a~b"));
  EXPECT_EQ(view->data(), data.data() + 2);
}

// Nested buffers.

TEST(checked_reader, nested_reader_counts_from_the_beginning_of_the_outermost_data) {
  serialize_text_buf inner;
  inner.append_int32(12);
  inner.append_string("x");
  serialize_binary_buf outer;
  outer.append_int8(7);
  outer.append_buffer(inner);
  outer.append_int8(8);

  checked_reader in(outer);
  EXPECT_EQ(in.read_int8(), 7);
  auto nested = in.read_buffer(form::text);
  ASSERT_TRUE(nested);
  EXPECT_EQ(nested->position(), 5U);
  EXPECT_EQ(nested->read_int32(), 12);
  EXPECT_EQ(nested->read_int32(), 1) << "the length of the string";
  EXPECT_FALSE(nested->read_int32());
  EXPECT_EQ(nested->failure(), (read_failure{read_error::bad_number, 10, 10}));
  EXPECT_EQ(in.read_int8(), 8) << "the outer reader goes on";
  EXPECT_TRUE(in.finish());
}

TEST(checked_reader, nested_reader_ends_where_its_bytes_end) {
  serialize_binary_buf inner;
  inner.append_int16(5);
  serialize_binary_buf outer;
  outer.append_buffer(inner);
  outer.append_int32(6);
  checked_reader in(outer);
  auto nested = in.read_buffer();
  ASSERT_TRUE(nested);
  EXPECT_FALSE(nested->read_int32());
  EXPECT_EQ(nested->failure(), (read_failure{read_error::data_ended, 4, 6}));
  EXPECT_EQ(in.read_int32(), 6);
}

TEST(checked_reader, empty_nested_buffer_is_a_reader_at_its_end_anywhere) {
  for (const form stored_as : {form::binary, form::text}) {
    const std::string data = stored_as == form::binary ? std::string(4, '\0') : bytes("0~~");
    checked_reader in(data, stored_as);
    auto nested = in.read_buffer();
    ASSERT_TRUE(nested);
    EXPECT_TRUE(nested->finish());
    EXPECT_TRUE(in.finish());
  }
}

// Every prefix of data of both forms.

/// Writes one item to a buffer, and reads it back: true if it is the same.
struct item {
  std::function<void(serialize_buffer&)> write;
  std::function<bool(checked_reader&)> read;
};

template <typename Value, typename Append, typename Read>
item item_of(Value value, Append append, Read read) {
  return {[=](serialize_buffer& out) { append(out, value); },
          [=](checked_reader& in) {
            const auto seen = std::invoke(read, in);
            return seen.has_value() && *seen == value;
          }};
}

template <typename Integer, typename Append, typename Read>
void add_integers(std::vector<item>& items, Append append, Read read) {
  using limits = std::numeric_limits<Integer>;
  for (const Integer value : {limits::min(), Integer{0}, Integer{1}, limits::max()}) {
    items.push_back(item_of(value, append, read));
  }
}

std::vector<item> items_of_every_type() {
  using reader = checked_reader;
  std::vector<item> items;
  add_integers<signed char>(
      items, [](auto& out, auto value) { out.append_int8(value); }, &reader::read_int8);
  add_integers<short>(
      items, [](auto& out, auto value) { out.append_int16(value); }, &reader::read_int16);
  add_integers<int32>(
      items, [](auto& out, auto value) { out.append_int32(value); }, &reader::read_int32);
  add_integers<long long>(
      items, [](auto& out, auto value) { out.append_int64(value); }, &reader::read_int64);
  add_integers<unsigned char>(
      items, [](auto& out, auto value) { out.append_uint8(value); }, &reader::read_uint8);
  add_integers<unsigned short>(
      items, [](auto& out, auto value) { out.append_uint16(value); }, &reader::read_uint16);
  add_integers<uint32>(
      items, [](auto& out, auto value) { out.append_uint32(value); }, &reader::read_uint32);
  add_integers<unsigned long long>(
      items, [](auto& out, auto value) { out.append_uint64(value); }, &reader::read_uint64);
  for (const double value : {0.0, -0.1, 1e300, 5e-324, std::numeric_limits<double>::max(),
                             std::numeric_limits<double>::infinity()}) {
    items.push_back(item_of(
        value, [](auto& out, auto number) { out.append_double(number, 17); }, &reader::read_double));
  }
  for (const float value : {0.0F, -0.1F, 1e-45F, std::numeric_limits<float>::max()}) {
    items.push_back(item_of(
        value, [](auto& out, auto number) { out.append_float(number, 9); }, &reader::read_float));
  }
  for (const std::string& value : {std::string(), std::string("text"), std::string("\0\x01~", 3)}) {
    items.push_back(item_of(
        value, [](auto& out, auto& text) { out.append_string(text); }, &reader::read_string));
    items.push_back(item_of(
        value, [](auto& out, auto& text) { out.append_buffer(serialize_binary_buf(text)); },
        &reader::read_string_view));
  }
  return items;
}

template <typename Buffer>
void expect_every_prefix_is_read_or_reported() {
  const std::vector<item> items = items_of_every_type();
  Buffer buffer;
  std::vector<std::size_t> ends;
  for (const item& each : items) {
    each.write(buffer);
    ends.push_back(buffer.as_str().size());
  }
  const std::string data = buffer.as_str();
  const form stored_as = std::is_same_v<Buffer, serialize_binary_buf> ? form::binary : form::text;
  for (std::size_t length = 0; length <= data.size(); ++length) {
    // A copy of its own, so that a read beyond it is found.
    const std::vector<char> prefix(data.begin(), data.begin() + static_cast<std::ptrdiff_t>(length));
    checked_reader in({prefix.data(), length}, stored_as);
    std::size_t begin = 0;
    for (std::size_t i = 0; i < items.size(); ++i) {
      const bool is_whole = ends[i] <= length;
      ASSERT_EQ(items[i].read(in), is_whole) << "item " << i << " of the first " << length << " bytes";
      if (!is_whole) {
        ASSERT_EQ(in.failure(), (read_failure{read_error::data_ended, begin, length}));
        break;
      }
      begin = ends[i];
    }
    ASSERT_EQ(in.finish(), length == data.size());
  }
}

TEST(checked_reader, every_prefix_of_binary_data_is_read_or_reported_as_ended) {
  expect_every_prefix_is_read_or_reported<serialize_binary_buf>();
}

TEST(checked_reader, every_prefix_of_text_data_is_read_or_reported_as_ended) {
  expect_every_prefix_is_read_or_reported<serialize_text_buf>();
}

TEST(checked_reader, every_length_of_a_binary_string_is_held_against_the_data) {
  const std::string data("\0\0\0\0abcdef", 10);
  for (std::uint64_t length = 0; length < 0x100000000; length += length < 20 ? 1 : 0x00FFFFFF) {
    std::string stored = data;
    for (std::size_t i = 0; i < 4; ++i) stored[i] = static_cast<char>(length >> (8 * i));
    checked_reader in(stored, form::binary);
    const auto text = in.read_string();
    ASSERT_EQ(text.has_value(), length <= 6) << length;
    if (text) {
      EXPECT_EQ(*text, std::string("abcdef").substr(0, static_cast<std::size_t>(length)));
    }
  }
}

TEST(checked_reader, binary_floating_values_keep_every_bit) {
  orva_test::random_engine random;
  for (int i = 0; i < 10'000; ++i) {
    const std::uint64_t bits = random.bits64();
    std::string stored(8, '\0');
    std::memcpy(stored.data(), &bits, sizeof bits);
    serialize_binary_buf buffer(stored);
    const double mute = buffer.read_double();
    const auto checked = checked_reader(stored, form::binary).read_double();
    ASSERT_TRUE(checked.has_value());
    ASSERT_TRUE(std::memcmp(&mute, &*checked, sizeof mute) == 0 || std::isnan(mute));
  }
}

// Numbers of the text form.

template <typename Integer, typename Read>
void expect_only_canonical_integers(const std::string& text, Read read) {
  // What the buffers write for the value that the text begins with.
  const long long value = std::strtoll(text.c_str(), nullptr, 10);
  const bool is_canonical = std::to_string(value) == text;
  const bool fits = value >= std::numeric_limits<Integer>::min() &&
                    (value < 0 || static_cast<unsigned long long>(value) <=
                                      static_cast<unsigned long long>(std::numeric_limits<Integer>::max()));
  const std::string data = text + '\x01';
  checked_reader in(data, form::text);
  const auto seen = std::invoke(read, in);
  ASSERT_EQ(seen.has_value(), is_canonical && fits) << text;
  if (seen) {
    ASSERT_EQ(static_cast<long long>(*seen), value) << text;
    ASSERT_TRUE(in.finish());
  } else {
    ASSERT_EQ(in.failure().error, is_canonical ? read_error::out_of_range : read_error::bad_number) << text;
    ASSERT_LT(in.failure().position, data.size());
  }
}

void expect_only_canonical(const std::string& text) {
  using reader = checked_reader;
  expect_only_canonical_integers<signed char>(text, &reader::read_int8);
  expect_only_canonical_integers<short>(text, &reader::read_int16);
  expect_only_canonical_integers<unsigned char>(text, &reader::read_uint8);
  expect_only_canonical_integers<unsigned short>(text, &reader::read_uint16);
  if (text.size() > 3) return;
  expect_only_canonical_integers<int32>(text, &reader::read_int32);
  expect_only_canonical_integers<long long>(text, &reader::read_int64);
  expect_only_canonical_integers<uint32>(text, &reader::read_uint32);
}

TEST(checked_reader, integer_is_what_the_buffers_write_and_nothing_else) {
  const std::string units = "-+0123456789x ";
  std::vector<std::string> texts{""};
  for (std::size_t i = 0; texts[i].size() < 4; ++i) {
    for (const char unit : units) texts.push_back(texts[i] + unit);
  }
  for (const std::string& text : texts) expect_only_canonical(text);
  for (long long value = -70'000; value <= 70'000; value += 7) expect_only_canonical(std::to_string(value));
}

TEST(checked_reader, integer_beside_a_limit_is_out_of_range) {
  const auto reads = [](std::string_view shown, auto read) {
    const std::string data = bytes(shown);
    checked_reader in(data, form::text);
    return std::invoke(read, in).has_value() || in.failure().error != read_error::out_of_range;
  };
  using reader = checked_reader;
  EXPECT_TRUE(reads("-2147483648~", &reader::read_int32));
  EXPECT_FALSE(reads("-2147483649~", &reader::read_int32));
  EXPECT_FALSE(reads("2147483648~", &reader::read_int32));
  EXPECT_TRUE(reads("4294967295~", &reader::read_uint32));
  EXPECT_FALSE(reads("4294967296~", &reader::read_uint32));
  EXPECT_FALSE(reads("-1~", &reader::read_uint32));
  EXPECT_TRUE(reads("-9223372036854775808~", &reader::read_int64));
  EXPECT_FALSE(reads("-9223372036854775809~", &reader::read_int64));
  EXPECT_FALSE(reads("9223372036854775808~", &reader::read_int64));
  EXPECT_TRUE(reads("18446744073709551615~", &reader::read_uint64));
  EXPECT_FALSE(reads("18446744073709551616~", &reader::read_uint64));
}

std::optional<double> read_double(std::string_view text) {
  const std::string data = std::string(text) + '\x01';
  return checked_reader(data, form::text).read_double();
}

TEST(checked_reader, floating_value_is_wholly_a_number) {
  EXPECT_EQ(read_double("3.5"), 3.5);
  EXPECT_EQ(read_double("-1e3"), -1000.0);
  EXPECT_EQ(read_double("inf"), std::numeric_limits<double>::infinity());
  EXPECT_TRUE(std::isnan(read_double("nan").value_or(0)));
  EXPECT_TRUE(std::isnan(read_double("-nan").value_or(0)));
  for (const char* const text : {"", "-", " 1", "1 ", "12abc", "1,5", "1e", "0x1p3", "."}) {
    EXPECT_EQ(read_double(text), std::nullopt) << text;
  }
  EXPECT_EQ(read_double("1e400"), std::nullopt) << "out of range";
  EXPECT_EQ(read_double("1e-400"), std::nullopt) << "would be 0";
}

TEST(checked_reader, floating_value_that_fails_is_located) {
  EXPECT_EQ(failure_of(bytes("7~1,5~"), form::text,
                       [](checked_reader& in) { return in.read_int8() && in.read_double(); }),
            (read_failure{read_error::bad_number, 2, 3}));
  EXPECT_EQ(failure_of(bytes("1e400~"), form::text, std::mem_fn(&checked_reader::read_double)),
            (read_failure{read_error::out_of_range, 0, 0}));
  EXPECT_EQ(failure_of(bytes("1e39~"), form::text, std::mem_fn(&checked_reader::read_float)),
            (read_failure{read_error::out_of_range, 0, 0}));
}

TEST(checked_reader, exact_values_pass_in_every_locale) {
  const comma_locale german;
  serialize_text_buf buffer;
  buffer.append_exact(1234.5);
  buffer.append_exact(0.1F);
  EXPECT_EQ(buffer.as_str(), bytes("1234.5~0.1~"));
  checked_reader in(buffer);
  EXPECT_EQ(in.read_double(), 1234.5);
  EXPECT_EQ(in.read_float(), 0.1F);
  EXPECT_TRUE(in.finish());
}

TEST(checked_reader, text_of_another_locale_is_reported_and_not_guessed) {
  serialize_text_buf buffer;
  {
    const comma_locale german;
    buffer.append_double(1234.5, 17);
  }
  EXPECT_EQ(buffer.as_str(), bytes("1.234,5~"));
  checked_reader in(buffer);
  EXPECT_EQ(in.read_double(), std::nullopt);
  EXPECT_EQ(in.failure(), (read_failure{read_error::bad_number, 0, 5}));
}

TEST(checked_reader, exact_text_reads_back_as_the_same_value_also_by_the_buffer) {
  orva_test::random_engine random;
  for (int i = 0; i < 20'000; ++i) {
    const std::uint64_t bits = random.bits64();
    double number;
    std::memcpy(&number, &bits, sizeof number);
    if (!std::isfinite(number)) continue;
    serialize_text_buf buffer;
    buffer.append_exact(number);
    ASSERT_EQ(checked_reader(buffer).read_double(), number);
    if (std::isnormal(number)) {
      ASSERT_EQ(buffer.read_double(), number);
    }
  }
}

}  // namespace
