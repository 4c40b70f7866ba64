#include "dxf/codepages/double_byte.h"

#include <algorithm>

namespace codepages {

std::uint32_t CodePointOf(const DoubleByteTable& page, std::uint8_t lead, std::uint8_t trail) {
  if (lead < 0x81) return 0;
  const auto first = page.pairs.begin() + page.leadTable[lead - 0x81U];
  const auto last = page.pairs.begin() + page.leadTable[lead - 0x80U];
  const std::uint32_t code = lead * 256U + trail;
  const auto pair =
      std::lower_bound(first, last, code,
                       [](const DoubleBytePair& entry, std::uint32_t wanted) { return entry.code < wanted; });
  return pair != last && pair->code == code ? pair->point : 0;
}

}  // namespace codepages
