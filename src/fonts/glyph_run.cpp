#include "fonts/glyph_run.h"

#include "support/float_to_integer.h"

namespace fonts {

GlyphRun::Outcome GlyphRun::Draw(char32_t codePoint, Outline& outline) {
  const FT_Vector delta = {support::TruncateToI64(penX), support::TruncateToI64(penY)};
  const Glyph& glyph = face.GlyphOf(codePoint, {flipY, delta});
  if (!glyph.isLoaded) return Outcome::kSkipped;
  if (!Decompose(glyph, delta, outline)) return Outcome::kBroken;
  penX += static_cast<double>(glyph.advance);
  return Outcome::kDrawn;
}

}  // namespace fonts
