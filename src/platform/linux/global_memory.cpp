#include "platform/global_memory.h"

#include <cstdlib>

namespace platform {

GlobalHandle GlobalAlloc(unsigned flags, std::size_t bytes) {
  return (flags & kZeroInitialised) != 0 ? std::calloc(1, bytes) : std::malloc(bytes);
}

void* GlobalLock(GlobalHandle handle) { return handle; }

void GlobalUnlock(GlobalHandle) {}

void GlobalFree(GlobalHandle handle) { std::free(handle); }

}  // namespace platform
