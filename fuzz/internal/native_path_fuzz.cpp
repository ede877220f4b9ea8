// Names as a file system may hold them, and 16-bit paths as a caller may hold them: what is reported comes
// back, and what does not come back is not reported.
#include <cstdint>
#include <cstring>
#include <string>
#include <string_view>

#include "fuzz/require.hpp"
#include "orva/internal/paths/path_rules.hpp"
#include "orva/internal/paths/path_text.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/system/io.hpp"

namespace paths = ORVA_NAMESPACE::internal::paths;
namespace strings = ORVA_NAMESPACE::strings;

namespace {

using orva_fuzz::require;

template <typename Ustring>
Ustring from_utf8(const std::string& bytes) {
  Ustring text;
  paths::append_text(text, std::string_view(bytes));
  return text;
}

std::string to_utf8(const strings::ustring16& path) {
  std::string bytes;
  paths::append_text(bytes, std::basic_string_view<strings::code_unit16>(path));
  return bytes;
}

void check_name(const std::string& name) {
  const bool comes_back = to_utf8(from_utf8<strings::ustring16>(name)) == name;
  require(paths::is_nameable(name) == comes_back);
  require(from_utf8<strings::ustring32>(name).size() <= name.size());
}

void check_path(const strings::ustring16& path) {
  const auto native = to_utf8(path);
  require(native.size() <= 3 * path.size());
  require(paths::is_nameable(native));
  require(from_utf8<strings::ustring16>(native) == path);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string bytes(data, data + size);
  check_name(bytes);
  strings::ustring16 units(size / 2, strings::code_unit16{});
  std::memcpy(units.data(), bytes.data(), units.size() * 2);
  check_path(units);
  // Only asks: whatever the path is, nothing is changed.
  ORVA_NAMESPACE::system::io::exists(bytes);
  ORVA_NAMESPACE::system::io::exists(units);
  return 0;
}
