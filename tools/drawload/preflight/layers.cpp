#include "layers.h"

#include <array>
#include <bit>
#include <map>

#include "bezier.h"

namespace {

using Key = std::array<std::uint64_t, 15>;

/// Numbers by their bits: settings may be NaN, which equals nothing.
Key KeyOf(std::uint32_t color, const Settings& s) {
  // The library's own defaults differ by the kind of entity: 1 for lines and circles, 0 for arcs and paths.
  // An outline of lines and arcs is one all the same.
  const double frequency = s.frequency == 1.0 ? 0.0 : s.frequency;
  const auto bits = [](auto value) { return std::bit_cast<std::uint64_t>(static_cast<double>(value)); };
  return {
      color,           bits(s.cutMode),     bits(s.cutSpeed),     bits(s.cutPower),    bits(s.highFocus),
      bits(frequency), bits(s.processType), bits(s.engraveSpeed), bits(s.engMinPower), bits(s.engMaxPower),
      bits(s.engStep), bits(s.imageType),   bits(s.reverse),      bits(s.machineType), bits(s.diameter)};
}

Key KeyOf(const Result& result) {
  if (const auto* curve = std::get_if<Curve>(&result)) return KeyOf(curve->color, curve->settings);
  return KeyOf(0, std::get<Bitmap>(result).settings);
}

}  // namespace

bool IsWithinReach(const Box& box) {
  return box.minX >= -kFarthest && box.minY >= -kFarthest && box.maxX <= kFarthest && box.maxY <= kFarthest;
}

bool IsWithinReach(const Result& result) {
  const auto* curve = std::get_if<Curve>(&result);
  if (curve == nullptr) return IsWithinReach(std::get<Bitmap>(result).bounds);
  for (const Segment& segment : curve->segments) {
    if (!IsWithinReach(ControlBoxOf(segment))) return false;
  }
  return true;
}

std::vector<std::uint32_t> LayersOf(const Job& job) {
  std::map<Key, std::uint32_t> numbers;
  std::vector<std::uint32_t> layers;
  layers.reserve(job.results.size());
  for (const Result& result : job.results) {
    const auto next = static_cast<std::uint32_t>(numbers.size());
    layers.push_back(numbers.try_emplace(KeyOf(result), next).first->second);
  }
  return layers;
}
