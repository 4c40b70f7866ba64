// PDF files from the path to the last entity, against their size: ten times the segments, pages or images may
// take at most twelve times as long. The notes of the reader go to standard output: redirect it.
#include <benchmark/benchmark.h>
#include <cstdio>
#include <filesystem>
#include <fstream>
#include <string>
#include <unistd.h>

#include "pdf/pdf_rw.h"
#include "pdf_generator.h"

namespace {

/// A generated file, for the time of one benchmark.
class BenchFile {
 public:
  explicit BenchFile(const std::string& bytes)
      : path(std::filesystem::temp_directory_path() /
             ("drawload_bench_" + std::to_string(getpid()) + ".pdf")) {
    std::ofstream(path, std::ios::binary) << bytes;
  }
  BenchFile(const BenchFile&) = delete;
  BenchFile& operator=(const BenchFile&) = delete;
  ~BenchFile() { std::filesystem::remove(path); }

  const std::filesystem::path path;
};

void ReadAll(benchmark::State& state, const std::string& bytes) {
  const BenchFile file(bytes);
  for (auto _ : state) {
    PARSE::DrawLoader sink;
    PDF_RW reader;
    reader.sink = &sink;
    if (!reader.Read(file.path.string(), 0)) state.SkipWithError("the file was refused");
  }
  state.SetBytesProcessed(state.iterations() * static_cast<std::int64_t>(bytes.size()));
}

void ReadOnePage(benchmark::State& state) { ReadAll(state, bench::PdfOfSegments(1, state.range(0))); }
void ReadManyPages(benchmark::State& state) { ReadAll(state, bench::PdfOfSegments(state.range(0), 1000)); }
void ReadImages(benchmark::State& state) { ReadAll(state, bench::PdfOfImages(state.range(0))); }

BENCHMARK(ReadOnePage)->Arg(1000)->Arg(10000)->Arg(100000)->Arg(1000000)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadManyPages)->Arg(10)->Arg(100)->Arg(1000)->Unit(benchmark::kMillisecond);
BENCHMARK(ReadImages)->Arg(50)->Arg(500)->Unit(benchmark::kMillisecond);

}  // namespace
