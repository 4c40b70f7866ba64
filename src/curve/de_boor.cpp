#include "curve/de_boor.h"

#include <cstring>
#include <limits>

#include "curve/knots.h"

namespace curve {

namespace {

constexpr std::size_t kMaxFloats = std::size_t{std::numeric_limits<std::ptrdiff_t>::max()} / 16;

StatusCode AllocateNet(const NetBlock& head, NetPointer& net, Status* status) {
  const std::size_t pointCount = head.StoredPointCount();
  if (pointCount > kMaxFloats / head.dimension) return FailOutOfMemory(status);
  void* block = support::CountedMalloc(sizeof head + pointCount * head.dimension * sizeof(double));
  if (block == nullptr) return FailOutOfMemory(status);
  std::memcpy(block, &head, sizeof head);
  net.reset(static_cast<NetBlock*>(block));
  return Succeed(status);
}

/// The curve at a knot that occurs order times. The points on both sides of it are control points; at the
/// ends of the domain only one of them belongs to the curve.
StatusCode TakeControlPoints(const CurveBlock& curve, NetBlock head, NetPointer& net, Status* status) {
  const std::uint32_t right = head.index - curve.degree;
  const bool atStart = right <= curve.degree;
  const bool atEnd = head.index >= curve.controlPointCount;
  head.pointCount = atStart || atEnd ? 1 : 2;
  const StatusCode code = AllocateNet(head, net, status);
  if (code != kSuccess) return code;
  const double* points = curve.ControlPoint(atStart ? right : right - 1);
  std::memcpy(net->Points(), points, head.pointCount * sizeof(double) * curve.dimension);
  return code;
}

/// Writes the points of level `level` behind those of the level below, which begin at `below`.
/// de Boor's recursion: each point is a blend of two neighbours of the level below.
double* BlendLevel(const CurveBlock& curve, const NetBlock& net, std::uint32_t level, const double* below,
                   double* points) {
  const double* knots = curve.Knots();
  const std::uint32_t last = net.index - net.multiplicity;
  for (std::uint32_t i = net.index - curve.degree + level; i <= last; ++i) {
    const double a = (net.knot - knots[i]) / (knots[i + curve.degree - level + 1] - knots[i]);
    for (std::uint32_t d = 0; d < curve.dimension; ++d, ++below) {
      *points++ = (1.0 - a) * below[0] + a * below[curve.dimension];
    }
  }
  return points;
}

StatusCode BlendControlPoints(const CurveBlock& curve, const NetBlock& head, NetPointer& net,
                              Status* status) {
  const StatusCode code = AllocateNet(head, net, status);
  if (code != kSuccess) return code;
  const std::size_t levelFloats = (std::size_t{head.insertions} + 1) * curve.dimension;
  std::memcpy(net->Points(), curve.ControlPoint(head.index - curve.degree), levelFloats * sizeof(double));
  double* points = net->Points() + levelFloats;
  for (std::uint32_t level = 1; level <= head.insertions; ++level) {
    points = BlendLevel(curve, head, level, net->Level(level - 1), points);
  }
  return code;
}

}  // namespace

StatusCode Evaluate(const CurveBlock& curve, double u, NetPointer& net, Status* status) {
  net.reset();
  KnotPosition position;
  const StatusCode code = FindKnot(curve, u, position, status);
  if (code != kSuccess) return code;
  const bool breaksOff = position.multiplicity >= curve.Order();
  const std::uint32_t insertions = breaksOff ? 0 : curve.degree - position.multiplicity;
  const NetBlock head{
      position.knot, position.index, position.multiplicity, insertions, curve.dimension, 1, 0};
  return breaksOff ? TakeControlPoints(curve, head, net, status)
                   : BlendControlPoints(curve, head, net, status);
}

}  // namespace curve
