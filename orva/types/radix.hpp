/// `radix_t::base`: the radix of a number conversion.
///
///     convert::str_to_int("0x1F", 4, types::radix_t::prefix, false)                           =>  31
///     convert::str_to_int("zZ", 2, static_cast<types::radix_t::base>(36), false)              =>  1295
///
/// The numeric value is the radix itself. A radix without a name is made by a cast.
///
/// Edge cases: docs/edges.md#numbers
#pragma once

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::types {

/// The scope of the enumeration, and nothing else.
struct radix_t {
  enum base : unsigned int {
    /// The prefix of the text decides: `0x` is 16, `0b` is 2, any other leading `0` is 8, no prefix is 10.
    prefix = 0,
    binary = 2,
    octal = 8,
    decimal = 10,
    hexadecimal = 16,
  };
};

}  // namespace ORVA_NAMESPACE::types
