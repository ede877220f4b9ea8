/// `program_arguments`: the arguments of the program in UTF-8, on every system.
///
///     int main(int argc, char** argv) {
///       const system::program_arguments arguments(argc, argv);
///       const config::settings values(viewer, arguments.count(), arguments.values(), environ);
///       ...
///     }
///
/// On Windows, `main` gets its arguments in the code page of the machine: of a name that has other characters
/// it gets question marks, and no program can open that file. There, this class asks the system, which has
/// the command line as it was typed. Elsewhere, and if the system does not answer, it has the arguments of
/// `main`, whatever bytes they are.
///
///     system      argument      argv           values()
///     Linux       café.txt      café.txt       café.txt
///     Windows     café.txt      caf\xE9.txt    café.txt
///     Windows     文.txt        ?.txt          文.txt
///
/// A name becomes UTF-8 as by `list_directory`, so that the library opens each file that can be named. To
/// open one yourself, make a `std::filesystem::path` of a `std::u8string`: a plain string is in the code
/// page.
#pragma once

#include <vector>

#include "orva/export.hpp"
#include "orva/strings/ustring.hpp"

namespace ORVA_NAMESPACE::system {

class ORVA_API program_arguments {
 public:
  /// The arguments of `main`, all of them. They must live as long as this object. A negative `argc` counts as
  /// 0, and so does a null `argv`.
  program_arguments(int argc, const char* const* argv);
  program_arguments(const program_arguments&) = delete;
  program_arguments& operator=(const program_arguments&) = delete;
  ~program_arguments();

  /// As `argc`: the name of the program included.
  [[nodiscard]] int count() const noexcept { return static_cast<int>(pointers_.size()) - 1; }
  /// As `argv`: `count` texts, and a null pointer after them.
  [[nodiscard]] const char* const* values() const noexcept { return pointers_.data(); }

 private:
  std::vector<strings::ustring8> words_;
  std::vector<const char*> pointers_;
};

}  // namespace ORVA_NAMESPACE::system
