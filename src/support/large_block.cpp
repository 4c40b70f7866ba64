#include "support/large_block.h"

#include <cstdlib>
#include <new>

#include "support/system_memory.h"

namespace support {

namespace {

bool IsMapped(std::size_t bytes) { return bytes >= kMappedBytes; }

}  // namespace

void LargeBlockDeleter::operator()(char* block) const {
  if (IsMapped(bytes)) {
    UnmapMemory(block, bytes);
  } else {
    std::free(block);
  }
  if (Account* account = Account::Current()) account->Release(bytes, use);
}

LargeBlock NewLargeBlock(std::size_t bytes, MemoryUse use) {
  Account* account = Account::Current();
  if (account != nullptr) account->Hold(bytes, use);
  // One byte where none is asked for, as malloc may answer null then.
  void* memory = IsMapped(bytes) ? MapMemory(bytes) : std::malloc(bytes == 0 ? 1 : bytes);
  if (memory == nullptr) {
    if (account != nullptr) account->Release(bytes, use);
    throw std::bad_alloc();
  }
  return LargeBlock(static_cast<char*>(memory), {bytes, use});
}

}  // namespace support
