#ifndef DRAWLOAD_PLATFORM_GLOBAL_MEMORY_H
#define DRAWLOAD_PLATFORM_GLOBAL_MEMORY_H

#include <cstddef>

#include "drawload/platform/string_class.h"

/// Moveable global memory. On Linux a handle is the address of its block, which never moves; on Windows it
/// is the system's own.
namespace platform {

using drawload::GlobalHandle;

constexpr unsigned kMoveable = 0x02;
constexpr unsigned kZeroInitialised = 0x40;

/// Allocates `bytes` bytes; null when there is no memory. With `kZeroInitialised` the block is zeroed.
GlobalHandle GlobalAlloc(unsigned flags, std::size_t bytes);

/// The address of the block, which holds until it is unlocked.
void* GlobalLock(GlobalHandle handle);
void GlobalUnlock(GlobalHandle handle);
void GlobalFree(GlobalHandle handle);

}  // namespace platform

#endif
