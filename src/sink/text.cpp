// Text: glyph outlines as paths, one for each glyph, all of one text in one group.
#include "entity/text.h"

#include <cmath>
#include <utf8.h>

#include "entity/path.h"
#include "fonts/glyph_run.h"
#include "fonts/parse_fonts.h"
#include "sink/my_draw_load.h"
#include "support/account.h"
#include "support/float_to_integer.h"

namespace {

/// What drawing a glyph costs beside its result.
constexpr std::uint64_t kGlyphWork = 128;

using Entity_ZR::Point3;
using Entity_ZR::ZR_Path;
using Entity_ZR::ZR_Text;

/// The size that the font engine is asked for. Kept: a height is cut to a whole number, and none draws at 24.
std::uint32_t PixelSize(double height) {
  if (std::isnan(height) || std::abs(height) < 1e-8) return 24;
  return static_cast<std::uint32_t>(support::TruncateToI32(height));
}

Point3 PointOf(fonts::OutlinePoint p) { return {p.x, p.y}; }

/// Writes `outline` over the segments of `path`. One pixel of the font engine is one drawing unit.
void SetSegments(ZR_Path& path, const fonts::Outline& outline) {
  path.segments.assign(1, {Entity_ZR::kMoveTo, {}});
  for (const fonts::OutlineStep& step : outline) {
    switch (step.kind) {
      case fonts::OutlineStep::kMove: path.MoveTo(step.end.x, step.end.y); break;
      case fonts::OutlineStep::kLine: path.LineTo(step.end.x, step.end.y); break;
      case fonts::OutlineStep::kConic: path.QuadTo(PointOf(step.control1), PointOf(step.end)); break;
      case fonts::OutlineStep::kCubic:
        path.CubicTo(PointOf(step.control1), PointOf(step.control2), PointOf(step.end));
        break;
    }
  }
}

/// Draws `text`, which is valid UTF-8, and calls `receive` with the outline of each glyph.
template <typename Receive>
void GlyphPaths(std::string_view text, Point3 position, bool flipY, fonts::Face& face, Receive receive) {
  fonts::GlyphRun run(face, position.x, position.y, flipY);
  fonts::Outline outline;
  for (const char* at = text.data(); at != text.data() + text.size();) {
    const char32_t codePoint = utf8::unchecked::next(at);
    if (codePoint == U'\n' || codePoint == U'\r') continue;
    support::SpendWork(kGlyphWork);
    const auto outcome = run.Draw(codePoint, outline);
    if (outcome == fonts::GlyphRun::Outcome::kBroken) return;
    if (outcome == fonts::GlyphRun::Outcome::kSkipped) continue;
    receive(outline);
  }
}

}  // namespace

bool CMyDrawLoad::AddText(ZR_Text* entity, PARSE::Context) {
  if (!entity->IsShown() || fileType == PARSE::kDxfFile) return false;
  // A text that is not UTF-8 costs only itself, so it is found out before anything changes.
  if (!utf8::is_valid(entity->text.begin(), entity->text.end())) return true;
  textMode = 1;
  textLast = 0;
  if (groupDepth == 0 && textGroup == nullptr) textGroup = store.NewGroup();
  try {
    if (!support::RunItem([&] { DrawText(*entity); })) AbandonText();
  } catch (...) {
    AbandonText();
    throw;
  }
  return true;
}

void CMyDrawLoad::AbandonText() {
  if (groupDepth == 0 && CollectsText()) HandOutText();
  if (parseFonts == nullptr || parseFonts->faces == nullptr) return;
  if (parseFonts->faces->IsExhausted()) parseFonts->faces.reset();
}

void CMyDrawLoad::DrawText(const ZR_Text& text) {
  if (parseFonts == nullptr) parseFonts = std::make_unique<fonts::ParseFonts>();
  const std::string& file = parseFonts->lookup.FileOf(text.fontName);
  if (parseFonts->faces == nullptr) parseFonts->faces = std::make_unique<fonts::FaceCache>();
  fonts::Face* face = parseFonts->faces->FaceOf(file, PixelSize(text.height));
  if (face == nullptr) return;

  ZR_Path glyphPath;
  glyphPath.matrix = text.matrix;
  if (fileType == PARSE::kSvgFile) ScaleAbout(glyphPath.matrix, text.position, 1.0, -1.0);
  glyphPath.attributes = text.attributes;
  // The last path bears a mark, so each one waits until it is known whether another follows.
  bool isWaiting = false;
  GlyphPaths(text.text, text.position, text.flipY != 0, *face, [&](const fonts::Outline& outline) {
    if (isWaiting) AddPath(&glyphPath, 0);
    SetSegments(glyphPath, outline);
    isWaiting = true;
  });
  if (!isWaiting) return;
  textLast = 1;
  AddPath(&glyphPath, 0);
}
