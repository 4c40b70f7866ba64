#ifndef DRAWLOAD_FONTS_GLYPH_RUN_H
#define DRAWLOAD_FONTS_GLYPH_RUN_H

#include "fonts/face.h"

namespace fonts {

/// A pen that draws one line of text, a glyph at a time.
class GlyphRun {
 public:
  enum class Outcome {
    kDrawn,    ///< the outline stands, which may be empty, and the pen has moved on
    kSkipped,  ///< the engine could not load the glyph: no outline, and the pen has not moved
    kBroken,   ///< the engine could not follow the outline: the run ends here
  };

  /// The pen starts at (x, y) pixels. `flipY` turns each glyph upside down about the pen's line.
  GlyphRun(Face& drawnFace, double x, double y, bool flipped)
      : face(drawnFace), penX(x * 64.0), penY(y * 64.0), flipY(flipped) {}

  /// Draws the glyph of `codePoint` over `outline`.
  Outcome Draw(char32_t codePoint, Outline& outline);

 private:
  Face& face;
  double penX;  ///< 1/64 pixel
  double penY;
  bool flipY;
};

}  // namespace fonts

#endif
