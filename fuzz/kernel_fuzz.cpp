#include <algorithm>
#include <cmath>
#include <cstring>
#include <stdexcept>
#include <vector>

#include "curve/bspline.h"
#include "fuzz/target.h"

namespace {

/// As many numbers as asked for: eight bytes each while there are any, then zeros.
std::vector<double> Numbers(std::string_view bytes, std::size_t count) {
  std::vector<double> numbers(count);
  std::memcpy(numbers.data(), bytes.data(), std::min(bytes.size(), count * sizeof(double)));
  return numbers;
}

/// Knots from bytes: each a step from the one before it, so that most are accepted.
std::vector<double> SteppedKnots(std::string_view bytes, std::size_t count) {
  std::vector<double> knots(count);
  double knot = 0.0;
  for (std::size_t i = 0; i < count; ++i) {
    const auto step = static_cast<signed char>(i < bytes.size() ? bytes[i] : 1);
    if (step > 0) knot += std::ldexp(1.0, step - 100);
    knots[i] = knot;
  }
  return knots;
}

void UseCurve(const curve::BSpline& curve) {
  const auto knots = curve.KnotsView();
  const double start = knots[curve.Degree()];
  const double end = knots[curve.ControlPointCount()];
  for (const double u : {start, end, start + (end - start) / 3.0}) {
    const auto result = curve.Eval(u).Result();
    fuzz::Touch(result.data(), result.size() * sizeof(double));
  }
  const curve::BSpline beziers = curve.ToBeziers();
  fuzz::Check(beziers.ControlPointCount() % curve.Order() == 0, "a piece of the chain lacks points");
  fuzz::Touch(beziers.ControlPointsView().data(), beziers.ControlPointsView().size_bytes());
}

/// Four bytes give sizes and kind, the rest are knots and then control points.
void Run(std::string_view input) {
  fuzz::InputParts parts(input);
  const std::uint32_t degree = parts.Byte() % 40;
  const std::uint32_t pointCount = parts.Byte();
  const std::uint32_t dimension = parts.Byte() % 5;
  const bool isStepped = parts.Byte() % 2 == 0;
  try {
    curve::BSpline curve(pointCount, dimension, degree);
    const std::size_t knotBytes =
        std::min<std::size_t>(parts.Rest().size(), curve.KnotCount() * (isStepped ? 1 : sizeof(double)));
    curve.SetControlPoints(
        Numbers(parts.Rest().substr(knotBytes), std::size_t{curve.ControlPointCount()} * dimension));
    curve.SetKnots(isStepped ? SteppedKnots(parts.Rest(), curve.KnotCount())
                             : Numbers(parts.Rest().substr(0, knotBytes), curve.KnotCount()));
    UseCurve(curve);
  } catch (const std::runtime_error&) {
    // What the kernel refuses.
  }
}

const fuzz::Target target("kernel", Run);

}  // namespace
