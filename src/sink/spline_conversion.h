#ifndef DRAWLOAD_SINK_SPLINE_CONVERSION_H
#define DRAWLOAD_SINK_SPLINE_CONVERSION_H

#include <optional>
#include <vector>

#include "curve/bspline.h"
#include "entity/point3.h"

namespace Entity_ZR {
class ZR_Spline;
}

/// The exact shape of a spline of degree 2 or 3 without weights, as a chain of Bezier pieces in the plane.
/// Nothing if it cannot be drawn: its control count is not that of its list, it states too many knots, a
/// number is not finite, or the kernel refuses its knots. Nothing for other degrees, but for 1.
/// Kept: of degree 1 the first two control points are the result, if there are two and both are finite. No
/// count, knot or further point is read.
std::optional<curve::BSpline> SplineToBezier(const Entity_ZR::ZR_Spline& spline);

/// A point of a spline and its parameter.
struct SplinePoint {
  double u = 0.0;
  Entity_ZR::Point3 point;
};

/// A chain of points along a spline with weights, from its start to its end. The curve's point half way
/// between two neighbours (half way in the parameter) is at most twice `tolerance` off their chord.
/// Empty if it cannot be drawn: its control count is not that of its list, its knot count is not degree + 1 +
/// control count, a weight is missing, a number is not finite, the kernel refuses its knots, or its degree is
/// beyond limits::kRationalSplineDegree.
///
/// A spline of a hundred bytes whose coordinates are huge asks for endless points. It takes some of the work
/// that its read has left, and is drawn with the points found by then.
std::vector<SplinePoint> SplineFlatten(const Entity_ZR::ZR_Spline& spline, double tolerance);

/// Whether the lists of a spline are what it says and every number that is drawn is finite.
bool IsDrawable(const Entity_ZR::ZR_Spline& spline);

#endif
