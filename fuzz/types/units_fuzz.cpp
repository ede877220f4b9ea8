/// Lengths, pixels and colours of any numbers: every conversion, and those of integers compared with wider
/// arithmetic.
#include <cmath>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <initializer_list>

#include "fuzz/require.hpp"
#include "orva/generic/convert/units.hpp"
#include "orva/types/color_t.hpp"

namespace {

using namespace ORVA_NAMESPACE::types;
using namespace ORVA_NAMESPACE::generic::convert;
using orva_fuzz::require;

struct numbers {
  double floating;
  std::int64_t integer;
  std::int32_t dpi;
  std::int32_t unit;
};

std::int32_t cut(std::int64_t value) { return static_cast<std::int32_t>(value); }

void check_length(const absolute_unit& length) {
  const std::int64_t md = length.as_md();
  (void)length.as_int32();
  (void)length.as_double();
  require(to_md(length).as_md() == md);
  basic_absolute_impl<absolute_unit::pica> picas;
  picas = length;
  require(picas.as_md() == md);
}

void check_pixels(const numbers& n) {
  const std::int64_t pixels = cut(n.integer);
  require(device_unit(n.integer).as_int32() == pixels);
  require(device_unit(n.integer).as_double() == static_cast<double>(pixels));
  const std::int64_t inches = n.dpi == 0 ? 0 : cut(pixels / n.dpi);
  require(to_md(device_unit(n.integer), n.dpi).as_md() == cut(inches * 100000));
  require(to_md(n.integer, device_unit::pixel, n.dpi).as_md() == cut(inches * 100000));
  check_length(to_md(n.floating, device_unit::pixel, n.dpi));

  const std::int64_t truncated = device_unit(n.floating).as_int32();
  if (std::fabs(n.floating) < 2147483648.0) require(truncated == static_cast<std::int64_t>(n.floating));
  if (!(std::fabs(n.floating) < 2147483649.0)) require(truncated == -2147483648LL);
}

void check_color(std::int64_t packed) {
  const color_t color(packed);
  require(color.as_int32() == cut(packed));
  require(color == color_t(color.red(), color.green(), color.blue(), color.alpha()));
  require(color.as_rgb() == (cut(packed) & 0xFFFFFF));
}

}  // namespace

extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  numbers n = {};
  if (size != 0) std::memcpy(&n, data, size < sizeof n ? size : sizeof n);
  const auto unit = static_cast<absolute_unit::unit_types>(n.unit);
  for (const auto& length :
       {to_md(n.floating, unit), to_md(n.integer, unit), length_in_md(n.floating), length_in_md(n.integer)}) {
    check_length(length);
    require(to_device_unit(length, n.dpi) == cut(std::int64_t{length.as_md()} * n.dpi) / 100000);
    require(to_dpx(length, n.dpi) == to_device_unit(length, n.dpi));
  }
  check_pixels(n);
  check_color(n.integer);
  return 0;
}
