#include "drawload/file_point.h"

#include "result/point_transforms.h"

CFilePoint::CFilePoint() : x(0.0), y(0.0), trailingWord(0) { kind = kFilePoint; }

CFilePoint::CFilePoint(const CFilePoint& other) = default;
CFilePoint& CFilePoint::operator=(const CFilePoint& other) = default;

void CFilePoint::TransMove(double dx, double dy) {
  x += dx;
  y += dy;
}

void CFilePoint::TransRotate(double cx, double cy, double angle) {
  const FilePosition turned = RotatedAbout({x, y}, cx, cy, std::cos(angle), std::sin(angle));
  x = turned.x;
  y = turned.y;
}

void CFilePoint::TransMirrorX(double axis) { x = 2 * axis - x; }
void CFilePoint::TransMirrorY(double axis) { y = 2 * axis - y; }

void CFilePoint::TransDrag(double cx, double cy, double sx, double sy) {
  x = (x - cx) * sx + cx;
  y = (y - cy) * sy + cy;
}

structRect CFilePoint::CalRect() {
  rect = {x, y, x, y};
  return rect;
}
