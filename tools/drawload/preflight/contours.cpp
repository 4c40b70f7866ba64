#include "contours.h"

#include <algorithm>
#include <optional>

#include "bezier.h"
#include "geometry.h"
#include "layers.h"
#include "spatial_index.h"

namespace {

const std::vector<Segment>& SegmentsOf(const Job& job, std::uint32_t result) {
  return std::get<Curve>(job.results[result]).segments;
}

double PolygonLengthOf(const Curve& curve) {
  double sum = 0.0;
  for (const Segment& segment : curve.segments) sum += PolygonLength(segment);
  return sum;
}

/// Whether ends that are `gap` apart close a chain of that length: a short piece is not closed for its
/// shortness.
bool Closes(double gap, double length, double tolerance) { return gap <= tolerance && 4 * gap < length; }

/// The largest distance between the end of a segment and the start of the next one.
double GapInside(const Curve& curve) {
  double gap = 0.0;
  for (std::size_t i = 1; i < curve.segments.size(); ++i)
    gap = std::max(gap, Distance(curve.segments[i - 1].end, curve.segments[i].start));
  return gap;
}

/// An end of a curve: its number in the list of curves of a layer, twice, and 1 more for the end.
using End = std::uint32_t;
constexpr End CurveOf(End end) { return end / 2; }
constexpr End OtherOf(End end) { return end ^ 1U; }

/// Joins the open curves of one layer.
class Chains {
 public:
  Chains(const Job& drawing, std::vector<std::uint32_t> openCurves, double distance)
      : job(drawing), curves(std::move(openCurves)), isUsed(curves.size(), false), tolerance(distance) {
    std::vector<Value> values;
    values.reserve(2 * curves.size());
    for (End end = 0; end < 2 * curves.size(); ++end)
      values.emplace_back(NumberedSpotOf(PointOf(end), end), end);
    tree = Tree(values);
  }

  void AppendTo(Contours& contours) {
    for (End curve = 0; curve < curves.size(); ++curve) {
      if (!isUsed[curve]) contours.contours.push_back(ChainFrom(curve, contours.pieces));
    }
  }

 private:
  using Value = std::pair<NumberedSpot, End>;
  using Tree = bgi::rtree<Value, bgi::quadratic<16>>;

  Point PointOf(End end) const {
    const std::vector<Segment>& segments = SegmentsOf(job, curves[CurveOf(end)]);
    return end % 2 == 0 ? segments.front().start : segments.back().end;
  }
  double LengthOf(End end) const {
    return PolygonLengthOf(std::get<Curve>(job.results[curves[CurveOf(end)]]));
  }
  Piece PieceFrom(End end) const { return {curves[CurveOf(end)], end % 2 == 1}; }

  /// The free end nearest to `point` within the tolerance. Where a great many ends meet, one of the nearest.
  std::optional<End> NearestFree(Point point, End near) {
    for (const double share : {1e-3, 0.1, 1.0}) {
      if (const std::optional<End> best = NearestFree(point, near, share * tolerance)) return best;
    }
    return std::nullopt;
  }

  std::optional<End> NearestFree(Point point, End near, double reach) {
    constexpr std::size_t kMany = 16;
    const NumberedArea area = AnyNumberIn({point.x, point.y, point.x, point.y}, reach);
    do {
      found.clear();
      for (auto it = tree.qbegin(bgi::intersects(area)); it != tree.qend() && found.size() < kMany; ++it)
        found.push_back(*it);
      // Ends that are used would be found again and again where many meet.
    } while (found.size() == kMany && RemoveUsed());
    std::optional<End> best;
    for (const auto& [spot, end] : found) {
      if (isUsed[CurveOf(end)] || Distance(point, PointOf(end)) > reach) continue;
      if (!best || IsBetter(end, *best, point, near)) best = end;
    }
    return best;
  }

  bool RemoveUsed() {
    std::size_t removed = 0;
    for (const Value& value : found) {
      if (isUsed[CurveOf(value.second)]) removed += tree.remove(value);
    }
    return removed > 0;
  }

  bool IsBetter(End end, End other, Point point, End near) const {
    const double distance = Distance(point, PointOf(end));
    const double otherDistance = Distance(point, PointOf(other));
    constexpr double kEqual = 1e-9;
    if (std::abs(distance - otherDistance) > kEqual) return distance < otherDistance;
    const auto steps = [near](End to) {
      return CurveOf(to) > CurveOf(near) ? CurveOf(to) - CurveOf(near) : CurveOf(near) - CurveOf(to);
    };
    return std::pair(steps(end), end) < std::pair(steps(other), other);
  }

  /// Adds curves to `chain`, whose last one is left through `end`, until its far end is as near to `start` as
  /// to any free one; whether that closes it.
  bool Extend(std::vector<End>& chain, End end, Point start, double& length, bool mayClose) {
    for (;;) {
      const Point here = PointOf(end);
      const std::optional<End> next = NearestFree(here, end);
      const double home = Distance(here, start);
      if (mayClose && Closes(home, length, tolerance) && (!next || home <= Distance(here, PointOf(*next))))
        return true;
      if (!next) return false;
      isUsed[CurveOf(*next)] = true;
      chain.push_back(*next);
      length += LengthOf(*next);
      end = OtherOf(*next);
      mayClose = true;
    }
  }

  Contour ChainFrom(End curve, std::vector<Piece>& pieces) {
    isUsed[curve] = true;
    chainAhead.assign(1, 2 * curve);  // each curve by the end at which it is entered
    chainBehind.clear();
    Contour contour;
    contour.length = LengthOf(2 * curve);
    contour.isClosed = Extend(chainAhead, 2 * curve + 1, PointOf(2 * curve), contour.length, false);
    if (!contour.isClosed) {
      const Point last = PointOf(OtherOf(chainAhead.back()));
      contour.isClosed = Extend(chainBehind, 2 * curve, last, contour.length, chainAhead.size() > 1);
    }
    contour.first = static_cast<std::uint32_t>(pieces.size());
    contour.count = static_cast<std::uint32_t>(chainAhead.size() + chainBehind.size());
    for (auto end = chainBehind.rbegin(); end != chainBehind.rend(); ++end)
      pieces.push_back(PieceFrom(OtherOf(*end)));
    for (const End end : chainAhead) pieces.push_back(PieceFrom(end));
    contour.gap = Distance(EndOf(job, pieces.back()), StartOf(job, pieces[contour.first]));
    return contour;
  }

  const Job& job;
  std::vector<std::uint32_t> curves;
  std::vector<bool> isUsed;
  double tolerance;
  Tree tree;
  std::vector<Value> found;
  std::vector<End> chainAhead;
  std::vector<End> chainBehind;
};

std::uint32_t FirstResultOf(const Contours& contours, const Contour& contour) {
  const auto begin = contours.pieces.begin() + contour.first;
  return std::min_element(begin, begin + contour.count,
                          [](const Piece& a, const Piece& b) { return a.result < b.result; })
      ->result;
}

void SortByFirstPiece(Contours& contours) {
  std::vector<std::pair<std::uint32_t, Contour>> keyed;
  keyed.reserve(contours.contours.size());
  for (const Contour& contour : contours.contours)
    keyed.emplace_back(FirstResultOf(contours, contour), contour);
  std::sort(keyed.begin(), keyed.end(), [](const auto& a, const auto& b) { return a.first < b.first; });
  std::transform(keyed.begin(), keyed.end(), contours.contours.begin(),
                 [](const auto& entry) { return entry.second; });
}

}  // namespace

Point StartOf(const Job& job, const Piece& piece) {
  const std::vector<Segment>& segments = SegmentsOf(job, piece.result);
  return piece.isReversed ? segments.back().end : segments.front().start;
}

Point EndOf(const Job& job, const Piece& piece) { return StartOf(job, {piece.result, !piece.isReversed}); }

Contours FindContours(const Job& job, const std::vector<std::uint32_t>& layers,
                      const std::vector<bool>& leftOut, double tolerance) {
  Contours contours;
  std::vector<std::uint32_t> open;
  for (std::uint32_t r = 0; r < job.results.size(); ++r) {
    const auto* curve = std::get_if<Curve>(&job.results[r]);
    if (curve == nullptr || leftOut[r]) continue;
    if (curve->segments.empty()) continue;
    const double length = PolygonLengthOf(*curve);
    const double gap = Distance(curve->segments.back().end, curve->segments.front().start);
    const double gapInside = GapInside(*curve);
    const bool isPiece = gapInside <= tolerance && IsWithinReach(job.results[r]);
    const bool isClosed = isPiece && Closes(gap, length, tolerance);
    if (isPiece && !isClosed && length > 0.0) {
      open.push_back(r);
      continue;
    }
    const auto first = static_cast<std::uint32_t>(contours.pieces.size());
    contours.contours.push_back({first, 1, isClosed, std::max(gap, gapInside), length});
    contours.pieces.push_back({r, false});
  }
  std::stable_sort(open.begin(), open.end(),
                   [&](std::uint32_t a, std::uint32_t b) { return layers[a] < layers[b]; });
  for (auto from = open.begin(); from != open.end();) {
    const auto to =
        std::find_if(from, open.end(), [&](std::uint32_t r) { return layers[r] != layers[*from]; });
    Chains(job, {from, to}, tolerance).AppendTo(contours);
    from = to;
  }
  SortByFirstPiece(contours);
  return contours;
}

void Append(Contours& contours, const Contours& more) {
  const auto first = static_cast<std::uint32_t>(contours.pieces.size());
  contours.pieces.insert(contours.pieces.end(), more.pieces.begin(), more.pieces.end());
  for (Contour contour : more.contours) {
    contour.first += first;
    contours.contours.push_back(contour);
  }
}
