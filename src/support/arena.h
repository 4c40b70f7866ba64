#ifndef DRAWLOAD_SUPPORT_ARENA_H
#define DRAWLOAD_SUPPORT_ARENA_H

#include <cstddef>
#include <utility>
#include <vector>

#include "support/large_block.h"

namespace support {

/// Memory that is handed out piece by piece, one behind the other in large chunks, and freed as a whole, or
/// from its start on.
class Arena {
 public:
  static constexpr std::size_t kAlignment = 8;

  explicit Arena(MemoryUse memoryUse = MemoryUse::kWorking) : use(memoryUse) {}
  Arena(const Arena&) = delete;
  Arena& operator=(const Arena&) = delete;

  /// `bytes` bytes, not initialised, aligned to `kAlignment`. Throws where there is no memory.
  void* Allocate(std::size_t bytes) {
    bytes = (bytes + kAlignment - 1) / kAlignment * kAlignment;
    if (static_cast<std::size_t>(end - free) < bytes) AddChunk(bytes);
    return std::exchange(free, free + bytes);
  }

  /// Room for one `Object`, not initialised.
  template <typename Object>
  void* RoomFor() {
    static_assert(alignof(Object) <= kAlignment);
    return Allocate(sizeof(Object));
  }

  /// Takes back the last `bytes` bytes, or a little fewer, of the piece handed out last.
  void TakeBack(std::size_t bytes) { free -= bytes / kAlignment * kAlignment; }

  /// Frees the chunks in front of the one that `piece` lies in: nobody may use what was handed out before it.
  void FreeBefore(const void* piece) {
    while (!chunks.front().Holds(piece)) chunks.erase(chunks.begin());
  }

 private:
  struct Chunk {
    bool Holds(const void* piece) const { return piece >= block.get() && piece < block.get() + bytes; }

    LargeBlock block;
    std::size_t bytes;
  };

  void AddChunk(std::size_t leastBytes);

  MemoryUse use;
  std::vector<Chunk> chunks;
  std::size_t nextChunkBytes = std::size_t{16} << 10;  ///< chunks grow, soon to whole huge pages
  char* free = nullptr;                                ///< what is left of the last chunk
  char* end = nullptr;
};

}  // namespace support

#endif
