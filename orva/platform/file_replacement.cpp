#include "orva/platform/file_replacement.hpp"

#include <cstdint>

#include "orva/platform/clock.hpp"
#include "orva/platform/symbolic_link.hpp"

namespace ORVA_NAMESPACE::platform {

native_string unlikely_name(unsigned int attempt) {
  constexpr std::string_view digits = "0123456789abcdef";
  native_string name;
  for (const char unit : std::string_view(".orva-")) name += static_cast<native_char>(unit);
  std::uint64_t number = counter() * 0x9E3779B97F4A7C15u + attempt;
  for (int i = 0; i < 16; ++i, number >>= 4) name += static_cast<native_char>(digits[number & 0xF]);
  return name;
}

replacement_outcome replace_file(const native_string& path, std::string_view contents) {
  const followed_path file = follow_links(path);
  if (file.system_error != 0) return {replacement_step::follow_links, file.system_error};
  return replace_plain_file(file.path, contents);
}

}  // namespace ORVA_NAMESPACE::platform
