#include "orva/platform/native_path.hpp"

#include "orva/platform/each_code_point.hpp"

namespace ORVA_2_18::platform {

using strings::code_unit32;

native_string to_native(std::basic_string_view<strings::code_unit16> path) { return native_string(path); }

void append_native(strings::ustring8& to, native_view native) {
  each_code_point(native, [&to](std::uint32_t code_point) {
    char bytes[4];
    to.append(bytes, strings::_private::encode(code_point, bytes));
  });
}

void append_native(strings::ustring16& to, native_view native) { to.append(native); }

void append_native(strings::ustring32& to, native_view native) {
  each_code_point(native, [&to](std::uint32_t code_point) { to += static_cast<code_unit32>(code_point); });
}

bool is_root(native_view path) {
  const bool has_drive = path.size() == 3 && path[1] == L':';
  return (has_drive || path.size() == 1) && (path.back() == L'\\' || path.back() == L'/');
}

}  // namespace ORVA_2_18::platform
