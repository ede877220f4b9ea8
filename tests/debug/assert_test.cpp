#include "orva/debug/assert.hpp"

#include <gtest/gtest.h>

#include <atomic>
#include <functional>
#include <memory>
#include <string>
#include <string_view>
#include <thread>
#include <type_traits>
#include <vector>

#include "orva/functor/member_function.hpp"

namespace {

using namespace ORVA_NAMESPACE;
using debug::_private::____________________ASSERT____________________;
using debug::_private::_______________CONTEXT__ASSERT________________;
using functor::delegate_t;

struct report {
  std::string text;
  std::string file;
  unsigned int line;
};

/// Collects the arguments of all calls of all copies of one hook, and counts the copies that are alive.
class recording_hook : public functor::function_type_interface<debug::assert_hook> {
 public:
  struct record_t {
    std::vector<report> reports;
    int alive = 0;
  };

  explicit recording_hook(record_t& record) : record_(record) { ++record_.alive; }
  recording_hook(const recording_hook& other) : recording_hook(other.record_) {}
  ~recording_hook() override { --record_.alive; }

  void operator()(const char* const text, const char* const file, unsigned int& line) override {
    record_.reports.push_back({text, file, line});
    line = 0;
  }
  bool equal(const function_type_interface& other) const override { return this == &other; }
  recording_hook* clone() const override { return new recording_hook(*this); }

 private:
  record_t& record_;
};

class assert_hook : public testing::Test {
 protected:
  void TearDown() override { debug::set_assert_hook(types::nil); }

  void install() { debug::set_assert_hook(recording_hook(record)); }

  recording_hook::record_t record;
};

TEST_F(assert_hook, is_not_set_at_load) { EXPECT_FALSE(debug::is_assert_hook_set()); }

TEST_F(assert_hook, failed_assertion_without_a_hook_continues) {
  bool reached = false;
  ORVA_ASSERT(false);
  ORVA_CONTEXT_ASSERT(false, "%d", 1);
  ____________________ASSERT____________________("false", "file", 1, "function");
  _______________CONTEXT__ASSERT________________("false", "file", 1, "function", "%d", 1);
  reached = true;
  EXPECT_TRUE(reached);
}

TEST_F(assert_hook, is_set_by_a_delegate_and_removed_by_nil) {
  install();
  EXPECT_TRUE(debug::is_assert_hook_set());
  debug::set_assert_hook(types::nil);
  EXPECT_FALSE(debug::is_assert_hook_set());
  EXPECT_EQ(record.alive, 0);
}

TEST_F(assert_hook, is_removed_by_an_empty_delegate) {
  install();
  debug::set_assert_hook(delegate_t<debug::assert_hook>());
  EXPECT_FALSE(debug::is_assert_hook_set());
  EXPECT_EQ(record.alive, 0);
}

TEST_F(assert_hook, removing_twice_changes_nothing) {
  debug::set_assert_hook(types::nil);
  debug::set_assert_hook(types::nil);
  EXPECT_FALSE(debug::is_assert_hook_set());
}

TEST_F(assert_hook, setting_twice_destroys_the_first_clone_and_not_the_callers) {
  const delegate_t<debug::assert_hook> mine{recording_hook(record)};
  ASSERT_EQ(record.alive, 1);
  debug::set_assert_hook(mine);
  EXPECT_EQ(record.alive, 2);
  debug::set_assert_hook(mine);
  EXPECT_EQ(record.alive, 2);
  EXPECT_FALSE(mine.empty());
  debug::set_assert_hook(types::nil);
  EXPECT_EQ(record.alive, 1);
}

TEST_F(assert_hook, outlives_the_callers_delegate) {
  {
    const delegate_t<debug::assert_hook> mine{recording_hook(record)};
    debug::set_assert_hook(mine);
  }
  ORVA_ASSERT(false);
  EXPECT_EQ(record.reports.size(), 1u);
}

/// Runs an action of the test when it is called.
class acting_hook : public functor::function_type_interface<debug::assert_hook> {
 public:
  using action_t = std::function<void(acting_hook&)>;

  explicit acting_hook(const action_t& action) : action_(action) {}

  void operator()(const char* const, const char* const, unsigned int&) override {
    ++calls;
    action_(*this);
  }
  bool equal(const function_type_interface& other) const override { return this == &other; }
  acting_hook* clone() const override { return new acting_hook(*this); }

  int calls = 0;
  /// Larger than what inline storage holds, so that a use after it was freed shows.
  std::string owned = std::string(100, 'x');

 private:
  action_t action_;
};

TEST_F(assert_hook, that_replaces_itself_is_alive_until_it_returns) {
  std::string seen;
  debug::set_assert_hook(acting_hook([&](acting_hook& running) {
    install();
    install();
    seen = running.owned;
  }));
  ORVA_ASSERT(1 == 2);
  EXPECT_EQ(seen, std::string(100, 'x'));
  EXPECT_TRUE(record.reports.empty());
  EXPECT_EQ(record.alive, 1);
  ORVA_ASSERT(2 == 3);
  ASSERT_EQ(record.reports.size(), 1u);
  EXPECT_EQ(record.reports[0].text, "2 == 3");
}

TEST_F(assert_hook, that_replaces_itself_is_destroyed_when_it_returns) {
  const auto token = std::make_shared<int>(0);
  {
    const delegate_t<debug::assert_hook> removes_itself(
        acting_hook([token](acting_hook&) { debug::set_assert_hook(types::nil); }));
    debug::set_assert_hook(removes_itself);
  }
  EXPECT_EQ(token.use_count(), 2);
  ORVA_ASSERT(false);
  EXPECT_EQ(token.use_count(), 1);
  EXPECT_FALSE(debug::is_assert_hook_set());
}

TEST_F(assert_hook, that_replaces_itself_and_throws_is_destroyed) {
  const auto token = std::make_shared<int>(0);
  debug::set_assert_hook(acting_hook([token](acting_hook&) {
    debug::set_assert_hook(types::nil);
    throw 1;
  }));
  EXPECT_THROW(ORVA_ASSERT(false), int);
  EXPECT_EQ(token.use_count(), 1);
}

TEST_F(assert_hook, that_fails_an_assertion_is_not_called_for_it) {
  int calls = 0;
  debug::set_assert_hook(acting_hook([&calls](acting_hook& running) {
    ORVA_ASSERT(running.calls == 0);
    ORVA_CONTEXT_ASSERT(false, "%d", 1);
    calls = running.calls;
  }));
  ORVA_ASSERT(false);
  EXPECT_EQ(calls, 1);
  ORVA_ASSERT(false);
  EXPECT_EQ(calls, 2) << "the next failure is reported again";
}

TEST_F(assert_hook, that_threw_is_called_again) {
  int calls = 0;
  debug::set_assert_hook(acting_hook([&calls](acting_hook&) {
    ++calls;
    throw calls;
  }));
  EXPECT_THROW(ORVA_ASSERT(false), int);
  EXPECT_THROW(ORVA_ASSERT(false), int);
  EXPECT_EQ(calls, 2);
}

TEST_F(assert_hook, running_in_one_thread_is_called_for_a_failure_in_another) {
  std::atomic<int> calls{0};
  debug::set_assert_hook(acting_hook([&calls](acting_hook&) {
    if (++calls == 1) std::thread([] { ORVA_ASSERT(false); }).join();
  }));
  ORVA_ASSERT(false);
  EXPECT_EQ(calls, 2);
}

TEST_F(assert_hook, gets_the_text_of_a_condition_with_commas) {
  install();
  ORVA_ASSERT(std::is_same_v<int, long>);
  ORVA_ASSERT(std::is_same_v<int, int>);
  ORVA_ASSERT(std::is_same<int, long>());
  ASSERT_EQ(record.reports.size(), 2u);
  EXPECT_EQ(record.reports[0].text, "std::is_same_v<int, long>");
  EXPECT_EQ(record.reports[1].text, "std::is_same<int, long>()");
}

struct listener {
  void listen(const char* const text, const char* const, unsigned int&) { heard = text; }
  std::string heard;
};

TEST_F(assert_hook, may_be_a_member_function) {
  listener ear;
  debug::set_assert_hook(functor::member_function_t(&ear, &listener::listen));
  ORVA_ASSERT(ear.heard == "something");
  EXPECT_EQ(ear.heard, "ear.heard == \"something\"");
}

/// Asserts when it is destroyed, as a hook that checks itself may do.
class asserting_hook : public recording_hook {
 public:
  using recording_hook::recording_hook;
  ~asserting_hook() override { ORVA_ASSERT(false); }
  asserting_hook* clone() const override { return new asserting_hook(*this); }
};

TEST_F(assert_hook, is_out_of_reach_when_it_is_destroyed) {
  recording_hook::record_t dying;
  {
    const asserting_hook hook(dying);
    debug::set_assert_hook(hook);
    dying.reports.clear();
    install();
    EXPECT_EQ(dying.reports.size(), 0u);
    EXPECT_EQ(record.reports.size(), 1u);
  }
  EXPECT_EQ(dying.alive, 0);
}

TEST_F(assert_hook, exception_of_a_hook_reaches_the_caller_of_the_assertion) {
  struct thrower {
    void fail(const char* const, const char* const, unsigned int&) { throw 7; }
  } object;
  debug::set_assert_hook(functor::member_function_t(&object, &thrower::fail));
  EXPECT_THROW(ORVA_ASSERT(false), int);
}

TEST_F(assert_hook, plain_entry_hands_on_text_file_and_line) {
  install();
  const char* const expression = "a < b";
  ____________________ASSERT____________________(expression, "some/file", 77, "function");
  ASSERT_EQ(record.reports.size(), 1u);
  EXPECT_EQ(record.reports[0].text, "a < b");
  EXPECT_EQ(record.reports[0].file, "some/file");
  EXPECT_EQ(record.reports[0].line, 77u);
}

TEST_F(assert_hook, plain_entry_has_no_limit) {
  install();
  const std::string expression(10000, 'e');
  ____________________ASSERT____________________(expression.c_str(), "file", 1, "function");
  EXPECT_EQ(record.reports.at(0).text, expression);
}

TEST_F(assert_hook, changing_the_line_changes_nothing_for_the_caller) {
  install();
  unsigned int line = 5;
  ____________________ASSERT____________________("e", "file", line, "function");
  _______________CONTEXT__ASSERT________________("e", "file", line, "function", "f");
  EXPECT_EQ(line, 5u);
}

TEST_F(assert_hook, macro_reports_condition_and_place) {
  install();
  const int number = 1;
  ORVA_ASSERT(number == 2);
  const unsigned int line = __LINE__ - 1;
  ASSERT_EQ(record.reports.size(), 1u);
  EXPECT_EQ(record.reports[0].text, "number == 2");
  EXPECT_EQ(record.reports[0].file, __FILE__);
  EXPECT_EQ(record.reports[0].line, line);
}

TEST_F(assert_hook, macros_are_silent_when_the_condition_holds) {
  install();
  ORVA_ASSERT(true);
  ORVA_CONTEXT_ASSERT(true, "%d", 1);
  EXPECT_TRUE(record.reports.empty());
}

TEST_F(assert_hook, macros_evaluate_the_condition_once) {
  int evaluated = 0;
  ORVA_ASSERT(++evaluated == 0);
  EXPECT_EQ(evaluated, 1);
  ORVA_CONTEXT_ASSERT(++evaluated == 0, "context");
  EXPECT_EQ(evaluated, 2);
}

TEST_F(assert_hook, context_macro_reports_condition_and_context) {
  install();
  ORVA_CONTEXT_ASSERT(1 > 2, "index %d of %s", 7, "list");
  const unsigned int line = __LINE__ - 1;
  ASSERT_EQ(record.reports.size(), 1u);
  EXPECT_EQ(record.reports[0].text, "1 > 2 : index 7 of list");
  EXPECT_EQ(record.reports[0].line, line);
}

TEST_F(assert_hook, context_without_format_is_the_expression_alone) {
  install();
  _______________CONTEXT__ASSERT________________("e", "file", 1, "function",
                                                 static_cast<const char*>(nullptr));
  EXPECT_EQ(record.reports.at(0).text, "e : ");
  ORVA_CONTEXT_ASSERT(false, nullptr);
  EXPECT_EQ(record.reports.at(1).text, "false : ");
}

TEST_F(assert_hook, percent_signs_in_the_expression_are_text) {
  install();
  _______________CONTEXT__ASSERT________________("a % s == 0 && %n", "file", 1, "function", "%s", "context");
  EXPECT_EQ(record.reports.at(0).text, "a % s == 0 && %n : context");
}

/// The text that the hook gets: "expression : context", at most 255 characters, and no context after an
/// expression that fills the buffer.
std::string expected_context(const std::string& expression, const std::string& context) {
  const std::string start = expression + " : ";
  return (start.size() < 256 ? start + context : start).substr(0, 255);
}

TEST_F(assert_hook, context_is_cut_at_255_characters_for_every_length) {
  install();
  for (std::size_t length = 0; length < 300; ++length) {
    const std::string expression(length, 'e');
    for (const std::size_t context_length : {0u, 1u, 2u, 100u, 1000u}) {
      const std::string context(context_length, 'c');
      _______________CONTEXT__ASSERT________________(expression.c_str(), "file", 1, "function", "%s",
                                                     context.c_str());
      ASSERT_EQ(record.reports.back().text, expected_context(expression, context)) << length;
    }
  }
}

TEST_F(assert_hook, expression_that_fills_the_buffer_skips_the_context) {
  install();
  const std::string expression(253, 'e');
  _______________CONTEXT__ASSERT________________(expression.c_str(), "file", 1, "function", "context");
  EXPECT_EQ(record.reports.at(0).text, expression + " :");
}

}  // namespace
