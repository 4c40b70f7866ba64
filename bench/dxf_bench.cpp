// DXF drawings against what their bytes alone cost: 1, 10 and 100 MB of generated entities.
#include <benchmark/benchmark.h>
#include <cstdio>
#include <cstring>
#include <fstream>
#include <malloc.h>
#include <map>
#include <sys/resource.h>
#include <sys/wait.h>
#include <unistd.h>

#include "bytes_alone.h"
#include "drawload/exports.h"
#include "dxf_generator.h"

namespace {

constexpr std::int64_t kMegabyte = 1'000'000;

/// A generated drawing, in memory and in a temporary file.
struct Drawing {
  explicit Drawing(std::int64_t megabytes)
      : text(GenerateDxf(static_cast<std::size_t>(megabytes * kMegabyte))),
        path("/tmp/drawload-bench-" + std::to_string(getpid()) + "-" + std::to_string(megabytes) + ".dxf") {
    std::ofstream(path, std::ios::binary) << text;
  }
  ~Drawing() { std::remove(path.c_str()); }

  std::string text;
  std::string path;
};

const Drawing& DrawingOf(std::int64_t megabytes) {
  static std::map<std::int64_t, Drawing> drawings;
  return drawings.try_emplace(megabytes, megabytes).first->second;
}

/// Loads the drawing and walks to the end, which frees the results; returns their bytes.
std::size_t LoadAndWalk(const std::string& path) {
  std::size_t bytes = 0;
  if (DrawLoad_Z7(path.c_str()) == 0) return bytes;
  CFileDraw* draw = nullptr;
  for (std::int32_t found = GetFirstData_Z7(&draw); found != 0; found = GetNextData_Z7(&draw)) {
    const auto& curve = static_cast<const CFileCurve&>(*draw);
    bytes += sizeof curve + sizeof(FileSegment) * static_cast<std::size_t>(curve.segmentCount + 1);
  }
  return bytes;
}

void SetBytes(benchmark::State& state, const Drawing& drawing) {
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(drawing.text.size()));
}

void Load(benchmark::State& state) {
  const Drawing& drawing = DrawingOf(state.range(0));
  for (auto _ : state) benchmark::DoNotOptimize(LoadAndWalk(drawing.path));
  SetBytes(state, drawing);
}
BENCHMARK(Load)->Arg(1)->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond);

void ScanLines(benchmark::State& state) {
  const Drawing& drawing = DrawingOf(state.range(0));
  for (auto _ : state) {
    std::size_t lines = 0;
    const char* next = drawing.text.data();
    const char* const end = next + drawing.text.size();
    while (const void* feed = std::memchr(next, '\n', static_cast<std::size_t>(end - next))) {
      next = static_cast<const char*>(feed) + 1;
      ++lines;
    }
    benchmark::DoNotOptimize(lines);
  }
  SetBytes(state, drawing);
}
BENCHMARK(ScanLines)->Arg(1)->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond);

/// The floor: the bytes split into lines and every number in them read.
void LinesAndNumbers(benchmark::State& state) {
  const Drawing& drawing = DrawingOf(state.range(0));
  for (auto _ : state) benchmark::DoNotOptimize(bench::LinesAndNumbers(drawing.text));
  SetBytes(state, drawing);
}
BENCHMARK(LinesAndNumbers)->Arg(1)->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond);

/// Peak memory of a process that loads the drawing, over that of one that does nothing, as a multiple of
/// the file's bytes and those of the results.
void PeakMemory(benchmark::State& state) {
  const Drawing drawing(state.range(0));
  const auto peakOf = [&](bool load) {
    const pid_t child = fork();
    if (child == 0) {
      if (load) LoadAndWalk(drawing.path);
      _exit(0);
    }
    rusage usage = {};
    wait4(child, nullptr, 0, &usage);
    return static_cast<double>(usage.ru_maxrss) * 1024;
  };
  malloc_trim(0);  // so that the child's needs are not met from what earlier measurements left behind
  for (auto _ : state) {
    const double peak = peakOf(true) - peakOf(false);
    const double needed = static_cast<double>(LoadAndWalk(drawing.path) + drawing.text.size());
    state.counters["peak / (file + results)"] = peak / needed;
  }
}
BENCHMARK(PeakMemory)->Arg(1)->Arg(10)->Arg(100)->Iterations(1);

}  // namespace
