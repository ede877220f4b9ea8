/// An open file descriptor.
#pragma once

#include <cerrno>
#include <utility>

#include "orva/platform/posix/system_calls.hpp"

namespace ORVA_NAMESPACE::platform::posix {

/// Closes the descriptor at its end; -1 is none.
class descriptor {
 public:
  explicit descriptor(int file) : file_(file) {}
  descriptor(descriptor&& other) noexcept : file_(other.release()) {}
  descriptor& operator=(descriptor&&) = delete;
  // An interrupted close has closed: a second one could hit a file that another thread just opened.
  ~descriptor() {
    if (file_ >= 0) calls::close(file_);
  }

  int get() const { return file_; }
  int release() { return std::exchange(file_, -1); }

 private:
  int file_;
};

/// The result of a call, which is repeated while signals interrupt it.
template <typename Call>
int uninterrupted(Call call) {
  int result;
  do {
    result = call();
  } while (result < 0 && errno == EINTR);
  return result;
}

}  // namespace ORVA_NAMESPACE::platform::posix
