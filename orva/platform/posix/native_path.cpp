#include "orva/platform/native_path.hpp"

#include "orva/platform/each_code_point.hpp"

namespace ORVA_2_18::platform {

using strings::code_unit16;
using strings::code_unit32;

native_string to_native(std::basic_string_view<code_unit16> path) {
  native_string native;
  native.reserve(path.size());
  each_code_point(path, [&native](std::uint32_t code_point) {
    char bytes[4];
    native.append(bytes, strings::_private::encode(code_point, bytes));
  });
  return native;
}

void append_native(strings::ustring8& to, native_view native) { to.append(native); }

void append_native(strings::ustring16& to, native_view native) {
  each_code_point(native, [&to](std::uint32_t code_point) {
    code_unit16 units[2] = {static_cast<code_unit16>(code_point)};
    to.append(units, code_point < 0x10000 ? units + 1 : strings::_private::encode_pair(code_point, units));
  });
}

void append_native(strings::ustring32& to, native_view native) {
  each_code_point(native, [&to](std::uint32_t code_point) { to += static_cast<code_unit32>(code_point); });
}

bool is_root(native_view path) { return path == "/"; }

}  // namespace ORVA_2_18::platform
