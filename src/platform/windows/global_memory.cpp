#include "platform/global_memory.h"

#include "platform/windows/system.h"

namespace platform {

static_assert(kMoveable == GMEM_MOVEABLE && kZeroInitialised == GMEM_ZEROINIT);

GlobalHandle GlobalAlloc(unsigned flags, std::size_t bytes) { return ::GlobalAlloc(flags, bytes); }

void* GlobalLock(GlobalHandle handle) { return ::GlobalLock(handle); }

void GlobalUnlock(GlobalHandle handle) { ::GlobalUnlock(handle); }

void GlobalFree(GlobalHandle handle) { ::GlobalFree(handle); }

}  // namespace platform
