/// What a variant stores for each type that it is made from: the values of the standard library, and beside
/// them every construction that its other constructors decide.
#include <gtest/gtest.h>

#include <chrono>
#include <cstdint>
#include <deque>
#include <filesystem>
#include <functional>
#include <limits>
#include <memory>
#include <optional>
#include <ratio>
#include <string>
#include <string_view>
#include <tuple>
#include <type_traits>
#include <utility>
#include <variant>
#include <vector>

#include "orva/generic/argument.hpp"
#include "orva/generic/varg_list.hpp"
#include "orva/i18n/message.hpp"
#include "orva/strings/text_argument.hpp"
#include "orva/types/variant.hpp"

namespace {

using namespace ORVA_NAMESPACE;
using generic::argument;
using generic::varg_list;
using strings::code_unit16;
using strings::code_unit32;
using strings::ustring16;
using strings::ustring32;
using strings::ustring8;
using strings::wide_string;
using types::nil;
using types::nil_t;
using types::variant;
using namespace std::string_view_literals;

template <typename T>
constexpr bool makes_variant = std::is_constructible_v<variant, T>;
template <typename T>
constexpr bool converts = std::is_convertible_v<T, variant>;

// The constructors that are no templates, as an overload set with the stored type as the result. What it
// accepts must be stored as it says, also in a variant with more constructors.

template <typename T>
struct stored {
  using type = T;
};

struct earlier_constructors {
  static stored<nil_t> pick(nil_t&);
  static stored<bool> pick(bool);
  static stored<signed char> pick(signed char);
  static stored<unsigned char> pick(unsigned char);
  static stored<short> pick(short);
  static stored<unsigned short> pick(unsigned short);
  static stored<int> pick(int);
  static stored<unsigned int> pick(unsigned int);
  static stored<long> pick(long);
  static stored<unsigned long> pick(unsigned long);
  static stored<long long> pick(long long);
  static stored<unsigned long long> pick(unsigned long long);
  static stored<float> pick(float);
  static stored<double> pick(double);
  static stored<long double> pick(long double);
  static stored<ustring8> pick(const char*);
  static stored<ustring16> pick(const code_unit16*);
  static stored<ustring32> pick(const code_unit32*);
  static stored<std::string> pick(std::string);
  static stored<wide_string> pick(wide_string);
  static stored<ustring8> pick(ustring8);
  static stored<ustring16> pick(ustring16);
  static stored<ustring32> pick(ustring32);
  template <typename T>
  static void pick(T*) requires(!strings::code_unit<std::remove_const_t<T>>) = delete;
  template <typename Member, typename Class>
  static void pick(Member Class::*) = delete;
  static void pick(std::nullptr_t) = delete;
};

template <typename T>
concept picked = requires(T&& value) {
  earlier_constructors::pick(std::forward<T>(value));
};
template <typename T>
using picked_type = typename decltype(earlier_constructors::pick(std::declval<T>()))::type;

template <typename T>
void expect_stored_as_before(T&& value, const char* name) {
  if constexpr (picked<T&&>) {
    static_assert(makes_variant<T&&>);
    EXPECT_EQ(variant(std::forward<T>(value)).type(), typeid(picked_type<T&&>)) << name;
  } else {
    FAIL() << name << " made no variant before";
  }
}

enum plain { first_plain, second_plain };
enum small : unsigned char { only_small };

template <typename... Targets>
struct converts_to : converts_to<Targets>... {};
template <typename Target>
struct converts_to<Target> {
  operator Target() const { return Target(); }
};

// Classes of which a template might think that they are a view, a path, a duration or an optional.
struct view_and_text : std::string_view, converts_to<std::string> {};
struct view_and_number : std::string_view, converts_to<int> {};
struct path_and_more : std::filesystem::path {};
struct optional_and_number : std::optional<int>, converts_to<int> {};
struct seconds_and_number : std::chrono::seconds, converts_to<double> {};
struct looks_like_path : converts_to<const char*> {
  using value_type = char;
  std::string text;
  const std::string& native() const { return text; }
  std::string parent_path() const { return text; }
};
template <typename Rep, typename Period>
struct looks_like_duration : converts_to<bool> {
  using rep = Rep;
  using period = Period;
  Rep count() const { return 7; }
};
template <typename Rep, typename Period>
struct text_with_duration : converts_to<std::string> {
  using rep = Rep;
  using period = Period;
  Rep count() const { return 7; }
};

#define EXPECT_STORED_AS_BEFORE(...) expect_stored_as_before(__VA_ARGS__, #__VA_ARGS__)

TEST(variant_sources, numbers_and_characters_are_stored_as_before) {
  EXPECT_STORED_AS_BEFORE(true);
  EXPECT_STORED_AS_BEFORE('a');
  EXPECT_STORED_AS_BEFORE(static_cast<signed char>(1));
  EXPECT_STORED_AS_BEFORE(static_cast<unsigned char>(1));
  EXPECT_STORED_AS_BEFORE(u8'a');
  EXPECT_STORED_AS_BEFORE(u'a');
  EXPECT_STORED_AS_BEFORE(U'a');
  EXPECT_STORED_AS_BEFORE(L'a');
  EXPECT_STORED_AS_BEFORE(static_cast<short>(1));
  EXPECT_STORED_AS_BEFORE(static_cast<unsigned short>(1));
  EXPECT_STORED_AS_BEFORE(1);
  EXPECT_STORED_AS_BEFORE(1U);
  EXPECT_STORED_AS_BEFORE(1L);
  EXPECT_STORED_AS_BEFORE(1UL);
  EXPECT_STORED_AS_BEFORE(1LL);
  EXPECT_STORED_AS_BEFORE(1ULL);
  EXPECT_STORED_AS_BEFORE(1.0F);
  EXPECT_STORED_AS_BEFORE(1.0);
  EXPECT_STORED_AS_BEFORE(1.0L);
  EXPECT_STORED_AS_BEFORE(second_plain);
  EXPECT_STORED_AS_BEFORE(only_small);
  EXPECT_STORED_AS_BEFORE(std::vector<bool>{true}[0]);
  EXPECT_STORED_AS_BEFORE(std::size_t{1});
  EXPECT_STORED_AS_BEFORE(std::integral_constant<short, 3>());
  EXPECT_STORED_AS_BEFORE(nil);
}

TEST(variant_sources, text_is_stored_as_before) {
  const char* const pointer = "x";
  char array[] = "x";
  std::string text = "x";
  const std::string constant = "x";
  std::reference_wrapper<std::string> reference(text);
  const strings::text_argument argument_of_text("x");
  EXPECT_STORED_AS_BEFORE("literal");
  EXPECT_STORED_AS_BEFORE(pointer);
  EXPECT_STORED_AS_BEFORE(array);
  EXPECT_STORED_AS_BEFORE(text);
  EXPECT_STORED_AS_BEFORE(constant);
  EXPECT_STORED_AS_BEFORE(std::string("x"));
  EXPECT_STORED_AS_BEFORE(reference);
  EXPECT_STORED_AS_BEFORE(wide_string(1, 'x'));
  EXPECT_STORED_AS_BEFORE(ustring8("x"));
  EXPECT_STORED_AS_BEFORE(ustring16(1, 'x'));
  EXPECT_STORED_AS_BEFORE(ustring32(1, 'x'));
  EXPECT_STORED_AS_BEFORE(ustring16(1, 'x').c_str());
  EXPECT_STORED_AS_BEFORE(ustring32(1, 'x').c_str());
  EXPECT_STORED_AS_BEFORE(std::basic_string<code_unit32>(1, 'x'));
  EXPECT_STORED_AS_BEFORE(argument_of_text);
}

TEST(variant_sources, classes_that_convert_are_stored_as_before) {
  EXPECT_STORED_AS_BEFORE(converts_to<bool>());
  EXPECT_STORED_AS_BEFORE(converts_to<short>());
  EXPECT_STORED_AS_BEFORE(converts_to<double>());
  EXPECT_STORED_AS_BEFORE(converts_to<const char*>());
  EXPECT_STORED_AS_BEFORE(converts_to<std::string>());
  EXPECT_STORED_AS_BEFORE(converts_to<ustring32>());
  EXPECT_STORED_AS_BEFORE((converts_to<std::string, std::string_view>()));
  EXPECT_STORED_AS_BEFORE((converts_to<int, std::optional<int>>()));
  EXPECT_STORED_AS_BEFORE((converts_to<double, std::chrono::seconds>()));
  EXPECT_STORED_AS_BEFORE(view_and_text());
  EXPECT_STORED_AS_BEFORE(view_and_number());
  EXPECT_STORED_AS_BEFORE(optional_and_number());
  EXPECT_STORED_AS_BEFORE(seconds_and_number());
  EXPECT_STORED_AS_BEFORE(looks_like_path());
  EXPECT_STORED_AS_BEFORE((looks_like_duration<int, std::milli>()));
  EXPECT_STORED_AS_BEFORE((text_with_duration<int, std::milli>()));
}

/// A path converts to its native string, so a variant could be made from one directly.
TEST(variant_sources, path_is_stored_as_before) {
  std::filesystem::path path = "a/b";
  const std::filesystem::path constant = path;
  EXPECT_STORED_AS_BEFORE(path);
  EXPECT_STORED_AS_BEFORE(constant);
  EXPECT_STORED_AS_BEFORE(std::filesystem::path("a/b"));
  EXPECT_STORED_AS_BEFORE(path_and_more());
  EXPECT_EQ(variant(path).as_utf8(), "a/b");
}

// What made no variant makes none, but for the values below.

struct incomplete;
enum class scoped { one };

static_assert(!makes_variant<void*> && !makes_variant<int*> && !makes_variant<incomplete*>);
static_assert(!makes_variant<std::nullptr_t> && !makes_variant<std::nullopt_t> && !makes_variant<scoped>);
static_assert(!makes_variant<const char8_t*> && !makes_variant<unsigned char*>);
static_assert(!makes_variant<std::vector<char>> && !makes_variant<std::unique_ptr<int>>);
static_assert(!makes_variant<std::pair<int, int>> && !makes_variant<std::tuple<int>>);
static_assert(!makes_variant<std::monostate> && !makes_variant<std::function<void()>>);
static_assert(!makes_variant<std::chrono::system_clock::time_point> && !makes_variant<std::ratio<1>>);
static_assert(!makes_variant<std::wstring_view> || strings::wchar_is_utf16);
static_assert(!makes_variant<std::basic_string_view<signed char>>);
static_assert(!makes_variant<std::optional<void*>> && !makes_variant<std::optional<scoped>>);
static_assert(!makes_variant<std::optional<std::unique_ptr<int>>>);
static_assert(!makes_variant<std::optional<std::optional<int*>>>);
static_assert(sizeof(variant) == sizeof(void*));

// Views.

static_assert(converts<std::string_view> && converts<const std::string_view&> && converts<ustring16::view>);
static_assert(converts<std::u8string_view> && converts<std::u8string> && converts<ustring32::view>);

TEST(variant_sources, view_is_stored_as_the_string_of_its_width) {
  const variant narrow = "ab\0c"sv;
  EXPECT_TRUE(narrow.holds<ustring8>());
  EXPECT_EQ(narrow.as_utf8(), ustring8("ab\0c", 4));
  const ustring16 text16(3, 'x');
  const variant medium = ustring16::view(text16).substr(1);
  EXPECT_TRUE(medium.holds<ustring16>());
  EXPECT_EQ(medium.as_utf16(), ustring16(2, 'x'));
  const ustring32 text32(3, 'x');
  const variant wide = ustring32::view(text32);
  EXPECT_TRUE(wide.holds<ustring32>());
  EXPECT_EQ(wide.as_utf32(), text32);
  EXPECT_TRUE(variant(std::string_view()).holds<ustring8>());
  EXPECT_EQ(variant(std::string_view()).as_utf8(), "");
}

TEST(variant_sources, utf8_text_of_the_standard_is_stored_as_ustring8) {
  const variant view = u8"\u00E4\u20AC"sv;
  EXPECT_TRUE(view.holds<ustring8>());
  EXPECT_EQ(view.as_utf8(), "\xC3\xA4\xE2\x82\xAC");
  const variant text = std::u8string(u8"\u00E4");
  EXPECT_TRUE(text.holds<ustring8>());
  EXPECT_EQ(text.as_utf8(), "\xC3\xA4");
}

TEST(variant_sources, text_of_a_view_is_copied) {
  std::string text = "before";
  const variant value = std::string_view(text);
  text = "behind";
  EXPECT_EQ(value.as_utf8(), "before");
}

// Paths.

static_assert(converts<std::filesystem::path> && converts<std::filesystem::path&>);

TEST(variant_sources, path_is_its_native_text_without_a_loss) {
  const std::filesystem::path path(u8"\u00E4/b");
  const variant value = path;
  EXPECT_TRUE(value.holds<std::filesystem::path::string_type>());
  EXPECT_EQ(value.as_utf8(), "\xC3\xA4/b");
  EXPECT_EQ(std::filesystem::path(value.try_as<std::filesystem::path::string_type>().value()), path);
  // A lone surrogate in 16 bits, and a byte that is no text in 8.
  const std::filesystem::path malformed(
      std::filesystem::path::string_type(1, static_cast<std::filesystem::path::value_type>(0xDC80)));
  EXPECT_EQ(variant(malformed).try_as<std::filesystem::path::string_type>(), malformed.native());
}

// Optional values.

static_assert(converts<std::optional<int>> && converts<std::optional<std::string_view>>);
static_assert(converts<std::optional<std::optional<double>>> && converts<std::optional<variant>>);
static_assert(converts<const std::optional<std::filesystem::path>&> && converts<std::optional<const char*>>);

TEST(variant_sources, empty_optional_is_nil) {
  EXPECT_TRUE(variant(std::optional<int>()) == nil);
  EXPECT_TRUE(variant(std::optional<std::string>()) == nil);
  EXPECT_TRUE(variant(std::optional<variant>()) == nil);
  EXPECT_TRUE(variant(std::optional<std::optional<int>>(std::optional<int>())) == nil);
}

TEST(variant_sources, optional_value_is_stored_as_the_value_is) {
  EXPECT_TRUE(same(variant(std::optional<int>(5)), variant(5)));
  EXPECT_TRUE(same(variant(std::optional<bool>(false)), variant(false)));
  EXPECT_TRUE(same(variant(std::optional<char>('a')), variant(97)));
  EXPECT_TRUE(same(variant(std::optional<float>(0.5F)), variant(0.5F)));
  EXPECT_TRUE(same(variant(std::optional<std::string>("x")), variant(std::string("x"))));
  EXPECT_TRUE(same(variant(std::optional<std::string_view>("x")), variant("x")));
  EXPECT_TRUE(same(variant(std::optional<const char*>("x")), variant("x")));
  EXPECT_TRUE(same(variant(std::optional<std::chrono::milliseconds>(1500)), variant(1.5)));
  EXPECT_TRUE(same(variant(std::optional<variant>(variant(5U))), variant(5U)));
  EXPECT_TRUE(same(variant(std::optional<std::optional<int>>(5)), variant(5)));
  const std::optional<std::string> constant("x");
  EXPECT_EQ(variant(constant).as_utf8(), "x");
  EXPECT_EQ(constant, "x");
}

// Durations.

using namespace std::chrono_literals;
static_assert(converts<std::chrono::nanoseconds> && converts<std::chrono::duration<float, std::ratio<1, 3>>>);
static_assert(converts<std::chrono::days> && converts<std::chrono::years>);

TEST(variant_sources, duration_is_seconds_as_double) {
  EXPECT_TRUE(same(variant(1500ms), variant(1.5)));
  EXPECT_TRUE(same(variant(2h), variant(7200.0)));
  EXPECT_TRUE(same(variant(-1us), variant(-1e-6)));
  EXPECT_TRUE(same(variant(1ns), variant(1e-9)));
  EXPECT_TRUE(same(variant(0s), variant(0.0)));
  EXPECT_TRUE(same(variant(std::chrono::days(3)), variant(259200.0)));
  EXPECT_TRUE(same(variant(0.25s), variant(0.25)));
}

template <typename Duration>
void expect_seconds_of_the_standard(typename Duration::rep count) {
  const Duration duration(count);
  EXPECT_TRUE(same(variant(duration), variant(std::chrono::duration<double>(duration).count()))) << count;
}

TEST(variant_sources, duration_of_any_type_is_what_the_standard_converts_it_to) {
  for (const std::int64_t count :
       {std::int64_t{0}, std::int64_t{1}, std::int64_t{-7}, std::int64_t{1'000'003},
        std::int64_t{9'007'199'254'740'993}, std::numeric_limits<std::int64_t>::max(),
        std::numeric_limits<std::int64_t>::min()}) {
    expect_seconds_of_the_standard<std::chrono::duration<std::int64_t, std::nano>>(count);
    expect_seconds_of_the_standard<std::chrono::duration<std::int64_t, std::milli>>(count);
    expect_seconds_of_the_standard<std::chrono::duration<std::int64_t>>(count);
    expect_seconds_of_the_standard<std::chrono::duration<std::int64_t, std::ratio<31556952>>>(count);
    expect_seconds_of_the_standard<std::chrono::duration<std::int64_t, std::ratio<1001, 30000>>>(count);
    expect_seconds_of_the_standard<std::chrono::duration<long double, std::micro>>(
        static_cast<long double>(count));
    expect_seconds_of_the_standard<std::chrono::duration<float, std::ratio<60>>>(static_cast<float>(count));
    expect_seconds_of_the_standard<std::chrono::duration<short, std::ratio<2, 3>>>(static_cast<short>(count));
  }
}

TEST(variant_sources, duration_is_what_the_placeholder_of_messages_takes) {
  const i18n::message_t message("elapsed", {i18n::message_item("t", i18n::message_item::duration)});
  EXPECT_EQ(message.as_utf8(argument("t", 3661500ms)), "1 hr 1 min 1.50 sec");
}

// Arguments and lists.

TEST(variant_sources, arguments_take_every_value_of_a_variant) {
  const std::string_view user = "someone";
  EXPECT_EQ(argument("name", user).value().as_utf8(), "someone");
  EXPECT_EQ(argument(user).value().as_utf8(), "someone");
  EXPECT_FALSE(argument(user).has_name());
  EXPECT_EQ(argument("file", std::filesystem::path("a/b")).value().as_utf8(), "a/b");
  EXPECT_EQ(argument("t", 250ms).value().as_double(), 0.25);
  EXPECT_EQ(argument("n", std::optional<int>(5)).value().as_int32(), 5);
  EXPECT_TRUE(argument("n", std::optional<int>()) != nil);
  EXPECT_TRUE(argument(std::optional<int>()) == nil);
  argument assigned;
  assigned = user;
  EXPECT_EQ(assigned.value().as_utf8(), "someone");
  assigned.assign("t", 1s);
  EXPECT_EQ(assigned.value().as_double(), 1.0);
  varg_list list;
  EXPECT_TRUE(list.push_back("user", user));
  EXPECT_TRUE(list.push_back(user, 1s));
  EXPECT_EQ(list["someone"].value().as_double(), 1.0);
}

TEST(variant_sources, variant_is_assigned_from_every_value) {
  variant value;
  value = "x"sv;
  EXPECT_TRUE(value.holds<ustring8>());
  value = std::optional<int>(5);
  EXPECT_TRUE(value.holds<int>());
  value = std::optional<int>();
  EXPECT_TRUE(value == nil);
  value = 1500ms;
  EXPECT_TRUE(value.holds<double>());
  value = std::filesystem::path("a");
  EXPECT_EQ(value.as_utf8(), "a");
}

}  // namespace
