#include <algorithm>

#include "fuzz/target.h"
#include "svg/color_value.h"
#include "svg/length.h"

namespace {

/// Reads the input as a colour, with what stands behind its last blank as the opacity, and as a length.
void Run(std::string_view input) {
  const std::size_t blank = std::min(input.rfind(' '), input.size());
  const Svg::ColorValue color = Svg::ParseColor(input.substr(0, blank), input.substr(blank));
  const std::uint32_t packed = color.Packed();
  fuzz::Touch(&packed, sizeof packed);
  const double length = Svg::ResolveLength(input, 100.0) + Svg::UnitFactor(input);
  fuzz::Touch(&length, sizeof length);
}

const fuzz::Target target("color", Run);

}  // namespace
