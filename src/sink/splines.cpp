// Splines: a path of Bezier pieces, or of lines where the spline is rational.
#include <algorithm>
#include <cmath>
#include <exception>
#include <optional>
#include <span>

#include "curve/bspline.h"
#include "entity/path.h"
#include "entity/spline.h"
#include "sink/my_draw_load.h"
#include "sink/spline_conversion.h"
#include "support/account.h"
#include "support/limits.h"

namespace {

using Entity_ZR::Point3;
using Entity_ZR::ZR_Path;
using Entity_ZR::ZR_Spline;

/// Largest distance, in millimetres, that the flattening of rational splines aims at.
constexpr double kFlattenTolerance = 0.2;

bool IsFinite(const Point3& point) { return std::isfinite(point.x) && std::isfinite(point.y); }
bool IsFinite(double number) { return std::isfinite(number); }

template <typename List>
bool AllFinite(const List& list) {
  return std::all_of(list.begin(), list.end(), [](const auto& element) { return IsFinite(element); });
}

/// The curve of these control points in the plane. Throws where the kernel refuses it.
curve::BSpline PlaneSpline(std::span<const Point3> points, std::int32_t degree) {
  curve::BSpline made(static_cast<std::uint32_t>(points.size()), 2, static_cast<std::uint32_t>(degree));
  std::vector<double> coordinates;
  coordinates.reserve(2 * points.size());
  for (const Point3& point : points) coordinates.insert(coordinates.end(), {point.x, point.y});
  made.SetControlPoints(coordinates);
  return made;
}

std::optional<curve::BSpline> FirstSpan(const ZR_Spline& spline) {
  if (spline.controlPoints.size() < 2) return std::nullopt;
  const std::span<const Point3> points(spline.controlPoints.data(), 2);
  if (!AllFinite(points)) return std::nullopt;
  return PlaneSpline(points, 1);
}

/// Throws where the kernel refuses the spline.
std::optional<curve::BSpline> Decompose(const ZR_Spline& spline) {
  curve::BSpline whole = PlaneSpline(spline.controlPoints, spline.degree);
  whole.SetKnots(spline.knots);
  curve::BSpline pieces = whole.ToBeziers();
  if (!AllFinite(pieces.ControlPointsView())) return std::nullopt;
  return pieces;
}

/// Each piece begins with a move, so that it becomes a curve of its own.
void AppendPieces(const curve::BSpline& pieces, ZR_Path& path) {
  const std::span<const double> numbers = pieces.ControlPointsView();
  const auto point = [numbers](std::size_t index) {
    return Point3{numbers[2 * index], numbers[2 * index + 1], 0.0};
  };
  path.segments.reserve(2 * pieces.ControlPointCount() / pieces.Order());
  for (std::size_t i = 0; i < pieces.ControlPointCount(); i += pieces.Order()) {
    const Point3 start = point(i);
    const Point3 next = point(i + 1);
    path.MoveTo(start.x, start.y);
    switch (pieces.Degree()) {
      case 1: path.LineTo(next.x, next.y); break;
      // Kept: the control point serves twice, which is not the raised cubic.
      case 2: path.CubicTo(next, next, point(i + 2)); break;
      default: path.CubicTo(next, point(i + 2), point(i + 3)); break;
    }
  }
}

void AppendLines(const std::vector<SplinePoint>& points, ZR_Path& path) {
  path.segments.reserve(points.size());
  path.MoveTo(points.front().point.x, points.front().point.y);
  for (std::size_t i = 1; i < points.size(); ++i) path.LineTo(points[i].point.x, points[i].point.y);
}

}  // namespace

bool IsDrawable(const ZR_Spline& spline) {
  return spline.degree >= 0 && spline.controlCount >= 0 &&
         static_cast<std::size_t>(spline.controlCount) == spline.controlPoints.size() &&
         AllFinite(spline.controlPoints) && AllFinite(spline.knots) && AllFinite(spline.weights);
}

std::optional<curve::BSpline> SplineToBezier(const ZR_Spline& spline) {
  try {
    // Nothing but the first two control points of a spline of degree 1 is read.
    if (spline.degree == 1) return FirstSpan(spline);
    if (spline.degree != 2 && spline.degree != 3) return std::nullopt;
    if (spline.knotCount > static_cast<std::int32_t>(support::limits::kSplineKnots)) return std::nullopt;
    if (!IsDrawable(spline)) return std::nullopt;
    return Decompose(spline);
  } catch (const support::BeyondAllowance&) {
    throw;
  } catch (const std::exception&) {
    return std::nullopt;  // what the kernel refuses costs this spline and nothing else
  }
}

bool CMyDrawLoad::AddSpline(ZR_Spline* entity, PARSE::Context) {
  if (!entity->IsShown()) return false;
  // Kept: of the spline only its matrix goes along; its parameters and its colour do not.
  ZR_Path drawn;
  drawn.matrix = entity->matrix;
  if (entity->weights.empty()) {
    const std::optional<curve::BSpline> pieces = SplineToBezier(*entity);
    if (!pieces) return false;
    AppendPieces(*pieces, drawn);
  } else {
    const std::vector<SplinePoint> points = SplineFlatten(*entity, kFlattenTolerance);
    if (points.empty()) return false;
    AppendLines(points, drawn);
  }
  AddPath(&drawn, 0);
  return true;
}
