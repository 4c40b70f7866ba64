#ifndef DRAWLOAD_FONTS_FONT_MEMORY_H
#define DRAWLOAD_FONTS_FONT_MEMORY_H

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_SYSTEM_H

#include <cstddef>
#include <vector>

namespace fonts {

/// The memory of one font engine. FreeType reads through a null pointer where its interpreter of font
/// programs gets no memory, so the engine does not hear of an allocation that fails while a reserve has room
/// for it; `ThrowIfExhausted` says so behind the call.
class FontMemory {
 public:
  FontMemory();

  /// For `FT_New_Library`; lives as long as this object, which must outlive the engine.
  FT_Memory Allocator() { return &allocator; }

  bool IsExhausted() const { return isExhausted; }
  /// Throws `support::MemoryUsedUp` if any allocation of the engine has failed.
  void ThrowIfExhausted() const;

  /// The same for the engine of `face`, whatever its memory.
  static void ThrowIfExhausted(const FT_FaceRec& face);

 private:
  static void* Allocate(FT_Memory memory, long size);
  static void* Reallocate(FT_Memory memory, long oldSize, long newSize, void* block);
  static void Free(FT_Memory memory, void* block);

  void* TakeFromReserve(std::size_t size);
  bool IsInReserve(const void* block) const;

  FT_MemoryRec_ allocator;
  std::vector<std::byte> reserve;
  std::size_t taken = 0;
  bool isExhausted = false;
};

}  // namespace fonts

#endif
