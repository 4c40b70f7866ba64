#include "fonts/font_memory.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <functional>

#include "support/account.h"
#include "support/counted_memory.h"

namespace fonts {
namespace {

/// Many times what the interpreter asks for before it runs.
constexpr std::size_t kReserveBytes = std::size_t{64} << 10;

FontMemory& OwnerOf(FT_Memory memory) { return *static_cast<FontMemory*>(memory->user); }

}  // namespace

FontMemory::FontMemory() : allocator{this, Allocate, Free, Reallocate}, reserve(kReserveBytes) {}

void FontMemory::ThrowIfExhausted() const {
  if (isExhausted) throw support::MemoryUsedUp();
}

void FontMemory::ThrowIfExhausted(const FT_FaceRec& face) {
  if (face.memory->alloc == Allocate) OwnerOf(face.memory).ThrowIfExhausted();
}

void* FontMemory::TakeFromReserve(std::size_t size) {
  isExhausted = true;
  constexpr std::size_t alignment = alignof(std::max_align_t);
  if (size > kReserveBytes - taken) return nullptr;
  std::byte* block = reserve.data() + taken;
  taken += std::min((size + alignment - 1) / alignment * alignment, kReserveBytes - taken);
  return block;
}

bool FontMemory::IsInReserve(const void* block) const {
  const std::less<> before;
  return !before(block, reserve.data()) && before(block, reserve.data() + kReserveBytes);
}

void* FontMemory::Allocate(FT_Memory memory, long size) {
  void* block = support::CountedMalloc(static_cast<std::size_t>(size));
  return block != nullptr ? block : OwnerOf(memory).TakeFromReserve(static_cast<std::size_t>(size));
}

void* FontMemory::Reallocate(FT_Memory memory, long oldSize, long newSize, void* block) {
  if (!OwnerOf(memory).IsInReserve(block)) {
    void* moved = support::CountedRealloc(block, static_cast<std::size_t>(newSize));
    if (moved != nullptr) return moved;
  }
  void* copy = OwnerOf(memory).TakeFromReserve(static_cast<std::size_t>(newSize));
  if (copy == nullptr) return nullptr;
  std::memcpy(copy, block, static_cast<std::size_t>(std::min(oldSize, newSize)));
  Free(memory, block);
  return copy;
}

void FontMemory::Free(FT_Memory memory, void* block) {
  if (!OwnerOf(memory).IsInReserve(block)) support::CountedFree(block);
}

}  // namespace fonts
