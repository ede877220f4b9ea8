/// Whole files and directories: load, store, create, list.
///
///     strings::ustring8 text;
///     if (system::load_file("settings.xml", text) != 0) return use_defaults();
///     if (system::store_file("settings.bak", text) != 0) return report("settings.bak");
///     for (const strings::ustring8& path : system::list_directory("logs")) archive(path);
///
/// Each call opens, uses and closes what it needs; nothing is kept between calls. Any thread may call, with
/// strings of its own. Failures are return values, except those listed here:
///
///     a file of more than 0x7FFFFFFF bytes            exceptions::runtime_error, by `load_file`
///     the status of a path is not available, as in    boost::filesystem::filesystem_error, by `load_file`
///     a directory that may not be searched            and `store_file`
///     no memory                                       std::bad_alloc, by all
///
/// `filesystem_error` derives from `std::runtime_error`: a program that does not use Boost catches that.
///
/// Paths are a `std::filesystem::path` or text of any of the three widths, see `path_argument`. Joined paths
/// use the separator of the system, `/` outside Windows. A path that contains a zero unit names nothing.
///
/// `system/io.hpp` has the single operations: exists, is_file, move, remove_file and others.
///
/// Edge cases: docs/edges.md#files and docs/edges.md#platforms
#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "orva/export.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/strings/ustring_for.hpp"
#include "orva/system/path_argument.hpp"

namespace ORVA_NAMESPACE::system {

namespace _private {

template <strings::file_path Path>
using native_text = strings::basic_ustring<typename Path::value_type>;

template <strings::file_path Path>
native_text<Path> native_text_of(const Path& path) {
  return strings::basic_text_argument<typename Path::value_type>(path).get();
}

template <strings::file_path Path>
void append_paths(const std::vector<native_text<Path>>& names, std::vector<Path>& paths) {
  paths.reserve(paths.size() + names.size());
  for (const typename Path::string_type& name : names) paths.emplace_back(name);
}

}  // namespace _private

/// Replaces `contents`, a `ustring8` or a byte string, by all bytes of a file. A byte order mark stays
/// (`strings::remove_BOM` removes it), and no encoding is detected.
///
/// Inverse: `store_file`.
///
///     a regular file                               =>  0
///     a file that shrinks or fails while read      =>  0   its first size, with zeros for the missing bytes
///     a file that reports the size 0               =>  0   empty, even if it has contents, as in /proc
///     no file, a directory, a pipe, a terminal     =>  1   `contents` is unchanged
///     a symbolic link as the last component        =>  1   `contents` is unchanged
///
/// A file of more than 0x7FFFFFFF bytes throws `exceptions::runtime_error`: its size and " is large than a
/// string can hold". `contents` is unchanged if anything is thrown.
[[nodiscard]] ORVA_API int load_file(const path_argument& path, std::string& contents);

/// Writes `contents` as the whole file, which is created or replaced. No byte order mark is added.
///
/// Inverse: `load_file`. `replace_file` reports a full disk and every other failure, follows links, and
/// leaves the old file or the new one after a crash.
///
///     written, or opened and only partly written   =>  0   a full disk is not reported
///     cannot be opened, a directory, a pipe        =>  1
///     a symbolic link as the last component        =>  1   the target of the link is unchanged
[[nodiscard]] ORVA_API int store_file(const path_argument& path, const std::string& contents);

/// Creates a directory and its missing parents. Returns whether the directory exists already or the last
/// component was created.
///
///     "logs"         exists                    =>  true    nothing is created
///     "a/b/c"        nothing exists            =>  true    a, a/b and a/b/c are created
///     "a/b/"         a/b does not exist        =>  true    a and a/b are created
///     "a/b/"         a/b exists                =>  false   with a separator at its end it is not looked for
///     "file/b"       "file" is a file          =>  false
///     ""                                       =>  false
ORVA_API bool create_directory(const path_argument& path);

/// Whether the path names something with the owner's read bit. This is not whether the process may read it:
/// the superuser can read a file without the bit, for which this is false.
ORVA_API bool have_read_access(const path_argument& path);

/// Lists the files and directories in a directory, by their full paths: the given path, a separator, the
/// name. They are sorted by the bytes of their names; on Windows they have the order of the system. Empty if
/// the directory is empty, missing or not readable, or not a directory. The empty path lists the root.
///
///     list_directory("logs")   =>  {"logs/a.txt", "logs/old"}    a vector of ustring8
///     list_directory(u"logs")  =>  {u"logs/a.txt", u"logs/old"}  a vector of ustring16
///     list_directory("logs/")  =>  {"logs//a.txt", "logs//old"}
///     list_directory(a view)   =>  as for a string of that width
///     list_directory(a path)   =>  a vector of std::filesystem::path
///
/// The first entry that the system reports is skipped without a look at its name, which is "." in directories
/// that have it.
///
/// An entry whose name is not UTF-8 is left out, as no path can name it: every returned `ustring8` or
/// `ustring16` can be opened. A `ustring32` has the true code points; a path with one above U+FFFE names
/// another file when it is used (see `path_argument`).
ORVA_API std::vector<strings::ustring8> list_directory(const strings::ustring8& path);
ORVA_API std::vector<strings::ustring16> list_directory(const strings::ustring16& path);
ORVA_API std::vector<strings::ustring32> list_directory(const strings::ustring32& path);
template <strings::code_unit Unit>
std::vector<strings::basic_ustring<Unit>> list_directory(std::basic_string_view<Unit> path) {
  return list_directory(strings::basic_ustring<Unit>(path));
}
template <strings::file_path Path>
std::vector<Path> list_directory(const Path& path) {
  std::vector<Path> paths;
  _private::append_paths(list_directory(_private::native_text_of(path)), paths);
  return paths;
}

/// Appends the full paths of all files in a directory and its subdirectories to `files`, which is not
/// cleared. The files are the regular ones with the owner's read bit (`have_read_access`); subdirectories
/// without it are skipped. Order and names are those of `list_directory`, with the files of a subdirectory at
/// the place of its name. With `ustring32`, a subdirectory whose path would name another one is skipped.
///
/// Symbolic links are followed, also those that lead back to a parent: the walk then repeats until the system
/// refuses the path, for its length or for its links (40 on Linux). Two such links in one directory double
/// the paths at each level, so that the walk does not end in practice: do not walk directories that others
/// can write. The depth uses no stack.
ORVA_API void get_directory_files(const strings::ustring8& path, std::vector<strings::ustring8>& files);
ORVA_API void get_directory_files(const strings::ustring16& path, std::vector<strings::ustring16>& files);
ORVA_API void get_directory_files(const strings::ustring32& path, std::vector<strings::ustring32>& files);
template <strings::code_unit Unit>
void get_directory_files(std::basic_string_view<Unit> path,
                         std::vector<strings::basic_ustring<Unit>>& files) {
  get_directory_files(strings::basic_ustring<Unit>(path), files);
}
template <strings::file_path Path>
void get_directory_files(const Path& path, std::vector<Path>& files) {
  std::vector<_private::native_text<Path>> names;
  get_directory_files(_private::native_text_of(path), names);
  _private::append_paths(names, files);
}

}  // namespace ORVA_NAMESPACE::system
