// Files and devices of a real system that make a program wait.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <pty.h>
#include <signal.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <termios.h>
#include <unistd.h>

#include <atomic>
#include <chrono>
#include <cstdlib>
#include <string>
#include <thread>

#include "orva/system/file_utility.hpp"
#include "tests/support/temporary_directory.hpp"

namespace {

namespace sys = ORVA_NAMESPACE::system;
using orva_test::temporary_directory;
using namespace std::chrono_literals;

/// A process that holds a lease on a file, and gives it up a while after the system asks for it.
class lease_holder {
 public:
  explicit lease_holder(const std::string& path) {
    if (pipe(held_) != 0) std::abort();
    holder_ = fork();
    if (holder_ == 0) hold(path);
    close(held_[1]);
    char answer = 'n';
    is_held_ = read(held_[0], &answer, 1) == 1 && answer == 'y';
  }
  lease_holder(const lease_holder&) = delete;
  lease_holder& operator=(const lease_holder&) = delete;
  ~lease_holder() {
    kill(holder_, SIGKILL);
    waitpid(holder_, nullptr, 0);
    close(held_[0]);
  }

  bool is_held() const { return is_held_; }

 private:
  [[noreturn]] void hold(const std::string& path) {
    sigset_t asked;
    sigemptyset(&asked);
    sigaddset(&asked, SIGIO);
    sigprocmask(SIG_BLOCK, &asked, nullptr);
    const int file = open(path.c_str(), O_RDONLY);
    const bool is_leased = file >= 0 && fcntl(file, F_SETLEASE, F_WRLCK) == 0;
    if (write(held_[1], is_leased ? "y" : "n", 1) != 1) _exit(1);
    int signal = 0;
    sigwait(&asked, &signal);
    usleep(100'000);
    fcntl(file, F_SETLEASE, F_UNLCK);
    pause();
    _exit(0);
  }

  int held_[2];
  pid_t holder_;
  bool is_held_;
};

TEST(leased_file, is_read_once_its_holder_gives_it_up) {
  const temporary_directory directory;
  const auto path = directory.write("file", "bytes");
  const lease_holder holder(path);
  if (!holder.is_held()) GTEST_SKIP() << "this file system has no leases";
  std::string contents;
  EXPECT_EQ(sys::load_file(path, contents), 0);
  EXPECT_EQ(contents, "bytes");
}

TEST(leased_file, is_written_once_its_holder_gives_it_up) {
  const temporary_directory directory;
  const auto path = directory.write("file", "bytes");
  const lease_holder holder(path);
  if (!holder.is_held()) GTEST_SKIP() << "this file system has no leases";
  EXPECT_EQ(sys::store_file(path, "other bytes"), 0);
  EXPECT_EQ(directory.read("file"), "other bytes");
}

TEST(terminal, gets_every_byte_however_slowly_it_takes_them) {
  int master = -1, slave = -1;
  char name[256];
  termios settings = {};
  cfmakeraw(&settings);
  ASSERT_EQ(openpty(&master, &slave, name, &settings, nullptr), 0);
  const std::string text(100'000, 'x');
  std::atomic<std::size_t> taken = 0;
  std::thread reader([&] {
    char bytes[4096];
    while (taken < text.size()) {
      const ssize_t got = read(master, bytes, sizeof bytes);
      if (got <= 0) break;
      taken += static_cast<std::size_t>(got);
      std::this_thread::sleep_for(1ms);
    }
  });
  EXPECT_EQ(sys::store_file(name, text), 0);
  // What was lost never arrives; what is on its way does.
  for (int i = 0; i < 1000 && taken < text.size(); ++i) std::this_thread::sleep_for(1ms);
  EXPECT_EQ(taken, text.size());
  close(slave);
  reader.join();
  close(master);
}

TEST(pipe_without_another_end, is_not_waited_for) {
  const temporary_directory directory;
  const auto path = directory.file("pipe");
  ASSERT_EQ(mkfifo(path.c_str(), 0600), 0);
  std::string contents;
  EXPECT_EQ(sys::load_file(path, contents), 1);
  EXPECT_EQ(sys::store_file(path, "x"), 1);
}

}  // namespace
