// replace_file when calls fail, when the process is killed, and what it keeps of the old file.
#include <fcntl.h>
#include <gtest/gtest.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <sys/xattr.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <cerrno>
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <map>
#include <set>
#include <string>
#include <vector>

#include "orva/system/replace_file.hpp"
#include "tests/platform/scripted_system_calls.hpp"
#include "tests/support/temporary_directory.hpp"

namespace {

using orva_test::scripted_calls;
using orva_test::temporary_directory;
namespace sys = ORVA_NAMESPACE::system;
using error = sys::replace_file_result::error;
using namespace std::string_literals;

std::set<std::string> names_in(const temporary_directory& directory) {
  std::set<std::string> names;
  for (const auto& entry : std::filesystem::directory_iterator(directory.path()))
    names.insert(entry.path().filename());
  return names;
}

mode_t mode_of(const std::string& path) {
  struct stat status = {};
  EXPECT_EQ(stat(path.c_str(), &status), 0);
  return status.st_mode & 07777;
}

/// What the file system or the system lacks, so that the replacement takes another way.
struct lacking {
  const char* name;
  std::map<std::string, int> refused;

  int refusal(const std::string& call) const {
    const auto found = refused.find(call);
    return found == refused.end() ? 0 : found->second;
  }
};
const lacking systems[] = {{"nothing", {}},
                           {"files without names", {{"open_unnamed", EOPNOTSUPP}}},
                           {"/proc", {{"name_unnamed", ENOENT}}},
                           {"access control lists", {{"get_access_list", EOPNOTSUPP}}}};

/// Contents in several writes.
ssize_t write_in_pieces(int file, const void* from, std::size_t count) {
  return ::write(file, from, std::min<std::size_t>(count, 4));
}

const std::string old_contents = "old contents", new_contents = "new contents!";

/// The names of the calls of one replacement, and its result, where call number `failing` fails.
struct observed {
  std::vector<std::string> calls;
  sys::replace_file_result result;
  int open_files = 0;
};

observed replace_with_failure(const std::string& path, const lacking& system, std::size_t failing,
                              int system_error) {
  observed seen;
  const scripted_calls calls;
  calls->write = write_in_pieces;
  calls->refusal = [&](const char* call) {
    seen.calls.emplace_back(call);
    if (seen.calls.size() == failing + 1) return system_error;
    return system.refusal(call);
  };
  seen.result = sys::replace_file(path, new_contents);
  seen.open_files = calls->open_files;
  return seen;
}

error expected_error(const std::string& call, bool is_last_fsync) {
  static const std::map<std::string, error> errors = {
      {"open", error::no_directory},
      {"fstatat", error::not_a_file},
      {"faccessat", error::read_only},
      {"openat", error::not_created},
      {"write", error::not_written},
      {"get_access_list", error::owner_changes},
      {"remove_access_list", error::owner_changes},
      {"fstat", error::owner_changes},
      {"fchmod", error::owner_changes},
      {"renameat", error::not_renamed},
      {"open_unnamed", error::none},  // the other way is taken
      {"name_unnamed", error::none},
      {"close", error::none},
  };
  if (call == "fsync") return is_last_fsync ? error::not_durable : error::not_synced;
  const auto found = errors.find(call);
  EXPECT_NE(found, errors.end()) << call;
  return found == errors.end() ? error::none : found->second;
}

TEST(failing_replace_file, each_call_that_fails_leaves_the_old_file_and_nothing_beside) {
  for (const bool exists : {true, false}) {
    for (const lacking& system : systems) {
      for (std::size_t failing = 0;; ++failing) {
        const temporary_directory directory;
        const auto path = directory.file("file");
        if (exists) directory.write("file", old_contents);
        const auto seen = replace_with_failure(path, system, failing, EIO);
        if (seen.calls.size() <= failing) break;
        const auto& call = seen.calls[failing];
        const auto synced_after =
            std::count(seen.calls.begin(), seen.calls.begin() + static_cast<int>(failing), "fsync");
        const auto where =
            "without " + std::string(system.name) + ", call " + std::to_string(failing) + " " + call;
        const error expected =
            expected_error(call, synced_after == (system.refused.contains("name_unnamed") ? 2 : 1));
        EXPECT_EQ(seen.result.code, expected) << where;
        EXPECT_EQ(seen.open_files, 0) << where;
        if (expected != error::none) {
          EXPECT_EQ(seen.result.reason.value(), EIO) << where;
        }
        const bool is_new = expected == error::none || expected == error::not_durable;
        const auto names = names_in(directory);
        if (exists || is_new) {
          EXPECT_EQ(names, std::set{"file"s}) << where;
          EXPECT_EQ(directory.read("file"), is_new ? new_contents : old_contents) << where;
        } else {
          EXPECT_TRUE(names.empty()) << where;
        }
      }
    }
  }
}

/// Runs a replacement in a process that is killed before its call number `fatal`. False if it makes fewer.
bool replace_killed(const std::string& path, const lacking& system, std::size_t fatal, std::string& call) {
  int channel[2];
  if (pipe(channel) != 0) std::abort();
  const pid_t child = fork();
  if (child == 0) {
    const scripted_calls calls;
    std::size_t count = 0;
    calls->write = write_in_pieces;
    calls->refusal = [&](const char* name) {
      if (count++ == fatal) {
        if (::write(channel[1], name, std::strlen(name)) < 0) _exit(2);
        _exit(1);
      }
      return system.refusal(name);
    };
    _exit(sys::replace_file(path, new_contents).code == error::none ? 0 : 3);
  }
  close(channel[1]);
  std::array<char, 100> name;
  const ssize_t length = read(channel[0], name.data(), name.size());
  call.assign(name.data(), length > 0 ? static_cast<std::size_t>(length) : 0);
  close(channel[0]);
  int status = 0;
  waitpid(child, &status, 0);
  EXPECT_TRUE(WIFEXITED(status) && WEXITSTATUS(status) <= 1) << status;
  return WIFEXITED(status) && WEXITSTATUS(status) == 1;
}

TEST(killed_replace_file, leaves_the_old_file_or_the_new_one) {
  for (const bool exists : {true, false}) {
    for (const lacking& system : systems) {
      bool was_new = false;
      for (std::size_t fatal = 0;; ++fatal) {
        const temporary_directory directory;
        const auto path = directory.file("file");
        if (exists) directory.write("file", old_contents);
        std::string call;
        if (!replace_killed(path, system, fatal, call)) break;
        const auto where = "without " + std::string(system.name) + ", before " + call;
        auto names = names_in(directory);
        const bool is_new = names.contains("file") && directory.read("file") == new_contents;
        EXPECT_TRUE(is_new || (exists ? directory.read("file") == old_contents : !names.contains("file")))
            << where;
        EXPECT_TRUE(is_new || !was_new) << "the new file went away: " << where;
        was_new = is_new;
        names.erase("file");
        for (const auto& name : names) EXPECT_TRUE(name.starts_with(".orva-")) << name;
        EXPECT_LE(names.size(), 1u) << where;
        // With files without names only the last step leaves one.
        if (system.refused.empty() && call != "renameat") {
          EXPECT_TRUE(names.empty()) << where;
        }
        // What a killed process leaves is in nobody's way.
        EXPECT_EQ(sys::replace_file(path, "later").code, error::none);
        EXPECT_EQ(directory.read("file"), "later");
      }
      EXPECT_TRUE(was_new) << system.name;
    }
  }
}

TEST(failing_replace_file, full_disk_is_reported_in_each_way) {
  for (const lacking& system : systems) {
    const temporary_directory directory;
    const auto path = directory.write("file", old_contents);
    const scripted_calls calls;
    int room = 2;
    calls->refusal = [&](const char* call) { return system.refusal(call); };
    calls->write = [&](int file, const void* from, std::size_t) -> ssize_t {
      if (room-- > 0) return ::write(file, from, 2);
      errno = ENOSPC;
      return -1;
    };
    const auto result = sys::replace_file(path, new_contents);
    EXPECT_EQ(result.code, error::not_written);
    EXPECT_EQ(describe(result), "The new contents could not be written: No space left on device");
    EXPECT_EQ(directory.read("file"), old_contents);
    EXPECT_EQ(names_in(directory), std::set{"file"s});
    EXPECT_EQ(calls->open_files, 0);
  }
}

TEST(failing_replace_file, system_that_takes_nothing_is_an_error) {
  const temporary_directory directory;
  const scripted_calls calls;
  calls->write = [](int, const void*, std::size_t) -> ssize_t { return 0; };
  const auto result = sys::replace_file(directory.file("file"), "contents");
  EXPECT_EQ(result.code, error::not_written);
  EXPECT_EQ(result.reason.value(), EIO);
  EXPECT_TRUE(names_in(directory).empty());
}

TEST(failing_replace_file, interrupted_calls_are_made_again) {
  for (const lacking& system : systems) {
    const temporary_directory directory;
    const auto path = directory.write("file", old_contents);
    const scripted_calls calls;
    const std::set<std::string> interruptible = {"open", "openat", "open_unnamed", "fsync", "write"};
    int interruptions = 0;
    calls->refusal = [&](const char* call) {
      if (const int refused = system.refusal(call); refused != 0) return refused;
      return interruptible.contains(call) && ++interruptions % 3 != 0 ? EINTR : 0;
    };
    EXPECT_EQ(sys::replace_file(path, new_contents).code, error::none) << system.name;
    EXPECT_EQ(directory.read("file"), new_contents);
    EXPECT_GE(interruptions, 12);
  }
}

TEST(failing_replace_file, file_system_that_cannot_sync_is_no_failure) {
  const temporary_directory directory;
  const scripted_calls calls;
  calls->refusal = [](const char* call) { return call == "fsync"s ? EINVAL : 0; };
  EXPECT_EQ(sys::replace_file(directory.file("file"), "contents").code, error::none);
  EXPECT_EQ(directory.read("file"), "contents");
}

TEST(failing_replace_file, taken_name_is_not_used) {
  for (const auto* call : {"openat", "name_unnamed"}) {
    const temporary_directory directory;
    const auto path = directory.write("file", old_contents);
    const scripted_calls calls;
    int taken = 5;
    calls->refusal = [&](const char* name) {
      if (call == "openat"s && name == "open_unnamed"s) return EOPNOTSUPP;
      return name == std::string(call) && taken-- > 0 ? EEXIST : 0;
    };
    EXPECT_EQ(sys::replace_file(path, new_contents).code, error::none);
    EXPECT_EQ(names_in(directory), std::set{"file"s});
    taken = 1'000;
    const auto result = sys::replace_file(path, "newer");
    EXPECT_EQ(result.code, call == "openat"s ? error::not_created : error::none);
    EXPECT_EQ(directory.read("file"), call == "openat"s ? new_contents : "newer");
    EXPECT_EQ(names_in(directory), std::set{"file"s});
  }
}

TEST(failing_replace_file, file_that_someone_creates_meanwhile_is_replaced) {
  const temporary_directory directory;
  const scripted_calls calls;
  calls->refusal = [&](const char* call) {
    if (call == "name_unnamed"s && !std::filesystem::exists(directory.path() / "file"))
      directory.write("file", "somebody else's");
    return 0;
  };
  EXPECT_EQ(sys::replace_file(directory.file("file"), "contents").code, error::none);
  EXPECT_EQ(directory.read("file"), "contents");
  EXPECT_EQ(names_in(directory), std::set{"file"s});
}

TEST(failing_replace_file, contents_are_nobody_elses_before_the_mode_is_kept) {
  for (const lacking& system : systems) {
    const temporary_directory directory;
    const auto path = directory.write("file", old_contents);
    ASSERT_EQ(chmod(path.c_str(), 0644), 0);
    const scripted_calls calls;
    calls->refusal = [&](const char* call) { return system.refusal(call); };
    mode_t mode_while_written = 0;
    calls->write = [&](int file, const void* from, std::size_t count) {
      struct stat status = {};
      ::fstat(file, &status);
      mode_while_written = status.st_mode & 07777;
      return ::write(file, from, count);
    };
    EXPECT_EQ(sys::replace_file(path, new_contents).code, error::none);
    EXPECT_EQ(mode_while_written, 0600u);
    EXPECT_EQ(mode_of(path), 0644u);
  }
}

TEST(replace_file_rights, mode_is_kept) {
  const temporary_directory directory;
  const auto path = directory.write("file", old_contents);
  for (const mode_t mode : {0600u, 0644u, 0666u, 0755u, 0200u, 04755u, 02775u, 01777u}) {
    ASSERT_EQ(chmod(path.c_str(), mode), 0);
    EXPECT_EQ(sys::replace_file(path, new_contents).code, error::none);
    EXPECT_EQ(mode_of(path), mode);
  }
}

TEST(replace_file_rights, new_file_has_the_mode_of_any_new_file) {
  for (const lacking& system : systems) {
    const temporary_directory directory;
    const scripted_calls calls;
    calls->refusal = [&](const char* call) { return system.refusal(call); };
    for (const mode_t mask : {0022u, 0077u, 0002u}) {
      const mode_t before = umask(mask);
      const auto path = directory.file("file" + std::to_string(mask));
      EXPECT_EQ(sys::replace_file(path, new_contents).code, error::none);
      umask(before);
      EXPECT_EQ(mode_of(path), 0666u & ~mask);
    }
  }
}

TEST(replace_file_rights, owner_and_group_are_kept) {
  if (geteuid() != 0) GTEST_SKIP() << "only the superuser can give files away";
  const temporary_directory directory;
  const auto path = directory.write("file", old_contents);
  ASSERT_EQ(chown(path.c_str(), 1234, 4321), 0);
  ASSERT_EQ(chmod(path.c_str(), 06750), 0);
  EXPECT_EQ(sys::replace_file(path, new_contents).code, error::none);
  struct stat status = {};
  ASSERT_EQ(stat(path.c_str(), &status), 0);
  EXPECT_EQ(status.st_uid, 1234u);
  EXPECT_EQ(status.st_gid, 4321u);
  EXPECT_EQ(status.st_mode & 07777, 06750u);
  EXPECT_EQ(directory.read("file"), new_contents);
}

/// The process has the rights of an ordinary user meanwhile.
class ordinary_user {
 public:
  ordinary_user() : is_superuser_(geteuid() == 0) {
    if (is_superuser_ && seteuid(65534) != 0) std::abort();
  }
  ordinary_user(const ordinary_user&) = delete;
  ordinary_user& operator=(const ordinary_user&) = delete;
  ~ordinary_user() {
    if (is_superuser_ && seteuid(0) != 0) std::abort();
  }

 private:
  bool is_superuser_;
};

TEST(replace_file_rights, owner_that_cannot_be_kept_is_an_error) {
  if (geteuid() != 0) GTEST_SKIP() << "only the superuser can give files away";
  const temporary_directory directory;
  const auto path = directory.write("file", old_contents);
  ASSERT_EQ(chmod(path.c_str(), 0666), 0);
  ASSERT_EQ(chmod(directory.name().c_str(), 0777), 0);
  const ordinary_user user;
  const auto result = sys::replace_file(path, new_contents);
  EXPECT_EQ(result.code, error::owner_changes);
  EXPECT_EQ(result.reason, std::errc::operation_not_permitted);
  EXPECT_EQ(directory.read("file"), old_contents);
  EXPECT_EQ(names_in(directory), std::set{"file"s});
}

TEST(replace_file_rights, file_that_may_not_be_written_is_not_replaced) {
  const temporary_directory directory;
  const auto path = directory.write("file", old_contents);
  ASSERT_EQ(chmod(path.c_str(), 0444), 0);
  ASSERT_EQ(chmod(directory.name().c_str(), 0777), 0);
  const ordinary_user user;
  const auto result = sys::replace_file(path, new_contents);
  EXPECT_EQ(result.code, error::read_only);
  EXPECT_EQ(result.reason, std::errc::permission_denied);
  EXPECT_EQ(directory.read("file"), old_contents);
}

TEST(replace_file_rights, directory_that_may_not_be_written_is_reported) {
  const temporary_directory directory;
  const auto path = directory.write("file", old_contents);
  ASSERT_EQ(chmod(path.c_str(), 0666), 0);
  ASSERT_EQ(chmod(directory.name().c_str(), 0555), 0);
  {
    const ordinary_user user;
    const auto result = sys::replace_file(path, new_contents);
    EXPECT_EQ(result.code, error::not_created);
    EXPECT_EQ(result.reason, std::errc::permission_denied);
  }
  EXPECT_EQ(directory.read("file"), old_contents);
  chmod(directory.name().c_str(), 0777);
}

/// An access control list in the form of the system: owner rw, user 1234 r, group none, mask r, others none.
std::vector<std::uint16_t> list_for_user_1234() {
  return {2, 0,      1,      6,    0xFFFF, 0xFFFF, 2,      4,    1234, 0,      4,
          0, 0xFFFF, 0xFFFF, 0x10, 4,      0xFFFF, 0xFFFF, 0x20, 0,    0xFFFF, 0xFFFF};
}

bool set_list(const std::string& path, const char* kind) {
  const auto list = list_for_user_1234();
  return setxattr(path.c_str(), kind, list.data(), list.size() * 2, 0) == 0;
}

std::vector<std::uint16_t> list_of(const std::string& path) {
  std::vector<std::uint16_t> list(100);
  const ssize_t size = getxattr(path.c_str(), "system.posix_acl_access", list.data(), list.size() * 2);
  list.resize(size < 0 ? 0 : static_cast<std::size_t>(size) / 2);
  return list;
}

TEST(replace_file_rights, access_control_list_is_kept) {
  const temporary_directory directory;
  const auto path = directory.write("file", old_contents);
  if (!set_list(path, "system.posix_acl_access"))
    GTEST_SKIP() << "this file system has no access control lists";
  const mode_t mode = mode_of(path);
  EXPECT_EQ(sys::replace_file(path, new_contents).code, error::none);
  EXPECT_EQ(list_of(path), list_for_user_1234());
  EXPECT_EQ(mode_of(path), mode);
  const scripted_calls calls;
  calls->refusal = [](const char* call) { return call == "set_access_list"s ? EPERM : 0; };
  EXPECT_EQ(sys::replace_file(path, "newer").code, error::owner_changes);
  EXPECT_EQ(directory.read("file"), new_contents);
}

TEST(replace_file_rights, default_list_of_the_directory_is_not_given_to_a_file_without_one) {
  const temporary_directory directory;
  const auto path = directory.write("file", old_contents);
  if (!set_list(directory.name(), "system.posix_acl_default"))
    GTEST_SKIP() << "this file system has no access control lists";
  for (const lacking& system : systems) {
    if (system.refused.contains("get_access_list")) continue;
    const scripted_calls calls;
    calls->refusal = [&](const char* call) { return system.refusal(call); };
    EXPECT_EQ(sys::replace_file(path, new_contents).code, error::none);
    EXPECT_EQ(list_of(path), std::vector<std::uint16_t>());
  }
}

TEST(replace_file_kinds, devices_and_pipes_are_refused) {
  const temporary_directory directory;
  const auto pipe = directory.file("pipe");
  ASSERT_EQ(mkfifo(pipe.c_str(), 0600), 0);
  std::filesystem::create_symlink("/dev/full", directory.path() / "link");
  for (const auto& path : {pipe, "/dev/full"s, "/dev/null"s, directory.file("link")}) {
    EXPECT_EQ(sys::replace_file(path, "contents").code, error::not_a_file) << path;
  }
  struct stat status = {};
  EXPECT_EQ(stat("/dev/full", &status), 0);
  EXPECT_TRUE(S_ISCHR(status.st_mode));
}

TEST(replace_file_kinds, name_and_path_that_are_too_long_are_reported) {
  const temporary_directory directory;
  const auto too_long = directory.file(std::string(256, 'n'));
  EXPECT_NE(sys::replace_file(too_long, "contents").code, error::none);
  EXPECT_EQ(sys::replace_file(directory.file(std::string(255, 'n')), "contents").code, error::none);
  EXPECT_NE(sys::replace_file(std::string(5000, '/') + "file", "contents").code, error::none);
  EXPECT_EQ(names_in(directory).size(), 1u);
}

}  // namespace
