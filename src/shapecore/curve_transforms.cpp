// Moves, turns, mirrors and scales whole curves: the same map for every point of every segment.
#include <cmath>

#include "drawload/file_curve.h"
#include "result/point_transforms.h"

namespace {

template <typename Map>
void ForEachPoint(CFileCurve& curve, Map map) {
  for (FileSegment* segment = curve.segmentHead->next; segment != curve.segmentHead;
       segment = segment->next) {
    segment->start = map(segment->start);
    segment->end = map(segment->end);
    if (segment->type == kSegmentLine) continue;  // its control points are zero and stay so
    segment->control1 = map(segment->control1);
    segment->control2 = map(segment->control2);
  }
}

}  // namespace

void CFileCurve::Move(double dx, double dy) {
  ForEachPoint(*this, [=](FilePosition p) { return FilePosition{p.x + dx, p.y + dy}; });
}

void CFileCurve::TransRotate(double cx, double cy, double angle) {
  const double cosine = std::cos(angle);
  const double sine = std::sin(angle);
  ForEachPoint(*this, [=](FilePosition p) { return RotatedAbout(p, cx, cy, cosine, sine); });
}

void CFileCurve::TransMirrorX(double x) {
  ForEachPoint(*this, [=](FilePosition p) { return FilePosition{2 * x - p.x, p.y}; });
}

void CFileCurve::TransMirrorY(double y) {
  ForEachPoint(*this, [=](FilePosition p) { return FilePosition{p.x, 2 * y - p.y}; });
}

void CFileCurve::TransDrag(double cx, double cy, double sx, double sy) {
  ForEachPoint(*this, [=](FilePosition p) {
    return FilePosition{(p.x - cx) * sx + cx, (p.y - cy) * sy + cy};
  });
}
