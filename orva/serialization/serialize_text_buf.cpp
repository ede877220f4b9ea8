#include "orva/serialization/serialize_text_buf.hpp"

#include <algorithm>
#include <array>
#include <cstddef>

#include "orva/generic/abilities/alloc_detection_ability.hpp"
#include "orva/generic/convert/str_to_x.hpp"
#include "orva/generic/convert/write_number.hpp"
#include "orva/internal/number_text/floating_text.hpp"
#include "orva/internal/number_text/integer_text.hpp"
#include "orva/internal/number_text/stream_text.hpp"
#include "orva/serialization/internal/text_form_items.hpp"

namespace ORVA_NAMESPACE::serialization {

namespace convert = generic::convert;
using _private::number_of;
using _private::separator;
using generic::abilities::create_dynamic;

namespace {

/// An integer with its separator.
class number_item {
 public:
  template <typename Integer>
  explicit number_item(Integer value) {
    end_ = internal::write_integer(value, units_.data());
    *end_++ = separator;
  }
  operator std::string_view() const {
    return {units_.data(), static_cast<std::size_t>(end_ - units_.data())};
  }

 private:
  std::array<char, internal::integer_text_size + 1> units_;
  char* end_;
};

/// No value has more significant digits than this; more change nothing, and some streams go wrong over them.
constexpr types::uint32 most_digits = 800;

}  // namespace

serialize_text_buf::~serialize_text_buf() = default;

template <typename Integer>
void serialize_text_buf::append_integer(Integer value) {
  append(number_item(value));
}

void serialize_text_buf::append_int8(const signed char& value) { append_integer(value); }
void serialize_text_buf::append_int16(const short& value) { append_integer(value); }
void serialize_text_buf::append_int32(const types::int32& value) { append_integer(value); }
void serialize_text_buf::append_int64(const long long& value) { append_integer(value); }
void serialize_text_buf::append_uint8(const unsigned char& value) { append_integer(value); }
void serialize_text_buf::append_uint16(const unsigned short& value) { append_integer(value); }
void serialize_text_buf::append_uint32(const types::uint32& value) { append_integer(value); }
void serialize_text_buf::append_uint64(const unsigned long long& value) { append_integer(value); }

/// A floating value is the text that a stream of the global locale writes.
template <typename Floating>
void serialize_text_buf::append_floating(Floating value, types::uint32 precision) {
  const auto digits = static_cast<int>(std::min(precision, most_digits));
  if (!internal::streams_write_general_form())
    return append(internal::stream_text(value, digits) + separator);
  std::array<char, internal::general_text_size(most_digits) + 1> units;
  char* end = internal::write_general(value, digits, units.data());
  *end++ = separator;
  append({units.data(), static_cast<std::size_t>(end - units.data())});
}

void serialize_text_buf::append_float(const float& value, const types::uint32& precision) {
  append_floating(value, precision);
}
void serialize_text_buf::append_double(const double& value, const types::uint32& precision) {
  append_floating(value, precision);
}

void serialize_text_buf::append_exact(float value) { append(convert::number_text(value) + separator); }
void serialize_text_buf::append_exact(double value) { append(convert::number_text(value) + separator); }

void serialize_text_buf::append_string(const std::string& text) {
  const number_item length(text.size());
  append(length, text, {&separator, 1});
}

std::string_view serialize_text_buf::take_number() const { return _private::take_number(data(), position()); }

signed char serialize_text_buf::read_int8() const {
  return number_of<convert::str_to_int8<char>>(take_number());
}
short serialize_text_buf::read_int16() const { return number_of<convert::str_to_int16<char>>(take_number()); }
types::int32 serialize_text_buf::read_int32() const {
  return number_of<convert::str_to_int32<char>>(take_number());
}
long long serialize_text_buf::read_int64() const {
  return number_of<convert::str_to_int64<char>>(take_number());
}
unsigned char serialize_text_buf::read_uint8() const {
  return number_of<convert::str_to_uint8<char>>(take_number());
}
unsigned short serialize_text_buf::read_uint16() const {
  return number_of<convert::str_to_uint16<char>>(take_number());
}
types::uint32 serialize_text_buf::read_uint32() const {
  return number_of<convert::str_to_uint32<char>>(take_number());
}
unsigned long long serialize_text_buf::read_uint64() const {
  return number_of<convert::str_to_uint64<char>>(take_number());
}
float serialize_text_buf::read_float() const { return convert::str_to_float(take_number()); }
double serialize_text_buf::read_double() const { return convert::str_to_double(take_number()); }

std::string_view serialize_text_buf::read_bytes() const {
  if (position() == past_end) return {};
  // By the virtual function, which a derived class may replace.
  const types::int32 length = read_int32();
  return _private::take_bytes(data(), position(), length);
}

serialize_text_buf* serialize_text_buf::read_buffer() const {
  return create_dynamic<serialize_text_buf>(std::string(read_bytes()));
}

serialize_text_buf* serialize_text_buf::create() const { return create_dynamic<serialize_text_buf>(); }

serialize_text_buf* serialize_text_buf::clone() const { return create_dynamic<serialize_text_buf>(*this); }

}  // namespace ORVA_NAMESPACE::serialization
