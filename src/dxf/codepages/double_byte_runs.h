#ifndef DRAWLOAD_DXF_CODEPAGES_DOUBLE_BYTE_RUNS_H
#define DRAWLOAD_DXF_CODEPAGES_DOUBLE_BYTE_RUNS_H

#include <array>

#include "dxf/codepages/double_byte.h"

/// How the generated sources spell a double-byte page: runs of codes without a gap, and the code points of
/// all runs one after the other. The pairs are made of them while compiling.
namespace codepages {

struct CodeRun {
  std::uint32_t first;
  std::uint32_t length;
};

template <std::size_t count, std::size_t runCount, std::size_t pointCount>
consteval std::array<DoubleBytePair, count> PairsOf(const CodeRun (&runs)[runCount],
                                                    const std::uint16_t (&points)[pointCount]) {
  static_assert(count == pointCount);
  std::array<DoubleBytePair, count> pairs = {};
  std::size_t filled = 0;
  for (const CodeRun& run : runs) {
    for (std::uint32_t i = 0; i < run.length; ++i, ++filled) pairs[filled] = {run.first + i, points[filled]};
  }
  return pairs;
}

template <std::size_t count>
consteval std::array<std::uint32_t, 128> LeadsOf(const std::array<DoubleBytePair, count>& pairs) {
  std::array<std::uint32_t, 128> leads = {};
  std::size_t index = 0;
  for (std::uint32_t i = 0; i < 128; ++i) {
    while (index < count && pairs[index].code < (0x81U + i) * 256U) ++index;
    leads[i] = static_cast<std::uint32_t>(index);
  }
  return leads;
}

}  // namespace codepages

#endif
