#ifndef DRAWLOAD_TESTS_CURVE_CURVES_H
#define DRAWLOAD_TESTS_CURVE_CURVES_H

#include <cstdint>
#include <random>
#include <vector>

#include "curve/curve_block.h"
#include "curve/knots.h"

/// What a test says of a curve, and what it may ask of one.
struct CurveData {
  std::uint32_t degree = 0;
  std::uint32_t dimension = 1;
  std::vector<double> points;
  std::vector<double> knots;

  std::uint32_t PointCount() const { return static_cast<std::uint32_t>(points.size()) / dimension; }
};

/// The curve block of `data`, or null where the kernel refuses it.
inline curve::CurvePointer MakeCurve(const CurveData& data) {
  curve::CurvePointer made;
  curve::CreateCurve(data.PointCount(), data.dimension, data.degree, curve::KnotMode::kClamped, made,
                     nullptr);
  if (made == nullptr) return nullptr;
  std::copy(data.points.begin(), data.points.end(), made->ControlPoints());
  if (curve::SetKnots(*made, data.knots.data(), nullptr) != curve::kSuccess) made.reset();
  return made;
}

inline CurveData DataOf(const curve::CurveBlock& block) {
  return {block.degree,
          block.dimension,
          {block.ControlPoints(), block.ControlPoints() + block.ControlFloatCount()},
          {block.Knots(), block.Knots() + block.knotCount}};
}

/// A basis function by the recursion of Cox and de Boor, as the textbooks write it: slow, and independent of
/// the scheme that the kernel uses.
inline double Basis(const std::vector<double>& knots, std::size_t i, std::size_t degree, double u) {
  if (degree == 0) return knots[i] <= u && u < knots[i + 1] ? 1.0 : 0.0;
  double sum = 0.0;
  const double leftWidth = knots[i + degree] - knots[i];
  if (leftWidth > 0.0) sum += (u - knots[i]) / leftWidth * Basis(knots, i, degree - 1, u);
  const double rightWidth = knots[i + degree + 1] - knots[i + 1];
  if (rightWidth > 0.0) {
    sum += (knots[i + degree + 1] - u) / rightWidth * Basis(knots, i + 1, degree - 1, u);
  }
  return sum;
}

/// The point at `u`, inside the domain and short of its end, as the sum of the basis functions.
inline std::vector<double> PointByBasis(const CurveData& data, double u) {
  std::vector<double> point(data.dimension, 0.0);
  for (std::size_t i = 0; i < data.PointCount(); ++i) {
    const double weight = Basis(data.knots, i, data.degree, u);
    for (std::size_t d = 0; d < data.dimension; ++d) point[d] += weight * data.points[i * data.dimension + d];
  }
  return point;
}

/// The point at `t` (0 to 1) of a Bezier piece by de Casteljau's scheme. `points` holds degree + 1 points.
inline std::vector<double> PointOfPiece(const double* points, std::size_t degree, std::size_t dimension,
                                        double t) {
  std::vector<double> work(points, points + (degree + 1) * dimension);
  for (std::size_t level = degree; level > 0; --level) {
    for (std::size_t i = 0; i < level * dimension; ++i) work[i] += t * (work[i + dimension] - work[i]);
  }
  work.resize(dimension);
  return work;
}

/// Curves of degree 1 to 5 with clamped and free ends and inner knots of every multiplicity. The same seed
/// gives the same curves.
class RandomCurves {
 public:
  explicit RandomCurves(std::uint32_t seed) : random(seed) {}

  double Between(double low, double high) {
    return low + (high - low) * (static_cast<double>(random()) / 4294967295.0);
  }
  std::uint32_t Below(std::uint32_t count) { return static_cast<std::uint32_t>(random() % count); }

  CurveData Next() {
    CurveData data;
    data.degree = 1 + Below(5);
    data.dimension = 1 + Below(3);
    const std::uint32_t pointCount = data.degree + 1 + Below(20);
    for (std::uint32_t i = 0; i < pointCount * data.dimension; ++i) data.points.push_back(Between(-100, 100));
    const std::size_t knotCount = pointCount + data.degree + 1;
    const bool clamped = Below(2) == 0;
    double knot = Between(-5, 5);
    if (clamped) data.knots.assign(data.degree + 1, knot);
    const std::size_t firstOfEnd = clamped ? knotCount - data.degree - 1 : knotCount;
    while (data.knots.size() < firstOfEnd) {
      knot += Between(0.1, 2.0);
      std::size_t multiplicity = 1 + (Below(3) == 0 ? Below(data.degree + 1) : 0);
      while (multiplicity-- > 0 && data.knots.size() < firstOfEnd) data.knots.push_back(knot);
    }
    if (clamped) data.knots.insert(data.knots.end(), data.degree + 1, knot + Between(0.1, 2.0));
    return data;
  }

 private:
  std::mt19937 random;
};

#endif
