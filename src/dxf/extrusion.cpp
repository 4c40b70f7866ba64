#include <cmath>
#include <numbers>

#include "dxf/dxf_polylines.h"
#include "dxf/dxf_shapes.h"

namespace {

constexpr double kTwoPi = 2.0 * std::numbers::pi;

/// Below it, on x and y, a normal counts as near the z axis (the arbitrary axis rule of the format).
constexpr double kNearZAxis = 0.015625;

DXF_Coord Cross(const DXF_Coord& a, const DXF_Coord& b) {
  return {a.y * b.z - a.z * b.y, a.z * b.x - a.x * b.z, a.x * b.y - a.y * b.x};
}

/// A vector without length has no direction; it stays zero, so that no NaN arises.
DXF_Coord Unit(const DXF_Coord& v) {
  const double length = std::sqrt(v.x * v.x + v.y * v.y + v.z * v.z);
  if (length == 0.0) return {};
  return {v.x / length, v.y / length, v.z / length};
}

/// The axes that the arbitrary axis rule gives a normal. The normal itself is used as it stands in the file:
/// only the two axes are unit vectors.
class EntityPlane {
 public:
  explicit EntityPlane(const DXF_Coord& normalOfFile) : normal(normalOfFile) {
    const bool nearZ = std::fabs(normal.x) < kNearZAxis && std::fabs(normal.y) < kNearZAxis;
    axisX = Unit(Cross(nearZ ? DXF_Coord{0.0, 1.0, 0.0} : DXF_Coord{0.0, 0.0, 1.0}, normal));
    axisY = Unit(Cross(normal, axisX));
  }

  DXF_Coord map(const DXF_Coord& p) const {
    return {p.x * axisX.x + p.y * axisY.x + p.z * normal.x, p.x * axisX.y + p.y * axisY.y + p.z * normal.y,
            p.x * axisX.z + p.y * axisY.z + p.z * normal.z};
  }

 private:
  DXF_Coord normal;
  DXF_Coord axisX;
  DXF_Coord axisY;
};

void FixZeroNormal(DXF_Coord& normal) {
  if (normal == DXF_Coord{}) normal = {0.0, 0.0, 1.0};
}

/// `angle` in 0 to 2 pi, both included.
double WithinOneTurn(double angle) {
  if (angle >= 0.0 && angle <= kTwoPi) return angle;
  const double rest = std::fmod(angle, kTwoPi);
  return rest < 0.0 ? rest + kTwoPi : rest;
}

}  // namespace

void DXF_Point::applyExtrusion() {
  if (!hasExtrusion) return;
  FixZeroNormal(extrusion);
  point = EntityPlane(extrusion).map(point);
}

void DXF_Circle::applyExtrusion() {
  if (hasExtrusion) point = EntityPlane(extrusion).map(point);
}

void DXF_Arc::applyExtrusion() {
  if (extrusion != DXF_Coord{0.0, 0.0, 1.0}) hasExtrusion = true;
  DXF_Circle::applyExtrusion();
  if (!hasExtrusion || !(extrusion.z < 0.0)) return;
  const double start = startAngle;
  const double end = endAngle;
  if (std::fabs(extrusion.x) < kNearZAxis && std::fabs(extrusion.y) < kNearZAxis) {
    startAngle = std::numbers::pi - end;
    endAngle = std::numbers::pi - start;
  } else if (extrusion.x < kNearZAxis && extrusion.y < kNearZAxis) {
    // Kept: the second test takes the signs of x and y along, so it holds for normals far off the z axis.
    startAngle = kTwoPi - end;
    endAngle = kTwoPi - start;
  }
}

void DXF_Ellipse::applyExtrusion() {
  if (!hasExtrusion) return;
  secondPoint = EntityPlane(extrusion).map(secondPoint);
  if (!(extrusion.z < 0.0)) return;
  const double start = kTwoPi - startParam;
  const double end = kTwoPi - endParam;
  // Kept: with the normal's y above 0 the two are brought into one turn and do not change places.
  const bool wrapped = extrusion.y > 0.0;
  startParam = wrapped ? WithinOneTurn(start) : end;
  endParam = wrapped ? WithinOneTurn(end) : start;
}

void DXF_LWPolyline::applyExtrusion() {
  if (!hasExtrusion) return;
  FixZeroNormal(extrusion);
  const EntityPlane plane(extrusion);
  for (DXF_Vertex2D& vertex : vertices) {
    const DXF_Coord mapped = plane.map({vertex.x, vertex.y, elevation});
    vertex.x = mapped.x;
    vertex.y = mapped.y;
    vertex.bulge = -vertex.bulge;
  }
}

void DXF_Polyline::applyExtrusion() {
  if (!hasExtrusion) return;
  FixZeroNormal(extrusion);
  const EntityPlane plane(extrusion);
  // A vertex that stands in the list twice is mapped twice.
  for (const std::shared_ptr<DXF_Vertex>& vertex : vertices) vertex->point = plane.map(vertex->point);
}
