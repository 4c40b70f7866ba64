#ifndef DRAWLOAD_DXF_CODEPAGES_DOUBLE_BYTE_H
#define DRAWLOAD_DXF_CODEPAGES_DOUBLE_BYTE_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <span>

namespace codepages {

struct DoubleBytePair {
  std::uint32_t code;   ///< lead byte * 256 + trail byte
  std::uint32_t point;  ///< Unicode code point
};

/// The double-byte part of a Windows code page: pairs in ascending order of their codes. `leadTable[b -
/// 0x80]` is the index at which the pairs of lead byte b + 1 begin, so that the entries b - 0x81 and b - 0x80
/// bracket those of lead byte b.
struct DoubleByteTable {
  std::span<const std::uint32_t, 128> leadTable;
  std::span<const DoubleBytePair> pairs;
};

constexpr std::size_t kPairCount936 = 21791;
constexpr std::size_t kPairCount950 = 13503;

/// Simplified Chinese (GBK).
extern const DoubleByteTable kCodePage936;
/// Traditional Chinese (Big5), without the range for private use from 0xC6A1 to 0xC8FE.
extern const DoubleByteTable kCodePage950;

/// The code point of a lead byte from 0x81 up and the byte after it; 0 where the page has no such pair.
std::uint32_t CodePointOf(const DoubleByteTable& page, std::uint8_t lead, std::uint8_t trail);

}  // namespace codepages

#endif
