// What `new` and `delete` of the library become: the linker has each call of them pass through here
// (--wrap in src/CMakeLists.txt), and the process's own functions do the work. So whatever the library
// allocates is counted, no matter which container asks for it, and hosts keep their allocator.
#include <cstddef>
#include <new>

#include "support/account.h"

namespace {

using support::Account;
using support::MemoryUse;

/// What the C library adds to a block.
constexpr std::size_t kBlockHead = 16;

void Hold(std::size_t bytes) {
  if (Account* account = Account::Current()) account->Hold(bytes + kBlockHead, MemoryUse::kWorking);
}

void Release(std::size_t bytes) {
  if (Account* account = Account::Current()) account->Release(bytes + kBlockHead, MemoryUse::kWorking);
}

/// `take()`, which throws where there is no memory, counted.
template <typename Take>
void* Counted(std::size_t bytes, Take take) {
  Hold(bytes);
  try {
    return take();
  } catch (...) {
    Release(bytes);
    throw;
  }
}

}  // namespace

// The linker's names: of new and delete, plain and aligned, as the C++ ABI mangles them.
extern "C" {

void* __real__Znwm(std::size_t bytes);
void* __wrap__Znwm(std::size_t bytes) {
  return Counted(bytes, [=] { return __real__Znwm(bytes); });
}

void* __real__ZnwmSt11align_val_t(std::size_t bytes, std::align_val_t alignment);
void* __wrap__ZnwmSt11align_val_t(std::size_t bytes, std::align_val_t alignment) {
  return Counted(bytes, [=] { return __real__ZnwmSt11align_val_t(bytes, alignment); });
}

void __real__ZdlPvm(void* block, std::size_t bytes);
void __wrap__ZdlPvm(void* block, std::size_t bytes) {
  if (block != nullptr) Release(bytes);
  __real__ZdlPvm(block, bytes);
}

void __real__ZdlPvmSt11align_val_t(void* block, std::size_t bytes, std::align_val_t alignment);
void __wrap__ZdlPvmSt11align_val_t(void* block, std::size_t bytes, std::align_val_t alignment) {
  if (block != nullptr) Release(bytes);
  __real__ZdlPvmSt11align_val_t(block, bytes, alignment);
}
}
