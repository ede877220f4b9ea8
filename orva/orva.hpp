/// Everything at once: every public header of the library, and the short name `orva` for its namespace.
#pragma once

// debug
#include "orva/debug/assert.hpp"
// exceptions
#include "orva/exceptions/exception.hpp"
#include "orva/export.hpp"
// functor
#include "orva/functor/delegate.hpp"
#include "orva/functor/function_traits.hpp"
#include "orva/functor/function_type_interface.hpp"
#include "orva/functor/member_function.hpp"
// generic
#include "orva/generic/abilities/alloc_detection_ability.hpp"
#include "orva/generic/abilities/clone_ability.hpp"
#include "orva/generic/abilities/create_ability.hpp"
#include "orva/generic/abilities/id_ability.hpp"
#include "orva/generic/abilities/reference_count_pointer_ability.hpp"
#include "orva/generic/argument.hpp"
#include "orva/generic/clone_interface.hpp"
#include "orva/generic/convert/str_to_x.hpp"
#include "orva/generic/convert/x_to_str.hpp"
#include "orva/generic/varg_list.hpp"
// memory
#include "orva/memory/pointers/counted_pointer.hpp"
#include "orva/memory/pointers/rc_pointer.hpp"
#include "orva/memory/pointers/shared_pointer.hpp"
// parser
#include "orva/parser/name_list.hpp"
#include "orva/parser/xml_parser.hpp"
#include "orva/parser/xml_token_stream.hpp"
// strings
#include "orva/strings/case_mapping.hpp"
#include "orva/strings/characters.hpp"
#include "orva/strings/code_unit.hpp"
#include "orva/strings/replace.hpp"
#include "orva/strings/split.hpp"
#include "orva/strings/text_argument.hpp"
#include "orva/strings/unicode.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/strings/ustring_for.hpp"
#include "orva/strings/wchar.hpp"
// system
#include "orva/system/file_utility.hpp"
#include "orva/system/io.hpp"
#include "orva/system/path_argument.hpp"
// types
#include "orva/types/integers.hpp"
#include "orva/types/nil.hpp"
#include "orva/types/radix.hpp"
#include "orva/types/variant.hpp"
#include "orva/types/variant_type.hpp"

/// The version stands in the namespace, so that two versions can live in one process; source code follows the
/// alias.
namespace orva = ORVA_2_18;
