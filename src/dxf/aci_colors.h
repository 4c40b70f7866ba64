#ifndef DRAWLOAD_DXF_ACI_COLORS_H
#define DRAWLOAD_DXF_ACI_COLORS_H

#include <cstdint>

/// A colour as entities carry it: byte 0 red, byte 1 green, byte 2 blue, byte 3 alpha.
constexpr std::uint32_t PackColor(std::uint32_t red, std::uint32_t green, std::uint32_t blue) {
  return red | green << 8 | blue << 16 | 0xFF000000U;
}

/// The opaque colour of an entry of the standard colour index table. An index outside 0 to 255 counts as 7,
/// white.
std::uint32_t AciColor(std::int32_t index);

/// The same for a layer's colour, where a negative index means that the layer is off: -255 to -1 count by
/// their absolute value.
std::uint32_t AciLayerColor(std::int32_t index);

#endif
