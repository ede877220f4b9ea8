/// What `file_item::save` writes so that `file_item::load` reads it back.
///
/// Internal: not installed.
#pragma once

#include <string_view>

#include "orva/config/internal/checked_value.hpp"

namespace ORVA_NAMESPACE::config::_private {

/// Whether a value, which one quoted or one plain text gave, reads back.
bool survives_save(std::string_view value, value_kind kind);

/// Whether a key reads back. `name` is its last part.
bool key_survives_save(std::string_view name, bool is_array);

/// The same for the full name of a section.
bool section_survives_save(std::string_view name);

}  // namespace ORVA_NAMESPACE::config::_private
