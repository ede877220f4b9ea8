#include "orva/platform/native_path.hpp"

#include "orva/strings/unicode/code_point.hpp"

namespace ORVA_2_18::platform {

namespace {

using strings::code_unit16;
using strings::code_unit32;

/// The character at `at`, where an unpaired surrogate is one too.
strings::_private::character decode_any(const code_unit16* at, std::size_t remaining) {
  const auto found = strings::_private::decode(at, remaining);
  if (found.units != 0) return found;
  return {static_cast<std::uint16_t>(*at), 1};
}

/// Calls `take` with each code point of native text: bytes that stand in no sequence count as themselves, though neither a
/// reported name nor the result of `to_native` has such.
template <typename Take>
void for_each_code_point(native_view native, Take take) {
  for (std::size_t i = 0; i < native.size();) {
    auto found = strings::_private::decode(native.data() + i, native.size() - i);
    if (found.units == 0) found = {static_cast<unsigned char>(native[i]), 1};
    take(found.code_point);
    i += found.units;
  }
}

}  // namespace

native_string to_native(std::basic_string_view<code_unit16> path) {
  native_string native;
  native.reserve(path.size());
  for (std::size_t i = 0; i < path.size();) {
    const auto found = decode_any(path.data() + i, path.size() - i);
    char bytes[4];
    native.append(bytes, strings::_private::encode(found.code_point, bytes));
    i += found.units;
  }
  return native;
}

void append_native(strings::ustring8& to, native_view native) { to.append(native); }

void append_native(strings::ustring16& to, native_view native) {
  for_each_code_point(native, [&to](std::uint32_t code_point) {
    code_unit16 units[2] = {static_cast<code_unit16>(code_point)};
    to.append(units, code_point < 0x10000 ? units + 1 : strings::_private::encode_pair(code_point, units));
  });
}

void append_native(strings::ustring32& to, native_view native) {
  for_each_code_point(native,
                      [&to](std::uint32_t code_point) { to += static_cast<code_unit32>(code_point); });
}

bool is_root(native_view path) { return path == "/"; }

}  // namespace ORVA_2_18::platform
