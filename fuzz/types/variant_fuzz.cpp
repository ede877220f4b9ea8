/// Reads text of any bytes through every accessor of a variant, for each class of text. The integers are
/// compared with a slow reference implementation. What `try_as` returns must agree with the accessors, and
/// must lead back to the text that it was made from.
#include <cstddef>
#include <cstdint>
#include <sstream>
#include <string>

#include "fuzz/require.hpp"
#include "orva/types/variant.hpp"
#include "tests/support/reference_conversion.hpp"

namespace {

using namespace ORVA_NAMESPACE;
using orva_fuzz::require;
using orva_test::wide;
using types::variant;

void check_integers(const variant& value, wide number) {
  require(value.as_int8() == orva_test::saturate(number, {8, true}));
  require(value.as_short() == orva_test::saturate(number, {16, true}));
  require(value.as_int32() == orva_test::saturate(number, {32, true}));
  require(value.as_int64() == orva_test::saturate(number, {64, true}));
  require(value.as_uint8() == orva_test::saturate(number, {8, false}));
  require(value.as_uint16() == orva_test::saturate(number, {16, false}));
  require(value.as_uint32() == orva_test::saturate(number, {32, false}));
  require(value.as_uint64() == static_cast<unsigned long long>(orva_test::saturate(number, {64, false})));
  require(value.as_bool() || number == 0);
}

/// The same units in another width: every byte becomes one unit.
template <typename Unit>
std::basic_string<Unit> widened(const std::string& text) {
  std::basic_string<Unit> result;
  for (const char byte : text) result += static_cast<Unit>(static_cast<unsigned char>(byte));
  return result;
}

/// Calls the accessors without a reference: conversions between widths, and floating values.
void read_everything(const variant& value) {
  (void)value.as_utf8();
  (void)value.as_utf16();
  (void)value.as_utf32();
  (void)value.as_wstring();
  std::ostringstream stream;
  stream << value;
  const float narrow = value.as_float();
  const variant number(value.as_double());
  (void)number.as_int8();
  (void)number.as_int64();
  (void)number.as_uint32();
  (void)number.as_uint64();
  (void)variant(narrow).as_utf16();
  (void)variant(value.as_long_double()).as_uint64();
}

/// What is returned is what the accessor returns.
template <typename T>
void check_agreement(const variant& value, T accessed) {
  const auto tried = value.try_as<T>();
  require(!tried || *tried == accessed);
}

/// A text in another width leads back to the same text.
template <typename T>
void check_way_back(const variant& value) {
  const auto text = value.try_as<T>();
  if (!text) return;
  require(variant(*text).try_as<strings::ustring8>() == value.try_as<strings::ustring8>());
  require(variant(*text).try_as<strings::ustring16>() == value.try_as<strings::ustring16>());
  require(variant(*text).try_as<strings::ustring32>() == value.try_as<strings::ustring32>());
}

/// A number that was read is written as a text that reads as the same number.
template <typename T>
void check_number(const variant& value) {
  const auto number = value.try_as<T>();
  if (!number) return;
  const variant written(variant(*number).template try_as<std::string>().value());
  require(same(variant(written.template try_as<T>().value()), variant(*number)));
}

void check_exact(const variant& value) {
  check_agreement<signed char>(value, value.as_int8());
  check_agreement<short>(value, value.as_int16());
  check_agreement<int>(value, value.as_int());
  check_agreement<long long>(value, value.as_int64());
  check_agreement<unsigned char>(value, value.as_uint8());
  check_agreement<unsigned short>(value, value.as_uint16());
  check_agreement<unsigned long long>(value, value.as_uint64());
  check_agreement<bool>(value, value.as_bool());
  check_way_back<strings::ustring8>(value);
  check_way_back<strings::ustring16>(value);
  check_way_back<strings::ustring32>(value);
  check_number<long long>(value);
  check_number<float>(value);
  check_number<double>(value);
  check_number<long double>(value);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::string text(data, data + size);
  const variant in_every_class[] = {variant(strings::ustring8(text)), variant(text),
                                    variant(strings::ustring16(widened<strings::code_unit16>(text))),
                                    variant(strings::wide_string(widened<strings::code_unit16>(text))),
                                    variant(strings::ustring32(widened<strings::code_unit32>(text)))};
  const wide number = orva_test::leading_number(text);
  for (const variant& value : in_every_class) {
    check_integers(value, number);
    require(value.as_bool() == in_every_class[0].as_bool());
    read_everything(value);
    check_exact(value);
  }
  require(in_every_class[0].as_utf8() == text && in_every_class[1].as_string() == text);
  return 0;
}
