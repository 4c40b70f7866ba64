#ifndef DRAWLOAD_ENTITY_TEXT_H
#define DRAWLOAD_ENTITY_TEXT_H

#include <string>

#include "entity/entity.h"

namespace Entity_ZR {

/// One line of text. The sink reads `text`, `fontName`, `height`, `flipY` and `position`.
class ZR_Text : public ZR_Entity {
 public:
  ZR_Text() : ZR_Entity(kText) {}

  std::string text;     ///< UTF-8
  SharedText fontName;  ///< a family, perhaps with a prefix before a "+" and a style after a "-"
  SharedText bigFontName;
  std::string unit;     ///< unit of the height as its file wrote it
  double height = 0.0;  ///< in the unit of `position`; cut to a whole number, the font engine's pixel size
  double widthScale = 1.0;
  double spare = 1.0;
  std::uint8_t bold = 0;
  std::uint8_t italic = 0;
  std::uint8_t backward = 0;
  std::uint8_t upsideDown = 0;
  std::uint8_t vertical = 0;
  double oblique = 0.0;    ///< degrees
  double rotation = 0.0;   ///< degrees
  std::uint8_t flipY = 0;  ///< non-zero: glyphs are drawn with y negated
  std::int32_t alignment = 10;
  Point3 position;        ///< the pen's start
  Point3 secondPosition;  ///< alignment point of a DXF text
};

}  // namespace Entity_ZR

#endif
