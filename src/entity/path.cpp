#include "entity/path.h"

#include <algorithm>

namespace Entity_ZR {

void ZR_Path::MoveTo(double x, double y) {
  if (!segments.empty() && segments.back().type == kMoveTo) {
    segments.back().end.x = x;
    segments.back().end.y = y;
    return;
  }
  segments.push_back({kMoveTo, {x, y, 0.0}});
}

void ZR_Path::LineTo(double x, double y) { segments.push_back({kLineTo, {x, y, 0.0}}); }

void ZR_Path::QuadTo(Point3 control, Point3 end) { segments.push_back({kQuadTo, end, control}); }

void ZR_Path::CubicTo(Point3 control1, Point3 control2, Point3 end) {
  segments.push_back({kCubicTo, end, control1, control2});
}

void ZR_Path::Close() {
  const auto lastMove = std::find_if(segments.rbegin(), segments.rend(),
                                     [](const PathSegment& segment) { return segment.type == kMoveTo; });
  if (lastMove == segments.rend()) return;
  const Point3 start = lastMove->end;
  LineTo(start.x, start.y);
}

}  // namespace Entity_ZR
