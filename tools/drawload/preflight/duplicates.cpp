#include "duplicates.h"

#include <algorithm>
#include <cmath>
#include <numbers>
#include <optional>
#include <unordered_map>

#include "bezier.h"
#include "geometry.h"
#include "layers.h"
#include "spatial_index.h"

namespace {

namespace bg = boost::geometry;

template <std::size_t kSize>
using Coordinates = bg::model::point<double, kSize, bg::cs::cartesian>;
template <std::size_t kSize>
using Range = bg::model::box<Coordinates<kSize>>;

struct Entry {
  std::uint32_t result;
  std::uint32_t segment;
  std::uint32_t layer;
};

/// Sum and absolute difference of two coordinates stay the same where the direction turns.
struct Symmetric {
  double middle;
  double half;
};

Symmetric Combine(double a, double b) { return {a / 2 + b / 2, std::abs(b / 2 - a / 2)}; }

template <std::size_t kFirst, typename Target>
void SetPair(Target& key, Point a, Point b) {
  const Symmetric x = Combine(a.x, b.x);
  const Symmetric y = Combine(a.y, b.y);
  bg::set<kFirst>(key, x.middle);
  bg::set<kFirst + 1>(key, y.middle);
  bg::set<kFirst + 2>(key, x.half);
  bg::set<kFirst + 3>(key, y.half);
}

Coordinates<4> KeyOf(const Segment& s, Coordinates<4> /*kind*/) {
  Coordinates<4> key;
  SetPair<0>(key, s.start, s.end);
  return key;
}

Coordinates<8> KeyOf(const Segment& s, Coordinates<8> /*kind*/) {
  Coordinates<8> key;
  SetPair<0>(key, s.start, s.end);
  SetPair<4>(key, s.control1, s.control2);
  return key;
}

template <std::size_t... kIndex>
Range<sizeof...(kIndex)> Around(const Coordinates<sizeof...(kIndex)>& key, double reach,
                                std::index_sequence<kIndex...> /*indices*/) {
  Coordinates<sizeof...(kIndex)> low;
  Coordinates<sizeof...(kIndex)> high;
  // Sums and differences are rounded, so the box reaches a hair further than the test that decides.
  const auto spread = [reach](double value) { return reach + std::abs(value) * 4e-16; };
  ((bg::set<kIndex>(low, bg::get<kIndex>(key) - spread(bg::get<kIndex>(key))),
    bg::set<kIndex>(high, bg::get<kIndex>(key) + spread(bg::get<kIndex>(key)))),
   ...);
  return {low, high};
}

Segment StraightForm(const Segment& s, double tolerance) {
  if (!s.cubic || !IsStraight(s, tolerance)) return s;
  return {false, s.start, s.end, {}, {}};
}

/// The first segment of every place, for segments with `kSize` defining numbers.
template <std::size_t kSize>
class Places {
 public:
  explicit Places(const Job& drawing, double distance) : job(drawing), tolerance(distance) {}

  /// The first segment at the place of `segment`; notes `entry` as that where there was none.
  std::optional<Entry> FindOrAdd(const Segment& segment, double reach, Entry entry) {
    const Coordinates<kSize> key = KeyOf(segment, Coordinates<kSize>{});
    found.clear();
    tree.query(bgi::intersects(Around(key, reach, std::make_index_sequence<kSize>{})) &&
                   bgi::satisfies([&](const Value& value) {
                     return IsSameWithin(SegmentOf(value.second), segment, reach);
                   }),
               std::back_inserter(found));
    if (found.empty()) {
      tree.insert({key, entry});
      return std::nullopt;
    }
    const auto earlier = [](const Value& a, const Value& b) {
      return std::pair(a.second.result, a.second.segment) < std::pair(b.second.result, b.second.segment);
    };
    return std::min_element(found.begin(), found.end(), earlier)->second;
  }

 private:
  using Value = std::pair<Coordinates<kSize>, Entry>;

  Segment SegmentOf(Entry entry) const {
    return StraightForm(std::get<Curve>(job.results[entry.result]).segments[entry.segment], tolerance);
  }

  const Job& job;
  double tolerance;
  bgi::rtree<Value, bgi::linear<16>> tree;
  std::vector<Value> found;
};

/// Looks up whole segments, each after those that come before it.
class WholeSegments {
 public:
  WholeSegments(const Job& job, double distance)
      : drawing(job), tolerance(distance), lines(job, distance), cubics(job, distance) {}

  Repeat Add(const Segment& original, Entry entry) {
    const Segment segment = StraightForm(original, tolerance);
    const double reach = PolygonLength(segment) > tolerance ? tolerance : 0.0;
    const std::optional<Entry> first =
        segment.cubic ? cubics.FindOrAdd(segment, reach, entry) : lines.FindOrAdd(segment, reach, entry);
    if (!first) return Repeat::kNothing;
    if (first->layer == entry.layer) return Repeat::kSegment;
    const auto [other, isNew] = otherLayers.try_emplace(KeyOf(*first, entry.layer), entry);
    if (isNew) return Repeat::kElsewhere;
    return IsSameWithin(StraightForm(SegmentAt(other->second), tolerance), segment, reach)
               ? Repeat::kSegment
               : Repeat::kElsewhere;
  }

 private:
  struct PlaceOfLayer {
    std::uint64_t place;
    std::uint32_t layer;
    bool operator==(const PlaceOfLayer&) const = default;
  };
  struct Hash {
    std::size_t operator()(const PlaceOfLayer& key) const {
      return (key.place * 0x9E3779B97F4A7C15ULL) ^ (key.layer * 0xC2B2AE3D27D4EB4FULL);
    }
  };

  static PlaceOfLayer KeyOf(Entry first, std::uint32_t layer) {
    return {std::uint64_t{first.result} << 32 | first.segment, layer};
  }
  const Segment& SegmentAt(Entry entry) const {
    return std::get<Curve>(drawing.results[entry.result]).segments[entry.segment];
  }

  const Job& drawing;
  double tolerance;
  Places<4> lines;
  Places<8> cubics;
  /// The first segment of each further layer at a place.
  std::unordered_map<PlaceOfLayer, Entry, Hash> otherLayers;
};

/// What the rounding of angles and distances may come to, in radians and millimetres.
constexpr double kRounding = 1e-8;

/// The line on which a straight segment lies: its angle within [0, pi), and its signed distance from an
/// origin.
struct Carrier {
  double angle = 0.0;
  double offset = 0.0;
};

Carrier CarrierOf(Point start, Point end, Point origin) {
  Carrier carrier;
  carrier.angle = std::atan2(end.y - start.y, end.x - start.x);
  if (carrier.angle < 0.0) carrier.angle += std::numbers::pi;
  if (carrier.angle >= std::numbers::pi) carrier.angle = 0.0;
  carrier.offset =
      (start.y - origin.y) * std::cos(carrier.angle) - (start.x - origin.x) * std::sin(carrier.angle);
  return carrier;
}

/// The same line seen from the other side, half a turn on.
Carrier Turned(const Carrier& carrier) {
  const bool isLess = carrier.angle < std::numbers::pi / 2;
  return {isLess ? carrier.angle + std::numbers::pi : carrier.angle - std::numbers::pi, -carrier.offset};
}

/// A straight segment of the job. There may be millions: their ends stay where they are.
struct LineReference {
  std::uint32_t result = 0;
  std::uint32_t segment = 0;
  double length = 0.0;
};

struct Line {
  Point start;
  Point end;
  double length = 0.0;
};

Line LineOf(const Job& job, const LineReference& reference) {
  const Segment& segment = std::get<Curve>(job.results[reference.result]).segments[reference.segment];
  return {segment.start, segment.end, reference.length};
}

/// The part [from, to] of `line`, as distances from its start, that lies on `other`; empty where the two are
/// not on one line within the tolerance. `other` is at least as long.
std::pair<double, double> SharedPart(const Line& line, const Line& other, double tolerance) {
  const double x = (other.end.x - other.start.x) / other.length;
  const double y = (other.end.y - other.start.y) / other.length;
  const auto along = [&](Point p) { return (p.x - other.start.x) * x + (p.y - other.start.y) * y; };
  const auto aside = [&](Point p) { return std::abs((p.y - other.start.y) * x - (p.x - other.start.x) * y); };
  if (aside(line.start) > tolerance + kRounding || aside(line.end) > tolerance + kRounding) return {0.0, 0.0};
  const double first = along(line.start);
  const double last = along(line.end);
  const double low = std::max(std::min(first, last), 0.0);
  const double high = std::min(std::max(first, last), other.length);
  if (high <= low) return {0.0, 0.0};
  return first <= last ? std::pair(low - first, high - first) : std::pair(first - high, first - low);
}

/// The length of the union of ranges.
double UnionLength(std::vector<std::pair<double, double>>& ranges) {
  std::sort(ranges.begin(), ranges.end());
  double sum = 0.0;
  double reached = -1.0;
  for (const auto& [from, to] : ranges) {
    sum += std::max(0.0, to - std::max(from, reached));
    reached = std::max(reached, to);
  }
  return sum;
}

/// Finds straight segments that share a part with longer ones.
class SharedParts {
 public:
  SharedParts(const Job& drawing, const std::vector<std::uint32_t>& layersOfResults,
              std::vector<LineReference> straightLines, double distance)
      : job(drawing),
        layers(layersOfResults),
        lines(std::move(straightLines)),
        origin(Middle()),
        tolerance(distance) {}

  bool Find(std::vector<RepeatedSegment>& found) {
    std::sort(lines.begin(), lines.end(), [](const LineReference& a, const LineReference& b) {
      if (a.length != b.length) return a.length > b.length;
      return std::pair(a.result, a.segment) < std::pair(b.result, b.segment);
    });
    // Lines that run close to many others without lying on them are looked at again and again: that is
    // bounded.
    std::size_t looksLeft = 100 * lines.size() + 1'000'000;
    for (std::uint32_t i = 0; i < lines.size(); ++i) {
      const auto [result, segment, length] = lines[i];
      const Line line = LineOf(job, lines[i]);
      const Carrier carrier = CarrierOf(line.start, line.end, origin);
      const Share share = Look(line, carrier, layers[result], looksLeft);
      if (share.repeat != Repeat::kNothing) found.push_back({result, segment, share.repeat, share.length});
      // Boxes without extent would be sorted into the tree by the rounding of their numbers.
      constexpr double kAngleRoom = 1e-5;
      constexpr double kOffsetRoom = 1e-4;
      if (share.repeat != Repeat::kWithin) {
        const double offsets = std::max(tolerance, kOffsetRoom);
        tree.insert({BoxOf(line, carrier, layers[result], kAngleRoom, offsets), i});
      }
      if (looksLeft == 0) return false;
    }
    return true;
  }

 private:
  using Value = std::pair<Range<4>, std::uint32_t>;

  /// What a line shares with those before it, and how much of it.
  struct Share {
    Repeat repeat = Repeat::kNothing;
    double length = 0.0;
  };

  /// The middle of the lines, for the least rounding of their distances from it.
  Point Middle() const {
    Box box;
    for (const LineReference& reference : lines) {
      const Line line = LineOf(job, reference);
      box.Include(ControlBoxOf({false, line.start, line.end, {}, {}}));
    }
    if (box.IsEmpty()) return {};
    return {box.minX / 2 + box.maxX / 2, box.minY / 2 + box.maxY / 2};
  }

  Range<4> BoxOf(const Line& line, const Carrier& carrier, std::uint32_t layer, double angles,
                 double offsets) const {
    constexpr double kLayerStep = 10.0;  // more than all angles and their windows span
    const double angle = carrier.angle + kLayerStep * layer;
    Range<4> box;
    bg::set<bg::min_corner, 0>(box, angle - angles);
    bg::set<bg::max_corner, 0>(box, angle + angles);
    bg::set<bg::min_corner, 1>(box, carrier.offset - offsets);
    bg::set<bg::max_corner, 1>(box, carrier.offset + offsets);
    bg::set<bg::min_corner, 2>(box, std::min(line.start.x, line.end.x) - tolerance);
    bg::set<bg::max_corner, 2>(box, std::max(line.start.x, line.end.x) + tolerance);
    bg::set<bg::min_corner, 3>(box, std::min(line.start.y, line.end.y) - tolerance);
    bg::set<bg::max_corner, 3>(box, std::max(line.start.y, line.end.y) + tolerance);
    return box;
  }

  Share Look(const Line& line, const Carrier& carrier, std::uint32_t layer, std::size_t& looksLeft) {
    // Both ends of the shorter line lie within the tolerance of the longer one.
    const double angles = std::asin(std::min(1.0, 2 * tolerance / line.length)) + kRounding;
    const double farthest = std::max(Distance(line.start, origin), Distance(line.end, origin));
    const double offsets = tolerance + farthest * angles + kRounding;
    parts.clear();
    bool isWithin = LookIn(BoxOf(line, carrier, layer, angles, offsets), line, looksLeft);
    if (!isWithin && (carrier.angle < angles || carrier.angle > std::numbers::pi - angles))
      isWithin = LookIn(BoxOf(line, Turned(carrier), layer, angles, offsets), line, looksLeft);
    if (isWithin) return {Repeat::kWithin, line.length};
    if (!parts.empty()) return {Repeat::kPart, UnionLength(parts)};
    return {};
  }

  /// Collects the parts of `line` that lie on others in the box; true, and no further look, where one holds
  /// it whole.
  bool LookIn(const Range<4>& box, const Line& line, std::size_t& looksLeft) {
    constexpr std::size_t kMostParts = 64;
    for (auto it = tree.qbegin(bgi::intersects(box)); it != tree.qend(); ++it) {
      if (looksLeft == 0 || parts.size() == kMostParts) return false;
      --looksLeft;
      const auto [from, to] = SharedPart(line, LineOf(job, lines[it->second]), tolerance);
      if (from <= tolerance && to >= line.length - tolerance) return true;
      if (to - from > kLeastShare * tolerance) parts.emplace_back(from, to);
    }
    return false;
  }

 public:
  /// A shared part counts from so many tolerances on: lines that meet share one anyway.
  static constexpr double kLeastShare = 10.0;

 private:
  const Job& job;
  const std::vector<std::uint32_t>& layers;
  std::vector<LineReference> lines;
  Point origin;
  double tolerance;
  bgi::rtree<Value, bgi::linear<16>> tree;
  std::vector<std::pair<double, double>> parts;
};

}  // namespace

Repeats FindRepeats(const Job& job, const std::vector<std::uint32_t>& layers, double tolerance) {
  Repeats repeats;
  std::vector<LineReference> straight;
  {
    WholeSegments wholes(job, tolerance);
    for (std::uint32_t r = 0; r < job.results.size(); ++r) {
      const auto* curve = std::get_if<Curve>(&job.results[r]);
      if (curve == nullptr || !IsWithinReach(job.results[r])) continue;
      for (std::uint32_t i = 0; i < curve->segments.size(); ++i) {
        const Segment& segment = curve->segments[i];
        if (PolygonLength(segment) == 0.0) continue;
        const Entry entry{r, i, layers[r]};
        const Repeat repeat = wholes.Add(segment, entry);
        if (repeat != Repeat::kNothing) repeats.segments.push_back({r, i, repeat, LengthOf(segment)});
        if (repeat == Repeat::kSegment || !IsStraight(segment, tolerance)) continue;
        const double length = Distance(segment.start, segment.end);
        if (length > SharedParts::kLeastShare * tolerance) straight.push_back({r, i, length});
      }
    }
  }
  repeats.isComplete = SharedParts(job, layers, std::move(straight), tolerance).Find(repeats.segments);
  std::sort(repeats.segments.begin(), repeats.segments.end(),
            [](const RepeatedSegment& a, const RepeatedSegment& b) {
              return std::pair(a.result, a.segment) < std::pair(b.result, b.segment);
            });
  return repeats;
}

std::vector<bool> RepeatedResults(const Job& job, const Repeats& repeats) {
  std::vector<std::size_t> counts(job.results.size(), 0);
  for (const RepeatedSegment& segment : repeats.segments) {
    if (segment.repeat == Repeat::kSegment || segment.repeat == Repeat::kWithin) ++counts[segment.result];
  }
  std::vector<bool> repeated(job.results.size(), false);
  for (std::size_t r = 0; r < counts.size(); ++r) {
    const auto* curve = std::get_if<Curve>(&job.results[r]);
    repeated[r] = counts[r] > 0 && curve != nullptr && counts[r] == curve->segments.size();
  }
  return repeated;
}
