/// `run_child`: runs a program with its own arguments and environment, and collects its standard output. For
/// systems that have `posix_spawn`.
#pragma once

#include <spawn.h>
#include <sys/wait.h>
#include <unistd.h>

#include <stdexcept>
#include <string>
#include <vector>

namespace orva_test {

struct child_result {
  int code = -1;
  /// The whole standard output.
  std::string output;
};

namespace child_process {

inline std::vector<char*> pointers_to(std::vector<std::string>& texts) {
  std::vector<char*> pointers;
  for (std::string& text : texts) pointers.push_back(text.data());
  pointers.push_back(nullptr);
  return pointers;
}

inline std::string read_all(int from) {
  std::string all;
  char buffer[4096];
  for (ssize_t count; (count = ::read(from, buffer, sizeof buffer)) > 0;) {
    all.append(buffer, static_cast<std::size_t>(count));
  }
  return all;
}

}  // namespace child_process

/// The first of the `arguments` is the name that the program sees as its own.
inline child_result run_child(const std::string& program, std::vector<std::string> arguments,
                              std::vector<std::string> environment) {
  int ends[2];
  if (::pipe(ends) != 0) throw std::runtime_error("no pipe");
  posix_spawn_file_actions_t actions;
  posix_spawn_file_actions_init(&actions);
  posix_spawn_file_actions_adddup2(&actions, ends[1], 1);
  posix_spawn_file_actions_addclose(&actions, ends[0]);
  posix_spawn_file_actions_addclose(&actions, ends[1]);
  pid_t child = 0;
  const int failed =
      ::posix_spawn(&child, program.c_str(), &actions, nullptr, child_process::pointers_to(arguments).data(),
                    child_process::pointers_to(environment).data());
  posix_spawn_file_actions_destroy(&actions);
  ::close(ends[1]);
  child_result result;
  if (failed == 0) result.output = child_process::read_all(ends[0]);
  ::close(ends[0]);
  if (failed != 0) throw std::runtime_error("could not run " + program);
  int status = 0;
  ::waitpid(child, &status, 0);
  result.code = WIFEXITED(status) ? WEXITSTATUS(status) : -1;
  return result;
}

}  // namespace orva_test
