#include "curve/knot_insertion.h"

#include <algorithm>
#include <cstring>
#include <utility>

#include "curve/de_boor.h"
#include "curve/knots.h"

namespace curve {

namespace {

double* CopyFloats(const double* from, std::size_t count, double* to) {
  std::copy(from, from + count, to);
  return to + count;
}

/// Writes the control points around an inserted knot. They run along the net: up its left edge, along level
/// `count` (nothing where the net ends below it), and down its right edge.
double* CopyNetEdges(const NetBlock& net, std::uint32_t count, double* to) {
  const std::size_t top = net.insertions;
  const std::size_t dimension = net.dimension;
  for (std::size_t level = 0; level < count; ++level) to = CopyFloats(net.Level(level), dimension, to);
  if (count <= top) to = CopyFloats(net.Level(count), (top + 1 - count) * dimension, to);
  for (std::size_t level = count; level-- > 0;) {
    to = CopyFloats(net.Level(level) + (top - level) * dimension, dimension, to);
  }
  return to;
}

/// `count` is at most order - multiplicity.
StatusCode InsertNet(const CurveBlock& curve, const NetBlock& net, std::uint32_t count, CurvePointer& result,
                     Status* status) {
  if (count == 0) return CopyCurve(curve, result, status);
  const std::uint64_t pointCount = std::uint64_t{curve.controlPointCount} + count;
  CurvePointer made;
  const StatusCode code = AllocateCurve(pointCount, curve.dimension, curve.degree, made, status);
  if (code == kSuccess) {
    const std::size_t firstOfNet = net.index - curve.degree;
    const std::size_t firstBehind = firstOfNet + net.insertions + 1;
    double* points = CopyFloats(curve.ControlPoints(), firstOfNet * curve.dimension, made->ControlPoints());
    points = CopyNetEdges(net, count, points);
    CopyFloats(curve.ControlPoint(firstBehind), (curve.controlPointCount - firstBehind) * curve.dimension,
               points);

    const std::size_t before = std::size_t{net.index} + 1;
    double* knots = CopyFloats(curve.Knots(), before, made->Knots());
    knots = std::fill_n(knots, count, net.knot);
    CopyFloats(curve.Knots() + before, curve.knotCount - before, knots);
  }
  result = std::move(made);
  return code;
}

/// The part of an array that stays when its curve is resized, and where it goes.
struct Overlap {
  std::size_t from;
  std::size_t to;
  std::size_t count;
};

Overlap OverlapOf(std::size_t oldCount, std::size_t newCount, bool atBack) {
  const std::size_t count = std::min(oldCount, newCount);
  return atBack ? Overlap{0, 0, count} : Overlap{oldCount - count, newCount - count, count};
}

void CopyResized(const CurveBlock& curve, bool atBack, CurveBlock& made) {
  const Overlap points = OverlapOf(curve.controlPointCount, made.controlPointCount, atBack);
  std::fill_n(made.ControlPoints(), made.ControlFloatCount(), 0.0);
  CopyFloats(curve.ControlPoint(points.from), points.count * curve.dimension, made.ControlPoint(points.to));

  const Overlap knots = OverlapOf(curve.knotCount, made.knotCount, atBack);
  std::fill_n(made.Knots(), made.knotCount, curve.Knots()[atBack ? curve.knotCount - 1 : 0]);
  CopyFloats(curve.Knots() + knots.from, knots.count, made.Knots() + knots.to);
}

}  // namespace

StatusCode InsertKnot(const CurveBlock& curve, double u, std::uint32_t count, CurvePointer& result,
                      Status* status) {
  NetPointer net;
  const StatusCode code = Evaluate(curve, u, net, status);
  if (code != kSuccess) {
    result.reset();
    return code;
  }
  if (std::uint64_t{net->multiplicity} + count > curve.Order()) {
    // The message comes first: `result` may own the curve.
    const StatusCode failure =
        Fail(status, kMultiplicityTooHigh, "multiplicity(%f) (%lu) + %lu > order (%lu)", net->knot,
             static_cast<unsigned long>(net->multiplicity), static_cast<unsigned long>(count),
             static_cast<unsigned long>(curve.Order()));
    result.reset();
    return failure;
  }
  return InsertNet(curve, *net, count, result, status);
}

StatusCode Split(const CurveBlock& curve, double u, CurvePointer& result, std::uint32_t& index,
                 Status* status) {
  NetPointer net;
  const StatusCode code = Evaluate(curve, u, net, status);
  if (code != kSuccess) {
    result.reset();
    return code;
  }
  const std::uint32_t count = net->multiplicity < curve.Order() ? net->insertions + 1 : 0;
  index = net->index + count;
  return InsertNet(curve, *net, count, result, status);
}

StatusCode Resize(const CurveBlock& curve, std::int32_t count, bool atBack, CurvePointer& result,
                  Status* status) {
  const std::int64_t pointCount = std::int64_t{curve.controlPointCount} + count;
  CurvePointer made;
  StatusCode code = kSuccess;
  if (pointCount <= curve.degree) {
    code =
        FailDegree(curve.degree, static_cast<std::uint64_t>(std::max<std::int64_t>(pointCount, 0)), status);
  } else {
    code = AllocateCurve(static_cast<std::uint64_t>(pointCount), curve.dimension, curve.degree, made, status);
  }
  if (code == kSuccess) CopyResized(curve, atBack, *made);
  result = std::move(made);
  return code;
}

}  // namespace curve
