// What the file services and the debug output do when the system does not.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include <algorithm>
#include <cerrno>
#include <cstdlib>
#include <cstring>
#include <filesystem>
#include <new>
#include <string>
#include <tuple>
#include <vector>

#include "orva/exceptions/exception.hpp"
#include "orva/platform/debug_output.hpp"
#include "orva/platform/directory_listing.hpp"
#include "orva/platform/file.hpp"
#include "orva/system/file_utility.hpp"
#include "orva/system/io.hpp"
#include "tests/platform/scripted_system_calls.hpp"
#include "tests/support/temporary_directory.hpp"

namespace {

/// Allocations of this size and above fail.
std::size_t refused_allocation = SIZE_MAX;

}  // namespace

void* operator new(std::size_t size) {
  void* const memory = size < refused_allocation ? std::malloc(size) : nullptr;
  if (memory == nullptr) throw std::bad_alloc();
  return memory;
}
// Where GCC expands these but not the function above, it takes that one for the standard's and warns.
[[gnu::noinline]] void operator delete(void* memory) noexcept { std::free(memory); }
[[gnu::noinline]] void operator delete(void* memory, std::size_t) noexcept { std::free(memory); }

namespace {

using ORVA_NAMESPACE::strings::ustring8;
using orva_test::scripted_calls;
using orva_test::some_bytes;
using orva_test::temporary_directory;
namespace exceptions = ORVA_NAMESPACE::exceptions;
namespace platform = ORVA_NAMESPACE::platform;
namespace sys = ORVA_NAMESPACE::system;

int fail_with(int error) {
  errno = error;
  return -1;
}

struct refuse_allocations {
  explicit refuse_allocations(std::size_t from) { refused_allocation = from; }
  refuse_allocations(const refuse_allocations&) = delete;
  refuse_allocations& operator=(const refuse_allocations&) = delete;
  ~refuse_allocations() { refused_allocation = SIZE_MAX; }
};

TEST(failing_load_file, short_reads_are_put_together) {
  const temporary_directory directory;
  const auto bytes = some_bytes(300'000);
  const auto path = directory.write("file", bytes);
  const scripted_calls calls;
  calls->pread = [](int file, void* to, std::size_t count, off_t offset) {
    return ::pread(file, to, std::min<std::size_t>(count, 7001), offset);
  };
  std::string contents;
  EXPECT_EQ(sys::load_file(path, contents), 0);
  EXPECT_TRUE(contents == bytes);
  EXPECT_EQ(calls->open_files, 0);
}

TEST(failing_load_file, interrupted_calls_are_made_again) {
  const temporary_directory directory;
  const auto path = directory.write("file", "bytes");
  const scripted_calls calls;
  int interruptions = 0;
  calls->open = [&](const char* name, int flags, mode_t mode) {
    return ++interruptions % 3 != 0 ? fail_with(EINTR) : ::open(name, flags, mode);
  };
  calls->pread = [&](int file, void* to, std::size_t count, off_t offset) -> ssize_t {
    return ++interruptions % 3 != 0 ? fail_with(EINTR)
                                    : ::pread(file, to, std::min<std::size_t>(count, 2), offset);
  };
  std::string contents;
  EXPECT_EQ(sys::load_file(path, contents), 0);
  EXPECT_EQ(contents, "bytes");
  EXPECT_EQ(interruptions, 12);
}

TEST(failing_load_file, read_error_leaves_zeros_and_gives_0) {
  const temporary_directory directory;
  const auto bytes = some_bytes(500'000);
  const auto path = directory.write("file", bytes);
  const scripted_calls calls;
  for (const off_t failing_from : {0, 1, 200'000, 499'999}) {
    calls->pread = [=](int file, void* to, std::size_t count, off_t offset) -> ssize_t {
      if (offset >= failing_from) return fail_with(EIO);
      const auto left = static_cast<std::size_t>(failing_from - offset);
      return ::pread(file, to, std::min(count, left), offset);
    };
    std::string contents = "before";
    EXPECT_EQ(sys::load_file(path, contents), 0);
    const auto got = static_cast<std::size_t>(failing_from);
    EXPECT_TRUE(contents == bytes.substr(0, got) + std::string(bytes.size() - got, '\0')) << failing_from;
  }
  EXPECT_EQ(calls->open_files, 0);
}

TEST(failing_load_file, file_that_shrinks_after_it_was_measured_leaves_zeros) {
  const temporary_directory directory;
  const auto path = directory.write("file", "0123456789");
  const scripted_calls calls;
  calls->pread = [&](int file, void* to, std::size_t count, off_t offset) {
    std::filesystem::resize_file(path, 4);
    return ::pread(file, to, count, offset);
  };
  std::string contents;
  EXPECT_EQ(sys::load_file(path, contents), 0);
  EXPECT_EQ(contents, "0123" + std::string(6, '\0'));
}

TEST(failing_load_file, file_that_grows_after_it_was_measured_is_cut) {
  const temporary_directory directory;
  const auto path = directory.write("file", "0123");
  const scripted_calls calls;
  calls->pread = [&](int file, void* to, std::size_t count, off_t offset) {
    std::filesystem::resize_file(path, 4000);
    return ::pread(file, to, count, offset);
  };
  std::string contents;
  EXPECT_EQ(sys::load_file(path, contents), 0);
  EXPECT_EQ(contents, "0123");
}

TEST(failing_load_file, link_that_takes_the_files_place_after_the_check_gives_1) {
  const temporary_directory directory;
  const auto path = directory.write("file", "x");
  directory.write("secret", "secret");
  const scripted_calls calls;
  calls->open = [&](const char* name, int flags, mode_t mode) {
    std::filesystem::remove(path);
    std::filesystem::create_symlink("secret", path);
    return ::open(name, flags, mode);
  };
  std::string contents = "before";
  EXPECT_EQ(sys::load_file(path, contents), 1);
  EXPECT_EQ(contents, "before");
  calls->open = nullptr;
  EXPECT_EQ(sys::store_file(path, "overwritten"), 1);
  EXPECT_EQ(directory.read("secret"), "secret");
}

TEST(failing_load_file, refused_open_gives_1) {
  const temporary_directory directory;
  const auto path = directory.write("file", "x");
  const scripted_calls calls;
  for (const int error : {EACCES, EMFILE, ENFILE, ENOMEM, EIO}) {
    calls->open = [error](const char*, int, mode_t) { return fail_with(error); };
    std::string contents = "before";
    EXPECT_EQ(sys::load_file(path, contents), 1);
    EXPECT_EQ(sys::store_file(path, "y"), 1);
    EXPECT_EQ(contents, "before");
  }
  EXPECT_EQ(directory.read("file"), "x");
}

TEST(failing_load_file, leased_file_is_asked_for_until_it_is_given_up) {
  const temporary_directory directory;
  const auto path = directory.write("file", "bytes");
  const scripted_calls calls;
  int refusals = 3;
  calls->open = [&](const char* name, int flags, mode_t mode) {
    return refusals-- > 0 ? fail_with(EWOULDBLOCK) : ::open(name, flags, mode);
  };
  std::string contents;
  EXPECT_EQ(sys::load_file(path, contents), 0);
  EXPECT_EQ(contents, "bytes");
  EXPECT_EQ(calls->sleeps, 3);
  refusals = 2;
  EXPECT_EQ(sys::store_file(path, "other"), 0);
  EXPECT_EQ(directory.read("file"), "other");
  EXPECT_EQ(calls->sleeps, 5);
}

TEST(failing_store_file, device_whose_writes_cannot_be_made_to_wait_gives_1) {
  const scripted_calls calls;
  calls->let_writes_wait = [](int) { return fail_with(EIO); };
  EXPECT_EQ(sys::store_file("/dev/null", "bytes"), 1);
  EXPECT_EQ(calls->open_files, 0);
}

TEST(failing_load_file, refused_size_gives_1_and_closes) {
  const temporary_directory directory;
  const auto path = directory.write("file", "x");
  const scripted_calls calls;
  calls->fstat = [](int, struct stat*) { return fail_with(EIO); };
  std::string contents = "before";
  EXPECT_EQ(sys::load_file(path, contents), 1);
  EXPECT_EQ(contents, "before");
  EXPECT_EQ(calls->open_files, 0);
}

TEST(failing_load_file, size_limit_is_0x7FFFFFFF_and_raising_closes) {
  const temporary_directory directory;
  const auto path = directory.write("file", "x");
  const scripted_calls calls;
  off_t size = 0x7FFFFFFF;
  calls->fstat = [&](int file, struct stat* status) {
    const int result = ::fstat(file, status);
    status->st_size = size;
    return result;
  };
  std::string contents = "before";
  {
    // The largest size is accepted: memory is requested.
    const refuse_allocations refuse(1u << 30);
    EXPECT_THROW(std::ignore = sys::load_file(path, contents), std::bad_alloc);
  }
  EXPECT_EQ(contents, "before");
  EXPECT_EQ(calls->open_files, 0);
  ++size;
  EXPECT_THROW(std::ignore = sys::load_file(path, contents), exceptions::runtime_error);
  EXPECT_EQ(contents, "before");
  EXPECT_EQ(calls->open_files, 0);
}

TEST(failing_store_file, short_and_interrupted_writes_are_put_together) {
  const temporary_directory directory;
  const auto bytes = some_bytes(10'000);
  const scripted_calls calls;
  int interruptions = 0;
  calls->write = [&](int file, const void* from, std::size_t count) -> ssize_t {
    if (++interruptions % 3 != 0) return fail_with(EINTR);
    return ::write(file, from, std::min<std::size_t>(count, 777));
  };
  EXPECT_EQ(sys::store_file(directory.file("file"), bytes), 0);
  EXPECT_TRUE(directory.read("file") == bytes);
  EXPECT_EQ(calls->open_files, 0);
}

TEST(failing_store_file, full_disk_is_not_reported) {
  const temporary_directory directory;
  const scripted_calls calls;
  int room = 2;
  calls->write = [&](int file, const void* from, std::size_t) -> ssize_t {
    return room-- > 0 ? ::write(file, from, 5) : fail_with(ENOSPC);
  };
  EXPECT_EQ(sys::store_file(directory.file("file"), some_bytes(100)), 0);
  EXPECT_EQ(directory.read("file"), some_bytes(10));
  EXPECT_EQ(calls->open_files, 0);
}

TEST(failing_store_file, system_that_takes_nothing_ends_the_write) {
  const temporary_directory directory;
  const scripted_calls calls;
  calls->write = [](int, const void*, std::size_t) -> ssize_t { return 0; };
  EXPECT_EQ(sys::store_file(directory.file("file"), "bytes"), 0);
  EXPECT_EQ(directory.read("file"), "");
}

TEST(failing_create_directory, existing_directory_asks_for_none) {
  const temporary_directory directory;
  const scripted_calls calls;
  EXPECT_TRUE(sys::create_directory(directory.name()));
  EXPECT_EQ(calls->directories_asked_for, 0);
}

TEST(failing_move, file_system_without_the_promise_still_replaces_nothing) {
  const temporary_directory directory;
  const scripted_calls calls;
  for (const int error : {EINVAL, ENOSYS}) {
    calls->rename_without_replacing = [error](const char*, const char*) { return fail_with(error); };
    directory.write("old", "old");
    directory.write("taken", "taken");
    std::filesystem::remove(directory.file("link"));
    std::filesystem::create_symlink("nowhere", directory.file("link"));
    sys::io::move(directory.file("taken"), directory.file("old"));
    sys::io::move(directory.file("link"), directory.file("old"));
    EXPECT_EQ(directory.read("old"), "old");
    EXPECT_EQ(directory.read("taken"), "taken");
    sys::io::move(directory.file("new" + std::to_string(error)), directory.file("old"));
    EXPECT_EQ(directory.read("new" + std::to_string(error)), "old");
  }
}

TEST(failing_move, any_other_failure_is_not_tried_again) {
  const temporary_directory directory;
  directory.write("old", "old");
  const scripted_calls calls;
  calls->rename_without_replacing = [](const char*, const char*) { return fail_with(EACCES); };
  sys::io::move(directory.file("new"), directory.file("old"));
  EXPECT_EQ(directory.read("old"), "old");
}

/// Names that a search reports, in this order, whatever the directory holds.
class scripted_names {
 public:
  explicit scripted_names(std::vector<std::string> names) : names_(std::move(names)) {
    script_->readdir = [this](DIR*) -> dirent* {
      if (next_ == names_.size()) return nullptr;
      std::strcpy(entry_.d_name, names_[next_++].c_str());
      return &entry_;
    };
  }

 private:
  scripted_calls script_;
  std::vector<std::string> names_;
  std::size_t next_ = 0;
  dirent entry_ = {};
};

std::vector<std::string> names_listed() {
  const platform::directory_listing listing("/", platform::directory_listing::detail::names);
  std::vector<std::string> names;
  for (std::size_t i = 0; i < listing.size(); ++i) names.emplace_back(listing.name(i));
  return names;
}

TEST(directory_listing, dots_come_first_whatever_the_system_says) {
  const scripted_names search({"b", "..", "!", "a", "."});
  EXPECT_EQ(names_listed(), (std::vector<std::string>{".", "..", "!", "a", "b"}));
}

TEST(directory_listing, file_system_that_reports_no_dots_loses_no_entry) {
  const scripted_names search({"b", "a"});
  EXPECT_EQ(names_listed(), (std::vector<std::string>{".", "..", "a", "b"}));
}

TEST(directory_listing, names_that_begin_alike_are_sorted_as_bytes) {
  const scripted_names search({"a\xFF", "ab", "a", "aa", "a\xC3\xA4", "a."});
  EXPECT_EQ(names_listed(), (std::vector<std::string>{".", "..", "a", "a.", "aa", "ab", "a\xC3\xA4"}));
}

TEST(directory_listing, failed_search_of_a_readable_directory_keeps_what_it_read) {
  const temporary_directory directory;
  for (const auto* name : {"a", "b", "c"}) directory.write(name, "");
  const scripted_calls calls;
  int reads = 0;
  calls->readdir = [&](DIR* search) -> dirent* {
    if (++reads <= 4) return ::readdir(search);
    errno = EIO;
    return nullptr;
  };
  EXPECT_LE(sys::list_directory(directory.name()).size(), 3u);
  EXPECT_EQ(calls->open_searches, 0);
}

TEST(directory_listing, every_search_is_closed) {
  const temporary_directory directory;
  directory.write("a/b/c", "");
  const scripted_calls calls;
  std::vector<ustring8> files;
  sys::get_directory_files(directory.name(), files);
  sys::list_directory(directory.name());
  EXPECT_EQ(files.size(), 1u);
  EXPECT_EQ(calls->open_searches, 0);
}

TEST(directory_listing, no_search_is_left_open_when_memory_runs_out) {
  const temporary_directory directory;
  for (int i = 0; i < 200; ++i) directory.write("entry" + std::to_string(i), "");
  const auto path = directory.name();
  const scripted_calls calls;
  const refuse_allocations refuse(2000);
  EXPECT_THROW(sys::list_directory(path), std::bad_alloc);
  EXPECT_EQ(calls->open_searches, 0);
}

TEST(debug_output, is_written_to_standard_error_unchanged) {
  const scripted_calls calls;
  std::string written;
  calls->write = [&](int file, const void* from, std::size_t count) {
    EXPECT_EQ(file, STDERR_FILENO);
    written.append(static_cast<const char*>(from), count);
    return static_cast<ssize_t>(count);
  };
  platform::debug_output("Failure -- \xC3\xA4");
  platform::debug_output("\n");
  platform::debug_output("");
  EXPECT_EQ(written, "Failure -- \xC3\xA4\n");
}

TEST(debug_output, closed_channel_takes_nothing_and_keeps_errno) {
  const scripted_calls calls;
  calls->write = [&](int, const void*, std::size_t) -> ssize_t { return fail_with(EBADF); };
  errno = ERANGE;
  platform::debug_output("text");
  EXPECT_EQ(errno, ERANGE);
}

TEST(debug_output, interrupted_write_continues) {
  const scripted_calls calls;
  std::string written;
  bool interrupt = false;
  calls->write = [&](int, const void* from, std::size_t) -> ssize_t {
    interrupt = !interrupt;
    if (interrupt) return fail_with(EINTR);
    written += *static_cast<const char*>(from);
    return 1;
  };
  platform::debug_output("text");
  EXPECT_EQ(written, "text");
}

}  // namespace
