#include "dxf/text_format.h"

#include <algorithm>

#include "dxf/dxf_tables.h"
#include "support/limits.h"

namespace {

constexpr std::int32_t kVerticalStyle = 4;

std::string CutName(std::string_view name) {
  return std::string(name.substr(0, support::limits::kStyleFontNameBytes));
}

/// The font of a style that a program has written extended data to stands there, unless that says something
/// else.
std::string_view FontOf(const DXF_TextStyle& style) {
  return style.extApp == "ACAD" && style.extText != "AnnotativeData" ? style.extText : style.font;
}

void FillFromStyle(DXF_TextFormat& format, const DXF_TextStyle& style) {
  format.height = style.height;
  format.widthScale = style.widthScale;
  format.oblique = style.oblique;
  format.fontName = CutName(FontOf(style));
  format.bigFontName = CutName(style.bigFont);
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
  if (style != nullptr) FillFromStyle(format, *style);
  if (format.fontName.empty()) {
    format.fontName = "SimSun";
  } else {
    format.fontName.resize(std::min(format.fontName.find('.'), format.fontName.size()));
  }
  return format;
}
