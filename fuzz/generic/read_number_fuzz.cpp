/// `read_number` with any bytes in the three widths, compared with the readers of the runtime, and what it
/// read written and read again. The first byte selects the radix; the rest is the text.
#include <cstddef>
#include <cstdint>
#include <memory>
#include <string>
#include <string_view>
#include <type_traits>

#include "fuzz/require.hpp"
#include "orva/diagnostics/number_findings.hpp"
#include "orva/generic/convert/read_number.hpp"
#include "orva/generic/convert/write_number.hpp"
#include "tests/support/reference_read_number.hpp"

namespace {

namespace convert = ORVA_NAMESPACE::generic::convert;
namespace strings = ORVA_NAMESPACE::strings;
using convert::number_error;
using convert::read_number_result;
using orva_fuzz::require;

/// Reads from a buffer of the exact size, so that sanitizers detect a read outside it.
template <typename Number, typename Unit>
read_number_result<Number> read(std::string_view text, unsigned int base) {
  const auto units = std::make_unique<Unit[]>(text.size());
  for (std::size_t i = 0; i < text.size(); ++i)
    units[i] = static_cast<Unit>(static_cast<unsigned char>(text[i]));
  return convert::read_number<Number>(std::basic_string_view<Unit>(units.get(), text.size()), base);
}

template <typename Number>
void check_written(Number value, unsigned int base) {
  char text[convert::number_buffer_size];
  const auto [end, error] = convert::write_number(text, text + sizeof text, value, base);
  require(error == convert::write_number_error::none);
  const auto result = convert::read_number<Number>(std::string_view(text, end), base);
  require(orva_test::same_result(result, {value, static_cast<std::size_t>(end - text), number_error::none}));
}

template <typename Number>
void check(std::string_view text, unsigned int base) {
  const auto result = read<Number, char>(text, base);
  if constexpr (std::is_floating_point_v<Number>) {
    require(orva_test::same_result(result, orva_test::reference_read_floating<Number>(text, base)));
  } else {
    require(result == orva_test::reference_read_integer<Number>(text, base));
  }
  require(orva_test::same_result(result, read<Number, strings::code_unit16>(text, base)));
  require(orva_test::same_result(result, read<Number, strings::code_unit32>(text, base)));
  const bool is_whole = result.error == number_error::none && result.length == text.size();
  require(ORVA_NAMESPACE::diagnostics::describe(result, text).code.empty() == is_whole);
  if (result.error == number_error::none) check_written(result.value, base == 0 ? 10 : base);
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  if (size < 1 || size > 4096) return 0;
  const unsigned int base = data[0] % 40;
  const std::string_view text(reinterpret_cast<const char*>(data) + 1, size - 1);
  check<signed char>(text, base);
  check<unsigned short>(text, base);
  check<int>(text, base);
  check<unsigned long long>(text, base);
  check<long long>(text, base);
  check<float>(text, base);
  check<double>(text, base);
  check<long double>(text, base);
  return 0;
}
