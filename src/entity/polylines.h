#ifndef DRAWLOAD_ENTITY_POLYLINES_H
#define DRAWLOAD_ENTITY_POLYLINES_H

#include <memory>
#include <vector>

#include "entity/entity.h"

namespace Entity_ZR {

/// A vertex of a light-weight polyline. `bulge` is the tangent of a quarter of the arc's sweep.
struct LWVertex {
  double x = 0.0;
  double y = 0.0;
  double startWidth = 0.0;
  double endWidth = 0.0;
  double bulge = 0.0;

  bool operator==(const LWVertex&) const = default;
};

class ZR_LWPolyline : public ZR_Entity {
 public:
  ZR_LWPolyline() : ZR_Entity(kLWPolyline) {}

  std::vector<LWVertex> vertices;
  std::int32_t vertexCount = 0;
  std::int32_t closed = 0;
  double width = 0.0;
  double elevation = 0.0;
  double thickness = 0.0;
};

/// Bits of `ZR_Polyline::polylineFlags` and of `PolylineVertex::vertexFlags`.
enum PolylineBits : std::int32_t {
  kPolylineClosed = 1,
  kPolylineSplineFit = 4,
  kVertexFromSplineFit = 8,
};

struct PolylineVertex {
  double x = 0.0;
  double y = 0.0;
  double z = 0.0;
  double startWidth = 0.0;
  double endWidth = 0.0;
  double spare = 0.0;
  double bulge = 0.0;
  std::int32_t vertexFlags = 0;
  double tangentAngle = 0.0;  ///< degrees
  std::int32_t faceIndex[4] = {0, 0, 0, 0};
  std::int32_t identifier = 0;

  bool operator==(const PolylineVertex&) const = default;
};

class ZR_Polyline : public ZR_Entity {
 public:
  ZR_Polyline() : ZR_Entity(kPolyline) {}

  Point3 elevationPoint;
  std::vector<std::shared_ptr<PolylineVertex>> vertices;
  std::int32_t polylineFlags = 0;
  double startWidth = 0.0;
  double endWidth = 0.0;
  std::int32_t vertexCount = 0;
  std::int32_t meshCountM = 0;
  std::int32_t meshCountN = 0;
  std::int32_t smoothM = 0;
  std::int32_t smoothN = 0;
  std::int32_t curveType = 0;
};

}  // namespace Entity_ZR

#endif
