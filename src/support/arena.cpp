#include "support/arena.h"

#include <algorithm>

#include "support/system_memory.h"

namespace support {

namespace {

constexpr std::size_t kLargestOrdinaryChunk = std::size_t{256} << 10;
/// What is freed from the start on goes in such steps.
constexpr std::size_t kLargestChunk = std::size_t{4} << 20;

std::size_t NextChunk(std::size_t bytes) {
  if (bytes < kLargestOrdinaryChunk) return 4 * bytes;
  return std::clamp(2 * bytes, kHugePageBytes, kLargestChunk);
}

}  // namespace

void Arena::AddChunk(std::size_t leastBytes) {
  const std::size_t bytes = std::max(leastBytes, nextChunkBytes);
  chunks.push_back({NewLargeBlock(bytes, use), bytes});
  free = chunks.back().block.get();
  end = free + bytes;
  nextChunkBytes = NextChunk(nextChunkBytes);
}

}  // namespace support
