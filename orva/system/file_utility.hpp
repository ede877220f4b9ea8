/// Whole files and directories: load and store, create, list.
///
/// A file is read or written in one call and closed again; nothing is kept between calls, so any number of
/// threads may call, each with strings of its own. Failure is a return value; what throws is named.
///
/// Paths are text of any of the three widths, as `path_argument` tells. Joined paths use the platform's
/// separator, `/` outside Windows. A path that holds a zero unit names nothing.
///
/// Single calls (exists, is_file, move, remove_file and so on) are in `system/io.hpp`.
#pragma once

#include <string>
#include <vector>

#include "orva/export.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/system/path_argument.hpp"

namespace ORVA_NAMESPACE::system {

/// Reads a whole file into `contents`, a `ustring8` or a byte string, in place of what it held. The bytes
/// arrive as they are in the file: a byte order mark stays (`strings::remove_BOM` takes it off) and no
/// encoding is looked for.
///
/// Inverse: `store_file`.
///
///     a regular file                           =>  0
///     a file that shrinks or fails meanwhile   =>  0   its size as it was at first, zeros for what was not read
///     no file, a directory, a pipe, a terminal =>  1   `contents` untouched
///     a symbolic link as last component        =>  1   `contents` untouched, whatever the link points to
///
/// Throws `exceptions::runtime_error` for a file of more than 0x7FFFFFFF bytes: its size and " is large than
/// a string can hold". `boost::filesystem::filesystem_error` passes through when the status of the path
/// cannot be asked for, as in a directory that may not be searched, and `std::bad_alloc` when memory is
/// short; `contents` is untouched then.
[[nodiscard]] ORVA_API int load_file(const path_argument& path, std::string& contents);

/// Makes `contents` the whole file: a new file, or an existing one from its first byte on, cut to the new
/// length. The bytes are written as they are, without a byte order mark.
///
/// Inverse: `load_file`.
///
///     written, or opened and then not written whole  =>  0   a full disk is not told
///     cannot be opened, a directory, a pipe          =>  1
///     a symbolic link as last component              =>  1   the link's target is untouched
///
/// Throws as `load_file` does, but for the size.
[[nodiscard]] ORVA_API int store_file(const path_argument& path, const std::string& contents);

/// Makes a directory and its missing parents. True if it is there already, or if the last call of the system
/// made it.
///
///     "logs"         there already             =>  true    nothing is created
///     "a/b/c"        nothing there             =>  true    a, a/b and a/b/c
///     "a/b/"         a/b not there             =>  true    a and a/b
///     "a/b/"         a/b there already         =>  false   the last call had nothing to make
///     "file/b"       "file" is a file          =>  false
///     ""                                       =>  false
ORVA_API bool create_directory(const path_argument& path);

/// Whether the path names something with the owner's read bit. Whether this process may read it is another
/// question: to the superuser a file without the bit is readable, and still answers false here.
ORVA_API bool have_read_access(const path_argument& path);

/// The full paths of what stands directly in a directory, files and directories alike: the path given, a
/// separator, the name. Sorted by the bytes of the name outside Windows; on Windows in the order of the
/// system. Empty for a directory that is empty, missing or not readable, and for what is no directory. The
/// empty path lists the root.
///
///     list_directory("logs")   =>  {"logs/a.txt", "logs/old"}    a vector of ustring8
///     list_directory(u"logs")  =>  {u"logs/a.txt", u"logs/old"}  a vector of ustring16
///     list_directory("logs/")  =>  {"logs//a.txt", "logs//old"}
///
/// The first entry that the system reports is dropped unseen, as it is "." wherever a directory has one.
///
/// An entry whose name is no UTF-8 is left out, as no path of the library could name it: whatever is returned
/// as `ustring8` or `ustring16` can be opened. As `ustring32`, names are told with their true code points;
/// those that `utf32_to_utf16` makes something else of (U+FFFF and above) do not open.
ORVA_API std::vector<strings::ustring8> list_directory(const strings::ustring8& path);
ORVA_API std::vector<strings::ustring16> list_directory(const strings::ustring16& path);
ORVA_API std::vector<strings::ustring32> list_directory(const strings::ustring32& path);

/// Appends the full paths of all files below a directory to `files`, which is not cleared: regular files that
/// `have_read_access` holds for, in the order of `list_directory`, with the files of a directory in the place
/// of its name. A directory without that bit is not entered. Names are told as by `list_directory`; in
/// `ustring32`, a directory whose path would not open is not entered.
///
/// Symbolic links are followed, and there is no guard against a link that leads back up: the walk then goes
/// round until the system refuses the path for its length or its number of links. The depth costs no stack.
ORVA_API void get_directory_files(const strings::ustring8& path, std::vector<strings::ustring8>& files);
ORVA_API void get_directory_files(const strings::ustring16& path, std::vector<strings::ustring16>& files);
ORVA_API void get_directory_files(const strings::ustring32& path, std::vector<strings::ustring32>& files);

}  // namespace ORVA_NAMESPACE::system
