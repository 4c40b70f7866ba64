#ifndef DRAWLOAD_CURVE_CURVE_BLOCK_H
#define DRAWLOAD_CURVE_CURVE_BLOCK_H

#include <cstddef>
#include <cstdint>
#include <memory>

#include "curve/status.h"
#include "support/counted_memory.h"

namespace curve {

/// A B-spline curve as one heap block: this head, the control points, point by point, then the knots. Only
/// the functions of this folder make one.
struct alignas(double) CurveBlock {
  std::uint32_t degree;
  std::uint32_t dimension;          ///< coordinates per control point, at least 1
  std::uint32_t controlPointCount;  ///< above `degree`
  std::uint32_t knotCount;          ///< always controlPointCount + degree + 1

  std::uint32_t Order() const { return degree + 1; }
  std::size_t ControlFloatCount() const { return std::size_t{controlPointCount} * dimension; }
  std::size_t BlockSize() const {
    return sizeof(CurveBlock) + (ControlFloatCount() + knotCount) * sizeof(double);
  }

  double* ControlPoints() { return reinterpret_cast<double*>(this + 1); }
  const double* ControlPoints() const { return reinterpret_cast<const double*>(this + 1); }
  double* ControlPoint(std::size_t index) { return ControlPoints() + index * dimension; }
  const double* ControlPoint(std::size_t index) const { return ControlPoints() + index * dimension; }
  double* Knots() { return ControlPoints() + ControlFloatCount(); }
  const double* Knots() const { return ControlPoints() + ControlFloatCount(); }

  /// The curve is defined from the first to the last of these two knots.
  double DomainStart() const { return Knots()[degree]; }
  double DomainEnd() const { return Knots()[controlPointCount]; }
};

/// Frees the block of a curve or net.
struct FreeBlock {
  void operator()(void* block) const { support::CountedFree(block); }
};
using CurvePointer = std::unique_ptr<CurveBlock, FreeBlock>;

/// How the knots of a curve are generated.
enum class KnotMode : std::int32_t {
  kOpened = 0,   ///< evenly spaced from 0 to 1; the domain is the inner part
  kClamped = 1,  ///< the ends occur order times, so that the curve starts and ends in control points
  kBezier = 2,   ///< all knots in groups of order: a chain of Bezier pieces
};

/// Makes a curve with generated knots. Its control points are left for the caller to set.
StatusCode CreateCurve(std::uint32_t controlPointCount, std::uint32_t dimension, std::uint32_t degree,
                       KnotMode mode, CurvePointer& curve, Status* status);

/// Makes a copy of `source`.
StatusCode CopyCurve(const CurveBlock& source, CurvePointer& copy, Status* status);

/// Makes a curve with neither points nor knots set, for the results of curve operations: these may have
/// more knots than a curve from outside.
StatusCode AllocateCurve(std::uint64_t controlPointCount, std::uint32_t dimension, std::uint32_t degree,
                         CurvePointer& curve, Status* status);

}  // namespace curve

#endif
