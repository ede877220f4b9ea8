/// Programs that end by an uncaught exception, in child processes. Replaces the allocation of the program.
#include "orva/exceptions/terminate_handler.hpp"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include <atomic>
#include <cstdio>
#include <cstdlib>
#include <exception>
#include <new>
#include <stdexcept>
#include <string>
#include <thread>

#include "orva/exceptions/exception.hpp"

namespace {

std::atomic<bool> is_memory_exhausted{false};

}  // namespace

[[gnu::noinline]] void* operator new(std::size_t size) {
  if (is_memory_exhausted) throw std::bad_alloc();
  if (void* memory = std::malloc(size)) return memory;
  throw std::bad_alloc();
}
[[gnu::noinline]] void operator delete(void* memory) noexcept { std::free(memory); }
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace app {

struct queue_full : ORVA_NAMESPACE::exceptions::full_error {
  using ORVA_NAMESPACE::exceptions::full_error::full_error;
};

/// Ends the program where its message is read.
struct fatal_message : ORVA_NAMESPACE::exceptions::exception {
  using ORVA_NAMESPACE::exceptions::exception::exception;

 private:
  const char* get_message() const override { std::terminate(); }
};

}  // namespace app

namespace {

using ORVA_NAMESPACE::exceptions::install_terminate_handler;
using testing::AllOf;
using testing::HasSubstr;
using testing::Not;

constexpr int previous_code = 3;

[[noreturn]] void previous_handler() {
  std::fputs("previous handler\n", stderr);
  std::fflush(stderr);
  std::_Exit(previous_code);
}

/// Not inlined: GCC ends the program without the exception if it sees the throw and the `noexcept` in one
/// function.
template <typename Action>
[[gnu::noinline]] void call(Action action) {
  action();
}

/// Nothing catches what `action` throws.
template <typename Action>
void run_uncaught(Action action) noexcept {
  call(action);
}

template <typename Action>
void run_with_previous_handler(Action action) {
  std::set_terminate(previous_handler);
  install_terminate_handler();
  run_uncaught(action);
}

const testing::ExitedWithCode ends_by_the_previous_handler(previous_code);

class terminate_handler_death_test : public testing::Test {};

TEST_F(terminate_handler_death_test, documentation_example) {
  EXPECT_EXIT(
      run_with_previous_handler(
          [] { throw app::queue_full("no room for job 8", 21, "app/queue", "app::push"); }),
      ends_by_the_previous_handler,
      "terminated by app::queue_full: no room for job 8 .app::push, app/queue:21.\nprevious handler\n");
}

TEST_F(terminate_handler_death_test, handler_of_the_runtime_still_aborts) {
  const auto fail = [] {
    install_terminate_handler();
    run_uncaught([] { throw std::runtime_error("the disk is full"); });
  };
  EXPECT_DEATH(fail(), HasSubstr("terminated by std::runtime_error: the disk is full\n"));
}

TEST_F(terminate_handler_death_test, shows_causes) {
  const auto fail = [] {
    try {
      throw std::runtime_error("the disk is full");
    } catch (...) {
      std::throw_with_nested(std::runtime_error("cannot save"));
    }
  };
  EXPECT_EXIT(run_with_previous_handler(fail), ends_by_the_previous_handler,
              HasSubstr("terminated by std::runtime_error: cannot save\n"
                        "caused by std::runtime_error: the disk is full\n"));
}

TEST_F(terminate_handler_death_test, says_that_there_is_no_exception) {
  EXPECT_EXIT(run_with_previous_handler([] { std::terminate(); }), ends_by_the_previous_handler,
              HasSubstr("terminated without a C++ exception\nprevious handler\n"));
}

TEST_F(terminate_handler_death_test, shows_failures_of_threads) {
  EXPECT_EXIT(run_with_previous_handler([] { std::thread([] { throw 42; }).join(); }),
              ends_by_the_previous_handler,
              HasSubstr("terminated by an object of type int\nprevious handler\n"));
}

TEST_F(terminate_handler_death_test, works_without_memory) {
  const auto fail = [] {
    is_memory_exhausted = true;
    throw std::bad_alloc();
  };
  EXPECT_EXIT(run_with_previous_handler(fail), ends_by_the_previous_handler,
              HasSubstr("terminated by std::bad_alloc: std::bad_alloc\nprevious handler\n"));
}

TEST_F(terminate_handler_death_test, long_text_is_written_whole) {
  const std::string text(100'000, 'x');
  EXPECT_EXIT(run_with_previous_handler([&] { throw std::runtime_error(text); }),
              ends_by_the_previous_handler,
              HasSubstr("terminated by std::runtime_error: " + text + "\nprevious handler\n"));
}

TEST_F(terminate_handler_death_test, failure_of_the_message_leaves_out_the_rest) {
  EXPECT_EXIT(run_with_previous_handler([] { throw app::fatal_message(1, "file", "function"); }),
              ends_by_the_previous_handler,
              AllOf(HasSubstr("terminated by "), HasSubstr("previous handler\n")));
}

TEST_F(terminate_handler_death_test, text_is_shown_once_if_it_is_installed_twice) {
  const auto fail = [] {
    install_terminate_handler();
    throw 42;
  };
  EXPECT_EXIT(run_with_previous_handler(fail), ends_by_the_previous_handler,
              HasSubstr("terminated by an object of type int\nprevious handler\n"));
}

std::terminate_handler handler_before = nullptr;

/// As a library does that chains its handler in front of ours.
[[noreturn]] void call_the_handler_before() {
  std::fputs("chained handler\n", stderr);
  handler_before();
  std::abort();
}

TEST_F(terminate_handler_death_test, chain_that_leads_back_ends) {
  const auto fail = [] {
    install_terminate_handler();
    handler_before = std::set_terminate(call_the_handler_before);
    install_terminate_handler();
    run_uncaught([] { throw 42; });
  };
  EXPECT_DEATH(fail(), HasSubstr("terminated by an object of type int\nchained handler\n"));
}

std::size_t count_of(const std::string& part, const std::string& text) {
  std::size_t count = 0;
  for (auto at = text.find(part); at != text.npos; at = text.find(part, at + 1)) ++count;
  return count;
}

MATCHER(says_once_why, "") { return count_of("terminated by", arg) == 1 && count_of("previous", arg) == 1; }

TEST_F(terminate_handler_death_test, one_of_several_failing_threads_ends_the_program) {
  const auto fail = [] {
    std::atomic<int> ready{0};
    const auto run = [&ready] {
      ++ready;
      while (ready < 4) std::this_thread::yield();
      throw 42;
    };
    std::thread threads[] = {std::thread(run), std::thread(run), std::thread(run), std::thread(run)};
    for (std::thread& thread : threads) thread.join();
  };
  EXPECT_EXIT(run_with_previous_handler(fail), ends_by_the_previous_handler, says_once_why());
}

}  // namespace
