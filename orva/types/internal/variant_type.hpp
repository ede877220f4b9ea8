/// `variant_type`: the payload of a `variant`, an immutable value with all its conversions.
///
/// Internal: installed, so that copying a `variant` takes no call, but not included by programs. A payload
/// counts the variants that share it; the last one deletes it. Threads may share it, since it never changes.
#pragma once

#include <iosfwd>
#include <string>
#include <typeinfo>

#include "orva/export.hpp"
#include "orva/generic/abilities/clone_ability.hpp"
#include "orva/generic/abilities/reference_count_pointer_ability.hpp"
#include "orva/strings/ustring.hpp"
#include "orva/types/integers.hpp"

namespace ORVA_NAMESPACE::types {

ORVA_BEGIN_INLINE_VTABLE

/// The accessors of `variant` of the same names describe the operations. The order of the operations is part
/// of the binary interface.
class ORVA_API variant_type : public generic::abilities::clone_ability,
                              public generic::abilities::reference_count_pointer_ability<variant_type> {
 public:
  ~variant_type() override = default;

  /// True for every payload.
  virtual bool is_valid() const = 0;
  virtual const std::type_info& type() const = 0;
  /// Returns a new payload with a copy of the value, to be owned by a counted pointer.
  [[nodiscard]] virtual variant_type* clone() const = 0;
  virtual std::ostream& ostream(std::ostream& stream) const = 0;

  virtual int as_int() const = 0;
  virtual short as_short() const = 0;
  virtual int32 as_long() const = 0;
  virtual signed char as_int8() const = 0;
  virtual short as_int16() const = 0;
  virtual int32 as_int32() const = 0;
  virtual long long as_int64() const = 0;
  virtual unsigned char as_uint8() const = 0;
  virtual unsigned short as_uint16() const = 0;
  virtual uint32 as_uint32() const = 0;
  virtual unsigned long long as_uint64() const = 0;
  virtual bool as_bool() const = 0;

  virtual std::string as_string() const = 0;
  virtual strings::wide_string as_wstring() const = 0;
  virtual strings::wide_string as_ustring() const = 0;
  virtual strings::ustring8 as_utf8() const = 0;
  virtual strings::ustring16 as_utf16() const = 0;
  virtual strings::ustring32 as_utf32() const = 0;

  virtual float as_float() const = 0;
  virtual double as_double() const = 0;
  virtual long double as_long_double() const = 0;

 protected:
  variant_type() noexcept = default;
  variant_type(const variant_type&) = delete;
  variant_type& operator=(const variant_type&) = delete;
};

ORVA_END_INLINE_VTABLE

}  // namespace ORVA_NAMESPACE::types
