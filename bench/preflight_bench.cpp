// The check of a drawing and its mending against the number of curves: ten times the curves may take at most
// as much longer as n log n says. "memory" is the most memory that the program has had, as a multiple of the
// results.
#include <benchmark/benchmark.h>
#include <cmath>
#include <cstdint>
#include <random>

#include "peak_memory.h"
#include "preflight/bezier.h"
#include "preflight/check.h"
#include "preflight/mending.h"

namespace {

Curve CurveOf(std::vector<Segment> segments) {
  Curve curve;
  curve.segments = std::move(segments);
  curve.bounds = TightBoxOf(curve);
  return curve;
}

Segment Line(Point from, Point to) { return {false, from, to, {}, {}}; }

/// An arch of one cubic.
Segment Arch(Point at) { return {true, at, {at.x + 3, at.y}, {at.x, at.y + 2}, {at.x + 3, at.y + 2}}; }

/// On a lattice of 5 mm, in turn: closed squares, loose sides of squares, arches, lines of any direction;
/// every tenth is drawn twice.
Job Lattice(std::int64_t curves) {
  std::mt19937 random(1);
  std::uniform_real_distribution<double> upto(0.0, 5.0);
  Job job;
  const auto side = static_cast<std::int64_t>(std::sqrt(static_cast<double>(curves)));
  for (std::int64_t i = 0; static_cast<std::int64_t>(job.results.size()) < curves; ++i) {
    const Point at{5.0 * static_cast<double>(i % side), 5.0 * static_cast<double>(i / side)};
    const Point right{at.x + 4, at.y};
    const Point up{at.x, at.y + 4};
    const Point across{at.x + 4, at.y + 4};
    switch (i % 4) {
      case 0:
        job.results.emplace_back(
            CurveOf({Line(at, right), Line(right, across), Line(across, up), Line(up, at)}));
        break;
      case 1:
        job.results.emplace_back(CurveOf({Line(at, right)}));
        job.results.emplace_back(CurveOf({Line(across, right)}));
        break;
      case 2: job.results.emplace_back(CurveOf({Arch(at)})); break;
      default: job.results.emplace_back(CurveOf({Line(at, {at.x + upto(random), at.y + upto(random)})}));
    }
    if (i % 10 == 0) job.results.push_back(job.results.back());
  }
  return job;
}

/// One curve of so many short lines, back and forth over the sheet.
Job OneCurve(std::int64_t count) {
  std::vector<Segment> segments;
  const auto side = static_cast<std::int64_t>(std::sqrt(static_cast<double>(count)));
  Point last;
  for (std::int64_t i = 0; i < count; ++i) {
    const auto row = static_cast<double>(i / side);
    const auto column = static_cast<double>(i % side);
    const Point next{
        row, (i / side % 2 == 0 ? column : static_cast<double>(side) - column) + 0.1 * std::sin(column)};
    segments.push_back(Line(last, next));
    last = next;
  }
  Job job;
  job.results.emplace_back(CurveOf(std::move(segments)));
  return job;
}

double BytesOf(const Job& job) {
  double bytes = static_cast<double>(job.results.size() * sizeof(Result));
  for (const Result& result : job.results)
    bytes += static_cast<double>(std::get<Curve>(result).segments.size() * sizeof(Segment));
  return bytes;
}

void Check(benchmark::State& state, const Job& job) {
  for (auto _ : state) benchmark::DoNotOptimize(CheckJob(job, {}));
  state.counters["memory"] = static_cast<double>(bench::PeakMemory()) / BytesOf(job);
  state.SetComplexityN(state.range(0));
}

void CheckCurves(benchmark::State& state) { Check(state, Lattice(state.range(0))); }
BENCHMARK(CheckCurves)
    ->RangeMultiplier(10)
    ->Range(10'000, 1'000'000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oNLogN);

void CheckSegmentsOfOneCurve(benchmark::State& state) { Check(state, OneCurve(state.range(0))); }
BENCHMARK(CheckSegmentsOfOneCurve)
    ->RangeMultiplier(10)
    ->Range(10'000, 1'000'000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oNLogN);

void MendCurves(benchmark::State& state) {
  const Job job = Lattice(state.range(0));
  MendOptions options;
  options.dropDuplicates = options.insideFirst = true;
  options.join = options.simplify = 0.05;
  for (auto _ : state) {
    Job mended = job;
    benchmark::DoNotOptimize(Mend(mended, options));
  }
  state.SetComplexityN(state.range(0));
}
BENCHMARK(MendCurves)
    ->RangeMultiplier(10)
    ->Range(10'000, 1'000'000)
    ->Unit(benchmark::kMillisecond)
    ->Complexity(benchmark::oNLogN);

}  // namespace
