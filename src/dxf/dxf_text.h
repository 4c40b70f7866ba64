#ifndef DRAWLOAD_DXF_DXF_TEXT_H
#define DRAWLOAD_DXF_DXF_TEXT_H

#include <string>
#include <vector>

#include "dxf/dxf_shapes.h"

/// One line of text. `angle` and `oblique` in degrees.
class DXF_Text : public DXF_Line {
 public:
  DXF_Text() : DXF_Line(kDxfText) {}

  void parseGroup(std::int32_t code, const dxfReader& reader);

  double height = 1.0;
  std::string text;
  double angle = 0.0;
  double widthScale = 1.0;
  double oblique = 0.0;
  std::string styleName = "STANDARD";
  std::int32_t generationFlags = 0;
  std::int32_t horizontalAlign = 0;
  std::int32_t verticalAlign = 0;

 protected:
  explicit DXF_Text(DXF_Kind ownKind) : DXF_Line(ownKind) {}
};

/// One box of a paragraph text: each group 40 opens one.
struct MtextParam {
  double height = 0.0;
  double rectWidth = 0.0;
  double boxWidth = 0.0;
  double boxHeight = 0.0;

  bool operator==(const MtextParam&) const = default;
};

/// Paragraph text with format codes in `text`; `secondPoint` is its direction. The sizes are those that the
/// file states last; `params` has them box by box.
class DXF_MText : public DXF_Text {
 public:
  DXF_MText() : DXF_Text(kDxfMText) {}

  void parseGroup(std::int32_t code, const dxfReader& reader);

  /// At the end of the entity: a direction that stands there last rules the rotation.
  void finish();

  double rectWidth = 0.0;
  double boxWidth = 0.0;
  double boxHeight = 0.0;
  double lineSpacingFactor = 1.0;
  std::int32_t attachment = 1;
  std::int32_t lineSpacingStyle = 0;
  bool hasDirection = false;
  std::vector<MtextParam> params;

 private:
  void parseSize(std::int32_t code, double value);
};

#endif
