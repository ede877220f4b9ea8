#include "orva/debug/assert.hpp"

#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <utility>

namespace ORVA_NAMESPACE::debug {

namespace {

using hook_interface = functor::function_type_interface<assert_hook>;

/// The one hook of the process. A plain pointer, so that an assertion in a destructor that runs after this
/// file's own still finds an empty slot and no dead object.
constinit hook_interface* hook_slot = nullptr;

/// The old hook has left the slot when it is destroyed, so that an assertion in its destructor cannot reach
/// it.
void replace_hook(hook_interface* hook) { delete std::exchange(hook_slot, hook); }

struct remove_hook_at_unload {
  ~remove_hook_at_unload() { replace_hook(nullptr); }
} at_unload;

void call_hook(const char* const expression, const char* const file, unsigned int line) {
  if (hook_slot != nullptr) (*hook_slot)(expression, file, line);
}

}  // namespace

void set_assert_hook(const functor::delegate_t<assert_hook>& hook) {
  replace_hook(hook.empty() ? nullptr : hook.target()->clone());
}

void set_assert_hook(const types::nil_t&) { replace_hook(nullptr); }

bool is_assert_hook_set() { return hook_slot != nullptr; }

namespace _private {

void ____________________ASSERT____________________(const char* const expression, const char* const file,
                                                    unsigned int line, const char* const /*function*/) {
  call_hook(expression, file, line);
}

void _______________CONTEXT__ASSERT________________(const char* const expression, const char* const file,
                                                    unsigned int line, const char* const function, ...) {
  char buffer[256] = {};
  const int written = std::snprintf(buffer, sizeof buffer, "%s : ", expression);
  // The formatting is done with or without a hook: an assertion costs the same when somebody listens.
  std::va_list values;
  va_start(values, function);
  const char* const format = va_arg(values, const char*);
  if (written > 0 && written < static_cast<int>(sizeof buffer) && format != nullptr) {
    const auto used = static_cast<std::size_t>(written);
    std::vsnprintf(buffer + used, sizeof buffer - used, format, values);
  }
  va_end(values);
  call_hook(buffer, file, line);
}

}  // namespace _private

}  // namespace ORVA_NAMESPACE::debug
