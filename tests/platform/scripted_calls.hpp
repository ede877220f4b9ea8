/// What the scripts of both systems' calls have in common.
///
/// A header beside this one defines `call_script`: functions that take the place of system calls, and counts
/// of what was opened and not closed. A call whose function is set is answered by it; any other reaches the
/// system. One script for the process: a `scripted_calls` starts and ends it.
#pragma once

#include <cstddef>
#include <string>

namespace orva_test {

struct call_script;

/// The script in force.
call_script& script();

/// A script for one test; its end drops it.
template <typename Script>
class basic_scripted_calls {
 public:
  basic_scripted_calls() { script() = Script(); }
  basic_scripted_calls(const basic_scripted_calls&) = delete;
  basic_scripted_calls& operator=(const basic_scripted_calls&) = delete;
  ~basic_scripted_calls() { script() = Script(); }

  Script* operator->() const { return &script(); }
};

/// Contents of a file in which no two neighbours are equal.
inline std::string some_bytes(std::size_t size) {
  std::string bytes(size, '\0');
  for (std::size_t i = 0; i < size; ++i) bytes[i] = static_cast<char>('A' + i % 50);
  return bytes;
}

}  // namespace orva_test
