#ifndef DRAWLOAD_CURVE_BSPLINE_H
#define DRAWLOAD_CURVE_BSPLINE_H

#include <cstdint>
#include <span>
#include <vector>

#include "curve/curve_block.h"
#include "curve/de_boor.h"

namespace curve {

/// The result of an evaluation: one point of the curve, or two where it breaks off, and the points of de
/// Boor's scheme on the way to it. A moved-from net may only be destroyed or assigned to.
class DeBoorNet {
 public:
  explicit DeBoorNet(NetPointer evaluated) : net(std::move(evaluated)) {}

  double Knot() const { return net->knot; }
  std::uint32_t Index() const { return net->index; }
  std::uint32_t Multiplicity() const { return net->multiplicity; }
  std::uint32_t Insertions() const { return net->insertions; }
  std::uint32_t Dimension() const { return net->dimension; }
  std::uint32_t PointCount() const { return net->pointCount; }

  /// All points, level after level; valid as long as the net.
  std::span<const double> Points() const { return {net->Points(), net->StoredPointCount() * net->dimension}; }
  /// The result: `PointCount` points; valid as long as the net.
  std::span<const double> ResultView() const {
    return {net->Result(), std::size_t{net->pointCount} * net->dimension};
  }
  std::vector<double> Result() const { return {ResultView().begin(), ResultView().end()}; }

 private:
  NetPointer net;
};

/// A B-spline curve of any degree and dimension. Every operation throws std::runtime_error with the message
/// of the failed function. A moved-from curve may only be destroyed or assigned to.
class BSpline {
 public:
  /// A curve with clamped knots from 0 to 1 and all control points zero.
  BSpline(std::uint32_t controlPointCount, std::uint32_t dimension, std::uint32_t degree);
  BSpline(const BSpline& other);
  BSpline(BSpline&&) noexcept = default;
  BSpline& operator=(const BSpline& other);
  BSpline& operator=(BSpline&&) noexcept = default;
  ~BSpline() = default;

  std::uint32_t Degree() const { return curve->degree; }
  std::uint32_t Order() const { return curve->Order(); }
  std::uint32_t Dimension() const { return curve->dimension; }
  std::uint32_t ControlPointCount() const { return curve->controlPointCount; }
  std::uint32_t KnotCount() const { return curve->knotCount; }

  /// Copies: the control points, point by point, and the knots.
  std::vector<double> ControlPoints() const;
  std::vector<double> Knots() const;

  /// Takes ControlPointCount · Dimension numbers.
  void SetControlPoints(std::span<const double> values);
  /// Takes KnotCount numbers that do not decrease, none more than order times.
  void SetKnots(std::span<const double> values);

  /// The curve at a parameter of its domain, KnotsView()[Degree()] to KnotsView()[ControlPointCount()].
  DeBoorNet Eval(double u) const;
  /// The same curve as a chain of Bezier pieces, Order() control points each.
  BSpline ToBeziers() const;

  /// Views, valid until the curve is assigned to.
  std::span<const double> ControlPointsView() const {
    return {curve->ControlPoints(), curve->ControlFloatCount()};
  }
  std::span<const double> KnotsView() const { return {curve->Knots(), curve->knotCount}; }

 private:
  explicit BSpline(CurvePointer made) : curve(std::move(made)) {}

  CurvePointer curve;
};

}  // namespace curve

#endif
