#include "nesting.h"

#include <algorithm>
#include <cmath>
#include <memory>
#include <numeric>

#include "bezier.h"
#include "geometry.h"
#include "layers.h"
#include "spatial_index.h"

namespace {

double DistanceToChord(Point p, Point a, Point b) {
  const double x = b.x - a.x;
  const double y = b.y - a.y;
  const double square = x * x + y * y;
  const double t = square > 0.0 ? std::clamp(((p.x - a.x) * x + (p.y - a.y) * y) / square, 0.0, 1.0) : 0.0;
  return Distance(p, {a.x + t * x, a.y + t * y});
}

enum class Side { kInside, kOutside, kOnIt };

/// An outline as a polygon that points can be held against.
class Polygon {
 public:
  explicit Polygon(std::vector<Point> corners) : points(std::move(corners)) {}

  /// Each look counts the chords that it holds against the point.
  Side SideOf(Point p, double tolerance, std::size_t& work) {
    constexpr std::size_t kFew = 64;
    if (chords.empty() && points.size() > kFew && ++looks > kFew) Index();
    int winding = 0;
    bool isOnIt = false;
    const auto look = [&](std::size_t i) {
      const Point a = points[i];
      const Point b = points[i + 1 == points.size() ? 0 : i + 1];
      ++work;
      if (std::max(a.y, b.y) < p.y - tolerance || std::min(a.y, b.y) > p.y + tolerance) return;
      if (DistanceToChord(p, a, b) <= tolerance) isOnIt = true;
      if ((a.y <= p.y) == (b.y <= p.y)) return;
      const double side = (b.x - a.x) * (p.y - a.y) - (p.x - a.x) * (b.y - a.y);
      if (a.y <= p.y && side > 0) ++winding;
      if (a.y > p.y && side < 0) --winding;
    };
    if (chords.empty()) {
      for (std::size_t i = 0; i < points.size(); ++i) look(i);
    } else {
      const Area ray({p.x - tolerance, p.y - tolerance}, {kFarthest, p.y + tolerance});
      for (auto it = chords.qbegin(bgi::intersects(ray)); it != chords.qend(); ++it) look(it->second);
    }
    if (isOnIt) return Side::kOnIt;
    return winding != 0 ? Side::kInside : Side::kOutside;
  }

 private:
  using Value = std::pair<Area, std::uint32_t>;

  void Index() {
    std::vector<Value> values;
    values.reserve(points.size());
    for (std::uint32_t i = 0; i < points.size(); ++i) {
      const Point a = points[i];
      const Point b = points[i + 1 == points.size() ? 0 : i + 1];
      values.emplace_back(AreaOf(ControlBoxOf({false, a, b, {}, {}}), 0.0), i);
    }
    chords = bgi::rtree<Value, bgi::quadratic<16>>(values);
  }

  std::vector<Point> points;
  std::size_t looks = 0;
  bgi::rtree<Value, bgi::quadratic<16>> chords;
};

/// Builds the forest of shapes.
class Forest {
 public:
  Forest(const Job& drawing, const Contours& allContours, double distance)
      : job(drawing), contours(allContours), tolerance(distance) {}

  Nesting Grow() {
    AddShapes();
    Nesting nesting;
    firstChild.assign(shapes.size(), kNoShape);
    nextChild.assign(shapes.size(), kNoShape);
    std::vector<std::uint32_t> order(shapes.size());
    std::iota(order.begin(), order.end(), 0U);
    std::sort(order.begin(), order.end(),
              [this](std::uint32_t a, std::uint32_t b) { return IsSmaller(a, b); });
    // The work of comparing shapes that lie in each other's boxes but not in each other is bounded.
    std::size_t work = 0;
    const std::size_t mostWork = 400 * (segmentCount + shapes.size()) + 20'000'000;
    free = Tree(FixedShapes());
    for (const std::uint32_t shape : order) {
      if (!shapes[shape].isOutline) continue;
      if (work <= mostWork) TakeIn(shape, work);
      free.insert({NumberedAreaOf(shapes[shape].bounds, shape), shape});
    }
    nesting.isComplete = work <= mostWork;
    nesting.shapes = std::move(shapes);
    std::sort(furtherParents.begin(), furtherParents.end());
    nesting.furtherParents = std::move(furtherParents);
    return nesting;
  }

 private:
  using Value = std::pair<NumberedArea, std::uint32_t>;
  using Tree = bgi::rtree<Value, bgi::linear<16>>;

  /// What holds nothing may lie in the tree from the beginning. An empty box lies in no outline, and the tree
  /// takes none.
  std::vector<Value> FixedShapes() const {
    std::vector<Value> values;
    for (std::uint32_t shape = 0; shape < shapes.size(); ++shape) {
      const Box& box = shapes[shape].bounds;
      if (!shapes[shape].isOutline && !box.IsEmpty()) values.emplace_back(NumberedAreaOf(box, shape), shape);
    }
    return values;
  }

  void AddShapes() {
    for (std::uint32_t c = 0; c < contours.contours.size(); ++c) AddContour(c);
    for (std::uint32_t r = 0; r < job.results.size(); ++r) {
      const auto* bitmap = std::get_if<Bitmap>(&job.results[r]);
      if (bitmap == nullptr || !IsWithinReach(job.results[r])) continue;
      Shape shape;
      shape.bitmap = shape.firstResult = shape.lastResult = r;
      shape.bounds = bitmap->bounds;
      shapes.push_back(shape);
      areas.push_back(0.0);
    }
  }

  void AddContour(std::uint32_t number) {
    const Contour& contour = contours.contours[number];
    Shape shape;
    shape.contour = number;
    shape.firstResult = kNoShape;
    double area = 0.0;
    Point origin;
    for (std::uint32_t i = 0; i < contour.count; ++i) {
      const Piece piece = contours.pieces[contour.first + i];
      if (!IsWithinReach(job.results[piece.result])) return;
      const Curve& curve = std::get<Curve>(job.results[piece.result]);
      if (i == 0) origin = StartOf(job, piece);
      shape.firstResult = std::min(shape.firstResult, piece.result);
      shape.lastResult = std::max(shape.lastResult, piece.result);
      shape.bounds.Include(curve.bounds);
      shape.isOutline = contour.isClosed && curve.settings.processType == 0;
      segmentCount += curve.segments.size();
      for (const Segment& segment : curve.segments)
        area += piece.isReversed ? -AreaUnder(segment, origin) : AreaUnder(segment, origin);
    }
    shapes.push_back(shape);
    areas.push_back(std::abs(area));
  }

  bool IsSmaller(std::uint32_t a, std::uint32_t b) const {
    const auto sizeOf = [this](std::uint32_t shape) {
      return shapes[shape].bounds.Width() * shapes[shape].bounds.Height();
    };
    const double difference = sizeOf(a) - sizeOf(b);
    if (difference != 0.0) return difference < 0.0;
    if (areas[a] != areas[b]) return areas[a] < areas[b];
    return a < b;
  }

  /// Makes `outline` a parent of the shapes inside it.
  void TakeIn(std::uint32_t outline, std::size_t& work) {
    std::vector<Value> candidates;
    const Box& box = shapes[outline].bounds;
    free.query(bgi::intersects(AnyNumberIn(box, 0.0)), std::back_inserter(candidates));
    work += candidates.size();
    std::erase_if(candidates, [&](const Value& value) {
      return firstChild[value.second] == kNoShape && !IsWithin(shapes[value.second].bounds, box);
    });
    if (candidates.empty()) return;
    Polygon polygon(CornersOf(contours.contours[shapes[outline].contour]));
    for (const Value& candidate : candidates) {
      const std::uint32_t shape = candidate.second;
      const Side side = SideOf(shape, outline, polygon, work);
      if (side == Side::kOutside) {
        LookInto(shape, outline, polygon, work);
        continue;
      }
      shapes[shape].parent = outline;
      shapes[shape].isOnParent = side == Side::kOnIt;
      nextChild[shape] = firstChild[outline];
      firstChild[outline] = shape;
      free.remove(candidate);
    }
  }

  /// Makes `outline` a further parent of what lies inside it and inside `other`, which does not.
  void LookInto(std::uint32_t other, std::uint32_t outline, Polygon& polygon, std::size_t& work) {
    std::vector<std::uint32_t> open{other};
    while (!open.empty()) {
      const std::uint32_t parent = open.back();
      open.pop_back();
      for (std::uint32_t s = firstChild[parent]; s != kNoShape; s = nextChild[s]) {
        ++work;
        if (!Meet(shapes[s].bounds, shapes[outline].bounds)) continue;
        if (IsWithin(shapes[s].bounds, shapes[outline].bounds) &&
            SideOf(s, outline, polygon, work) == Side::kInside) {
          furtherParents.emplace_back(s, outline);
        } else {
          open.push_back(s);
        }
      }
    }
  }

  static bool Meet(const Box& a, const Box& b) {
    return a.minX <= b.maxX && b.minX <= a.maxX && a.minY <= b.maxY && b.minY <= a.maxY;
  }

  bool IsWithin(const Box& inner, const Box& outer) const {
    return inner.minX >= outer.minX - tolerance && inner.minY >= outer.minY - tolerance &&
           inner.maxX <= outer.maxX + tolerance && inner.maxY <= outer.maxY + tolerance;
  }

  std::vector<Point> CornersOf(const Contour& contour) const {
    std::vector<Point> corners;
    for (std::uint32_t i = 0; i < contour.count; ++i) {
      const Piece piece = contours.pieces[contour.first + i];
      const std::vector<Segment>& segments = std::get<Curve>(job.results[piece.result]).segments;
      const double flatness = std::max(tolerance, 1e-3);
      if (piece.isReversed) {
        for (auto s = segments.rbegin(); s != segments.rend(); ++s)
          AppendFlattened(corners, Reversed(*s), flatness);
      } else {
        for (const Segment& segment : segments) AppendFlattened(corners, segment, flatness);
      }
    }
    return corners;
  }

  /// On which side of `outline` a shape lies: on it where the two are the same outline.
  Side SideOf(std::uint32_t shape, std::uint32_t outline, Polygon& polygon, std::size_t& work) const {
    if (!IsWithin(shapes[shape].bounds, shapes[outline].bounds)) return Side::kOutside;
    Side whole = Side::kOnIt;
    for (const Point& sample : SamplesOf(shapes[shape])) {
      const Side side = polygon.SideOf(sample, tolerance, work);
      if (side == Side::kOutside) return side;
      if (side == Side::kInside) whole = side;
    }
    const bool isSame = shapes[shape].isOutline && IsWithin(shapes[outline].bounds, shapes[shape].bounds);
    return whole == Side::kInside || isSame ? whole : Side::kOutside;
  }

  /// Some points of the shape, spread along it.
  std::vector<Point> SamplesOf(const Shape& shape) const {
    std::vector<Point> samples;
    if (shape.bitmap != kNoShape) {
      const Bitmap& bitmap = std::get<Bitmap>(job.results[shape.bitmap]);
      for (const double x : {0.1, 0.9}) {
        for (const double y : {0.1, 0.9})
          samples.push_back(bitmap.Place(x * bitmap.width, y * bitmap.height));
      }
      return samples;
    }
    constexpr std::uint32_t kMost = 5;
    const Contour& contour = contours.contours[shape.contour];
    for (std::uint32_t i = 0; i < std::min(contour.count, kMost); ++i) {
      const Piece piece =
          contours.pieces[contour.first + std::uint64_t{i} * contour.count / std::min(contour.count, kMost)];
      const std::vector<Segment>& segments = std::get<Curve>(job.results[piece.result]).segments;
      const std::size_t each = std::min<std::size_t>(segments.size(), contour.count >= kMost ? 1 : kMost);
      for (std::size_t s = 0; s < each; ++s)
        samples.push_back(PointAt(segments[s * segments.size() / each], 0.5));
    }
    return samples;
  }

  const Job& job;
  const Contours& contours;
  double tolerance;
  std::vector<Shape> shapes;
  std::vector<double> areas;
  std::vector<std::uint32_t> firstChild;
  std::vector<std::uint32_t> nextChild;  ///< of the same parent
  std::vector<std::pair<std::uint32_t, std::uint32_t>> furtherParents;
  std::size_t segmentCount = 0;
  Tree free;
};

}  // namespace

Nesting FindNesting(const Job& job, const Contours& contours, double tolerance) {
  return Forest(job, contours, tolerance).Grow();
}

std::vector<std::uint32_t> ParentsOf(const Nesting& nesting, std::uint32_t shape) {
  std::vector<std::uint32_t> parents;
  if (nesting.shapes[shape].parent != kNoShape) parents.push_back(nesting.shapes[shape].parent);
  const auto& further = nesting.furtherParents;
  for (auto it = std::lower_bound(further.begin(), further.end(), std::pair(shape, 0U));
       it != further.end() && it->first == shape; ++it)
    parents.push_back(it->second);
  return parents;
}

std::vector<std::uint32_t> ChildCounts(const Nesting& nesting) {
  std::vector<std::uint32_t> counts(nesting.shapes.size(), 0);
  for (const Shape& shape : nesting.shapes) {
    if (shape.parent != kNoShape) ++counts[shape.parent];
  }
  for (const auto& [shape, parent] : nesting.furtherParents) ++counts[parent];
  return counts;
}

std::vector<std::uint32_t> OutlinesCutTooEarly(const Nesting& nesting) {
  const std::vector<Shape>& shapes = nesting.shapes;
  std::vector<std::uint32_t> latestInside(shapes.size(), 0);
  std::vector<std::uint32_t> childrenLeft = ChildCounts(nesting);
  std::vector<std::uint32_t> ready;
  for (std::uint32_t s = 0; s < shapes.size(); ++s) {
    if (childrenLeft[s] == 0) ready.push_back(s);
  }
  std::vector<std::uint32_t> early;
  while (!ready.empty()) {
    const std::uint32_t s = ready.back();
    ready.pop_back();
    if (latestInside[s] > shapes[s].lastResult) early.push_back(s);
    for (const std::uint32_t parent : ParentsOf(nesting, s)) {
      const bool isSame = shapes[s].isOnParent && shapes[s].parent == parent;
      latestInside[parent] =
          std::max({latestInside[parent], latestInside[s], isSame ? 0 : shapes[s].lastResult});
      if (--childrenLeft[parent] == 0) ready.push_back(parent);
    }
  }
  std::sort(early.begin(), early.end(),
            [&](std::uint32_t a, std::uint32_t b) { return shapes[a].firstResult < shapes[b].firstResult; });
  return early;
}
