/// Transforms of UTF-16 text in the other byte order, which exhaust the stack: run in a child process with a
/// small stack.
#include <gtest/gtest.h>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include <csignal>
#include <cstddef>
#include <cstdlib>
#include <utility>

#include "orva/orva.hpp"

namespace {

using namespace orva::strings;

#if defined(__SANITIZE_ADDRESS__) || defined(__SANITIZE_THREAD__)
constexpr bool sanitized = true;
#elif defined(__has_feature)
constexpr bool sanitized = __has_feature(address_sanitizer) || __has_feature(thread_sanitizer);
#else
constexpr bool sanitized = false;
#endif

void limit_stack() {
  const rlimit small_stack{512 * 1024, 512 * 1024};
  const rlimit no_core{0, 0};
  if (setrlimit(RLIMIT_STACK, &small_stack) != 0 || setrlimit(RLIMIT_CORE, &no_core) != 0) std::abort();
}

/// A sanitizer catches the signal, reports it and exits.
bool stack_is_exhausted(int status) {
  if (sanitized) return WIFEXITED(status) && WEXITSTATUS(status) != 0;
  return WIFSIGNALED(status) && WTERMSIG(status) == SIGSEGV;
}

constexpr const char* expected_output = sanitized ? "stack-overflow" : "";

ustring16 begins_with_swapped_mark(std::size_t size) {
  ustring16 text(size, code_unit16{'x'});
  text[0] = static_cast<code_unit16>(0xFFFE);
  return text;
}

template <typename Transform>
void run_on_small_stack(Transform transform, std::size_t size) {
  limit_stack();
  alarm(60);  // an endless loop would be wrong too
  const auto result = transform(begins_with_swapped_mark(size));
  std::_Exit(result.empty() ? 1 : 0);
}

TEST(unicode_stack_death_test, utf16_to_utf8_of_swapped_text_never_returns) {
  EXPECT_EXIT(run_on_small_stack(utf16_to_utf8, 1), stack_is_exhausted, expected_output);
  EXPECT_EXIT(run_on_small_stack(utf16_to_utf8, 3), stack_is_exhausted, expected_output);
  EXPECT_EXIT(run_on_small_stack(utf16_to_utf8, 100), stack_is_exhausted, expected_output);
}

TEST(unicode_stack_death_test, utf16_to_utf32_of_swapped_text_never_returns) {
  EXPECT_EXIT(run_on_small_stack(utf16_to_utf32, 1), stack_is_exhausted, expected_output);
  EXPECT_EXIT(run_on_small_stack(utf16_to_utf32, 3), stack_is_exhausted, expected_output);
  EXPECT_EXIT(run_on_small_stack(utf16_to_utf32, 100), stack_is_exhausted, expected_output);
}

TEST(unicode_stack_death_test, swapped_mark_after_the_first_unit_is_a_character) {
  ustring16 text = begins_with_swapped_mark(2);
  std::swap(text[0], text[1]);
  EXPECT_EQ(utf16_to_utf8(text), "x\xEF\xBF\xBE");
  EXPECT_EQ(utf16_to_utf32(text), (ustring32{'x', 0xFFFE}));
}

}  // namespace
