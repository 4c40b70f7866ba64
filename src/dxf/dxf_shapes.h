#ifndef DRAWLOAD_DXF_DXF_SHAPES_H
#define DRAWLOAD_DXF_DXF_SHAPES_H

#include "dxf/dxf_entity.h"

class DXF_Line : public DXF_Point {
 public:
  DXF_Line() : DXF_Point(kDxfLine) {}

  // Kept: a line's end points are never mapped through its normal.
  void applyExtrusion() override {}
  void parseGroup(std::int32_t code, const dxfReader& reader);

  DXF_Coord secondPoint;

 protected:
  explicit DXF_Line(DXF_Kind ownKind) : DXF_Point(ownKind) {}
};

class DXF_Circle : public DXF_Point {
 public:
  DXF_Circle() : DXF_Point(kDxfCircle) {}

  void applyExtrusion() override;
  void parseGroup(std::int32_t code, const dxfReader& reader);

  double radius = 0.0;

 protected:
  explicit DXF_Circle(DXF_Kind ownKind) : DXF_Point(ownKind) {}
};

/// Angles in radians.
class DXF_Arc : public DXF_Circle {
 public:
  DXF_Arc() : DXF_Circle(kDxfArc) {}

  void applyExtrusion() override;
  void parseGroup(std::int32_t code, const dxfReader& reader);

  double startAngle = 0.0;
  double endAngle = 0.0;
  std::int32_t counterClockwise = 1;
};

/// The centre is in `point`, the major axis, relative to it, in `secondPoint`. Parameters in radians.
class DXF_Ellipse : public DXF_Line {
 public:
  DXF_Ellipse() : DXF_Line(kDxfEllipse) {}

  void applyExtrusion() override;
  void parseGroup(std::int32_t code, const dxfReader& reader);

  double ratio = 0.0;
  double startParam = 0.0;
  double endParam = 0.0;
  std::int32_t counterClockwise = 1;
};

/// Corners: `point`, `secondPoint`, `thirdPoint`, `fourthPoint`.
class DXF_Solid : public DXF_Line {
 public:
  DXF_Solid() : DXF_Line(kDxfSolid) {}

  void parseGroup(std::int32_t code, const dxfReader& reader);

  DXF_Coord thirdPoint;
  DXF_Coord fourthPoint;
};

/// The rectangle (`point`, `uVector`, `vVector` per pixel) that shows the picture of an image definition.
class DXF_Image : public DXF_Line {
 public:
  DXF_Image() : DXF_Line(kDxfImage) {}

  void parseGroup(std::int32_t code, const dxfReader& reader);

  const DXF_Coord& uVector() const { return secondPoint; }

  DXF_Coord vVector;
  double sizeU = 0.0;  ///< pixels
  double sizeV = 0.0;
  std::uint32_t imageDefHandle = 0;
  std::int32_t clipping = 0;
  std::int32_t brightness = 50;
  std::int32_t contrast = 50;
  std::int32_t fade = 0;
};

/// Read and dropped.
class DXF_Viewport : public DXF_Point {
 public:
  DXF_Viewport() : DXF_Point(kDxfViewport) {}
};

#endif
