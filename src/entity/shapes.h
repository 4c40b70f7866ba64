#ifndef DRAWLOAD_ENTITY_SHAPES_H
#define DRAWLOAD_ENTITY_SHAPES_H

#include "entity/entity.h"

namespace Entity_ZR {

class ZR_Point : public ZR_Entity {
 public:
  ZR_Point() : ZR_Entity(kPoint) {}

  Point3 position;
};

class ZR_Line : public ZR_Entity {
 public:
  ZR_Line() : ZR_Entity(kLine) {}

  Point3 start;
  Point3 end;
};

class ZR_Circle : public ZR_Entity {
 public:
  ZR_Circle() : ZR_Entity(kCircle) {}

  Point3 center;
  double radius = 0.0;
};

/// Part of a circle.
struct ArcShape {
  ArcShape() = default;
  /// The arc between two points with the bulge that stands at the first of them: the tangent of a quarter of
  /// its sweep, positive for counter-clockwise. A bulge below 0.0001 is no arc: all fields stay zero.
  ArcShape(Point3 from, double bulge, Point3 to);

  Point3 center;
  double radius = 0.0;
  double startAngle = 0.0;
  double endAngle = 0.0;
  std::uint8_t reversed = 0;  ///< non-zero: runs clockwise from `startAngle` to `endAngle`
};

class ZR_Arc : public ZR_Entity, public ArcShape {
 public:
  ZR_Arc() : ZR_Entity(kArc) {}
  ZR_Arc(Point3 from, double bulge, Point3 to) : ZR_Entity(kArc), ArcShape(from, bulge, to) {}
};

inline ZR_Arc ArcFromBulge(Point3 start, double bulge, Point3 end) { return ZR_Arc(start, bulge, end); }

class ZR_Ellipse : public ZR_Entity {
 public:
  ZR_Ellipse() : ZR_Entity(kEllipse) {}

  Point3 center;
  double radiusX = 0.0;
  double radiusY = 0.0;
  double startAngle = 0.0;
  double endAngle = 0.0;
  double rotation = 0.0;
  std::uint8_t reversed = 0;
};

class ZR_Solid : public ZR_Entity {
 public:
  ZR_Solid() : ZR_Entity(kSolid) {}

  Point3 corners[4];
};

}  // namespace Entity_ZR

#endif
