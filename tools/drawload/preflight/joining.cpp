#include "joining.h"

#include <algorithm>

#include "bezier.h"
#include "contours.h"
#include "duplicates.h"
#include "findings.h"
#include "geometry.h"
#include "layers.h"

namespace {

/// What lies closer together, in millimetres, meets.
constexpr double kRounding = 1e-9;

/// Moves the start of `segment` to `point`; how far.
double MoveStart(Segment& segment, Point point) {
  const double distance = Distance(segment.start, point);
  segment.control1.x += segment.cubic ? point.x - segment.start.x : 0.0;
  segment.control1.y += segment.cubic ? point.y - segment.start.y : 0.0;
  segment.start = point;
  return distance;
}

double MoveEnd(Segment& segment, Point point) {
  segment = Reversed(segment);
  const double distance = MoveStart(segment, point);
  segment = Reversed(segment);
  return distance;
}

/// The curves of a contour as one.
Curve OneCurve(const Job& job, const Contours& contours, const Contour& contour, double& moved) {
  const Curve& first = std::get<Curve>(job.results[contours.pieces[contour.first].result]);
  Curve whole{first.color, first.settings, {}, {}};
  for (std::uint32_t i = 0; i < contour.count; ++i) {
    const Piece piece = contours.pieces[contour.first + i];
    Curve next = std::get<Curve>(job.results[piece.result]);
    if (piece.isReversed) next = Reversed(std::move(next));
    if (!whole.segments.empty())
      moved = std::max(moved, MoveStart(next.segments.front(), whole.segments.back().end));
    whole.segments.insert(whole.segments.end(), next.segments.begin(), next.segments.end());
  }
  if (contour.isClosed) moved = std::max(moved, MoveEnd(whole.segments.back(), whole.segments.front().start));
  whole.bounds = TightBoxOf(whole);
  return whole;
}

}  // namespace

Joined JoinCurves(Job& job, double tolerance) {
  const std::vector<std::uint32_t> layers = LayersOf(job);
  std::vector<bool> repeated = RepeatedResults(job, FindRepeats(job, layers, CheckOptions{}.tolerance));
  const Contours contours = FindContours(job, layers, repeated, tolerance);
  Joined joined;
  std::vector<bool> isMerged(job.results.size(), false);
  for (const Contour& contour : contours.contours) {
    const bool isOne = contour.count == 1;
    if (isOne && (!contour.isClosed || contour.gap <= kRounding)) continue;
    joined.closed += contour.isClosed ? 1 : 0;
    if (!isOne) {
      joined.pieces += contour.count;
      ++joined.contours;
    }
    Curve whole = OneCurve(job, contours, contour, joined.moved);
    std::uint32_t place = contours.pieces[contour.first].result;
    for (std::uint32_t i = 0; i < contour.count; ++i) {
      const std::uint32_t r = contours.pieces[contour.first + i].result;
      isMerged[r] = true;
      place = std::min(place, r);
      std::get<Curve>(job.results[r]).segments = {};
    }
    isMerged[place] = false;
    job.results[place] = std::move(whole);
  }
  std::size_t kept = 0;
  for (std::size_t r = 0; r < job.results.size(); ++r) {
    if (isMerged[r]) continue;
    if (kept != r) job.results[kept] = std::move(job.results[r]);
    ++kept;
  }
  job.results.resize(kept);
  return joined;
}
