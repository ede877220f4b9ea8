#include "orva/types/variant.hpp"

#include <type_traits>
#include <utility>

#include "orva/internal/stored_text.hpp"
#include "orva/types/internal/variant_value.hpp"

namespace ORVA_NAMESPACE::types {

namespace {

template <typename T>
variant_type* make(T&& value) {
  return generic::abilities::create_dynamic<variant_value_t<std::remove_cvref_t<T>>>(std::forward<T>(value));
}

template <strings::code_unit Unit>
variant_type* make_text(const Unit* text) {
  using text_payload = variant_value_t<strings::basic_ustring<Unit>>;
  if (text == nullptr)
    return generic::abilities::create_dynamic<text_payload>(strings::basic_ustring<Unit>());
  return generic::abilities::create_dynamic<text_payload>(text);
}

/// The value of a payload that holds a T; null if it holds another type.
template <typename T>
const auto* value_of(const variant_type& payload) noexcept {
  const auto* const found = _private::payload_of<T>(payload);
  return found != nullptr ? &found->value() : nullptr;
}

/// A nil payload in static storage, never destroyed: destructors of static objects may read moved-from
/// variants.
union never_destroyed_nil {
  never_destroyed_nil() : value(nil) {}
  ~never_destroyed_nil() {}

  variant_value_t<nil_t> value;
};

/// Nil is empty text, although its payload returns "0".
template <typename Text>
Text text_of(const variant_type& payload, Text (variant_type::*read)() const) {
  return value_of<nil_t>(payload) != nullptr ? Text() : (payload.*read)();
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

variant& variant::operator=(const nil_t&) { return *this = variant(); }

const variant_type& variant::moved_from() noexcept {
  static const never_destroyed_nil payload;
  return payload.value;
}

const strings::ustring8* _private::stored_text(const variant& value) noexcept {
  const variant_type& payload = value.payload();
  const strings::ustring8* const text = value_of<strings::ustring8>(payload);
  return text != nullptr ? text : value_of<std::string>(payload);
}

std::ostream& operator<<(std::ostream& stream, const variant& value) { return value.ostream(stream); }

bool variant::equal(const nil_t&) const noexcept { return value_of<nil_t>(payload()) != nullptr; }

strings::ustring8 variant::as_string() const { return text_of(payload(), &variant_type::as_string); }
strings::wide_string variant::as_wstring() const { return text_of(payload(), &variant_type::as_wstring); }
strings::wide_string variant::as_ustring() const { return text_of(payload(), &variant_type::as_ustring); }
strings::ustring8 variant::as_utf8() const { return text_of(payload(), &variant_type::as_utf8); }
strings::ustring16 variant::as_utf16() const { return text_of(payload(), &variant_type::as_utf16); }
strings::ustring32 variant::as_utf32() const { return text_of(payload(), &variant_type::as_utf32); }

}  // namespace ORVA_NAMESPACE::types
