#ifndef DRAWLOAD_ENTITY_HATCH_H
#define DRAWLOAD_ENTITY_HATCH_H

#include <boost/variant.hpp>
#include <string>
#include <vector>

#include "entity/entity.h"
#include "entity/polylines.h"
#include "entity/shapes.h"
#include "entity/spline.h"

namespace Entity_ZR {

enum HatchEdgeKind : std::int32_t {
  kLineEdge = 1,
  kArcEdge = 2,
  kEllipseEdge = 3,
  kSplineEdge = 4,
  kPolylineEdge = 5,
};

/// One boundary edge. `kind` says which alternative `shape` holds.
struct HatchEdge {
  std::int32_t kind = 0;
  boost::variant<ZR_Line, ZR_Arc, ZR_Ellipse, ZR_Spline, ZR_LWPolyline> shape;
};

/// One family of lines of a hatch pattern, as the file states it. Angle in degrees.
struct HatchPatternLine {
  double angle = 0.0;
  double baseX = 0.0;
  double baseY = 0.0;
  double offsetX = 0.0;
  double offsetY = 0.0;
  std::int32_t dashCount = 0;  ///< as the file states it; `dashes` may differ
  std::vector<double> dashes;

  bool operator==(const HatchPatternLine&) const = default;
};

class ZR_Hatch : public ZR_Entity {
 public:
  ZR_Hatch() : ZR_Entity(kHatch) {}

  std::string patternName;
  std::int32_t fillType = 0;
  std::int32_t associative = 0;
  std::int32_t pathCount = 0;  ///< counts as the file states them; the lists may differ
  std::int32_t pathFlags = 0;  ///< of the last path, as the next three
  std::int32_t edgeCount = 0;
  std::int32_t edgeType = 0;
  std::int32_t sourceCount = 0;
  std::int32_t hatchStyle = 0;
  std::int32_t patternType = 0;
  double patternAngle = 0.0;  ///< degrees
  double patternScale = 0.0;
  std::int32_t patternDouble = 0;
  double pixelSize = 0.0;
  std::int32_t patternLineCount = 0;
  std::vector<HatchPatternLine> patternLines;
  std::int32_t seedCount = 0;
  std::vector<Point3> seeds;
  std::int32_t gradientFlag = 0;
  std::int32_t gradientColorCount = 0;
  std::int32_t gradientOneColor = 0;
  std::int32_t gradientStopCount = 0;
  double gradientAngle = 0.0;
  double gradientShift = 0.0;
  double gradientTint = 0.0;
  double gradientValue = 0.0;
  std::string gradientName;
  std::vector<HatchEdge> edges;
};

}  // namespace Entity_ZR

#endif
