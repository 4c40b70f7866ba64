#ifndef DRAWLOAD_FONTS_FACE_H
#define DRAWLOAD_FONTS_FACE_H

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_OUTLINE_H

#include <memory>
#include <string>
#include <type_traits>
#include <unordered_map>
#include <vector>

#include "fonts/font_file.h"
#include "fonts/outline.h"

namespace fonts {

/// How a glyph is drawn: upright or upside down, and where the pen stands, in 1/64 pixel.
struct GlyphPlacement {
  bool flipY = false;
  FT_Vector delta = {0, 0};
};

/// A glyph as the font engine delivers it before it is moved to the pen.
struct Glyph {
  bool isLoaded = false;  ///< false: the engine failed
  FT_Pos advance = 0;     ///< to the next pen position, 1/64 pixel
  int flags = 0;
  std::vector<FT_Vector> points;
  // Their signs differ between versions of the engine.
  std::vector<std::remove_pointer_t<decltype(FT_Outline::tags)>> tags;
  std::vector<std::remove_pointer_t<decltype(FT_Outline::contours)>> contours;
};

/// One font file at one pixel size, with every glyph that was asked of it so far.
///
/// Moved to a pen, a kept glyph is bit for bit what loading it at that pen gives: the engine scales and hints
/// without knowing the pen, applies the matrix, and adds the pen's place to each point last, in whole
/// numbers. The middle points between two control points of conic curves are not kept, since their rounding
/// depends on the place. Only an upright glyph at the pen (0, 0) skips matrix and move; it is kept by itself.
class Face {
 public:
  /// Opens face 0 of `path`, which is null where that is no regular file or no font. A size that the font
  /// does not have is no error.
  static std::unique_ptr<Face> Open(FT_Library library, const std::string& path, FT_UInt pixelSize);

  /// The glyph of `codePoint`, or the font's substitute where it has none.
  const Glyph& GlyphOf(char32_t codePoint, const GlyphPlacement& placement);

  /// Bytes of memory that the kept glyphs take.
  std::size_t KeptBytes() const { return keptBytes; }

 private:
  struct FaceDeleter {
    void operator()(FT_Face owned) const { FT_Done_Face(owned); }
  };

  using OwnedFace = std::unique_ptr<FT_FaceRec, FaceDeleter>;

  Face(std::unique_ptr<FontFile> source, OwnedFace opened)
      : file(std::move(source)), face(std::move(opened)) {}
  Glyph Load(FT_UInt index, const GlyphPlacement& placement);

  std::unique_ptr<FontFile> file;  ///< outlives `face`
  OwnedFace face;
  std::unordered_map<std::uint64_t, Glyph> glyphs;  ///< by glyph index and kind of placement
  std::size_t keptBytes = 0;
};

/// The outline of `glyph` with the pen at `delta`, in pixels, written over `outline`. False where the engine
/// finds it broken.
bool Decompose(const Glyph& glyph, FT_Vector delta, Outline& outline);

}  // namespace fonts

#endif
