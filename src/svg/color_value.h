#ifndef DRAWLOAD_SVG_COLOR_VALUE_H
#define DRAWLOAD_SVG_COLOR_VALUE_H

#include <cstdint>
#include <string_view>

namespace Svg {

struct ColorValue {
  std::int32_t red = 0;
  std::int32_t green = 0;
  std::int32_t blue = 0;
  std::int32_t alpha = 255;
  bool valid = false;

  bool operator==(const ColorValue&) const = default;

  /// Byte 0 red, byte 1 green, byte 2 blue, byte 3 alpha; the low byte of each.
  std::uint32_t Packed() const;
};

/// Reads "#" with 3, 6, 9 or 12 digits, rgb() of numbers or percents, and names. Text that names no colour
/// (empty, "currentColor", "inherit", broken numbers) is not valid.
ColorValue ParseColor(std::string_view text, std::string_view opacityText);

}  // namespace Svg

#endif
