#include "orva/debug/assert.hpp"

#include <cstdarg>
#include <cstddef>
#include <cstdio>
#include <utility>

namespace ORVA_NAMESPACE::debug {

namespace {

using hook_interface = functor::function_type_interface<assert_hook>;

/// The hook of the process. A plain pointer: an assertion in a destructor that runs after the destructors of
/// this file finds an empty slot, not a destroyed object.
constinit hook_interface* hook_slot = nullptr;

/// The hook that this thread is calling; null if it is calling none.
constinit thread_local hook_interface* running_hook = nullptr;

/// The old hook has left the slot when it is destroyed, so that an assertion in its destructor cannot reach
/// it. A hook that replaces itself is destroyed when it returns.
void replace_hook(hook_interface* hook) {
  hook_interface* const old_hook = std::exchange(hook_slot, hook);
  if (old_hook != running_hook) delete old_hook;
}

struct remove_hook_at_unload {
  ~remove_hook_at_unload() { replace_hook(nullptr); }
} at_unload;

/// Keeps the installed hook alive for one call.
class hook_call {
 public:
  hook_call() : hook_(*hook_slot) { running_hook = &hook_; }
  hook_call(const hook_call&) = delete;
  hook_call& operator=(const hook_call&) = delete;
  ~hook_call() {
    running_hook = nullptr;
    if (hook_slot != &hook_) delete &hook_;
  }

  hook_interface& hook() const { return hook_; }

 private:
  hook_interface& hook_;
};

void call_hook(const char* const expression, const char* const file, unsigned int line) {
  // A hook that itself fails an assertion would be called without end.
  if (hook_slot == nullptr || running_hook != nullptr) return;
  const hook_call call;
  call.hook()(expression, file, line);
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
  const int length = std::snprintf(buffer, sizeof buffer, "%s : ", expression);
  // Formatted with or without a hook, so that a wrong format fails in every run.
  std::va_list values;
  va_start(values, function);
  const char* const format = va_arg(values, const char*);
  if (length > 0 && length < static_cast<int>(sizeof buffer) && format != nullptr) {
    const auto used = static_cast<std::size_t>(length);
    std::vsnprintf(buffer + used, sizeof buffer - used, format, values);
  }
  va_end(values);
  call_hook(buffer, file, line);
}

}  // namespace _private

}  // namespace ORVA_NAMESPACE::debug
