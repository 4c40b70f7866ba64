// Rational splines: points along the curve, dense where it bends.
//
// The curve is sampled so finely that neighbours are as good as joined by lines, then a walk drops the
// samples that it can do without. "Distance" of a chord is always the same measure: that of the curve's point
// half way in the parameter.
#include <algorithm>
#include <cmath>
#include <exception>
#include <limits>
#include <numeric>
#include <span>
#include <utility>

#include "curve/bspline.h"
#include "curve/knots.h"
#include "entity/spline.h"
#include "sink/spline_conversion.h"
#include "support/account.h"
#include "support/limits.h"

namespace {

using Entity_ZR::Point3;
using Entity_ZR::ZR_Spline;

/// Parameters that are closer count as equal.
constexpr double kParameterTolerance = 1e-5;

/// Below so many distinct knots the intervals between them are sampled, about a hundred times in all.
constexpr std::size_t kManyKnots = 10;
constexpr double kSamples = 100.0;

/// So few points are never too many.
constexpr std::size_t kFewPoints = 6;

struct Sample : SplinePoint {
  bool isCorner = false;  ///< a knot where the direction of the curve may jump
};

/// A sample that is not evaluated yet.
Sample At(double u) {
  Sample sample;
  sample.u = u;
  return sample;
}

bool IsFinite(const Point3& point) { return std::isfinite(point.x) && std::isfinite(point.y); }

/// Distance of `middle` from the chord; -1 for a chord without length.
double Distance(const Point3& start, const Point3& end, const Point3& middle) {
  const double x = end.x - start.x;
  const double y = end.y - start.y;
  const double length = std::hypot(x, y);
  if (length == 0.0) return -1.0;
  return std::fabs(x * (middle.y - start.y) - y * (middle.x - start.x)) / length;
}

/// Distance of `point` from the nearest point between `start` and `end`.
double DistanceFromSegment(const Point3& start, const Point3& end, const Point3& point) {
  const double x = end.x - start.x;
  const double y = end.y - start.y;
  const double along = x * (point.x - start.x) + y * (point.y - start.y);
  if (along <= 0.0) return std::hypot(point.x - start.x, point.y - start.y);
  if (along >= x * x + y * y) return std::hypot(point.x - end.x, point.y - end.y);
  return Distance(start, end, point);
}

/// The curve in the plane: x and y through the weight.
class PlaneCurve {
 public:
  explicit PlaneCurve(const curve::BSpline& weighted) : spline(weighted) {}

  /// At a parameter where the curve breaks off, the point before the gap.
  Point3 operator()(double u) const {
    const curve::DeBoorNet net = spline.Eval(u);
    const std::span<const double> p = net.ResultView();
    return {p[0] / p[2], p[1] / p[2]};
  }

  Point3 Between(double u, double v) const { return (*this)(std::midpoint(u, v)); }

 private:
  const curve::BSpline& spline;
};

/// The distinct knots of the domain, as samples that are not evaluated yet.
std::vector<Sample> DistinctKnots(const curve::BSpline& spline) {
  const std::span<const double> knots = spline.KnotsView();
  std::vector<Sample> distinct;
  std::uint32_t multiplicity = 0;
  for (std::uint32_t i = 0; i < spline.KnotCount(); ++i) {
    const bool repeats = i > 0 && curve::KnotsEqual(knots[i], knots[i - 1]);
    multiplicity = repeats ? multiplicity + 1 : 1;
    const bool inDomain = i >= spline.Degree() && i <= spline.ControlPointCount();
    if (inDomain && (!repeats || distinct.empty())) distinct.push_back(At(knots[i]));
    if (!distinct.empty() && i <= spline.ControlPointCount()) {
      distinct.back().isCorner = multiplicity >= spline.Degree();
    }
  }
  return distinct;
}

/// Adds samples between few knots and drops those that count as equal. The ends stay what they are.
std::vector<Sample> StartingSamples(const std::vector<Sample>& knots) {
  const int steps = knots.size() < kManyKnots
                        ? static_cast<int>(std::round(kSamples / static_cast<double>(knots.size())))
                        : 1;
  std::vector<Sample> samples = {knots.front()};
  const auto append = [&samples](const Sample& sample) {
    if (sample.u - samples.back().u >= kParameterTolerance) samples.push_back(sample);
  };
  for (std::size_t i = 1; i < knots.size(); ++i) {
    const double start = knots[i - 1].u;
    const double width = knots[i].u - start;
    for (int step = 1; step < steps; ++step) append(At(start + width * step / steps));
    if (i + 1 < knots.size()) append(knots[i]);
  }
  if (knots.size() > 1) {
    const Sample& end = knots.back();
    while (samples.size() > 1 && end.u - samples.back().u < kParameterTolerance) samples.pop_back();
    samples.push_back(end);
  }
  return samples;
}

/// What the splitting of one spline may cost: a quarter of the work that is left, since what it finds takes
/// about twice as much again. The kernel's memory counts as work.
class SplitBudget {
 public:
  SplitBudget() : account(support::Account::Current()) {
    if (account != nullptr) kept = account->WorkLeft() / 4 * 3;
  }

  bool Allows() const { return account == nullptr || account->WorkLeft() > kept; }

 private:
  const support::Account* account;
  std::uint64_t kept = 0;
};

/// Splits the intervals between samples until the curve is flat between neighbours.
class Sampling {
 public:
  Sampling(const PlaneCurve& plane, double flatness) : curveAt(plane), tolerance(flatness) {}

  std::vector<Sample> Refine(const std::vector<Sample>& start) {
    std::vector<Sample> samples;
    std::vector<Sample> ahead;
    for (const Sample& sample : start) {
      ahead.push_back(sample);
      ahead.back().point = curveAt(sample.u);
      while (!ahead.empty()) {
        Sample middle;
        if (!samples.empty() && FindSplit(samples.back(), ahead.back(), middle)) {
          ahead.push_back(middle);
        } else {
          samples.push_back(ahead.back());
          ahead.pop_back();
        }
      }
    }
    return samples;
  }

 private:
  bool IsFlat(const Point3& start, const Point3& end, const Point3& middle) const {
    return Distance(start, end, middle) <= tolerance;  // false where one of them is not finite
  }

  /// Whether the curve between two samples leaves their chord. Besides the middle the middles of both halves
  /// are looked at: a bend to both sides, or a loop, may pass through the middle of its chord.
  bool FindSplit(const Sample& start, const Sample& end, Sample& middle) {
    middle.u = std::midpoint(start.u, end.u);
    if (middle.u - start.u < kParameterTolerance || end.u - middle.u < kParameterTolerance) return false;
    if (!budget.Allows()) return false;
    middle.point = curveAt(middle.u);
    if (IsFlat(start.point, end.point, middle.point) &&
        IsFlat(start.point, middle.point, curveAt.Between(start.u, middle.u)) &&
        IsFlat(middle.point, end.point, curveAt.Between(middle.u, end.u))) {
      return false;
    }
    // Where the whole interval lies at infinity there is nothing to find.
    if (!IsFinite(start.point) && !IsFinite(middle.point) && !IsFinite(end.point)) return false;
    return true;
  }

  const PlaneCurve& curveAt;
  double tolerance;
  SplitBudget budget;
};

/// What a walk aims at, as distances of chords.
struct Aims {
  double enough;         ///< a chord this far off is not lengthened
  double limit;          ///< no chord over samples is further off
  bool keepsTurns;       ///< chords end at corners that they would run over, and where the curve turns back
  double retreat = 0.0;  ///< by how much the curve may come back under a chord
};

/// Joins samples, of which neighbours are close enough as they are, to the chords that it aims at.
class Walk {
 public:
  Walk(const PlaneCurve& plane, const std::vector<Sample>& refined, Aims distances)
      : curveAt(plane), samples(refined), aims(distances) {}

  std::vector<SplinePoint> Run() const {
    std::vector<SplinePoint> points = {samples.front()};
    std::size_t last = 0;
    while (last + 1 < samples.size()) {
      last = EndOfChord(last);
      points.push_back(samples[last]);
    }
    return points;
  }

 private:
  std::size_t EndOfChord(std::size_t first) const {
    std::size_t corner = first;
    std::size_t farthest = first;
    for (std::size_t end = first + 1; end < samples.size(); ++end) {
      const double distance = end == first + 1 ? -1.0 : ChordDistance(first, end);
      if (aims.keepsTurns) {
        if (Length(first, end) >= Length(first, farthest)) farthest = end;
        if (Length(first, farthest) - Length(first, end) > aims.retreat) return farthest;
      }
      if (!(distance <= aims.limit)) return corner > first ? corner : end - 1;
      if (aims.keepsTurns && samples[end].isCorner) corner = end;
      if (distance >= aims.enough) return corner > first ? corner : end;
    }
    return samples.size() - 1;
  }

  double Length(std::size_t start, std::size_t end) const {
    return std::hypot(samples[end].point.x - samples[start].point.x,
                      samples[end].point.y - samples[start].point.y);
  }

  /// Of a chord over at least one sample. The distance from its line says nothing of a curve that turns back
  /// beyond an end of the chord, and little of one that turns sharply between two samples: so the last sample
  /// under the chord is looked at as well.
  double ChordDistance(std::size_t first, std::size_t end) const {
    const Point3& start = samples[first].point;
    const Point3& stop = samples[end].point;
    if (aims.keepsTurns) {
      const double ofSample = DistanceFromSegment(start, stop, samples[end - 1].point);
      if (!(ofSample <= aims.limit)) return ofSample;
    }
    return Distance(start, stop, curveAt.Between(samples[first].u, samples[end].u));
  }

  const PlaneCurve& curveAt;
  const std::vector<Sample>& samples;
  Aims aims;
};

/// The walk with the closest chords that does not take far more points than the one with the longest: where
/// the curve trembles within the tolerance, close chords would follow each of its turns.
std::vector<SplinePoint> Thin(const PlaneCurve& plane, const std::vector<Sample>& samples, double tolerance) {
  constexpr double kNever = std::numeric_limits<double>::infinity();
  const double limit = 2.0 * tolerance;
  std::vector<SplinePoint> points =
      Walk(plane, samples, {tolerance / 2.0, limit, true, tolerance / 2.0}).Run();
  if (points.size() <= kFewPoints) return points;
  std::vector<SplinePoint> fewest = Walk(plane, samples, {kNever, limit, false}).Run();
  const auto isTooMany = [&fewest](std::size_t count) {
    return count > kFewPoints && 4 * count + 8 > 9 * fewest.size();
  };
  if (isTooMany(points.size())) points = Walk(plane, samples, {limit, limit, true, limit}).Run();
  return isTooMany(points.size()) ? fewest : points;
}

/// Throws where the kernel refuses the spline.
curve::BSpline WeightedSpline(const ZR_Spline& spline) {
  curve::BSpline weighted(static_cast<std::uint32_t>(spline.controlCount), 3,
                          static_cast<std::uint32_t>(spline.degree));
  std::vector<double> coordinates;
  coordinates.reserve(3 * spline.controlPoints.size());
  for (std::size_t i = 0; i < spline.controlPoints.size(); ++i) {
    const Point3& point = spline.controlPoints[i];
    const double weight = spline.weights[i];
    coordinates.insert(coordinates.end(), {point.x * weight, point.y * weight, weight});
  }
  weighted.SetControlPoints(coordinates);
  weighted.SetKnots(spline.knots);
  return weighted;
}

std::vector<SplinePoint> Flatten(const curve::BSpline& weighted, double tolerance) {
  const PlaneCurve plane(weighted);
  // An eighth leaves the walk enough samples to come close to the distances that it aims at.
  Sampling sampling(plane, tolerance / 8.0);
  std::vector<Sample> samples = sampling.Refine(StartingSamples(DistinctKnots(weighted)));
  std::erase_if(samples, [](const Sample& sample) { return !IsFinite(sample.point); });
  return samples.empty() ? std::vector<SplinePoint>{} : Thin(plane, samples, tolerance);
}

}  // namespace

std::vector<SplinePoint> SplineFlatten(const ZR_Spline& spline, double tolerance) {
  if (!IsDrawable(spline) || spline.weights.size() < spline.controlPoints.size()) return {};
  if (spline.degree > support::limits::kRationalSplineDegree) return {};
  if (std::int64_t{spline.degree} + 1 + spline.controlCount != spline.knotCount) return {};
  try {
    return Flatten(WeightedSpline(spline), tolerance);
  } catch (const support::BeyondAllowance&) {
    throw;
  } catch (const std::exception&) {
    return {};  // what the kernel refuses costs this spline and nothing else
  }
}
