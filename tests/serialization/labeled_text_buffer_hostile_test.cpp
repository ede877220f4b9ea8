// Malformed texts, compared with the plain recursive reader, and depths and sizes whose cost must stay
// proportional to their length.
#include <gtest/gtest.h>

#include <array>
#include <optional>
#include <stdexcept>
#include <string>
#include <string_view>
#include <utility>
#include <vector>

#include "orva/serialization/labeled_text_buffer.hpp"
#include "orva/types/nil.hpp"
#include "tests/support/random_engine.hpp"
#include "tests/support/reference_serialization.hpp"
#include "tests/support/shown_separators.hpp"

namespace {

using namespace ORVA_NAMESPACE;
using namespace ORVA_NAMESPACE::serialization;
using orva_test::bytes;
using orva_test::reference_labeled;
using orva_test::shown;
using types::variant;

template <typename Read>
bool throws(Read read) {
  try {
    read();
    return false;
  } catch (const std::out_of_range&) {
    return true;
  }
}

void expect_as_reference(const std::string& text) {
  labeled_text_buffer read;
  reference_labeled expected;
  const bool reference_throws = throws([&] { expected.read(text); });
  ASSERT_EQ(throws([&] { read.assign(text); }), reference_throws) << shown(text);
  ASSERT_TRUE(expected.is_content_of(read)) << shown(text) << " is read as " << shown(read.as_str());
  const std::string flat = expected.flat();
  if (expected.has_empty_label()) return;
  read.assign(flat);
  ASSERT_TRUE(read.as_str() == flat) << shown(text) << ": the flat form reads as itself";
}

constexpr std::string_view sample = "1~a~1~1~2~g ~25~1~x~1~2~2~h ~8~1~y~1~3~~~1~z~0~~";

TEST(labeled_text_buffer_hostile, every_truncation_reads_as_the_rule_says) {
  for (std::size_t length = 0; length <= sample.size(); ++length) {
    expect_as_reference(bytes(sample.substr(0, length)));
  }
}

TEST(labeled_text_buffer_hostile, every_tail_reads_as_the_rule_says) {
  for (std::size_t begin = 0; begin <= sample.size(); ++begin)
    expect_as_reference(bytes(sample.substr(begin)));
}

TEST(labeled_text_buffer_hostile, every_byte_in_every_place_reads_as_the_rule_says) {
  for (std::size_t at = 0; at < sample.size(); ++at) {
    for (const char byte : std::string("\x00\x01 09-ax\n", 9)) {
      std::string text = bytes(sample);
      text[at] = byte;
      expect_as_reference(text);
    }
  }
}

/// Compares `beginning`, followed by every sequence of up to `longest` of the pieces, with the reference.
void expect_sequences_as_reference(const std::string& beginning, const std::vector<std::string>& pieces,
                                   int longest) {
  expect_as_reference(bytes(beginning));
  if (longest == 0) return;
  for (const std::string& piece : pieces) {
    if (testing::Test::HasFatalFailure()) return;
    expect_sequences_as_reference(beginning + piece, pieces, longest - 1);
  }
}

TEST(labeled_text_buffer_hostile, every_short_text_reads_as_the_rule_says) {
  expect_sequences_as_reference("", {"~", "0", "1", "2", "-", " ", "a"}, 6);
}

TEST(labeled_text_buffer_hostile, every_short_text_after_a_label_reads_as_the_rule_says) {
  expect_sequences_as_reference("1~a~-", {"~", "1", "2", "3", "4", "-", "a"}, 6);
  expect_sequences_as_reference("2~g ~-", {"~", "1", "2", "3", "6", " ", "a"}, 5);
}

TEST(labeled_text_buffer_hostile, every_short_sequence_of_items_reads_as_the_rule_says) {
  expect_sequences_as_reference(
      "", {"1~a~", "1~b~", "2~g ~", "-1~", "-2~", "-3;1~c~", "-4~", "-6~", "-9~", "-13~", "0~~", "9~"}, 4);
}

TEST(labeled_text_buffer_hostile, random_sequences_of_items_read_as_the_rule_says) {
  constexpr std::array<std::string_view, 18> pieces{"1~a~", "1~b~", "2~g ~",  "2~h ~", "8~", "0~~",
                                                    "-4~",  "-9~",  "99~",    "1~1~",  "~",  "1",
                                                    "14~",  " ~",   "3~xyz~", "a",     " ",  "8~1~x~1~2~~"};
  orva_test::random_engine random;
  for (int run = 0; run < 4000 && !HasFatalFailure(); ++run) {
    std::string text;
    for (auto count = random() % 14; count > 0; --count) text += pieces[random() % pieces.size()];
    expect_as_reference(bytes(text));
  }
}

/// Random content, one label in three a group.
void fill(labeled_text_buffer& target, orva_test::random_engine& random, int depth) {
  constexpr std::array<const char*, 8> labels{"a", "b", "c", "d", "e f", "\xC3\xA4", "\x01", "0"};
  for (auto count = random() % 5; count > 0; --count) {
    const std::string label = labels[random() % labels.size()];
    if (depth > 0 && random() % 3 == 0) {
      fill(*target.create_group(label), random, depth - 1);
    } else if (random() % 6 == 0) {
      target.add_value(label, variant(types::nil));
    } else {
      target.add_value(label, std::to_string(random() % 100));
    }
  }
}

TEST(labeled_text_buffer_hostile, overlay_keeps_its_laws_on_random_content) {
  orva_test::random_engine random;
  for (int run = 0; run < 500; ++run) {
    labeled_text_buffer a;
    labeled_text_buffer b;
    labeled_text_buffer c;
    fill(a, random, 3);
    fill(b, random, 3);
    fill(c, random, 3);

    labeled_text_buffer once(a);
    once.overlay(b);
    labeled_text_buffer twice(once);
    twice.overlay(b);
    ASSERT_EQ(twice.as_str(), once.as_str()) << "a second overlay changes nothing";

    labeled_text_buffer over_nothing;
    over_nothing.overlay(b);
    ASSERT_EQ(over_nothing.as_str(), b.as_str()) << "an overlay of an empty buffer is a copy";

    labeled_text_buffer under_nothing(a);
    under_nothing.overlay(labeled_text_buffer());
    ASSERT_EQ(under_nothing.as_str(), a.as_str()) << "an empty overlay changes nothing";
  }
}

/// The rule of `overlay`, by recursion.
void plain_overlay(labeled_text_buffer& here, labeled_text_buffer& other,
                   const std::vector<std::string>& labels) {
  for (const std::string& label : labels) {
    if (!other.has_label(label)) continue;
    const bool was_here = here.has_label(label);
    labeled_text_buffer& group = *other.retrieve_group(label);
    const variant value = other.retrieve_value(label);
    if (!was_here || group.is_empty() || other.has_value(label)) here.add_value(label, value);
    if (!group.is_empty()) plain_overlay(*here.retrieve_group(label), group, labels);
  }
}

TEST(labeled_text_buffer_hostile, overlay_is_as_the_plain_recursion) {
  const std::vector<std::string> labels{"a", "b", "c", "d", "e f", "\xC3\xA4", "\x01", "0"};
  orva_test::random_engine random;
  for (int run = 0; run < 1000; ++run) {
    labeled_text_buffer here;
    labeled_text_buffer other;
    fill(here, random, 4);
    fill(other, random, 4);
    labeled_text_buffer expected(here);
    plain_overlay(expected, other, labels);
    here.overlay(other);
    ASSERT_EQ(here.as_str(), expected.as_str());
  }
}

/// Deep enough to exhaust the stack of any function that recurses over the levels.
constexpr int levels = 200'000;

/// {g={g={... {x=1}}}}
labeled_text_buffer nested() {
  labeled_text_buffer root;
  labeled_text_buffer* group = &root;
  for (int i = 0; i < levels; ++i) group = group->create_group("g");
  group->add_value("x", 1);
  return root;
}

int depth_of(labeled_text_buffer& root) {
  int depth = 0;
  for (labeled_text_buffer* group = &root; group->has_group("g"); group = group->retrieve_group("g")) ++depth;
  return depth;
}

TEST(labeled_text_buffer_hostile, deep_levels_are_written_read_copied_overlaid_and_destroyed) {
  labeled_text_buffer deep = nested();
  const std::string flat = deep.as_str();
  EXPECT_LT(flat.size(), 16U * levels) << "a level adds its label and a length";
  labeled_text_buffer read(flat);
  EXPECT_EQ(depth_of(read), levels);
  const labeled_text_buffer copy(read);
  read.overlay(copy);
  EXPECT_EQ(depth_of(read), levels);
  read = labeled_text_buffer();
  EXPECT_TRUE(read.is_empty());
  EXPECT_TRUE(copy.as_str() == flat);
}

TEST(labeled_text_buffer_hostile, deep_levels_that_all_claim_the_rest_are_read) {
  std::string flat;
  for (int i = 0; i < levels; ++i)
    flat +=
        "2\x01g \x01"
        "2147483647\x01";
  labeled_text_buffer read;
  // The innermost level ends in a group without a text.
  read.assign(flat);
  EXPECT_EQ(depth_of(read), levels - 1);
}

TEST(labeled_text_buffer_hostile, deep_levels_of_negative_lengths_are_read) {
  std::string flat;
  for (int i = 0; i < levels; ++i) flat += "2\x01g \x01-9\x01";
  labeled_text_buffer read(flat);
  EXPECT_EQ(depth_of(read), levels - 1);
}

/// Groups whose length makes each level read the text after it twice: once in the group, once here.
std::string doubling_groups(int count) {
  std::string text;
  for (int i = 0; i < count; ++i) text += bytes("2~g ~-1~");
  return text;
}

TEST(labeled_text_buffer_hostile, groups_that_double_the_reading_read_as_the_rule_says) {
  for (int count = 0; count <= 10; ++count) expect_as_reference(doubling_groups(count));
}

TEST(labeled_text_buffer_hostile, groups_that_double_the_reading_end_at_the_limit) {
  labeled_text_buffer read(doubling_groups(1000));
  EXPECT_GT(depth_of(read), 0);
  EXPECT_LE(read.as_str().size(), 2 * labeled_text_buffer::max_reread);
}

TEST(labeled_text_buffer_hostile, values_that_are_all_the_rest_of_the_text_end_at_the_limit) {
  std::string text;
  for (int i = 100'000; i < 200'000; ++i) text += bytes("6~" + std::to_string(i) + "~-1~");
  labeled_text_buffer read(text);
  EXPECT_TRUE(read.has_value("100000"));
  EXPECT_LE(read.as_str().size(), 2 * text.size() + 2 * labeled_text_buffer::max_reread);
}

TEST(labeled_text_buffer_hostile, texts_of_one_byte_repeated_end) {
  for (const char byte : {'\x01', '0', '1', ' ', '-', 'x', '\0'}) {
    const std::string text(3'000'000, byte);
    labeled_text_buffer read;
    throws([&] { read.assign(text); });
    EXPECT_LE(read.as_str().size(), text.size());
  }
}

TEST(labeled_text_buffer_hostile, many_labels_of_one_level_are_read_and_written) {
  labeled_text_buffer wide;
  for (int i = 0; i < 100'000; ++i) wide.add_value(std::to_string(i), i);
  labeled_text_buffer read(wide.as_str());
  EXPECT_EQ(read.retrieve_value("77777").as_int32(), 77777);
  EXPECT_EQ(read.as_str(), wide.as_str());
}

}  // namespace
