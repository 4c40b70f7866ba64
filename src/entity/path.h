#ifndef DRAWLOAD_ENTITY_PATH_H
#define DRAWLOAD_ENTITY_PATH_H

#include <vector>

#include "entity/entity.h"

namespace Entity_ZR {

enum PathSegmentType : std::int32_t {
  kMoveTo = 1,
  kLineTo = 2,
  kQuadTo = 4,
  kCubicTo = 5,
};

/// One step of a path. `control1` is the control point of a quadratic curve.
struct PathSegment {
  std::int32_t type;
  Point3 end;
  Point3 control1 = {};
  Point3 control2 = {};

  bool operator==(const PathSegment&) const = default;
};

/// Lines and curves in sequence; a new path holds one move, to the origin.
class ZR_Path : public ZR_Entity {
 public:
  ZR_Path() : ZR_Entity(kPath) { segments.push_back({kMoveTo, {}}); }

  /// Overwrites the last segment if it is a move, otherwise appends one.
  void MoveTo(double x, double y) {
    if (segments.empty() || segments.back().type != kMoveTo) {
      segments.push_back({kMoveTo, {x, y, 0.0}});
    } else {
      segments.back().end.x = x;
      segments.back().end.y = y;
    }
  }
  void LineTo(double x, double y) { segments.push_back({kLineTo, {x, y, 0.0}}); }
  void QuadTo(Point3 control, Point3 end) { segments.push_back({kQuadTo, end, control}); }
  void CubicTo(Point3 control1, Point3 control2, Point3 end) {
    segments.push_back({kCubicTo, end, control1, control2});
  }
  /// Appends a line to the point of the last move. An empty path stays as it is.
  void Close();

  std::vector<PathSegment> segments;
  std::uint32_t paintMode = 0;  ///< carried; not read by the sink
};

}  // namespace Entity_ZR

#endif
