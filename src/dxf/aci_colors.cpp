#include "dxf/aci_colors.h"

#include <algorithm>
#include <array>
#include <cstddef>

namespace {

constexpr std::array<std::uint32_t, 10> kNamedColors = {
    PackColor(0, 0, 0),       PackColor(255, 0, 0),    PackColor(255, 255, 0), PackColor(0, 255, 0),
    PackColor(0, 255, 255),   PackColor(0, 0, 255),    PackColor(255, 0, 255), PackColor(255, 255, 255),
    PackColor(128, 128, 128), PackColor(192, 192, 192)};

constexpr std::array<std::uint32_t, 6> kGreys = {51, 91, 132, 173, 214, 255};

/// How far a channel that peaks at hue 0 stands above its floor, in quarters of the full range, at a hue of
/// `step` times 15 degrees.
constexpr std::uint32_t ChannelQuarters(std::uint32_t step) {
  const std::uint32_t distance = std::min(step % 24, 24 - step % 24);
  return distance <= 4 ? 4 : distance >= 8 ? 0 : 8 - distance;
}

/// Entries 10 to 249: 24 hues, of each five levels, of each level the full colour and a pale one.
constexpr std::uint32_t HueColor(std::uint32_t index) {
  constexpr std::array<std::uint32_t, 5> levels = {10, 8, 6, 5, 3};
  const std::uint32_t level = levels[index % 10 / 2];
  const bool pale = index % 2 != 0;
  const auto component = [=](std::uint32_t quarters) {
    return pale ? 255 * (4 + quarters) * level / 80 : 255 * quarters * level / 40;
  };
  const std::uint32_t hue = index / 10 - 1;
  return PackColor(component(ChannelQuarters(hue)), component(ChannelQuarters(hue + 16)),
                   component(ChannelQuarters(hue + 8)));
}

constexpr std::array<std::uint32_t, 256> BuildTable() {
  std::array<std::uint32_t, 256> table = {};
  for (std::uint32_t i = 0; i < 10; ++i) table[i] = kNamedColors[i];
  for (std::uint32_t i = 10; i < 250; ++i) table[i] = HueColor(i);
  for (std::uint32_t i = 250; i < 256; ++i)
    table[i] = PackColor(kGreys[i - 250], kGreys[i - 250], kGreys[i - 250]);
  return table;
}

constexpr std::array<std::uint32_t, 256> kTable = BuildTable();

}  // namespace

std::uint32_t AciColor(std::int32_t index) {
  return kTable[index >= 0 && index <= 255 ? static_cast<std::size_t>(index) : 7];
}

std::uint32_t AciLayerColor(std::int32_t index) {
  return AciColor(index >= -255 && index < 0 ? -index : index);
}
