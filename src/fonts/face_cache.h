#ifndef DRAWLOAD_FONTS_FACE_CACHE_H
#define DRAWLOAD_FONTS_FACE_CACHE_H

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_MODULE_H

#include <map>
#include <memory>
#include <string>
#include <utility>

#include "fonts/face.h"
#include "fonts/font_memory.h"
#include "support/limits.h"

namespace fonts {

/// The faces of one parse, in a font engine of its own.
class FaceCache {
 public:
  /// Closes all faces once their glyphs take `keptGlyphBytes`. Throws `std::bad_alloc` if there is no memory
  /// for the engine.
  explicit FaceCache(std::size_t keptGlyphBytes = support::limits::kKeptGlyphBytes);

  /// The face of `file` at `pixelSize`; null where the engine cannot open it. Valid until the next call.
  /// Throws `std::bad_alloc` where there is no memory for it.
  Face* FaceOf(const std::string& file, FT_UInt pixelSize);

  /// True once the engine has run out of memory: it is in no state to go on.
  bool IsExhausted() const { return memory.IsExhausted(); }

 private:
  struct LibraryDeleter {
    void operator()(FT_Library owned) const { FT_Done_Library(owned); }
  };

  std::size_t KeptBytes() const;

  std::size_t mostKeptBytes;
  FontMemory memory;
  std::unique_ptr<FT_LibraryRec_, LibraryDeleter> library;
  // A face for each size, since font programs may leave marks in a face that outlive a change of its size.
  std::map<std::pair<std::string, FT_UInt>, std::unique_ptr<Face>> faces;
};

}  // namespace fonts

#endif
