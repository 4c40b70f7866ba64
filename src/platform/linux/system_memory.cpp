#include "support/system_memory.h"

#include <cstdint>
#include <sys/mman.h>

namespace support {

namespace {

/// `address`, or the next one where a huge page begins.
std::uintptr_t NextHugePage(std::uintptr_t address) {
  return (address + kHugePageBytes - 1) / kHugePageBytes * kHugePageBytes;
}

}  // namespace

void AdviseHugePages(void* memory, std::size_t bytes) {
  const auto begin = reinterpret_cast<std::uintptr_t>(memory);
  const std::uintptr_t first = NextHugePage(begin);
  const std::uintptr_t end = (begin + bytes) / kHugePageBytes * kHugePageBytes;
  if (first < end) madvise(static_cast<char*>(memory) + (first - begin), end - first, MADV_HUGEPAGE);
}

// Maps a huge page more than asked for, and gives back what lies before and after the aligned block.
void* MapMemory(std::size_t bytes) {
  if (bytes > PTRDIFF_MAX - kHugePageBytes) return nullptr;
  const std::size_t mapped = bytes + kHugePageBytes;
  void* memory = mmap(nullptr, mapped, PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
  if (memory == MAP_FAILED) return nullptr;
  char* begin = static_cast<char*>(memory);
  const auto address = reinterpret_cast<std::uintptr_t>(begin);
  const std::size_t before = NextHugePage(address) - address;
  constexpr std::size_t kPage = 4096;
  const std::size_t used = (bytes + kPage - 1) / kPage * kPage;
  if (before != 0) munmap(begin, before);
  if (before + used < mapped) munmap(begin + before + used, mapped - before - used);
  AdviseHugePages(begin + before, used);
  return begin + before;
}

void UnmapMemory(void* memory, std::size_t bytes) { munmap(memory, bytes); }

}  // namespace support
