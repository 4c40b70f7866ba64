// Packing pictures to grey and unpacking Base64, beside a plain copy of the same bytes.
#include <benchmark/benchmark.h>
#include <cstring>
#include <random>
#include <string>
#include <vector>

#include "sink/grey_bitmap.h"
#include "support/base64.h"

namespace {

constexpr std::int32_t kSide = 2000;

/// Bytes without a pattern, the same in every run.
std::vector<unsigned char> Noise(std::size_t count) {
  std::mt19937 generator(1);
  std::vector<unsigned char> bytes(count);
  for (unsigned char& byte : bytes) byte = static_cast<unsigned char>(generator());
  return bytes;
}

std::size_t SourceBytes(benchmark::State& state) {
  return static_cast<std::size_t>(kSide) * kSide * static_cast<std::size_t>(state.range(0));
}

void CountBytes(benchmark::State& state, std::size_t bytes) {
  state.SetBytesProcessed(static_cast<std::int64_t>(bytes) * static_cast<std::int64_t>(state.iterations()));
}

/// Argument: channels.
void PackGrey(benchmark::State& state) {
  const auto source = Noise(SourceBytes(state));
  for (auto _ : state) {
    const platform::GlobalHandle handle =
        PackGreyBitmap(kSide, kSide, static_cast<std::int32_t>(state.range(0)), source);
    benchmark::DoNotOptimize(handle);
    platform::GlobalFree(handle);
  }
  CountBytes(state, source.size());
}
BENCHMARK(PackGrey)->DenseRange(1, 4)->Unit(benchmark::kMillisecond);

/// The same bytes copied to fresh memory. Argument: channels.
void Copy(benchmark::State& state) {
  const auto source = Noise(SourceBytes(state));
  for (auto _ : state) {
    const platform::GlobalHandle handle = platform::GlobalAlloc(platform::kMoveable, source.size());
    std::memcpy(platform::GlobalLock(handle), source.data(), source.size());
    benchmark::ClobberMemory();
    platform::GlobalFree(handle);
  }
  CountBytes(state, source.size());
}
BENCHMARK(Copy)->DenseRange(1, 4)->Unit(benchmark::kMillisecond);

void DecodeBase64InPlace(benchmark::State& state) {
  std::string text(std::size_t{8} << 20, 'A');
  for (std::size_t i = 76; i < text.size(); i += 77) text[i] = '\n';
  for (auto _ : state) {
    state.PauseTiming();
    std::string place = text;
    state.ResumeTiming();
    benchmark::DoNotOptimize(support::DecodeBase64(place, place.data()));
  }
  CountBytes(state, text.size());
}
BENCHMARK(DecodeBase64InPlace)->Unit(benchmark::kMillisecond);

}  // namespace
