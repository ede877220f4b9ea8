#include <iomanip>
#include <iostream>

#include "orva/orva.hpp"

using orva::types::absolute_unit;
using orva::types::basic_absolute_impl;
using orva::types::color_t;
using orva::types::device_unit;
namespace convert = orva::generic::convert;

using centimetres = basic_absolute_impl<absolute_unit::centimetre>;
using inches = basic_absolute_impl<absolute_unit::inch>;

// Layouts can be computed by the compiler.
constexpr int screen_dpi = 96;
constexpr int printer_dpi = 600;
constexpr inches margin = convert::to_md(25.4, absolute_unit::millimetre);
static_assert(convert::to_device_unit(margin, screen_dpi) == 96);

void lengths() {
  const inches paper = convert::to_md(21, absolute_unit::centimetre);
  std::cout << "paper: " << paper.as_double() << " in, " << centimetres(paper).as_double() << " cm, "
            << paper.as_md() << " md\n";
  std::cout << "about " << paper.as_int32() << " inches\n";

  centimetres width;
  width = paper;  // copies the length and keeps the unit
  std::cout << "the same: " << width.as_double() << " cm\n";
}

void pixels() {
  std::cout << "margin: " << convert::to_device_unit(margin, screen_dpi).as_int32() << " pixels on screen, "
            << convert::to_device_unit(margin, printer_dpi).as_int32() << " on paper\n";
  std::cout << "12 points: " << convert::to_dpx(12, absolute_unit::point, screen_dpi).as_int32()
            << " pixels\n";

  // An integer number of pixels counts only whole inches, a floating number everything.
  const device_unit row = 150;
  std::cout << "150 pixels of 100 an inch: " << convert::to_md(row, 100).as_md() << " md\n";
  std::cout << "150.0 of them: " << convert::to_md(150.0, device_unit::pixel, 100).as_md() << " md\n";
}

void colours() {
  color_t orange(255, 165, 0);
  std::cout << std::hex << "orange: " << orange.as_rgb() << ", alpha " << int{orange.alpha()} << '\n';
  orange.alpha(0x80);
  std::cout << "half of it: " << static_cast<orva::types::uint32>(orange.as_int32()) << '\n';
  std::cout << "packed: red " << int{color_t::rgb(0x00A5FF).red()} << ", alpha "
            << int{color_t::rgb(0x00A5FF).alpha()} << '\n';
}

int main() {
  lengths();
  pixels();
  colours();
}
