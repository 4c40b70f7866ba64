// Texts of the document as entities. Nothing is laid out here: each text stands at its own place.

#include "support/account.h"
#include "support/text_to_number.h"
#include "svg/length.h"
#include "svg/svg_rw.h"

using Entity_ZR::ZR_Text;

namespace {

/// Work of finding a glyph, which may be empty.
constexpr std::size_t kCharacterWork = 64;

constexpr std::string_view kDefaultFont = "Microsoft YaHei";

enum Alignment : std::int32_t { kStart = 10, kEnd = 12, kMiddle = 14 };

Alignment AlignmentOf(std::string_view anchor) {
  if (anchor == "middle") return kMiddle;
  return anchor == "end" ? kEnd : kStart;
}

}  // namespace

void SVG_RW::EmitText(const Svg::SVG_Element& record, ZR_Text& text) {
  ApplyStyle(record, text);
  const double x = Number(Svg::kX);
  const double y = Number(Svg::kY);
  const double dx = Number(Svg::kDx);
  const double dy = Number(Svg::kDy);
  for (const Svg::KnownKey key : {Svg::kX, Svg::kY, Svg::kDx, Svg::kDy}) groupAttributes->Erase(key);
  text.text = record.content();
  support::SpendWork(kCharacterWork * text.text.size());
  const std::string_view rotate = groupAttributes->Field(Svg::kRotate);
  if (!rotate.empty()) {
    text.rotation = support::AtoF(rotate);
    groupAttributes->Erase(Svg::kRotate);
  }
  ApplyFont(text);
  text.position = {x + dx, y + dy, 0.0};
  AttachRemaining(text);
}

/// Kept: the height is the number as written, whatever its unit, and the anchor comes from "text-rendering"
/// while "text-anchor" has no effect.
void SVG_RW::ApplyFont(ZR_Text& text) {
  for (const Svg::KnownKey key :
       {Svg::kFontSize, Svg::kFontFamily, Svg::kFontWeight, Svg::kFontStyle, Svg::kTextAnchor}) {
    groupAttributes->Erase(key);
  }
  const std::string_view size = groupAttributes->Field(Svg::kFontSize);
  if (!size.empty()) {
    const std::string_view unit = Svg::SplitUnit(size);
    text.unit = unit.empty() ? "px" : unit;
    text.height = support::AtoF(size);
  }
  const std::string_view anchor = groupAttributes->Field(Svg::kTextRendering);
  if (!anchor.empty()) text.alignment = AlignmentOf(anchor);
  const std::string_view family = groupAttributes->Field(Svg::kFontFamily);
  text.fontName = family.empty() ? kDefaultFont : family;
  const std::string_view weight = groupAttributes->Field(Svg::kFontWeight);
  if (weight == "bold" || weight == "black") text.bold = 1;
  const std::string_view style = groupAttributes->Field(Svg::kFontStyle);
  if (style == "italic" || style == "oblique") text.italic = 1;
}
