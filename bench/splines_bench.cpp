// Splines against their number of knots: ten times the knots may take at most twelve times as long.
#include <benchmark/benchmark.h>
#include <cstdint>

#include "curve/bspline.h"
#include "entity/spline.h"
#include "sink/spline_conversion.h"
#include "support/limits.h"

namespace {

/// A wave of degree 3 with so many knots, clamped at its ends.
Entity_ZR::ZR_Spline Wave(std::int64_t knotCount, bool isRational) {
  Entity_ZR::ZR_Spline spline;
  spline.degree = 3;
  spline.knotCount = static_cast<std::int32_t>(knotCount);
  spline.controlCount = spline.knotCount - 4;
  for (std::int32_t i = 0; i < spline.controlCount; ++i) {
    spline.controlPoints.push_back({2.0 * i, i % 5 * 3.0, 0.0});
    if (isRational) spline.weights.push_back(1.0 + i % 3);
  }
  for (std::int32_t i = 0; i < spline.knotCount; ++i) {
    spline.knots.push_back(i < 4 ? 0 : i < spline.controlCount ? i - 3 : spline.controlCount - 3);
  }
  return spline;
}

void SetKnotRange(benchmark::internal::Benchmark* bench) {
  for (const std::int64_t knotCount : {100, 1000, 10000, 49000}) bench->Arg(knotCount);
}

void DecomposeInKernel(benchmark::State& state) {
  const Entity_ZR::ZR_Spline wave = Wave(state.range(0), false);
  curve::BSpline spline(static_cast<std::uint32_t>(wave.controlCount), 2, 3);
  std::vector<double> coordinates;
  for (const Entity_ZR::Point3& p : wave.controlPoints) coordinates.insert(coordinates.end(), {p.x, p.y});
  spline.SetControlPoints(coordinates);
  spline.SetKnots(wave.knots);
  for (auto _ : state) benchmark::DoNotOptimize(spline.ToBeziers());
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(DecomposeInKernel)->Apply(SetKnotRange);

void DecomposeEntity(benchmark::State& state) {
  const Entity_ZR::ZR_Spline wave = Wave(state.range(0), false);
  for (auto _ : state) benchmark::DoNotOptimize(SplineToBezier(wave));
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(DecomposeEntity)->Apply(SetKnotRange);

void FlattenEntity(benchmark::State& state) {
  const Entity_ZR::ZR_Spline wave = Wave(state.range(0), true);
  for (auto _ : state) benchmark::DoNotOptimize(SplineFlatten(wave, 0.2));
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(FlattenEntity)->Apply(SetKnotRange);

}  // namespace
