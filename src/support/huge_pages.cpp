#include "support/huge_pages.h"

#include <cstdint>
#if defined(__linux__)
#include <sys/mman.h>
#endif

namespace support {

void AdviseHugePages([[maybe_unused]] void* memory, [[maybe_unused]] std::size_t bytes) {
#if defined(__linux__)
  constexpr std::uintptr_t hugePage = std::uintptr_t{2} << 20;
  const auto begin = reinterpret_cast<std::uintptr_t>(memory);
  const std::uintptr_t first = (begin + hugePage - 1) & ~(hugePage - 1);
  const std::uintptr_t end = (begin + bytes) & ~(hugePage - 1);
  if (first < end) madvise(reinterpret_cast<void*>(first), end - first, MADV_HUGEPAGE);
#endif
}

}  // namespace support
