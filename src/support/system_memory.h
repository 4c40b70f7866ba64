#ifndef DRAWLOAD_SUPPORT_SYSTEM_MEMORY_H
#define DRAWLOAD_SUPPORT_SYSTEM_MEMORY_H

#include <cstddef>

namespace support {

/// The size of the pages that large blocks ask for, where the system has them.
constexpr std::size_t kHugePageBytes = std::size_t{2} << 20;

/// Memory straight from the system, zeroed, from the start of a huge page on; null where there is none.
void* MapMemory(std::size_t bytes);
/// Gives back what `MapMemory(bytes)` returned.
void UnmapMemory(void* memory, std::size_t bytes);

/// Asks for huge pages in memory that comes from elsewhere.
void AdviseHugePages(void* memory, std::size_t bytes);

}  // namespace support

#endif
