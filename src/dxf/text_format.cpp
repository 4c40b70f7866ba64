#include "dxf/text_format.h"

#include <string_view>

#include "dxf/dxf_tables.h"

namespace {

constexpr std::int32_t kVerticalStyle = 4;

constexpr std::string_view kNoFont = "SimSun";

/// A family name: that of a file ends at its first dot.
std::string_view FamilyOf(std::string_view font) {
  return font.empty() ? kNoFont : font.substr(0, font.find('.'));
}

/// The font of a style that a program has written extended data to stands there, unless that says something
/// else.
std::string_view FontOf(const DXF_TextStyle& style) {
  if (style.extApp == "ACAD" && style.extText != "AnnotativeData") return style.extText;
  return style.font;
}

void FillFromStyle(DXF_TextFormat& format, const DXF_TextStyle& style) {
  format.height = style.height;
  format.widthScale = style.widthScale;
  format.oblique = style.oblique;
  format.fontName = FamilyOf(FontOf(style));
  format.bigFontName = style.bigFont;
  format.backward = style.generationFlags == 2 || style.generationFlags == 6;
  format.upsideDown = style.generationFlags == 4 || style.generationFlags == 6;
  const std::uint32_t pitchBits = static_cast<std::uint32_t>(style.fontFamily) >> 24 & 3;
  format.italic = (pitchBits & 1) != 0;
  format.bold = (pitchBits & 2) != 0;
  format.vertical = (style.flags & kVerticalStyle) != 0;
}

}  // namespace

DXF_TextFormat TextFormatOf(const DXF_TextStyle* style) {
  DXF_TextFormat format;
  if (style != nullptr) {
    FillFromStyle(format, *style);
  } else {
    format.fontName = kNoFont;
  }
  return format;
}
