#ifndef DRAWLOAD_SUPPORT_COUNTED_MEMORY_H
#define DRAWLOAD_SUPPORT_COUNTED_MEMORY_H

#include <cstddef>
#include <cstdlib>
#include <memory>

namespace support {

/// The C library's functions for the C libraries that take an allocator, and for blocks that are freed by
/// `free`. What they hand out is counted as working memory of the current read; null where its account
/// refuses or there is no memory.
void* CountedMalloc(std::size_t bytes) noexcept;
void* CountedCalloc(std::size_t bytes) noexcept;
/// `block` may be null. It stays as it was where null is returned.
void* CountedRealloc(void* block, std::size_t bytes) noexcept;
/// `block` may be null.
void CountedFree(void* block) noexcept;

}  // namespace support

#endif
