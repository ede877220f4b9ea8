/// Every number reader with any bytes in the three widths, compared with the plain reference, and the
/// floating readers compared with a stream. The first byte selects the radix, the second the width and the
/// high bits of its units; the rest is the text.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <memory>
#include <sstream>
#include <string>
#include <string_view>
#include <type_traits>
#include <vector>

#include "fuzz/require.hpp"
#include "orva/exceptions/exception.hpp"
#include "orva/generic/convert/str_to_x.hpp"
#include "orva/generic/convert/x_to_str.hpp"
#include "tests/support/reference_numbers.hpp"

namespace {

namespace convert = ORVA_NAMESPACE::generic::convert;
namespace exceptions = ORVA_NAMESPACE::exceptions;
using orva_fuzz::require;
using ORVA_NAMESPACE::strings::code_unit16;
using ORVA_NAMESPACE::strings::code_unit32;
using orva_test::read_result;
using orva_test::reading;
using radix = ORVA_NAMESPACE::types::radix_t;

/// A buffer of the exact size, so that sanitizers detect a read outside it.
template <typename Unit>
struct number_text {
  std::unique_ptr<Unit[]> units;
  std::size_t length;
  std::vector<std::uint32_t> values;

  number_text(const std::uint8_t* bytes, std::size_t size, std::uint32_t spread)
      : units(new Unit[size]), length(size) {
    for (std::size_t i = 0; i < size; ++i) {
      // Some units have only the low byte of a character of numbers.
      const std::uint32_t high = spread != 0 && bytes[i] % 5 == 0 ? spread : 0;
      units[i] = static_cast<Unit>(bytes[i] + high);
      values.push_back(static_cast<std::make_unsigned_t<Unit>>(units[i]));
    }
  }
};

template <typename Integer, typename Unit>
Integer read(const Unit* text, std::size_t length, unsigned int base, bool throw_on_range) {
  if constexpr (std::is_signed_v<Integer>) {
    return convert::strtointx<Integer>(text, length, static_cast<radix::base>(base), throw_on_range);
  } else {
    return convert::strtouintx<Integer>(text, length, static_cast<radix::base>(base), throw_on_range);
  }
}

template <typename Integer, typename Unit>
read_result<Integer> read_with_outcome(const Unit* text, std::size_t length, unsigned int base,
                                       bool throw_on_range) {
  try {
    return {reading::number, read<Integer>(text, length, base, throw_on_range)};
  } catch (const exceptions::invalid_argument_value&) {
    return {reading::invalid_radix, 0};
  } catch (const exceptions::overflow_error&) {
    return {reading::overflow, 0};
  } catch (const exceptions::underflow_error&) {
    return {reading::underflow, 0};
  }
}

template <typename Integer, typename Unit>
void check_reader(const number_text<Unit>& text, unsigned int base) {
  const auto expected = orva_test::reference_read<Integer>(text.values, base);
  const auto throwing = read_with_outcome<Integer>(text.units.get(), text.length, base, true);
  require(throwing.outcome == expected.outcome);
  const auto saturating = read_with_outcome<Integer>(text.units.get(), text.length, base, false);
  require((saturating.outcome == reading::invalid_radix) == (expected.outcome == reading::invalid_radix));
  require(saturating.value == expected.value);
}

template <typename Unit>
void check_every_reader(const std::uint8_t* bytes, std::size_t size, std::uint32_t spread,
                        unsigned int base) {
  const number_text<Unit> text(bytes, size, spread);
  check_reader<signed char>(text, base);
  check_reader<short>(text, base);
  check_reader<int>(text, base);
  check_reader<long long>(text, base);
  check_reader<unsigned char>(text, base);
  check_reader<unsigned short>(text, base);
  check_reader<unsigned int>(text, base);
  check_reader<unsigned long long>(text, base);
  if (base >= 2 && base <= 36) {
    const long long value = read<long long>(text.units.get(), text.length, base, false);
    Unit buffer[convert::number_buffer_size];
    convert::lltoa(value, buffer, base);
    require(read<long long>(buffer, 0, base, true) == value);
  }
}

template <typename Floating>
void check_floating(const std::string& text, Floating value) {
  std::stringstream stream(text);
  Floating expected = 0;
  stream >> expected;
  if (stream.fail()) expected = 0;
  require(value == expected && std::signbit(value) == std::signbit(expected));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 3 || size > 4096) return 0;
  const unsigned int base = data[0] % 40;
  const unsigned int way = data[1];
  const std::uint8_t* const bytes = data + 2;
  const std::size_t length = size - 2;
  switch (way % 4) {
    case 0:
      check_every_reader<char>(bytes, length, 0, base);
      break;
    case 1:
      check_every_reader<code_unit16>(bytes, length, (way / 4) << 8, base);
      break;
    case 2:
      check_every_reader<code_unit32>(bytes, length, (way / 4) << 26, base);
      break;
    default:
      const std::string text(reinterpret_cast<const char*>(bytes), length);
      check_floating(text, convert::str_to_float(text));
      check_floating(text, convert::str_to_double(text));
      check_floating(text, convert::str_to_long_double(text));
  }
  return 0;
}
