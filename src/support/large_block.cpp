#include "support/large_block.h"

#include <cstdint>
#include <new>
#if defined(__linux__)
#include <sys/mman.h>
#endif

namespace support {

void AdviseHugePages([[maybe_unused]] void* memory, [[maybe_unused]] std::size_t bytes) {
#if defined(__linux__)
  const auto begin = reinterpret_cast<std::uintptr_t>(memory);
  const std::uintptr_t first = (begin + kHugePageBytes - 1) / kHugePageBytes * kHugePageBytes;
  const std::uintptr_t end = (begin + bytes) / kHugePageBytes * kHugePageBytes;
  if (first < end) madvise(static_cast<char*>(memory) + (first - begin), end - first, MADV_HUGEPAGE);
#endif
}

void LargeBlockDeleter::operator()(char* block) const {
  ::operator delete (block, std::align_val_t{alignment});
}

LargeBlock NewLargeBlock(std::size_t bytes) {
  const bool isLarge = bytes >= kHugePageBytes;
  const std::size_t alignment = isLarge ? kHugePageBytes : __STDCPP_DEFAULT_NEW_ALIGNMENT__;
  LargeBlock block(static_cast<char*>(::operator new (bytes, std::align_val_t{alignment})), {alignment});
  if (isLarge) AdviseHugePages(block.get(), bytes);
  return block;
}

}  // namespace support
