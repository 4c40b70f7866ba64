#include "dropping.h"

#include <algorithm>

#include "bezier.h"
#include "duplicates.h"
#include "geometry.h"
#include "layers.h"

namespace {

/// Ends that are closer, in millimetres, meet.
constexpr double kRounding = 1e-7;

/// The runs of segments that stay of a curve.
std::vector<std::vector<Segment>> RunsOf(const std::vector<Segment>& segments,
                                         const std::vector<bool>& isDropped) {
  std::vector<std::vector<Segment>> runs;
  bool isOpen = false;
  for (std::size_t i = 0; i < segments.size(); ++i) {
    if (!isDropped[i]) {
      if (!isOpen) runs.emplace_back();
      runs.back().push_back(segments[i]);
    }
    isOpen = !isDropped[i];
  }
  const bool wrapsAround = runs.size() > 1 && !isDropped.front() && !isDropped.back() &&
                           Distance(segments.front().start, segments.back().end) <= kRounding;
  if (wrapsAround) {
    runs.back().insert(runs.back().end(), runs.front().begin(), runs.front().end());
    runs.erase(runs.begin());
  }
  return runs;
}

void AppendRest(std::vector<Result>& results, Curve& curve, const std::vector<bool>& isDropped) {
  for (std::vector<Segment>& run : RunsOf(curve.segments, isDropped)) {
    Curve rest{curve.color, curve.settings, {}, std::move(run)};
    rest.bounds = TightBoxOf(rest);
    results.emplace_back(std::move(rest));
  }
}

bool IsToDrop(Repeat repeat) { return repeat == Repeat::kSegment || repeat == Repeat::kWithin; }

}  // namespace

Dropped DropDuplicates(Job& job, double tolerance) {
  Dropped dropped;
  Repeats repeats = FindRepeats(job, LayersOf(job), tolerance);
  for (const RepeatedSegment& repeated : repeats.segments) {
    if (repeated.repeat == Repeat::kPart) ++dropped.partsLeft;
    if (!IsToDrop(repeated.repeat)) continue;
    ++dropped.segments;
    dropped.length += repeated.length;
  }
  std::erase_if(repeats.segments, [](const RepeatedSegment& repeated) { return !IsToDrop(repeated.repeat); });
  std::vector<Result> results;
  results.reserve(job.results.size());
  auto next = repeats.segments.cbegin();
  for (std::uint32_t r = 0; r < job.results.size(); ++r) {
    if (next == repeats.segments.cend() || next->result != r) {
      results.push_back(std::move(job.results[r]));
      continue;
    }
    auto& curve = std::get<Curve>(job.results[r]);
    std::vector<bool> isDropped(curve.segments.size(), false);
    for (; next != repeats.segments.cend() && next->result == r; ++next) isDropped[next->segment] = true;
    AppendRest(results, curve, isDropped);
  }
  job.results = std::move(results);
  return dropped;
}
