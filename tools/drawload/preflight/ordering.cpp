#include "ordering.h"

#include <algorithm>
#include <map>
#include <optional>

#include "bezier.h"
#include "contours.h"
#include "duplicates.h"
#include "geometry.h"
#include "layers.h"
#include "nesting.h"
#include "spatial_index.h"

namespace {

/// What is worked as one: a contour with all its pieces, or a bitmap.
struct Item {
  Point start;
  Point end;
  std::uint32_t layer = 0;
  bool mayTurn = false;
};

struct Step {
  std::uint32_t item = 0;
  bool isTurned = false;
};

/// The items of one layer that may come next, looked up by their ends.
class Available {
 public:
  void Add(const std::vector<Item>& items, std::uint32_t item) {
    for (const Value& value : ValuesOf(items, item)) {
      if (isBegun) {
        tree.insert(value);
      } else {
        first.push_back(value);
      }
    }
  }

  Step TakeNearest(const std::vector<Item>& items, Point from) {
    Begin();
    found.clear();
    tree.query(bgi::nearest(NumberedSpotOf(from, 0), 1), std::back_inserter(found));
    const Step step{found.front().second / 2, found.front().second % 2 == 1};
    for (const Value& value : ValuesOf(items, step.item)) tree.remove(value);
    return step;
  }

  bool IsEmpty() const { return tree.empty() && first.empty(); }

 private:
  /// An end: the number of its item, twice, and 1 more for the far end.
  using Value = std::pair<NumberedSpot, std::uint32_t>;
  using Tree = bgi::rtree<Value, bgi::rstar<16>>;

  static std::vector<Value> ValuesOf(const std::vector<Item>& items, std::uint32_t item) {
    std::vector<Value> values{{NumberedSpotOf(items[item].start, 2 * item), 2 * item}};
    if (items[item].mayTurn) values.emplace_back(NumberedSpotOf(items[item].end, 2 * item + 1), 2 * item + 1);
    return values;
  }

  /// What is there from the beginning is packed, which is faster and finds faster.
  void Begin() {
    if (isBegun) return;
    isBegun = true;
    tree = Tree(first);
    first = {};
  }

  bool isBegun = false;
  std::vector<Value> first;
  Tree tree;
  std::vector<Value> found;
};

Point EntryOf(const std::vector<Item>& items, Step step) {
  return step.isTurned ? items[step.item].end : items[step.item].start;
}
Point ExitOf(const std::vector<Item>& items, Step step) {
  return step.isTurned ? items[step.item].start : items[step.item].end;
}

/// Makes the way through a stretch of steps shorter whose order is free.
class TwoOpt {
 public:
  TwoOpt(const std::vector<Item>& allItems, std::vector<Step>& allSteps, std::size_t& allWork)
      : items(allItems), steps(allSteps), work(allWork) {}

  /// `steps[first, last)` may be put in any order; what is before and after stays.
  void Improve(std::size_t first, std::size_t last) {
    if (last - first < 2) return;
    from = first;
    to = last;
    std::vector<Value> values;
    values.reserve(2 * (last - first));
    for (std::size_t i = first; i < last; ++i) {
      positions[steps[i].item] = i;
      values.emplace_back(SpotOf(items[steps[i].item].start), steps[i].item * 2);
      values.emplace_back(SpotOf(items[steps[i].item].end), steps[i].item * 2 + 1);
    }
    tree = Tree(values);
    // A step whose neighborhood brought no gain is looked at again only once something near it has changed.
    std::vector<std::size_t> queue;
    for (std::size_t i = last; i-- > first;) queue.push_back(steps[i].item);
    while (!queue.empty() && work > 0) {
      const auto item = static_cast<std::uint32_t>(queue.back());
      queue.pop_back();
      while (work > 0 && ImproveAt(item, queue)) continue;
    }
  }

  void SetItemCount(std::size_t count) { positions.assign(count, 0); }

 private:
  using Value = std::pair<Spot, std::uint32_t>;
  using Tree = bgi::rtree<Value, bgi::quadratic<16>>;
  static constexpr std::size_t kNeighbors = 8;
  static constexpr std::size_t kLongestTurn = 30'000;
  static constexpr std::size_t kQueryWork = 64;  // as long as turning so many steps round takes

  Point Entry(std::size_t position) const { return EntryOf(items, steps[position]); }
  Point Exit(std::size_t position) const { return ExitOf(items, steps[position]); }

  /// What turning the steps [i, j] round saves.
  double Gain(std::size_t i, std::size_t j) const {
    double gain = 0.0;
    if (i > 0) gain += Distance(Exit(i - 1), Entry(i)) - Distance(Exit(i - 1), Exit(j));
    if (j + 1 < steps.size()) gain += Distance(Exit(j), Entry(j + 1)) - Distance(Entry(i), Entry(j + 1));
    return gain;
  }

  bool ImproveAt(std::uint32_t item, std::vector<std::size_t>& queue) {
    const std::size_t here = positions[item];
    for (const bool isExit : {true, false}) {
      const Point point = isExit ? Exit(here) : Entry(here);
      found.clear();
      tree.query(bgi::nearest(SpotOf(point), kNeighbors), std::back_inserter(found));
      work -= std::min<std::size_t>(work, kQueryWork);
      for (const auto& [spot, end] : found) {
        const std::size_t there = positions[end / 2];
        const bool isThereExit = (end % 2 == 1) != steps[there].isTurned;
        if (there == here || isThereExit != isExit) continue;
        // Exit next to exit: turn what follows the first up to the second. Entries alike.
        const std::size_t low = std::min(here, there) + (isExit ? 1 : 0);
        const std::size_t high = std::max(here, there) - (isExit ? 0 : 1);
        if (low < from || high >= to || low > high || high - low > kLongestTurn) continue;
        constexpr double kLeastGain = 1e-6;
        if (Gain(low, high) <= kLeastGain) continue;
        Turn(low, high);
        for (const std::size_t changed : {low, high}) queue.push_back(steps[changed].item);
        if (low > from) queue.push_back(steps[low - 1].item);
        if (high + 1 < to) queue.push_back(steps[high + 1].item);
        return true;
      }
    }
    return false;
  }

  void Turn(std::size_t low, std::size_t high) {
    work -= std::min(work, high - low + 1);
    std::reverse(steps.begin() + static_cast<std::ptrdiff_t>(low),
                 steps.begin() + static_cast<std::ptrdiff_t>(high) + 1);
    for (std::size_t i = low; i <= high; ++i) {
      steps[i].isTurned = !steps[i].isTurned;
      positions[steps[i].item] = i;
    }
  }

  const std::vector<Item>& items;
  std::vector<Step>& steps;
  std::size_t& work;
  std::size_t from = 0;
  std::size_t to = 0;
  std::vector<std::size_t> positions;
  Tree tree;
  std::vector<Value> found;
};

/// A result in the new order.
struct Turn {
  std::uint32_t result = 0;
  bool isReversed = false;
};

class Orderer {
 public:
  Orderer(Job& drawing, double distance) : job(drawing), tolerance(distance) {}

  Ordered Run() {
    Ordered ordered;
    ordered.travelBefore = ordered.travelAfter = TravelOf(job);
    const std::vector<std::uint32_t> layers = LayersOf(job);
    // What repeats others makes contours of its own: joined to those, it would lead there and back.
    std::vector<bool> leftOut = RepeatedResults(job, FindRepeats(job, layers, tolerance));
    contours = FindContours(job, layers, leftOut, tolerance);
    leftOut.flip();
    Append(contours, FindContours(job, layers, leftOut, tolerance));
    nesting = FindNesting(job, contours, tolerance);
    MakeItems(layers);
    Arrange();
    Shorten();
    const std::vector<Turn> turns = Turns();
    const double travel = TravelAlong(turns);
    const std::size_t tooEarly = OutlinesCutTooEarly(nesting).size();
    if (tooEarly == 0 && travel >= ordered.travelBefore) return ordered;
    ordered.outlines = tooEarly;
    ordered.travelAfter = travel;
    Apply(turns);
    return ordered;
  }

 private:
  /// One item for each shape, by the same number.
  void MakeItems(const std::vector<std::uint32_t>& layers) {
    items.reserve(nesting.shapes.size());
    for (const Shape& shape : nesting.shapes) {
      Item item;
      if (shape.bitmap != kNoShape) {
        item.start = *StartOf(job.results[shape.bitmap]);
        item.end = *EndOf(job.results[shape.bitmap]);
      } else {
        const Contour& contour = contours.contours[shape.contour];
        item.start = StartOf(job, contours.pieces[contour.first]);
        item.end = EndOf(job, contours.pieces[contour.first + contour.count - 1]);
        item.mayTurn = !contour.isClosed;
      }
      item.layer = layers[shape.firstResult];
      items.push_back(item);
    }
  }

  /// Puts all items in an order, each after those inside it.
  void Arrange() {
    std::vector<std::uint32_t> childrenLeft = ChildCounts(nesting);
    std::map<std::uint32_t, Available> layers;
    for (std::uint32_t i = 0; i < items.size(); ++i) {
      if (childrenLeft[i] == 0) layers[items[i].layer].Add(items, i);
    }
    const Box bounds = BoundsOf(job);
    Point here{bounds.minX, bounds.minY};
    steps.reserve(items.size());
    for (auto layer = layers.begin(); !layers.empty();) {
      const Step step = layer->second.TakeNearest(items, here);
      steps.push_back(step);
      here = ExitOf(items, step);
      for (const std::uint32_t parent : ParentsOf(nesting, step.item)) {
        if (--childrenLeft[parent] == 0) layers[items[parent].layer].Add(items, parent);
      }
      if (!layer->second.IsEmpty()) continue;
      layers.erase(layer);
      layer = layers.begin();
    }
  }

  /// Runs 2-opt over each stretch of steps of one layer in which no item lies inside another.
  void Shorten() {
    std::size_t work = 50'000'000;
    TwoOpt twoOpt(items, steps, work);
    twoOpt.SetItemCount(items.size());
    // Where the last item inside each item stands.
    std::vector<std::size_t> lastInside(items.size(), 0);
    std::size_t begin = 0;
    for (std::size_t i = 0; i < steps.size(); ++i) {
      const std::uint32_t item = steps[i].item;
      const bool isFixed = nesting.shapes[item].bitmap != kNoShape;
      const bool endsStretch =
          isFixed || lastInside[item] > begin || items[item].layer != items[steps[begin].item].layer;
      if (endsStretch) {
        twoOpt.Improve(begin, i);
        begin = isFixed ? i + 1 : i;
      }
      for (const std::uint32_t parent : ParentsOf(nesting, item)) lastInside[parent] = i + 1;
      if (isFixed && begin == steps.size()) return;
    }
    twoOpt.Improve(begin, steps.size());
  }

  std::vector<Turn> Turns() const {
    std::vector<Turn> turns;
    std::vector<bool> isTaken(job.results.size(), false);
    const auto take = [&](std::uint32_t result, bool isReversed) {
      turns.push_back({result, isReversed});
      isTaken[result] = true;
    };
    for (const Step& step : steps) {
      const Shape& shape = nesting.shapes[step.item];
      if (shape.bitmap != kNoShape) {
        take(shape.bitmap, false);
        continue;
      }
      const Contour& contour = contours.contours[shape.contour];
      const bool isTurned = step.isTurned && !contour.isClosed;
      for (std::uint32_t i = 0; i < contour.count; ++i) {
        const Piece piece = contours.pieces[contour.first + (isTurned ? contour.count - 1 - i : i)];
        take(piece.result, piece.isReversed != isTurned);
      }
    }
    // What has no place on the machine comes last, in its old order.
    for (std::uint32_t r = 0; r < job.results.size(); ++r) {
      if (!isTaken[r]) turns.push_back({r, false});
    }
    return turns;
  }

  double TravelAlong(const std::vector<Turn>& turns) const {
    double travel = 0.0;
    std::optional<Point> head;
    for (const Turn& turn : turns) {
      const Result& result = job.results[turn.result];
      const std::optional<Point> start = turn.isReversed ? EndOf(result) : StartOf(result);
      if (!start) continue;
      if (head) travel += Distance(*head, *start);
      head = turn.isReversed ? StartOf(result) : EndOf(result);
    }
    return travel;
  }

  void Apply(const std::vector<Turn>& turns) {
    std::vector<Result> results;
    results.reserve(turns.size());
    for (const Turn& turn : turns) {
      results.push_back(std::move(job.results[turn.result]));
      if (turn.isReversed) results.back() = Reversed(std::get<Curve>(std::move(results.back())));
    }
    job.results = std::move(results);
  }

  Job& job;
  double tolerance;
  Contours contours;
  Nesting nesting;
  std::vector<Item> items;
  std::vector<Step> steps;
};

}  // namespace

Ordered OrderInsideFirst(Job& job, double tolerance) { return Orderer(job, tolerance).Run(); }
