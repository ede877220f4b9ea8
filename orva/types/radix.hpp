/// `radix_t::base`: the radix of a number conversion.
///
/// The numeric value is the radix itself. Radixes without a name of their own are made by a cast:
/// `static_cast<types::radix_t::base>(36)`.
#pragma once

#include "orva/version.hpp"

namespace ORVA_NAMESPACE::types {

/// Only the scope of the enumeration.
struct radix_t {
  enum base : unsigned int {
    /// The prefix of the text chooses: `0x` is 16, `0b` is 2, any other leading `0` is 8, no prefix is 10.
    prefix = 0,
    binary = 2,
    octal = 8,
    decimal = 10,
    hexadecimal = 16,
  };
};

}  // namespace ORVA_NAMESPACE::types
