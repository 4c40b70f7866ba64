#include "support/counted_memory.h"

#include <cstring>
#include <new>

#include "support/account.h"

namespace support {

namespace {

/// In front of each block, so that its size is known when it is freed.
struct alignas(std::max_align_t) Head {
  std::size_t bytes;  ///< of the block with its head
};

bool TryHold(std::size_t bytes) {
  Account* account = Account::Current();
  return account == nullptr || account->TryHold(bytes, MemoryUse::kWorking);
}

void Release(std::size_t bytes) {
  if (Account* account = Account::Current()) account->Release(bytes, MemoryUse::kWorking);
}

Head* HeadOf(void* block) { return static_cast<Head*>(block) - 1; }

/// The block after `memory`, the head of `bytes` bytes that are counted; null where there is no memory.
void* BlockIn(void* memory, std::size_t bytes) {
  if (memory != nullptr) return new (memory) Head{bytes} + 1;
  Release(bytes);
  return nullptr;
}

/// With its head; 0 where that is more than there can be.
std::size_t SizeWithHead(std::size_t bytes) {
  return bytes > PTRDIFF_MAX - sizeof(Head) ? 0 : bytes + sizeof(Head);
}

}  // namespace

void* CountedMalloc(std::size_t bytes) noexcept {
  const std::size_t all = SizeWithHead(bytes);
  return all == 0 || !TryHold(all) ? nullptr : BlockIn(std::malloc(all), all);
}

void* CountedCalloc(std::size_t bytes) noexcept {
  const std::size_t all = SizeWithHead(bytes);
  return all == 0 || !TryHold(all) ? nullptr : BlockIn(std::calloc(1, all), all);
}

void* CountedRealloc(void* block, std::size_t bytes) noexcept {
  if (block == nullptr) return CountedMalloc(bytes);
  const std::size_t all = SizeWithHead(bytes);
  if (all == 0 || !TryHold(all)) return nullptr;
  const std::size_t before = HeadOf(block)->bytes;
  void* moved = BlockIn(std::realloc(HeadOf(block), all), all);
  if (moved != nullptr) Release(before);
  return moved;
}

void CountedFree(void* block) noexcept {
  if (block == nullptr) return;
  Release(HeadOf(block)->bytes);
  std::free(HeadOf(block));
}

}  // namespace support
