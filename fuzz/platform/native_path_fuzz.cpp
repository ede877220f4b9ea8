// Names as a file system may hold them, and 16-bit paths as a caller may hold them: what is reported comes back, and what
// does not come back is not reported.
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <string>

#include "orva/platform/native_path.hpp"
#include "orva/platform/posix/nameable.hpp"
#include "orva/system/io.hpp"

namespace platform = ORVA_2_18::platform;
namespace strings = ORVA_2_18::strings;

namespace {

void require(bool condition) {
  if (!condition) std::abort();
}

template <typename Ustring>
Ustring from_native(const std::string& native) {
  Ustring text;
  platform::append_native(text, native);
  return text;
}

void check_name(const std::string& name) {
  const bool comes_back = platform::to_native(from_native<strings::ustring16>(name)) == name;
  require(platform::posix::is_nameable(name) == comes_back);
  require(from_native<strings::ustring32>(name).size() <= name.size());
}

void check_path(const strings::ustring16& path) {
  const auto native = platform::to_native(path);
  require(native.size() <= 3 * path.size());
  require(platform::posix::is_nameable(native));
  require(from_native<strings::ustring16>(native) == path);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(data, data + size);
  check_name(bytes);
  strings::ustring16 units(size / 2, u'\0');
  std::memcpy(units.data(), bytes.data(), units.size() * 2);
  check_path(units);
  // Only asks: whatever the path is, nothing is changed.
  ORVA_2_18::system::io::exists(bytes);
  ORVA_2_18::system::io::exists(units);
  return 0;
}
