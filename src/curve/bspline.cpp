#include "curve/bspline.h"

#include <algorithm>
#include <stdexcept>
#include <string>

#include "curve/bezier_decomposition.h"
#include "curve/knots.h"

namespace curve {

namespace {

void ThrowUnlessSuccess(const Status& status) {
  if (status.code != kSuccess) throw std::runtime_error(status.message);
}

void ThrowUnlessSize(std::size_t expected, std::size_t actual) {
  if (expected == actual) return;
  throw std::runtime_error("Expected size: " + std::to_string(expected) +
                           ", Actual size: " + std::to_string(actual));
}

CurvePointer CopyOrThrow(const CurveBlock& source) {
  CurvePointer copy;
  Status status;
  CopyCurve(source, copy, &status);
  ThrowUnlessSuccess(status);
  return copy;
}

}  // namespace

BSpline::BSpline(std::uint32_t controlPointCount, std::uint32_t dimension, std::uint32_t degree) {
  Status status;
  CreateCurve(controlPointCount, dimension, degree, KnotMode::kClamped, curve, &status);
  ThrowUnlessSuccess(status);
  std::fill_n(curve->ControlPoints(), curve->ControlFloatCount(), 0.0);
}

BSpline::BSpline(const BSpline& other) : curve(CopyOrThrow(*other.curve)) {}

BSpline& BSpline::operator=(const BSpline& other) {
  curve = CopyOrThrow(*other.curve);
  return *this;
}

std::vector<double> BSpline::ControlPoints() const {
  return {ControlPointsView().begin(), ControlPointsView().end()};
}

std::vector<double> BSpline::Knots() const { return {KnotsView().begin(), KnotsView().end()}; }

void BSpline::SetControlPoints(std::span<const double> values) {
  ThrowUnlessSize(curve->ControlFloatCount(), values.size());
  std::copy(values.begin(), values.end(), curve->ControlPoints());
}

void BSpline::SetKnots(std::span<const double> values) {
  ThrowUnlessSize(curve->knotCount, values.size());
  Status status;
  curve::SetKnots(*curve, values.data(), &status);
  ThrowUnlessSuccess(status);
}

DeBoorNet BSpline::Eval(double u) const {
  NetPointer net;
  Status status;
  Evaluate(*curve, u, net, &status);
  ThrowUnlessSuccess(status);
  return DeBoorNet(std::move(net));
}

BSpline BSpline::ToBeziers() const {
  CurvePointer pieces;
  Status status;
  curve::ToBeziers(*curve, pieces, &status);
  ThrowUnlessSuccess(status);
  return BSpline(std::move(pieces));
}

}  // namespace curve
