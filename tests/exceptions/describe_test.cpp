#include "orva/exceptions/describe.hpp"

#include <gtest/gtest.h>

#include <new>
#include <stdexcept>
#include <string>
#include <thread>
#include <utility>

#include "orva/exceptions/exception.hpp"
#include "orva/strings/code_page.hpp"

namespace app {

namespace exceptions = ORVA_NAMESPACE::exceptions;

struct job_failed : exceptions::runtime_error {
  using exceptions::runtime_error::runtime_error;
};

/// A message that fails.
struct silent : exceptions::exception {
  using exceptions::exception::exception;

 private:
  const char* get_message() const override { throw std::bad_alloc(); }
};

struct without_message : exceptions::exception {
  using exceptions::exception::exception;

 private:
  const char* get_message() const override { return nullptr; }
};

struct without_what : std::exception {
  const char* what() const noexcept override { return nullptr; }
};

template <typename T>
struct wrapped : std::runtime_error {
  using std::runtime_error::runtime_error;
};

struct plain {};

struct with_virtual {
  virtual ~with_virtual() = default;
};

struct nesting : std::nested_exception {};

}  // namespace app

namespace {

using ORVA_NAMESPACE::exceptions::describe;
using ORVA_NAMESPACE::exceptions::logic_error;
using ORVA_NAMESPACE::exceptions::max_described_exceptions;

template <typename Thrown>
std::string description_of(Thrown thrown) {
  return describe(std::make_exception_ptr(std::move(thrown)));
}

/// What the library calls this class.
std::string library(const std::string& name) { return ORVA_QUALIFIED("exceptions::") + name; }

template <typename Cause, typename Thrown>
std::string description_of_nested(Cause cause, Thrown thrown) {
  try {
    try {
      throw cause;
    } catch (...) {
      std::throw_with_nested(thrown);
    }
  } catch (...) {
    return describe();
  }
}

TEST(describe, documentation_example) {
  const app::job_failed failed("cannot save the report", 52, "app/job", "app::job::run");
  EXPECT_EQ(description_of_nested(std::runtime_error("the disk is full"), failed),
            "app::job_failed: cannot save the report [app::job::run, app/job:52]\n"
            "caused by std::runtime_error: the disk is full");
}

TEST(describe, takes_the_exception_that_is_handled_by_default) {
  EXPECT_EQ(describe(), "no C++ exception");
  try {
    throw std::out_of_range("too far");
  } catch (...) {
    EXPECT_EQ(describe(), "std::out_of_range: too far");
  }
  EXPECT_EQ(describe(), "no C++ exception");
}

TEST(describe, null_is_no_exception) { EXPECT_EQ(describe(nullptr), "no C++ exception"); }

TEST(describe, exception_of_the_library_has_its_place) {
  try {
    ORVA_NAMESPACE::strings::code_page().encode(ORVA_NAMESPACE::strings::ustring8("text"));
    FAIL();
  } catch (const ORVA_NAMESPACE::exceptions::exception& raised) {
    const auto& place = raised.error_state();
    EXPECT_EQ(describe(), library("invalid_argument_value: ") + raised.message() + " [" + place.function() +
                              ", " + place.file() + ":" + std::to_string(place.line()) + "]");
  }
}

TEST(describe, missing_parts_of_a_place_are_left_out) {
  const auto place_of = [](unsigned int line, const char* file, const char* function) {
    return description_of(logic_error("m", line, file, function)).substr(library("logic_error: m").size());
  };
  EXPECT_EQ(place_of(7, "file", "function"), " [function, file:7]");
  EXPECT_EQ(place_of(0, "file", "function"), " [function, file]");
  EXPECT_EQ(place_of(7, "", "function"), " [function, line 7]");
  EXPECT_EQ(place_of(7, "file", ""), " [file:7]");
  EXPECT_EQ(place_of(0, "", "function"), " [function]");
  EXPECT_EQ(place_of(0, "file", ""), " [file]");
  EXPECT_EQ(place_of(7, nullptr, nullptr), " [line 7]");
  EXPECT_EQ(place_of(4294967295, "", ""), " [line 4294967295]");
  EXPECT_EQ(place_of(0, "", ""), "");
}

TEST(describe, empty_message_is_left_out) {
  EXPECT_EQ(description_of(std::runtime_error("")), "std::runtime_error");
  EXPECT_EQ(description_of(logic_error("", 7, "file", "f")), library("logic_error [f, file:7]"));
  EXPECT_EQ(description_of(app::without_what()), "app::without_what");
  EXPECT_EQ(description_of(app::without_message(0, "", "")), "app::without_message");
}

TEST(describe, message_that_fails_is_replaced) {
  EXPECT_EQ(description_of(app::silent(7, "file", "f")),
            "app::silent: its message cannot be read [f, file:7]");
}

TEST(describe, class_is_the_one_that_was_thrown) {
  EXPECT_EQ(description_of(std::bad_alloc()), "std::bad_alloc: std::bad_alloc");
  EXPECT_EQ(description_of(app::wrapped<int>("m")), "app::wrapped<int>: m");
}

TEST(describe, thrown_text_is_shown) {
  EXPECT_EQ(description_of("out of paper"), "text: out of paper");
  EXPECT_EQ(description_of(std::string("out of paper")), "text: out of paper");
  EXPECT_EQ(description_of(ORVA_NAMESPACE::strings::ustring8("out of paper")), "text: out of paper");
  EXPECT_EQ(description_of(static_cast<const char*>(nullptr)), "text: a null pointer");
  char variable[] = "out of paper";
  EXPECT_EQ(description_of(&variable[0]), "text: out of paper");
}

TEST(describe, other_objects_are_named_by_their_type) {
  EXPECT_EQ(description_of(42), "an object of type int");
  EXPECT_EQ(description_of(app::plain()), "an object of type app::plain");
  EXPECT_EQ(description_of(app::with_virtual()), "an object of type app::with_virtual");
  EXPECT_EQ(description_of(std::wstring(L"text")).substr(0, 18), "an object of type ");
}

TEST(describe, causes_follow_for_every_kind_of_exception) {
  const std::string cause = "\ncaused by an object of type int";
  const auto nested = [](auto thrown) { return description_of_nested(1, thrown); };
  EXPECT_EQ(nested(logic_error("m", 7, "file", "f")), library("logic_error: m [f, file:7]") + cause);
  EXPECT_EQ(nested(std::runtime_error("m")), "std::runtime_error: m" + cause);
  EXPECT_EQ(nested(app::wrapped<int>("m")), "app::wrapped<int>: m" + cause);
  EXPECT_EQ(nested(std::string("m")), "text: m" + cause);
  EXPECT_EQ(nested(app::plain()), "an object of type app::plain" + cause);
}

TEST(describe, cause_of_a_class_that_nests_by_itself_follows) {
  try {
    throw 1;
  } catch (...) {
    EXPECT_EQ(description_of(app::nesting()),
              "an object of type app::nesting\ncaused by an object of type int");
  }
}

TEST(describe, nested_exception_without_a_cause_ends_the_text) {
  EXPECT_EQ(description_of(app::nesting()), "an object of type app::nesting");
}

/// The last of a chain of `count` exceptions, each of which nests the one before.
std::exception_ptr chain_of(int count) {
  auto last = std::make_exception_ptr(std::runtime_error("1"));
  for (int number = 2; number <= count; ++number) {
    try {
      std::rethrow_exception(last);
    } catch (...) {
      try {
        std::throw_with_nested(std::runtime_error(std::to_string(number)));
      } catch (...) {
        last = std::current_exception();
      }
    }
  }
  return last;
}

std::string expected_chain(int first, int last) {
  std::string text;
  for (int number = first; number >= last; --number) {
    if (number != first) text += "\ncaused by ";
    text += "std::runtime_error: " + std::to_string(number);
  }
  return text;
}

TEST(describe, chain_is_shown_up_to_the_limit) {
  const int limit = max_described_exceptions;
  EXPECT_EQ(describe(chain_of(limit)), expected_chain(limit, 1));
  const std::string more = "\ncaused by more exceptions, which are not shown";
  EXPECT_EQ(describe(chain_of(limit + 1)), expected_chain(limit + 1, 2) + more);
  EXPECT_EQ(describe(chain_of(3 * limit)), expected_chain(3 * limit, 2 * limit + 1) + more);
}

/// A program can make an exception its own cause by assignment.
TEST(describe, cycle_of_causes_ends_at_the_limit) {
  const app::nesting nothing;
  std::exception_ptr cycle;
  try {
    throw app::nesting();
  } catch (app::nesting& caught) {
    cycle = std::current_exception();
    caught = app::nesting();  // made in the handler of `caught`: this is its cause
    EXPECT_TRUE(describe(cycle).ends_with("\ncaused by more exceptions, which are not shown"));
    caught = nothing;
  }
  EXPECT_EQ(describe(cycle), "an object of type app::nesting");
}

TEST(describe, exception_of_another_thread_is_described) {
  std::exception_ptr failure;
  std::thread([&failure] { failure = std::make_exception_ptr(std::runtime_error("there")); }).join();
  EXPECT_EQ(describe(failure), "std::runtime_error: there");
}

TEST(describe, leaves_the_exception_that_is_handled) {
  try {
    throw std::runtime_error("handled");
  } catch (...) {
    static_cast<void>(description_of(42));
    EXPECT_EQ(describe(), "std::runtime_error: handled");
  }
}

}  // namespace
