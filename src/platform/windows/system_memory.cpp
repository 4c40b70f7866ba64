#include "support/system_memory.h"

#include <cstdint>

#include "platform/windows/system.h"

namespace support {

// Large pages need a privilege there that ordinary programs lack.
void AdviseHugePages(void*, std::size_t) {}

void* MapMemory(std::size_t bytes) {
  return VirtualAlloc(nullptr, bytes, MEM_RESERVE | MEM_COMMIT, PAGE_READWRITE);
}

void UnmapMemory(void* memory, std::size_t) { VirtualFree(memory, 0, MEM_RELEASE); }

}  // namespace support
