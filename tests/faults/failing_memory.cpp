#include "faults/failing_memory.h"

#include <cerrno>
#include <cstdint>
#include <cstdlib>
#include <cstring>
#include <fontconfig/fontconfig.h>
#include <new>
#include <openjpeg.h>

namespace {

using failing_memory::Failure;

// Nothing here may allocate.

int sparedCalls = 0;  ///< of wrapped functions, that have not returned

/// The blocks that are out, by their address: an open hash table.
struct Entry {
  void* block = nullptr;
  const void* caller = nullptr;
};
constexpr int kEntryBits = 16;
constexpr std::size_t kEntries = std::size_t{1} << kEntryBits;  // more than small drawings have out at once
Entry entries[kEntries];
char erased;  ///< its address marks a place that was used

std::size_t PlaceOf(const void* block) {
  return (reinterpret_cast<std::uintptr_t>(block) * 0x9E3779B97F4A7C15u) >> (64 - kEntryBits);
}

struct State {
  bool isOn = false;
  std::size_t count = 0;
  std::size_t failing = 0;
  Failure failure = Failure::kOne;
};
State state;

bool MustFail() {
  if (!state.isOn || sparedCalls > 0) return false;
  const std::size_t number = ++state.count;
  return number == state.failing ||
         (state.failure == Failure::kAllFromThere && state.failing != 0 && number > state.failing);
}

void* Noted(void* block, const void* caller) {
  if (!state.isOn || block == nullptr) return block;
  for (std::size_t place = PlaceOf(block);; place = (place + 1) % kEntries) {
    if (entries[place].block != nullptr && entries[place].block != &erased) continue;
    entries[place] = {block, caller};
    return block;
  }
}

void Forget(const void* block) {
  if (block == nullptr) return;
  for (std::size_t place = PlaceOf(block); entries[place].block != nullptr; place = (place + 1) % kEntries) {
    if (entries[place].block != block) continue;
    entries[place] = {&erased};
    return;
  }
}

}  // namespace

namespace failing_memory {

void Start(std::size_t n, Failure failure) {
  std::memset(static_cast<void*>(entries), 0, sizeof entries);
  state = {true, 0, n, failure};
}

std::size_t Stop() {
  state.isOn = false;
  return state.count;
}

std::size_t LostBlocks() {
  std::size_t lost = 0;
  for (const Entry& entry : entries) {
    if (entry.block != nullptr && entry.block != &erased) ++lost;
  }
  return lost;
}

const void* CallerOfALostBlock() {
  for (const Entry& entry : entries) {
    if (entry.block != nullptr && entry.block != &erased) return entry.caller;
  }
  return nullptr;
}

}  // namespace failing_memory

namespace {

struct SparedCall {
  SparedCall() { ++sparedCalls; }
  SparedCall(const SparedCall&) = delete;
  SparedCall& operator=(const SparedCall&) = delete;
  ~SparedCall() { --sparedCalls; }
};

}  // namespace

// Each function that the linker wraps, in the place of the library's own.
#define WRAP(Result, name, parameters, arguments) \
  Result __real_##name parameters;                \
  Result __wrap_##name parameters {               \
    const SparedCall call;                        \
    return __real_##name arguments;               \
  }

extern "C" {

WRAP(FcConfig*, FcInitLoadConfigAndFonts, (), ())
WRAP(FcPattern*, FcNameParse, (const FcChar8* name), (name))
WRAP(FcFontSet*, FcFontList, (FcConfig * config, FcPattern* pattern, FcObjectSet* objects),
     (config, pattern, objects))
WRAP(FcPattern*, FcFontMatch, (FcConfig * config, FcPattern* pattern, FcResult* result),
     (config, pattern, result))
WRAP(FcBool, FcConfigSubstitute, (FcConfig * config, FcPattern* pattern, FcMatchKind kind),
     (config, pattern, kind))
WRAP(void, FcDefaultSubstitute, (FcPattern * pattern), (pattern))
WRAP(OPJ_BOOL, opj_decode, (opj_codec_t * codec, opj_stream_t* stream, opj_image_t* image),
     (codec, stream, image))

}  // extern "C"

#if defined(__SANITIZE_ADDRESS__)

namespace {

void* New(std::size_t size, std::size_t alignment, const void* caller) {
  if (MustFail()) return nullptr;
  void* block = nullptr;
  if (alignment <= alignof(std::max_align_t)) {
    block = std::malloc(size == 0 ? 1 : size);
  } else if (posix_memalign(&block, alignment, size) != 0) {
    block = nullptr;
  }
  return Noted(block, caller);
}

void* NewOrThrow(std::size_t size, std::size_t alignment, const void* caller) {
  void* block = New(size, alignment, caller);
  if (block == nullptr) throw std::bad_alloc();
  return block;
}

void Delete(void* block) {
  Forget(block);
  std::free(block);
}

constexpr std::size_t kUsual = alignof(std::max_align_t);

std::size_t Bytes(std::align_val_t alignment) { return static_cast<std::size_t>(alignment); }

}  // namespace

#define CALLER __builtin_return_address(0)

void* operator new(std::size_t size) { return NewOrThrow(size, kUsual, CALLER); }
void* operator new[](std::size_t size) { return NewOrThrow(size, kUsual, CALLER); }
void* operator new(std::size_t size, const std::nothrow_t&) noexcept { return New(size, kUsual, CALLER); }
void* operator new[](std::size_t size, const std::nothrow_t&) noexcept { return New(size, kUsual, CALLER); }
void* operator new(std::size_t size, std::align_val_t alignment) {
  return NewOrThrow(size, Bytes(alignment), CALLER);
}
void* operator new[](std::size_t size, std::align_val_t alignment) {
  return NewOrThrow(size, Bytes(alignment), CALLER);
}
void operator delete(void* block) noexcept { Delete(block); }
void operator delete[](void* block) noexcept { Delete(block); }
void operator delete(void* block, std::size_t) noexcept { Delete(block); }
void operator delete[](void* block, std::size_t) noexcept { Delete(block); }
void operator delete(void* block, const std::nothrow_t&) noexcept { Delete(block); }
void operator delete[](void* block, const std::nothrow_t&) noexcept { Delete(block); }
void operator delete(void* block, std::align_val_t) noexcept { Delete(block); }
void operator delete[](void* block, std::align_val_t) noexcept { Delete(block); }
void operator delete(void* block, std::size_t, std::align_val_t) noexcept { Delete(block); }
void operator delete[](void* block, std::size_t, std::align_val_t) noexcept { Delete(block); }

#else

extern "C" {

// The C library's own.
void* __libc_malloc(std::size_t size);
void* __libc_calloc(std::size_t count, std::size_t size);
void* __libc_realloc(void* block, std::size_t size);
void* __libc_memalign(std::size_t alignment, std::size_t size);
void __libc_free(void* block);

#define CALLER __builtin_return_address(0)
#define FAIL_IF_CHOSEN \
  if (MustFail()) {    \
    errno = ENOMEM;    \
    return nullptr;    \
  }

void* malloc(std::size_t size) {
  FAIL_IF_CHOSEN
  return Noted(__libc_malloc(size), CALLER);
}

void* calloc(std::size_t count, std::size_t size) {
  FAIL_IF_CHOSEN
  return Noted(__libc_calloc(count, size), CALLER);
}

void* realloc(void* block, std::size_t size) {
  FAIL_IF_CHOSEN
  void* moved = __libc_realloc(block, size);
  if (moved == nullptr && size != 0) return nullptr;
  Forget(block);
  return Noted(moved, CALLER);
}

void* memalign(std::size_t alignment, std::size_t size) {
  FAIL_IF_CHOSEN
  return Noted(__libc_memalign(alignment, size), CALLER);
}

void* aligned_alloc(std::size_t alignment, std::size_t size) {
  FAIL_IF_CHOSEN
  return Noted(__libc_memalign(alignment, size), CALLER);
}

int posix_memalign(void** block, std::size_t alignment, std::size_t size) {
  if (MustFail()) return ENOMEM;
  *block = Noted(__libc_memalign(alignment, size), CALLER);
  return *block == nullptr ? ENOMEM : 0;
}

void free(void* block) {
  Forget(block);
  __libc_free(block);
}

}  // extern "C"

#endif
