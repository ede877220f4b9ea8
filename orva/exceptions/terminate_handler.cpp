#include "orva/exceptions/terminate_handler.hpp"

#include <algorithm>
#include <atomic>
#include <chrono>
#include <cstddef>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <exception>
#include <string_view>
#include <thread>

#include "orva/exceptions/internal/description.hpp"

namespace ORVA_NAMESPACE::exceptions {

namespace {

/// Writes to standard error in large pieces, without the heap: what other threads write does not come between
/// the words.
class standard_error final : public _private::text_sink {
 public:
  constexpr standard_error() = default;

  void append(std::string_view text) override {
    while (!text.empty()) {
      if (size_ == sizeof buffer_) flush();
      const std::size_t count = std::min(text.size(), sizeof buffer_ - size_);
      std::memcpy(buffer_ + size_, text.data(), count);
      size_ += count;
      text.remove_prefix(count);
    }
  }

  /// A closed or full standard error takes nothing, and nobody is left to report that to.
  void flush() noexcept {
    static_cast<void>(std::fwrite(buffer_, 1, size_, stderr));
    static_cast<void>(std::fflush(stderr));
    size_ = 0;
  }

 private:
  char buffer_[2048] = {};
  std::size_t size_ = 0;
};

/// Used by the thread that ends the program. Not on its stack, so that what is in the buffer is not lost when
/// the description fails.
constinit standard_error output;

void show(const std::exception_ptr& failure) {
  if (failure == nullptr) {
    output.append("terminated without a C++ exception\n");
    return;
  }
  output.append("terminated by ");
  _private::append_description(output, failure);
  output.append("\n");
}

/// What the handler calls when it is done; null before it is installed.
constinit std::atomic<std::terminate_handler> previous_handler{nullptr};

/// The thread that ends the program.
std::atomic<std::thread::id> ending_thread;
/// Whether that thread has left its end to the previous handler.
constinit std::atomic<bool> is_handed_over{false};

[[noreturn]] void hand_over() noexcept {
  output.flush();
  // A handler that calls this one again would do so for ever.
  if (!is_handed_over.exchange(true)) {
    if (const std::terminate_handler handler = previous_handler; handler != nullptr) handler();
  }
  std::abort();
}

[[noreturn]] void wait_for_the_end() noexcept {
  std::this_thread::sleep_for(std::chrono::seconds(10));
  std::abort();
}

[[noreturn]] void end_program() noexcept {
  std::thread::id thread;
  const auto self = std::this_thread::get_id();
  if (ending_thread.compare_exchange_strong(thread, self)) {
    show(std::current_exception());
  } else if (thread != self) {
    wait_for_the_end();
  }
  // Otherwise `show` itself has failed in this thread, and the program ends without the rest of the text.
  hand_over();
}

}  // namespace

void install_terminate_handler() noexcept {
  const std::terminate_handler previous = std::set_terminate(end_program);
  if (previous != static_cast<std::terminate_handler>(end_program)) previous_handler = previous;
}

}  // namespace ORVA_NAMESPACE::exceptions
