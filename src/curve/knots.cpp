#include "curve/knots.h"

#include <algorithm>
#include <cstring>

#include "support/limits.h"

namespace curve {

namespace {

/// For "%lu".
unsigned long Long(std::uint64_t number) { return static_cast<unsigned long>(number); }

void GenerateOpenedKnots(CurveBlock& curve) {
  double* knots = curve.Knots();
  for (std::uint32_t i = 0; i < curve.knotCount; ++i) knots[i] = i / (curve.knotCount - 1.0);
}

void GenerateClampedKnots(CurveBlock& curve) {
  double* knots = curve.Knots();
  const std::uint32_t order = curve.Order();
  const std::uint32_t firstOfEnd = curve.knotCount - order;
  const double step = 1.0 / (curve.knotCount - 2.0 * curve.degree - 1.0);
  std::fill(knots, knots + order, 0.0);
  for (std::uint32_t i = order; i < firstOfEnd; ++i) knots[i] = (i - curve.degree) * step;
  std::fill(knots + firstOfEnd, knots + curve.knotCount, 1.0);
}

StatusCode GenerateBezierKnots(CurveBlock& curve, Status* status) {
  const std::uint32_t order = curve.Order();
  if (curve.knotCount % order != 0) {
    return Fail(status, kUnsupportedKnotCount, "num(knots) (%lu) %% order (%lu) != 0", Long(curve.knotCount),
                Long(order));
  }
  const std::uint32_t groups = curve.knotCount / order;
  for (std::uint32_t i = 0; i < curve.knotCount; ++i) {
    const std::uint32_t group = i / order;
    curve.Knots()[i] = group / (groups - 1.0);
  }
  return Succeed(status);
}

}  // namespace

StatusCode FailKnotCount(std::uint64_t knotCount, Status* status) {
  return Fail(status, kUnsupportedKnotCount, "unsupported number of knots: %lu > %i", Long(knotCount),
              static_cast<int>(support::limits::kSplineKnots));
}

StatusCode FailDegree(std::uint32_t degree, std::uint64_t controlPointCount, Status* status) {
  return Fail(status, kDegreeTooHigh, "degree (%lu) >= num(control_points) (%lu)", Long(degree),
              Long(controlPointCount));
}

StatusCode GenerateKnots(CurveBlock& curve, KnotMode mode, Status* status) {
  if (mode == KnotMode::kBezier) return GenerateBezierKnots(curve, status);
  if (mode == KnotMode::kOpened) {
    GenerateOpenedKnots(curve);
  } else {
    GenerateClampedKnots(curve);
  }
  return Succeed(status);
}

StatusCode SetKnots(CurveBlock& curve, const double* values, Status* status) {
  if (curve.knotCount > support::limits::kSplineKnots) return FailKnotCount(curve.knotCount, status);
  std::uint32_t multiplicity = 1;
  for (std::uint32_t i = 0; i < curve.knotCount; ++i) {
    const double value = values[i];
    if (i > 0 && KnotsEqual(value, values[i - 1])) {
      if (++multiplicity > curve.Order()) {
        return Fail(status, kMultiplicityTooHigh, "mult(%f) (%lu) > order (%lu)", value, Long(multiplicity),
                    Long(curve.Order()));
      }
    } else if (!std::isfinite(value) || (i > 0 && value < values[i - 1])) {
      return Fail(status, kDecreasingKnots, "decreasing knot vector at index: %lu", Long(i));
    } else {
      multiplicity = 1;
    }
  }
  std::memcpy(curve.Knots(), values, curve.knotCount * sizeof(double));
  return Succeed(status);
}

std::uint32_t LastOfKnot(const CurveBlock& curve, std::uint32_t index) {
  const double* knots = curve.Knots();
  while (index + 1 < curve.knotCount && KnotsEqual(knots[index], knots[index + 1])) ++index;
  return index;
}

std::uint32_t FirstOfKnot(const CurveBlock& curve, std::uint32_t index) {
  const double* knots = curve.Knots();
  while (index > 0 && KnotsEqual(knots[index], knots[index - 1])) --index;
  return index;
}

StatusCode FindKnot(const CurveBlock& curve, double u, KnotPosition& position, Status* status) {
  const double start = curve.DomainStart();
  const double end = curve.DomainEnd();
  if (KnotsEqual(u, start)) {
    u = start;
  } else if (KnotsEqual(u, end)) {
    u = end;
  } else if (!(u >= start)) {  // also where u is not a number
    return Fail(status, kOutsideDomain, "knot (%f) < min(domain) (%f)", u, start);
  } else if (u > end) {
    return Fail(status, kOutsideDomain, "knot (%f) > max(domain) (%f)", u, end);
  }
  const double* knots = curve.Knots();
  const double* behind = std::partition_point(knots, knots + curve.knotCount,
                                              [u](double knot) { return knot - u < kKnotTolerance; });
  position = {u, static_cast<std::uint32_t>(behind - knots) - 1, 0};
  if (KnotsEqual(knots[position.index], u)) {
    position.knot = knots[position.index];
    const std::uint32_t first = FirstOfKnot(curve, position.index);
    position.index = LastOfKnot(curve, position.index);
    position.multiplicity = position.index - first + 1;
  }
  return Succeed(status);
}

}  // namespace curve
