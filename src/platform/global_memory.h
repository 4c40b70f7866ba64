#ifndef DRAWLOAD_PLATFORM_GLOBAL_MEMORY_H
#define DRAWLOAD_PLATFORM_GLOBAL_MEMORY_H

#include <cstddef>

#include "drawload/platform/string_class.h"

/// Moveable global memory. Here a handle is the address of its block, which never moves.
namespace platform {

constexpr unsigned kMoveable = 0x02;
constexpr unsigned kZeroInitialised = 0x40;

/// Allocates `bytes` bytes; null when there is no memory. With `kZeroInitialised` the block is zeroed.
GlobalHandle GlobalAlloc(unsigned flags, std::size_t bytes);

/// The address of the block.
void* GlobalLock(GlobalHandle handle);
void GlobalUnlock(GlobalHandle handle);
void GlobalFree(GlobalHandle handle);

}  // namespace platform

#endif
