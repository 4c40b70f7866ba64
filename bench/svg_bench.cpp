// SVG drawings against what their bytes alone cost: 1, 10 and 100 MB of generated elements, parsed by the XML
// library and every number in them turned to a float; and drawings that use one symbol over and over.
#include <benchmark/benchmark.h>
#include <cstdio>
#include <fstream>
#include <map>
#include <string>
#include <unistd.h>

#include "bytes_alone.h"
#include "drawload/exports.h"
#include "svg/svg_rw.h"
#include "svg_generator.h"

namespace {

constexpr std::size_t kMegabyte = 1'000'000;

/// A generated drawing, in memory and in a temporary file.
struct Drawing {
  explicit Drawing(std::string content)
      : text(std::move(content)),
        path("/tmp/drawload-bench-" + std::to_string(getpid()) + "-" + std::to_string(text.size()) + ".svg") {
    std::ofstream(path, std::ios::binary) << text;
  }
  ~Drawing() { std::remove(path.c_str()); }

  std::string text;
  std::string path;
};

const Drawing& DrawingOf(std::int64_t megabytes) {
  static std::map<std::int64_t, Drawing> drawings;
  const auto found = drawings.find(megabytes);
  if (found != drawings.end()) return found->second;
  return drawings.try_emplace(megabytes, GenerateSvg(static_cast<std::size_t>(megabytes) * kMegabyte))
      .first->second;
}

const Drawing& UsesOf(std::int64_t count) {
  static std::map<std::int64_t, Drawing> drawings;
  const auto found = drawings.find(count);
  if (found != drawings.end()) return found->second;
  return drawings.try_emplace(count, GenerateUses(static_cast<int>(count))).first->second;
}

void SetBytes(benchmark::State& state, const Drawing& drawing) {
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(drawing.text.size()));
}

/// Loads the drawing and walks to the end, which frees the results; returns how many there were.
std::size_t LoadAndWalk(const std::string& path) {
  std::size_t results = 0;
  if (DrawLoad_Z7(path.c_str()) == 0) return results;
  CFileDraw* draw = nullptr;
  for (std::int32_t found = GetFirstData_Z7(&draw); found != 0; found = GetNextData_Z7(&draw)) ++results;
  return results;
}

/// All of a load, results included.
void Load(benchmark::State& state) {
  const Drawing& drawing = DrawingOf(state.range(0));
  for (auto _ : state) benchmark::DoNotOptimize(LoadAndWalk(drawing.path));
  SetBytes(state, drawing);
}
BENCHMARK(Load)->Arg(1)->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond);

/// The reader alone, with a sink that refuses everything.
void Read(benchmark::State& state) {
  const Drawing& drawing = DrawingOf(state.range(0));
  for (auto _ : state) {
    PARSE::DrawLoader sink;
    SVG_RW reader;
    reader.sink = &sink;
    benchmark::DoNotOptimize(reader.Read(drawing.path, 0));
  }
  SetBytes(state, drawing);
}
BENCHMARK(Read)->Arg(1)->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond);

/// The floor: the bytes parsed as XML and every number in them read.
void XmlAndNumbers(benchmark::State& state) {
  const Drawing& drawing = DrawingOf(state.range(0));
  for (auto _ : state) benchmark::DoNotOptimize(bench::XmlAndNumbers(drawing.text));
  SetBytes(state, drawing);
}
BENCHMARK(XmlAndNumbers)->Arg(1)->Arg(10)->Arg(100)->Unit(benchmark::kMillisecond);

/// Time for each reference: the same for few and for many.
void LoadUses(benchmark::State& state) {
  const Drawing& drawing = UsesOf(state.range(0));
  for (auto _ : state) benchmark::DoNotOptimize(LoadAndWalk(drawing.path));
  state.SetItemsProcessed(state.iterations() * state.range(0));
}
BENCHMARK(LoadUses)->Arg(2000)->Arg(20000)->Unit(benchmark::kMillisecond);

}  // namespace
