/// Which byte names a 16-bit path can name.
#pragma once

#include <string_view>

namespace ORVA_2_18::platform::posix {

/// Whether `name` is what `to_native` makes of some 16-bit text: UTF-8 in its shortest form, up to U+10FFFF, with surrogates
/// only where they are unpaired.
bool is_nameable(std::string_view name);

}  // namespace ORVA_2_18::platform::posix
