#ifndef DRAWLOAD_DXF_TEXT_FORMAT_H
#define DRAWLOAD_DXF_TEXT_FORMAT_H

#include <cstdint>

#include "entity/shared.h"

/// The attributes of a text, worked out from its style.
struct DXF_TextFormat {
  Entity_ZR::SharedText fontName;  ///< a family name
  Entity_ZR::SharedText bigFontName;
  double height = 1.0;
  double widthScale = 1.0;
  double oblique = 0.0;  ///< degrees
  bool bold = false;
  bool italic = false;
  bool backward = false;
  bool upsideDown = false;
  bool vertical = false;
  std::uint32_t color = 0xFF000000;  ///< byte 0 red, byte 1 green, byte 2 blue, byte 3 alpha
};

class DXF_TextStyle;

/// The format of a style; null stands for a style that the drawing does not have. The font name is cut at its
/// first dot, so that a file name becomes a family name, and is "SimSun" where the style names none.
DXF_TextFormat TextFormatOf(const DXF_TextStyle* style);

#endif
