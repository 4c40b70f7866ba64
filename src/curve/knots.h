#ifndef DRAWLOAD_CURVE_KNOTS_H
#define DRAWLOAD_CURVE_KNOTS_H

#include <cmath>
#include <cstdint>

#include "curve/curve_block.h"
#include "curve/status.h"

namespace curve {

/// Knots that differ by less count as one.
constexpr double kKnotTolerance = 1e-10;

inline bool KnotsEqual(double a, double b) { return std::fabs(a - b) < kKnotTolerance; }

/// Writes the knots of `mode`. Only Bezier knots can fail: their count must divide by the order.
StatusCode GenerateKnots(CurveBlock& curve, KnotMode mode, Status* status);

/// Copies in `curve.knotCount` values if they do not decrease and none occurs more than order times.
/// Otherwise the curve keeps its knots. A value that is not finite counts as a decrease.
StatusCode SetKnots(CurveBlock& curve, const double* values, Status* status);

/// Where a parameter lies among the knots.
struct KnotPosition {
  double knot;                 ///< the parameter, or the knot to which it is equal
  std::uint32_t index;         ///< of the last knot that is not above it
  std::uint32_t multiplicity;  ///< how many knots are equal to it
};

/// Finds `u`, which must lie in the domain of the curve, by binary search.
StatusCode FindKnot(const CurveBlock& curve, double u, KnotPosition& position, Status* status);

/// The last of the knots that are one with the knot at `index`: each equal to the one before it.
std::uint32_t LastOfKnot(const CurveBlock& curve, std::uint32_t index);
/// The first of them.
std::uint32_t FirstOfKnot(const CurveBlock& curve, std::uint32_t index);

StatusCode FailKnotCount(std::uint64_t knotCount, Status* status);
StatusCode FailDegree(std::uint32_t degree, std::uint64_t controlPointCount, Status* status);

}  // namespace curve

#endif
