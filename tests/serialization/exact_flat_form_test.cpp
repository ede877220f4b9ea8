#include "orva/serialization/exact_flat_form.hpp"

#include <gtest/gtest.h>

#include <cmath>
#include <cstdint>
#include <cstring>
#include <limits>
#include <string>
#include <string_view>
#include <vector>

#include "orva/types/nil.hpp"
#include "tests/support/comma_locale.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/shown_separators.hpp"
#include "tests/support/wide_text.hpp"

namespace {

using namespace ORVA_NAMESPACE;
using namespace ORVA_NAMESPACE::serialization;
using orva_test::comma_locale;
using types::nil;
using types::variant;
using buffer = labeled_text_buffer;
using orva_test::bytes;
using orva_test::shown;

TEST(exact_flat_form, documentation_example) {
  buffer circle;
  circle.add_value("radius", 0.1);
  const std::string text = write_exact_flat_form(circle);
  EXPECT_EQ(shown(text), "6~radius~3~0.1~");
  buffer copy;
  EXPECT_EQ(read_exact_flat_form(text, copy).error, read_error::none);
  EXPECT_EQ(copy.retrieve_value("radius").try_as<double>(), 0.1);
}

TEST(exact_flat_form, floating_values_are_written_exactly) {
  const auto written = [](const variant& value) {
    buffer labeled;
    labeled.add_value("a", value);
    return shown(write_exact_flat_form(labeled));
  };
  EXPECT_EQ(written(3.141592653589793), "1~a~17~3.141592653589793~");
  EXPECT_EQ(written(1e300), "1~a~6~1e+300~");
  EXPECT_EQ(written(0.1F), "1~a~3~0.1~");
  EXPECT_EQ(written(0.5L), "1~a~3~0.5~");
  EXPECT_EQ(written(-std::numeric_limits<double>::infinity()), "1~a~4~-inf~");
  EXPECT_EQ(written(std::numeric_limits<double>::quiet_NaN()), "1~a~3~nan~");
}

TEST(exact_flat_form, other_values_and_groups_are_written_as_by_as_str) {
  buffer labeled;
  labeled.add_value("a", 1);
  labeled.add_value("b", true);
  labeled.add_value("c", variant(nil));
  labeled.add_value("d", "text");
  labeled.add_value("e", orva_test::utf16(u"wide"));
  labeled.create_group("d")->create_group("inner")->add_value("x", 5);
  labeled.create_group("empty");
  EXPECT_EQ(shown(write_exact_flat_form(labeled)), shown(labeled.as_str()));
  EXPECT_EQ(write_exact_flat_form(buffer()), "");
}

TEST(exact_flat_form, writing_leaves_as_str_as_it_was) {
  buffer labeled;
  labeled.add_value("pi", 3.141592653589793);
  const std::string before = labeled.as_str();
  EXPECT_NE(write_exact_flat_form(labeled), before);
  EXPECT_EQ(shown(labeled.as_str()), "2~pi~7~3.14159~");
}

TEST(exact_flat_form, does_not_follow_the_global_locale) {
  buffer labeled;
  labeled.add_value("a", 1234.5);
  const std::string expected = write_exact_flat_form(labeled);
  const comma_locale german;
  EXPECT_EQ(write_exact_flat_form(labeled), expected);
  EXPECT_NE(labeled.as_str(), expected) << "as_str does";
  buffer copy;
  EXPECT_EQ(read_exact_flat_form(expected, copy).error, read_error::none);
  EXPECT_EQ(copy.retrieve_value("a").try_as<double>(), 1234.5);
}

TEST(exact_flat_form, every_double_comes_back_also_through_the_mute_reader) {
  orva_test::random_engine random;
  for (int i = 0; i < 5'000; ++i) {
    const std::uint64_t bits = random.bits64();
    double number;
    std::memcpy(&number, &bits, sizeof number);
    if (!std::isnormal(number)) continue;
    buffer labeled;
    labeled.add_value("x", number);
    const std::string text = write_exact_flat_form(labeled);
    buffer copy;
    ASSERT_EQ(read_exact_flat_form(text, copy).error, read_error::none);
    ASSERT_EQ(copy.retrieve_value("x").try_as<double>(), number);
    ASSERT_EQ(buffer(text).retrieve_value("x").as_double(), number);
  }
}

TEST(exact_flat_form, exact_number_is_text_that_as_str_writes_too) {
  buffer labeled;
  labeled.add_value("old", 1);
  EXPECT_EQ(add_exact(labeled, "pi", 3.141592653589793), buffer::label_set);
  EXPECT_EQ(add_exact(labeled, "old", 0.1F), buffer::label_replaced);
  EXPECT_EQ(shown(labeled.as_str()), "3~old~3~0.1~2~pi~17~3.141592653589793~");
  EXPECT_EQ(labeled.retrieve_value("pi").as_double(), 3.141592653589793);
  const comma_locale german;
  EXPECT_EQ(shown(labeled.as_str()), "3~old~3~0.1~2~pi~17~3.141592653589793~");
  EXPECT_EQ(labeled.retrieve_value("pi").try_as<double>(), 3.141592653589793);
}

// Reading.

read_failure failure_of(std::string_view shown_text) {
  buffer labeled;
  labeled.add_value("kept", 1);
  const read_failure failure = read_exact_flat_form(bytes(shown_text), labeled);
  EXPECT_EQ(labeled.has_label("kept"), failure.error != read_error::none) << shown_text;
  return failure;
}

constexpr std::string_view sample = "1~a~1~1~2~g ~24~2~h ~8~1~y~1~3~~1~x~1~2~~1~z~0~~";

TEST(exact_flat_form, reads_what_as_str_writes) {
  buffer labeled;
  EXPECT_EQ(read_exact_flat_form(bytes(sample), labeled).error, read_error::none);
  EXPECT_EQ(shown(labeled.as_str()), sample);
  EXPECT_EQ(read_exact_flat_form("", labeled).error, read_error::none);
  EXPECT_TRUE(labeled.is_empty());
}

TEST(exact_flat_form, text_may_belong_to_the_buffer) {
  buffer labeled(bytes(sample));
  EXPECT_EQ(read_exact_flat_form(labeled.as_str(), labeled).error, read_error::none);
  EXPECT_EQ(shown(labeled.as_str()), sample);
}

TEST(exact_flat_form, truncation_between_labels_is_read_and_every_other_one_is_a_failure) {
  buffer whole(bytes(sample));
  for (std::size_t length = 0; length < sample.size(); ++length) {
    const std::string text = bytes(sample.substr(0, length));
    buffer labeled;
    const bool is_read = read_exact_flat_form(text, labeled).error == read_error::none;
    EXPECT_EQ(is_read, length == 0 || length == 8 || length == 41) << length;
    if (is_read) {
      EXPECT_EQ(labeled.as_str(), text);
    }
  }
}

TEST(exact_flat_form, reports_what_is_wrong_and_where) {
  using enum read_error;
  EXPECT_EQ(failure_of("1~a~"), (read_failure{data_ended, 4, 4})) << "no value";
  EXPECT_EQ(failure_of("1~a~5~x~"), (read_failure{data_ended, 4, 8}));
  EXPECT_EQ(failure_of("1~a~-1~x~"), (read_failure{out_of_range, 4, 4}));
  EXPECT_EQ(failure_of("0~~1~x~"), (read_failure{bad_label, 0, 0})) << "empty";
  EXPECT_EQ(failure_of("1~ ~0~~"), (read_failure{bad_label, 0, 0})) << "empty";
  EXPECT_EQ(failure_of("2~ a~1~x~"), (read_failure{bad_label, 0, 0})) << "not trimmed";
  EXPECT_EQ(failure_of("2~a\t~1~x~"), (read_failure{bad_label, 0, 0})) << "not trimmed";
  EXPECT_EQ(failure_of("3~a  ~0~~"), (read_failure{bad_label, 0, 0})) << "not trimmed";
  EXPECT_EQ(failure_of("1~a~1~x~1~a~1~y~"), (read_failure{bad_label, 8, 8})) << "two values";
  EXPECT_EQ(failure_of("2~g ~8~1~a~1~x~~2~g ~8~1~a~1~x~~"), (read_failure{bad_label, 16, 16}))
      << "two groups";
  EXPECT_EQ(failure_of("2~g ~7~1~a~9~x~~"), (read_failure{data_ended, 11, 14})) << "within a group";
  EXPECT_EQ(failure_of("x"), (read_failure{data_ended, 0, 1}));
  EXPECT_EQ(failure_of("x~"), (read_failure{bad_number, 0, 0}));
}

TEST(exact_flat_form, label_may_have_a_value_and_a_group_in_any_order) {
  EXPECT_EQ(failure_of("2~g ~8~1~a~1~x~~1~g~1~y~"), read_failure());
  EXPECT_EQ(failure_of("1~g~1~y~2~g ~8~1~a~1~x~~"), read_failure());
  EXPECT_EQ(failure_of("1~b~1~y~1~a~1~x~"), read_failure());
}

TEST(exact_flat_form, depth_costs_no_stack) {
  buffer labeled;
  buffer* innermost = &labeled;
  for (int depth = 0; depth < 20'000; ++depth) innermost = innermost->create_group("g");
  innermost->add_value("x", 0.1);
  const std::string text = write_exact_flat_form(labeled);
  buffer copy;
  EXPECT_EQ(read_exact_flat_form(text, copy).error, read_error::none);
  EXPECT_TRUE(write_exact_flat_form(copy) == text);
}

TEST(exact_flat_form, damaged_text_is_reported_or_reads_as_another_whole_form) {
  const std::string text = bytes(sample);
  for (std::size_t at = 0; at < text.size(); ++at) {
    for (int value = 0; value < 256; ++value) {
      std::string damaged = text;
      damaged[at] = static_cast<char>(value);
      buffer labeled;
      const read_failure failure = read_exact_flat_form(damaged, labeled);
      ASSERT_LE(failure.position, damaged.size());
      ASSERT_LE(failure.item, failure.position);
      if (failure.error == read_error::none) {
        ASSERT_EQ(labeled.as_str().size(), damaged.size()) << shown(damaged);
      }
    }
  }
}

}  // namespace
