/// `replace_file`: replaces the contents of a file durably: after a crash or a failure the file is the old
/// one or the new one, never a mix.
///
///     const auto saved = system::replace_file("settings.cfg", text);
///     if (saved.code != system::replace_file_result::error::none)
///       std::cerr << "settings.cfg: " << describe(saved) << '\n';
///         =>  settings.cfg: The new contents could not be written: No space left on device
///
/// The bytes go into a new file in the same directory, which is synced, takes the name of the old one in one
/// step, and then the directory is synced. So the process needs the right to create files in the directory.
///
///     a file                          =>  replaced; mode, owner, group and access control list are kept
///     no file                         =>  created, with the mode of any new file
///     a symbolic link                 =>  the file that it leads to is replaced or created; the link stays
///     a file with several names       =>  the other names keep the old contents
///     a file the process may not write, a directory, device, pipe or socket     =>  refused, unchanged
///     owner or group that the process may not give to a new file                =>  refused, unchanged
///
/// On Windows, attributes and the access control list are kept; the owner is that of any new file.
///
/// A failure leaves nothing behind. A process that is killed may leave a file whose name begins with ".orva-"
/// in the directory; where the file system has files without names, as those of Linux, only if it is killed
/// between the last two steps.
///
/// Any thread may call. Of several calls for one file at the same time one wins; readers never see a part.
/// A path is taken as by `store_file`. Only `std::bad_alloc` is thrown.
///
/// Inverse: `load_file`.
#pragma once

#include <string>
#include <string_view>
#include <system_error>

#include "orva/diagnostics/finding.hpp"
#include "orva/export.hpp"
#include "orva/system/path_argument.hpp"

namespace ORVA_NAMESPACE::system {

/// What `replace_file` returns. Only after `not_durable` has the file changed.
struct replace_file_result {
  enum class error {
    none = 0,
    bad_path,       ///< a path is not empty and has no zero unit
    bad_link,       ///< a symbolic link can be read, and links form no circle
    not_a_file,     ///< only a regular file is replaced
    read_only,      ///< the process may write the old file
    no_directory,   ///< the directory exists and can be opened
    not_created,    ///< a new file can be created in the directory
    not_written,    ///< the disk has room for the new contents
    owner_changes,  ///< the new file can be given owner, group and rights of the old one
    not_synced,     ///< the disk takes the new contents
    not_renamed,    ///< the new file can take the name of the old one
    not_durable,    ///< the directory can be synced; the file is replaced, but a power cut may undo it
  };

  error code = error::none;
  /// Why the system refused. Without a value for `none` and `bad_path`.
  std::error_code reason;
};

/// Makes `contents` the whole file.
[[nodiscard]] ORVA_API replace_file_result replace_file(const path_argument& path, std::string_view contents);

/// A result in words: what could not be done, then the system's reason. Empty for `none`.
[[nodiscard]] ORVA_API std::string describe(const replace_file_result& result);
/// The same as a finding, whose code is "file." and the name of the error. `file` is the name that the user
/// knows. Without an error it is a note without a code.
[[nodiscard]] ORVA_API diagnostics::finding describe(const replace_file_result& result,
                                                     std::string_view file);

}  // namespace ORVA_NAMESPACE::system
