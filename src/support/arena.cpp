#include "support/arena.h"

#include <algorithm>

#include "support/huge_pages.h"

namespace support {

namespace {

constexpr std::size_t kLargestChunk = std::size_t{16} << 20;

}  // namespace

void Arena::AddChunk(std::size_t leastBytes) {
  const std::size_t bytes = std::max(leastBytes, nextChunkBytes);
  chunks.push_back(std::make_unique_for_overwrite<std::byte[]>(bytes));
  free = chunks.back().get();
  end = free + bytes;
  AdviseHugePages(free, bytes);
  nextChunkBytes = std::min(2 * nextChunkBytes, kLargestChunk);
}

}  // namespace support
