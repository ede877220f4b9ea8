#include "orva/diagnostics/report.hpp"

#include <gtest/gtest.h>

namespace {

using orva::diagnostics::finding;
using orva::diagnostics::report;
using orva::diagnostics::severity;

finding of(severity level, const char* code) { return {level, code, {}, {}, {}}; }

TEST(report, documentation_example) {
  report found;
  found.add({severity::warning, "xml.data_after_root", "a.xml", {9, 1}, {}});
  EXPECT_EQ(found.count(severity::warning), 1u);
  EXPECT_FALSE(found.has_errors());
}

TEST(report, is_empty_at_first) {
  const report found;
  EXPECT_TRUE(found.empty());
  EXPECT_FALSE(found.has_errors());
  EXPECT_EQ(found.count(), 0u);
  EXPECT_EQ(found.max_findings(), report::default_max_findings);
}

TEST(report, keeps_findings_in_order_and_counts_them_by_severity) {
  report found;
  found.add(of(severity::warning, "b"));
  found.add(of(severity::error, "a"));
  found.add(of(severity::warning, "c"));
  ASSERT_EQ(found.findings().size(), 3u);
  EXPECT_EQ(found.findings()[0].code, "b");
  EXPECT_EQ(found.findings()[1].code, "a");
  EXPECT_EQ(found.findings()[2].code, "c");
  EXPECT_EQ(found.count(severity::note), 0u);
  EXPECT_EQ(found.count(severity::warning), 2u);
  EXPECT_EQ(found.count(severity::error), 1u);
  EXPECT_TRUE(found.has_errors());
}

TEST(report, counts_what_it_does_not_keep) {
  report found(2);
  for (int i = 0; i < 4; ++i) found.add(of(severity::note, "n"));
  found.add(of(severity::error, "e"));
  EXPECT_EQ(found.findings().size(), 2u);
  EXPECT_EQ(found.count(), 5u);
  EXPECT_EQ(found.not_kept(), 3u);
  // An error that is not kept is an error all the same.
  EXPECT_TRUE(found.has_errors());
}

TEST(report, may_only_count) {
  report found(0);
  found.add(of(severity::warning, "w"));
  EXPECT_TRUE(found.findings().empty());
  EXPECT_FALSE(found.empty());
}

}  // namespace
