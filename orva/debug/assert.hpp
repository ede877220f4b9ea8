/// Assertions that call a hook and never stop the program.
///
///     debug::set_assert_hook([](const char* condition, const char* file, unsigned int& line) {
///       std::cerr << file << ':' << line << ": " << condition << '\n';
///     });
///     ORVA_ASSERT(index < size);
///     ORVA_CONTEXT_ASSERT(index < size, "index %u of %u", index, size);
///
/// The conditions are checked in every build. A failed assertion calls the hook, if there is one, and the
/// program continues in either case. There is one hook for the process, and no lock: install it once, at the
/// start, before other threads can assert. Several threads may call it at once.
///
/// A hook may install another hook or remove itself; it is destroyed when it returns. An assertion that fails
/// in the hook itself, on the same thread, is ignored.
///
/// Edge cases: docs/edges.md#core
#pragma once

#include "orva/export.hpp"
#include "orva/functor/delegate.hpp"
#include "orva/types/nil.hpp"

namespace ORVA_NAMESPACE::debug {

/// Gets the text of the condition, the source file and the line. The line is a copy: changing it has no
/// effect.
using assert_hook = void(const char* const, const char* const, unsigned int&);

/// Installs a copy of `hook` and destroys the hook installed before. An empty delegate removes the hook.
ORVA_API void set_assert_hook(const functor::delegate_t<assert_hook>& hook);
/// Removes the hook.
ORVA_API void set_assert_hook(const types::nil_t&);
ORVA_API bool is_assert_hook_set();

namespace _private {

ORVA_BEGIN_RESERVED_NAMES

/// Called by a failed `ORVA_ASSERT`. The hook does not get `function`.
ORVA_API void ____________________ASSERT____________________(const char* const expression,
                                                             const char* const file, unsigned int line,
                                                             const char* const function);

/// Called by a failed `ORVA_CONTEXT_ASSERT`. The hook gets "expression : context", cut at 255 characters.
/// The first variadic argument is a `printf` format, which may be null; its values follow.
ORVA_API void _______________CONTEXT__ASSERT________________(const char* const expression,
                                                             const char* const file, unsigned int line,
                                                             const char* const function, ...);

ORVA_END_RESERVED_NAMES

}  // namespace _private

}  // namespace ORVA_NAMESPACE::debug

/// Calls the hook when the condition is false. A macro, since only a macro has the text of the condition and
/// its source line. The condition may contain commas: `ORVA_ASSERT(std::is_same_v<A, B>)`.
#define ORVA_ASSERT(...)                                                                     \
  do {                                                                                       \
    /* Unlike `!(__VA_ARGS__)` this does not compile where two conditions are given. */      \
    if (!bool(__VA_ARGS__)) {                                                                \
      ::ORVA_NAMESPACE::debug::_private::____________________ASSERT____________________(     \
          #__VA_ARGS__, __FILE__, static_cast<unsigned int>(__LINE__), __PRETTY_FUNCTION__); \
    }                                                                                        \
  } while (false)

/// The same with a context: a `printf` format, which may be null, and its values. A condition with commas
/// needs parentheses here.
#define ORVA_CONTEXT_ASSERT(condition, ...)                                                             \
  do {                                                                                                  \
    if (!(condition)) {                                                                                 \
      ::ORVA_NAMESPACE::debug::_private::_______________CONTEXT__ASSERT________________(                \
          #condition, __FILE__, static_cast<unsigned int>(__LINE__), __PRETTY_FUNCTION__, __VA_ARGS__); \
    }                                                                                                   \
  } while (false)
