#include "orva/config/setting.hpp"

#include <gtest/gtest.h>

#include <chrono>
#include <limits>

#include "orva/exceptions/exception.hpp"

namespace {

using namespace ORVA_NAMESPACE::config;
using namespace std::chrono_literals;
using ORVA_NAMESPACE::exceptions::invalid_argument_value;

constexpr double infinity = std::numeric_limits<double>::infinity();

TEST(setting_types, have_kind_and_range) {
  EXPECT_EQ(flag().kind(), value_kind::flag);
  EXPECT_EQ(integer().integers(), (value_range<std::int64_t>{-2147483648, 2147483647}));
  EXPECT_EQ(integer<std::int64_t>().integers(), value_range<std::int64_t>());
  EXPECT_EQ(integer_between(1, 64).integers(), (value_range<std::int64_t>{1, 64}));
  EXPECT_EQ(number_between(0, 1).numbers(), (value_range<double>{0, 1}));
  EXPECT_EQ(number().numbers(), value_range<double>());
  EXPECT_EQ(one_of({"fast", "small"}).choices().size(), 2u);
  EXPECT_EQ(file_path().kind(), value_kind::path);
  EXPECT_EQ(byte_size().kind(), value_kind::size);
  EXPECT_EQ(duration().kind(), value_kind::duration);
  EXPECT_EQ(list_of(text()).kind(), value_kind::text);
  EXPECT_TRUE(list_of(text()).is_list());
  EXPECT_FALSE(text().is_list());
}

TEST(setting_types, differ_by_range_words_and_list) {
  EXPECT_EQ(integer_between(1, 2), integer_between(1, 2));
  EXPECT_NE(integer_between(1, 2), integer_between(1, 3));
  EXPECT_NE(one_of({"a"}), one_of({"b"}));
  EXPECT_NE(text(), list_of(text()));
  EXPECT_NE(text(), file_path());
}

TEST(setting_types, that_take_no_value_throw) {
  EXPECT_THROW(static_cast<void>(integer_between(2, 1)), invalid_argument_value);
  EXPECT_THROW(static_cast<void>(number_between(2, 1)), invalid_argument_value);
  EXPECT_THROW(static_cast<void>(number_between(0, infinity)), invalid_argument_value);
  EXPECT_THROW(static_cast<void>(number_between(infinity - infinity, 1)), invalid_argument_value);
  EXPECT_THROW(static_cast<void>(one_of({})), invalid_argument_value);
  EXPECT_THROW(static_cast<void>(one_of({"a", ""})), invalid_argument_value);
  EXPECT_THROW(static_cast<void>(one_of({"a", "b", "a"})), invalid_argument_value);
  EXPECT_THROW(static_cast<void>(one_of({"a,b"})), invalid_argument_value);
  EXPECT_THROW(static_cast<void>(list_of(flag())), invalid_argument_value);
  EXPECT_THROW(static_cast<void>(list_of(list_of(text()))), invalid_argument_value);
}

TEST(a_setting, has_what_was_described) {
  const setting threads = setting("Threads", integer_between(1, 64))
                              .by_default(4)
                              .option('t', "jobs")
                              .environment("VIEWER_THREADS")
                              .group("Speed")
                              .value_name("COUNT")
                              .help("Number of threads.")
                              .required();
  EXPECT_EQ(threads.key(), "Threads");
  EXPECT_EQ(threads.type(), integer_between(1, 64));
  EXPECT_EQ(threads.short_option(), 't');
  EXPECT_EQ(threads.long_option(), "jobs");
  EXPECT_EQ(threads.environment(), "VIEWER_THREADS");
  EXPECT_EQ(threads.group(), "Speed");
  EXPECT_EQ(threads.value_name(), "COUNT");
  EXPECT_EQ(threads.help(), "Number of threads.");
  EXPECT_TRUE(threads.is_required());
  EXPECT_FALSE(threads.is_secret());
  EXPECT_TRUE(threads.successor().empty());
  EXPECT_TRUE(threads.has_default());
  EXPECT_EQ(threads.default_text(), "4");
}

TEST(a_setting, has_the_long_option_of_its_key_and_nothing_else) {
  const setting width("window.width", integer());
  EXPECT_EQ(width.long_option(), "window.width");
  EXPECT_EQ(width.short_option(), 0);
  EXPECT_EQ(width.environment(), "");
  EXPECT_FALSE(width.has_default());
  EXPECT_FALSE(width.is_required());
  EXPECT_EQ(setting("password", text()).no_option().long_option(), "");
}

TEST(a_setting, shows_its_default_as_a_user_would_write_it) {
  EXPECT_EQ(setting("k", flag()).by_default(true).default_text(), "true");
  EXPECT_EQ(setting("k", flag()).by_default("off").default_text(), "false");
  EXPECT_EQ(setting("k", integer()).by_default("0x10").default_text(), "16");
  EXPECT_EQ(setting("k", integer()).by_default("010").default_text(), "10");
  EXPECT_EQ(setting("k", integer()).by_default(3.0).default_text(), "3");
  EXPECT_EQ(setting("k", number()).by_default(2.5).default_text(), "2.5");
  EXPECT_EQ(setting("k", number()).by_default(2).default_text(), "2");
  EXPECT_EQ(setting("k", byte_size()).by_default("10240 KiB").default_text(), "10 MiB");
  EXPECT_EQ(setting("k", byte_size()).by_default(1536).default_text(), "1536 B");
  EXPECT_EQ(setting("k", duration()).by_default(90s).default_text(), "1m30s");
  EXPECT_EQ(setting("k", duration()).by_default(100ms).default_text(), "100ms");
  EXPECT_EQ(setting("k", duration()).by_default(30).default_text(), "30s");
  EXPECT_EQ(setting("k", duration()).by_default("1h30m").default_text(), "1h30m");
  EXPECT_EQ(setting("k", text()).by_default("").default_text(), "");
  EXPECT_EQ(setting("k", list_of(integer())).by_default(1, 2, 3).default_text(), "1, 2, 3");
  EXPECT_EQ(setting("k", list_of(text())).by_default().default_text(), "");
  EXPECT_EQ(setting("k", text()).by_default("hunter2").secret().default_text(), "");
}

TEST(a_setting, gives_each_value_of_its_default) {
  EXPECT_EQ(setting("k", list_of(byte_size())).by_default(1024, "1.5 KiB").default_texts(),
            (std::vector<ORVA_NAMESPACE::strings::ustring8>{"1 KiB", "1536 B"}));
  EXPECT_EQ(setting("k", text()).by_default("hunter2").secret().default_texts().at(0), "hunter2");
  EXPECT_TRUE(setting("k", text()).default_texts().empty());
}

TEST(a_default, that_the_type_does_not_take_throws) {
  EXPECT_THROW(setting("k", integer_between(1, 64)).by_default(65), invalid_argument_value);
  EXPECT_THROW(setting("k", integer()).by_default(2.5), invalid_argument_value);
  EXPECT_THROW(setting("k", integer()).by_default("two"), invalid_argument_value);
  EXPECT_THROW(setting("k", integer()).by_default("99999999999999999999"), invalid_argument_value);
  EXPECT_THROW(setting("k", number_between(0, 1)).by_default(1.5), invalid_argument_value);
  EXPECT_THROW(setting("k", number()).by_default(infinity), invalid_argument_value);
  EXPECT_THROW(setting("k", number()).by_default("nan"), invalid_argument_value);
  EXPECT_THROW(setting("k", flag()).by_default("perhaps"), invalid_argument_value);
  EXPECT_THROW(setting("k", one_of({"a", "b"})).by_default("c"), invalid_argument_value);
  EXPECT_THROW(setting("k", file_path()).by_default(""), invalid_argument_value);
  EXPECT_THROW(setting("k", byte_size()).by_default(-1), invalid_argument_value);
  EXPECT_THROW(setting("k", duration()).by_default(-1s), invalid_argument_value);
  EXPECT_THROW(setting("k", duration()).by_default(infinity), invalid_argument_value);
  EXPECT_THROW(setting("k", duration()).by_default("90"), invalid_argument_value);
  EXPECT_THROW(setting("k", integer()).by_default(1, 2), invalid_argument_value);
  EXPECT_THROW(setting("k", integer()).by_default(), invalid_argument_value);
  EXPECT_THROW(setting("k", list_of(integer())).by_default(1, "x"), invalid_argument_value);
}

TEST(a_name, that_no_source_can_have_throws) {
  for (const char* const key :
       {"", ".", "a.", ".a", "a..b", "a b", "-a", "a=b", "a#b", "a[]", "a/b", "a\\b", "ä", "a.-b"}) {
    EXPECT_THROW(setting(key, text()), invalid_argument_value) << key;
  }
  for (const char* const key : {"a", "A9", "9", "a-b", "a_b", "a.b.c", "a._b"}) {
    EXPECT_NO_THROW(setting(key, text())) << key;
  }
  for (const char option : {'-', '=', ' ', '\0', '\n', '\x7F', '\x80'}) {
    EXPECT_THROW(setting("k", text()).option(option), invalid_argument_value) << option;
  }
  for (const char* const option : {"", "-a", "a=b", "a b"}) {
    EXPECT_THROW(setting("k", text()).option(option), invalid_argument_value) << option;
  }
  EXPECT_THROW(setting("k", text()).environment(""), invalid_argument_value);
  EXPECT_THROW(setting("k", text()).environment("A=B"), invalid_argument_value);
  EXPECT_THROW(setting("k", text()).deprecated("a b"), invalid_argument_value);
}

}  // namespace
