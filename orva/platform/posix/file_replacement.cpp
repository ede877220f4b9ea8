#include "orva/platform/file_replacement.hpp"

#include <fcntl.h>
#include <unistd.h>

#include <array>
#include <cerrno>
#include <optional>
#include <utility>

#include "orva/platform/posix/c_path.hpp"
#include "orva/platform/posix/descriptor.hpp"
#include "orva/platform/posix/write_all.hpp"
#include "orva/platform/symbolic_link.hpp"

namespace ORVA_NAMESPACE::platform {

namespace {

namespace calls = posix::calls;
using posix::descriptor;
using posix::uninterrupted;
using step = replacement_step;

constexpr replacement_outcome succeeded;

replacement_outcome failed(step at) { return {at, errno}; }

/// Calls `make` with names until one is free. A failure leaves `name` empty.
template <typename Make>
int make_under_free_name(native_string& name, Make make) {
  constexpr unsigned int most_attempts = 100;
  int result = -1;
  for (unsigned int attempt = 0; attempt < most_attempts; ++attempt) {
    name = unlikely_name(attempt);
    result = uninterrupted([&] { return make(name.c_str()); });
    if (result >= 0 || errno != EEXIST) break;
  }
  if (result < 0) name.clear();
  return result;
}

/// A new file in a directory, at first without a name where the file system has such files: a process that is
/// killed leaves nothing then. Its end removes the name, if it still has one of its own.
class new_file {
 public:
  static new_file unnamed(int directory, mode_t mode) {
    return {directory, uninterrupted([=] { return calls::open_unnamed(directory, mode); })};
  }

  static new_file named(int directory, mode_t mode) {
    native_string name;
    const int file = make_under_free_name(name, [=](const char* free_name) {
      return calls::openat(directory, free_name, O_WRONLY | O_CREAT | O_EXCL | O_NOFOLLOW | O_CLOEXEC, mode);
    });
    return {directory, file, std::move(name)};
  }

  new_file(const new_file&) = delete;
  new_file& operator=(const new_file&) = delete;
  ~new_file() {
    if (!name_.empty()) calls::unlinkat(directory_, name_.c_str());
  }

  int get() const { return file_.get(); }
  bool is_open() const { return file_.get() >= 0; }

  /// Gives a file without a name this one. False if it is taken, or the system cannot.
  bool take_name(const native_string& name) const {
    return calls::name_unnamed(get(), directory_, name.c_str()) == 0;
  }

  bool take_any_name() {
    return make_under_free_name(name_, [this](const char* free_name) {
             return calls::name_unnamed(get(), directory_, free_name);
           }) == 0;
  }

  /// Takes the name away from the file that has it.
  bool take_over_name(const native_string& name) {
    if (calls::renameat(directory_, name_.c_str(), name.c_str()) != 0) return false;
    name_.clear();
    return true;
  }

 private:
  new_file(int directory, int file, native_string name = {})
      : directory_(directory), file_(file), name_(std::move(name)) {}

  int directory_;
  descriptor file_;
  native_string name_;
};

/// Gives `file` the access control list of the old one, or none. The default list of a directory may have
/// given it one of its own.
bool keep_access_list(int file, const native_string& old_path) {
  std::array<char, 4096> list;
  const ssize_t size = calls::get_access_list(old_path.c_str(), list.data(), list.size());
  if (size >= 0) return calls::set_access_list(file, list.data(), static_cast<std::size_t>(size)) == 0;
  if (errno == EOPNOTSUPP) return true;
  if (errno != ENODATA) return false;
  return calls::remove_access_list(file) == 0 || errno == ENODATA || errno == EOPNOTSUPP;
}

bool keep_owner_and_mode(int file, const struct stat& old) {
  struct stat created = {};
  if (calls::fstat(file, &created) != 0) return false;
  const bool same_owner = created.st_uid == old.st_uid && created.st_gid == old.st_gid;
  if (!same_owner && calls::fchown(file, old.st_uid, old.st_gid) != 0) return false;
  return calls::fchmod(file, old.st_mode & 07777) == 0;
}

/// A file system that cannot sync says so by EINVAL. It makes no promise that could be waited for.
bool sync(int file) {
  return uninterrupted([=] { return calls::fsync(file); }) == 0 || errno == EINVAL;
}

/// The replacement of one file in an open directory.
class replacement {
 public:
  replacement(int directory, const native_string& path, native_string name, std::string_view contents)
      : directory_(directory), path_(path), name_(std::move(name)), contents_(contents) {}

  replacement_outcome run() {
    if (const auto outcome = examine_old_file(); outcome.failed != step::none) return outcome;
    // A file that replaces another is nobody else's until it has that one's owner and mode.
    const mode_t mode = old_ ? 0600 : 0666;
    if (new_file file = new_file::unnamed(directory_, mode); file.is_open()) {
      if (const auto outcome = fill(file.get()); outcome.failed != step::none) return outcome;
      if (!old_ && file.take_name(name_)) return sync_directory();
      if (file.take_any_name()) return put_in_place(file);
    }
    new_file file = new_file::named(directory_, mode);
    if (!file.is_open()) return failed(step::create);
    if (const auto outcome = fill(file.get()); outcome.failed != step::none) return outcome;
    return put_in_place(file);
  }

 private:
  /// A file that a plain write could not change is not changed, though its directory would allow it.
  replacement_outcome examine_old_file() {
    struct stat found = {};
    if (calls::fstatat(directory_, name_.c_str(), &found, AT_SYMLINK_NOFOLLOW) != 0)
      return errno == ENOENT ? succeeded : failed(step::check_kind);
    if (S_ISDIR(found.st_mode)) return {step::check_kind, EISDIR};
    if (!S_ISREG(found.st_mode)) return {step::check_kind, EINVAL};
    if (calls::faccessat(directory_, name_.c_str(), W_OK, AT_EACCESS) != 0)
      return failed(step::check_permission);
    old_ = found;
    return succeeded;
  }

  // The owner after the contents: a write by anyone but the superuser takes the bits off that a program has
  // its owner's rights by.
  replacement_outcome fill(int file) const {
    errno = EIO;  // for a system that takes nothing and gives no reason
    if (!posix::write_all(file, contents_)) return failed(step::write);
    if (old_ && !(keep_access_list(file, path_) && keep_owner_and_mode(file, *old_)))
      return failed(step::keep_owner);
    return sync(file) ? succeeded : failed(step::sync);
  }

  replacement_outcome put_in_place(new_file& file) const {
    return file.take_over_name(name_) ? sync_directory() : failed(step::rename);
  }

  replacement_outcome sync_directory() const {
    return sync(directory_) ? succeeded : failed(step::sync_directory);
  }

  int directory_;
  const native_string& path_;
  native_string name_;
  std::string_view contents_;
  std::optional<struct stat> old_;
};

}  // namespace

const int too_many_links = ELOOP;

replacement_outcome replace_plain_file(const native_string& path, std::string_view contents) {
  const auto name_begin = path.rfind('/') + 1;
  native_string name = path.substr(name_begin);
  if (name.empty() || name == "." || name == "..") return {step::check_kind, EISDIR};
  const native_string directory_path = name_begin == 0 ? "." : path.substr(0, name_begin);
  const descriptor directory(uninterrupted(
      [&] { return calls::open(posix::c_path(directory_path), O_RDONLY | O_DIRECTORY | O_CLOEXEC, 0); }));
  if (directory.get() < 0) return failed(step::open_directory);
  return replacement(directory.get(), path, std::move(name), contents).run();
}

}  // namespace ORVA_NAMESPACE::platform
