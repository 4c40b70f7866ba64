#ifndef DRAWLOAD_CURVE_DE_BOOR_H
#define DRAWLOAD_CURVE_DE_BOOR_H

#include <cstddef>
#include <cstdint>
#include <memory>

#include "curve/curve_block.h"
#include "curve/status.h"

namespace curve {

/// The points of de Boor's scheme at one parameter, as one heap block: this head, then the points, level
/// after level. The last point, or the last two at a discontinuity, are the result.
struct alignas(double) NetBlock {
  double knot;                 ///< the parameter, or the knot to which it is equal
  std::uint32_t index;         ///< the knot span
  std::uint32_t multiplicity;  ///< how often `knot` occurs
  std::uint32_t insertions;    ///< levels above the control points: degree - multiplicity, at least 0
  std::uint32_t dimension;
  std::uint32_t pointCount;  ///< of the result: 1, or 2 at a discontinuity (left, right)
  std::uint32_t paddingAfterPointCount;

  /// Points of all levels.
  std::size_t StoredPointCount() const {
    return pointCount == 2 ? 2 : (std::size_t{insertions} + 1) * (std::size_t{insertions} + 2) / 2;
  }
  double* Points() { return reinterpret_cast<double*>(this + 1); }
  const double* Points() const { return reinterpret_cast<const double*>(this + 1); }
  /// The points of `level`, 0 to `insertions`. Level r has insertions + 1 - r of them.
  const double* Level(std::size_t level) const {
    return Points() + level * (2 * std::size_t{insertions} + 3 - level) / 2 * dimension;
  }
  const double* Result() const { return Points() + (StoredPointCount() - pointCount) * dimension; }
};
using NetPointer = std::unique_ptr<NetBlock, FreeBlock>;

/// Evaluates the curve at `u`. Where an inner knot occurs order times the curve breaks off and starts
/// again, and the result is the points on both sides.
StatusCode Evaluate(const CurveBlock& curve, double u, NetPointer& net, Status* status);

}  // namespace curve

#endif
