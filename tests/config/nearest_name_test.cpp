#include "orva/config/internal/nearest_name.hpp"

#include <gtest/gtest.h>

#include <algorithm>
#include <functional>
#include <string>
#include <vector>

#include "tests/support/random_engine.hpp"

namespace {

using ORVA_NAMESPACE::config::_private::edit_distance;
using ORVA_NAMESPACE::config::_private::nearest_name;

std::string nearest(std::string_view text, const std::vector<std::string>& names) {
  nearest_name search(text);
  for (const auto& name : names) search.consider(name);
  return search.found();
}

TEST(nearest_names, documentation_example) {
  EXPECT_EQ(nearest("langauge", {"threads", "language", "langs"}), "language");
}

TEST(nearest_names, have_few_wrong_letters) {
  const std::vector<std::string> names{"threads", "verbose", "out", "a"};
  EXPECT_EQ(nearest("thread", names), "threads");
  EXPECT_EQ(nearest("THREADS", names), "threads");
  EXPECT_EQ(nearest("htreasd", names), "threads");
  EXPECT_EQ(nearest("verb", names), "verbose") << "an abbreviation";
  EXPECT_EQ(nearest("v", names), "") << "one letter abbreviates nothing";
  EXPECT_EQ(nearest("oat", names), "out");
  EXPECT_EQ(nearest("b", names), "");
  EXPECT_EQ(nearest("A", names), "a");
  EXPECT_EQ(nearest("xyz", names), "");
  EXPECT_EQ(nearest("", names), "");
  EXPECT_EQ(nearest(std::string(65, 'a'), {std::string(65, 'a')}), "");
  EXPECT_EQ(nearest(std::string(64, 'a'), {std::string(63, 'a')}), std::string(63, 'a'));
}

TEST(nearest_names, do_not_depend_on_the_order) {
  std::vector<std::string> names{"cab", "cob", "cub", "club", "c"};
  std::sort(names.begin(), names.end());
  do {
    ASSERT_EQ(nearest("ceb", names), "cab");
    ASSERT_EQ(nearest("clubs", names), "club");
  } while (std::next_permutation(names.begin(), names.end()));
}

/// By its definition: the least of all ways to begin, without a table.
std::size_t reference_distance(std::string_view a, std::string_view b) {
  if (a.empty() || b.empty()) return a.size() + b.size();
  const std::string_view a_rest = a.substr(1);
  const std::string_view b_rest = b.substr(1);
  std::size_t least = reference_distance(a_rest, b_rest) + (a[0] == b[0] ? 0 : 1);
  least = std::min(least, reference_distance(a_rest, b) + 1);
  least = std::min(least, reference_distance(a, b_rest) + 1);
  const bool swapped = a.size() > 1 && b.size() > 1 && a[0] == b[1] && a[1] == b[0];
  if (swapped) least = std::min(least, reference_distance(a.substr(2), b.substr(2)) + 1);
  return least;
}

TEST(edit_distances, agree_with_their_definition) {
  orva_test::random_engine random;
  for (int i = 0; i < 300; ++i) {
    std::string a(random() % 6, ' ');
    std::string b(random() % 6, ' ');
    for (char& letter : a) letter = static_cast<char>('a' + random() % 3);
    for (char& letter : b) letter = static_cast<char>('a' + random() % 3);
    ASSERT_EQ(edit_distance(a, b), reference_distance(a, b)) << a << ' ' << b;
  }
}

}  // namespace
