#include "orva/types/variant.hpp"

#include <utility>

#include "orva/types/variant_value.hpp"

namespace ORVA_2_18::types {

variant_type::~variant_type() = default;

namespace {

template <typename T>
variant_type* make(T value) {
  return generic::abilities::create_dynamic<variant_value_t<T>>(std::move(value));
}

template <strings::code_unit Unit>
variant_type* make_text(const Unit* text) {
  return make(text != nullptr ? strings::basic_ustring<Unit>(text) : strings::basic_ustring<Unit>());
}

/// What a variant that was moved from answers with. Never destroyed, so that it serves until the last static is gone.
const variant_type& moved_from() noexcept {
  static const variant_type& nothing = *new variant_value_t<nil_t>(nil);
  return nothing;
}

}  // namespace

variant::variant() : variant(make(nil)) {}
variant::variant(nil_t& nothing) : variant(make(nothing)) {}
variant::variant(bool value) : variant(make(value)) {}
variant::variant(signed char value) : variant(make(value)) {}
variant::variant(unsigned char value) : variant(make(value)) {}
variant::variant(short value) : variant(make(value)) {}
variant::variant(unsigned short value) : variant(make(value)) {}
variant::variant(int value) : variant(make(value)) {}
variant::variant(unsigned int value) : variant(make(value)) {}
variant::variant(long value) : variant(make(value)) {}
variant::variant(unsigned long value) : variant(make(value)) {}
variant::variant(long long value) : variant(make(value)) {}
variant::variant(unsigned long long value) : variant(make(value)) {}
variant::variant(float value) : variant(make(value)) {}
variant::variant(double value) : variant(make(value)) {}
variant::variant(long double value) : variant(make(value)) {}
variant::variant(const char* text) : variant(make_text(text)) {}
variant::variant(const strings::code_unit16* text) : variant(make_text(text)) {}
variant::variant(const strings::code_unit32* text) : variant(make_text(text)) {}
variant::variant(std::string text) : variant(make(std::move(text))) {}
variant::variant(strings::wide_string text) : variant(make(std::move(text))) {}
variant::variant(strings::ustring8 text) : variant(make(std::move(text))) {}
variant::variant(strings::ustring16 text) : variant(make(std::move(text))) {}
variant::variant(strings::ustring32 text) : variant(make(std::move(text))) {}

variant& variant::assign(const variant& other) { return *this = other; }
variant& variant::operator=(const nil_t&) { return *this = variant(); }

const variant_type& variant::payload() const noexcept { return payload_ ? *payload_ : moved_from(); }

bool variant::equal(const nil_t&) const noexcept { return type() == typeid(nil_t); }
const std::type_info& variant::type() const noexcept { return payload().type(); }

std::ostream& variant::ostream(std::ostream& stream) const { return payload().ostream(stream); }
std::ostream& operator<<(std::ostream& stream, const variant& value) { return value.ostream(stream); }

int variant::as_int() const { return payload().as_int(); }
short variant::as_short() const { return payload().as_short(); }
int32 variant::as_long() const { return payload().as_long(); }
signed char variant::as_int8() const { return payload().as_int8(); }
short variant::as_int16() const { return payload().as_int16(); }
int32 variant::as_int32() const { return payload().as_int32(); }
long long variant::as_int64() const { return payload().as_int64(); }
unsigned char variant::as_uint8() const { return payload().as_uint8(); }
unsigned short variant::as_uint16() const { return payload().as_uint16(); }
uint32 variant::as_uint32() const { return payload().as_uint32(); }
unsigned long long variant::as_uint64() const { return payload().as_uint64(); }

unsigned int variant::as_uint() const { return static_cast<unsigned int>(as_int()); }
unsigned int variant::as_unsigned() const { return static_cast<unsigned int>(as_int()); }
uint32 variant::as_ulong() const { return static_cast<uint32>(as_long()); }
unsigned short variant::as_ushort() const { return static_cast<unsigned short>(as_short()); }
int variant::as_signed() const { return as_int(); }

bool variant::as_bool() const { return payload().as_bool(); }

float variant::as_float() const { return payload().as_float(); }
double variant::as_double() const { return payload().as_double(); }
long double variant::as_long_double() const { return payload().as_long_double(); }

// The payload of nil would answer "0", as its numbers do; as text there is nothing to show.

strings::ustring8 variant::as_string() const { return equal(nil) ? std::string() : payload().as_string(); }
strings::wide_string variant::as_wstring() const {
  return equal(nil) ? strings::wide_string() : payload().as_wstring();
}
strings::wide_string variant::as_ustring() const {
  return equal(nil) ? strings::wide_string() : payload().as_ustring();
}
strings::ustring8 variant::as_utf8() const { return equal(nil) ? strings::ustring8() : payload().as_utf8(); }
strings::ustring16 variant::as_utf16() const {
  return equal(nil) ? strings::ustring16() : payload().as_utf16();
}
strings::ustring32 variant::as_utf32() const {
  return equal(nil) ? strings::ustring32() : payload().as_utf32();
}

}  // namespace ORVA_2_18::types
