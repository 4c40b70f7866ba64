#ifndef DRAWLOAD_SUPPORT_SPARE_MEMORY_H
#define DRAWLOAD_SUPPORT_SPARE_MEMORY_H

#include <cstddef>
#include <cstdlib>
#include <memory>

namespace support {

/// Whether `bytes` of memory can be had now. Asked before a call into a library that does not survive a
/// failure of its own small allocations: where memory is short, the call is not made.
inline bool HasSpareMemory(std::size_t bytes) {
  const std::unique_ptr<void, decltype(&std::free)> room(std::malloc(bytes), std::free);
  return room != nullptr;
}

}  // namespace support

#endif
