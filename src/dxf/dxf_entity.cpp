#include "dxf/dxf_entity.h"

#include <algorithm>
#include <array>

DXF_Entity::~DXF_Entity() = default;

std::int32_t LineWeightClass(std::int32_t weight) {
  if (weight == -1) return 29;
  if (weight == -2) return 30;
  if (weight < 0) return 31;
  constexpr std::array<std::int32_t, 23> kBounds = {3,  7,  11, 14, 16, 19,  22,  27,  32,  37,  45, 52,
                                                    57, 65, 75, 85, 95, 103, 112, 130, 149, 180, 205};
  const auto above = std::upper_bound(kBounds.begin(), kBounds.end(), weight);
  return static_cast<std::int32_t>(above - kBounds.begin());
}
