#ifndef DRAWLOAD_ENTITY_SPLINE_H
#define DRAWLOAD_ENTITY_SPLINE_H

#include <vector>

#include "entity/entity.h"

namespace Entity_ZR {

class ZR_Spline : public ZR_Entity {
 public:
  ZR_Spline() : ZR_Entity(kSpline) {}

  Point3 normal;
  Point3 startTangent;
  Point3 endTangent;
  std::int32_t flags = 0;
  std::int32_t degree = 0;
  std::int32_t knotCount = 0;     ///< as the file states it; `knots` may differ
  std::int32_t controlCount = 0;  ///< as the file states it; `controlPoints` may differ
  std::int32_t fitCount = 0;
  double knotTolerance = 1e-7;
  double controlTolerance = 1e-7;
  double fitTolerance = 1e-7;
  std::vector<double> knots;
  std::vector<Point3> controlPoints;
  std::vector<Point3> fitPoints;
  std::vector<double> weights;  ///< one per control point when rational, else empty
};

class ZR_Helix : public ZR_Entity {
 public:
  ZR_Helix() : ZR_Entity(kHelix) {}

  ZR_Spline spline;
  Point3 axisBase;
  Point3 start;
  Point3 axis;
  double radius = 0.0;
  double turns = 0.0;
  double turnHeight = 0.0;
  std::int32_t clockwise = 0;
  std::int32_t constraint = 0;
};

}  // namespace Entity_ZR

#endif
