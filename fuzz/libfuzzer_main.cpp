/// The entry points that libFuzzer calls. A fuzz program holds one target.
#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <ctime>
#include <filesystem>

#include "fuzz/target.h"

extern "C" std::size_t LLVMFuzzerMutate(std::uint8_t* data, std::size_t size, std::size_t room);
extern "C" int LLVMFuzzerInitialize(int* argumentCount, char*** arguments);
extern "C" int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size);
extern "C" std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t room,
                                               unsigned seed);

namespace {

/// Of the processor's time, which a busy machine does not lengthen; the fuzzer's own limit is one of the
/// clock.
constexpr double kMostSeconds = 10.0;

const fuzz::Target& TheTarget() { return *fuzz::Targets().front(); }

std::string MutateBytes(std::string bytes, std::size_t room) {
  const std::size_t size = std::min(bytes.size(), room);
  bytes.resize(std::max<std::size_t>(room, 1));
  bytes.resize(LLVMFuzzerMutate(reinterpret_cast<std::uint8_t*>(bytes.data()), size, bytes.size()));
  return bytes;
}

}  // namespace

int LLVMFuzzerInitialize(int*, char***) {
  // The few fonts beside the program take the place of those that happen to be installed.
  const auto fonts = std::filesystem::read_symlink("/proc/self/exe").parent_path() / "fonts.conf";
  setenv("FONTCONFIG_FILE", fonts.c_str(), 0);
  return 0;
}

int LLVMFuzzerTestOneInput(const std::uint8_t* data, std::size_t size) {
  const std::clock_t start = std::clock();
  TheTarget().run({reinterpret_cast<const char*>(data), size});
  const double seconds = static_cast<double>(std::clock() - start) / CLOCKS_PER_SEC;
  fuzz::Check(seconds < kMostSeconds, "the input took too long");
  return 0;
}

std::size_t LLVMFuzzerCustomMutator(std::uint8_t* data, std::size_t size, std::size_t room, unsigned seed) {
  const fuzz::Target& target = TheTarget();
  fuzz::Chance chance{std::minstd_rand(seed), [room](std::string bytes) { return MutateBytes(bytes, room); }};
  if (target.mutate == nullptr || chance.OneIn(8)) return LLVMFuzzerMutate(data, size, room);
  const std::string changed = target.mutate({reinterpret_cast<const char*>(data), size}, chance);
  if (changed.empty() || changed.size() > room) return LLVMFuzzerMutate(data, size, room);
  std::memcpy(data, changed.data(), changed.size());
  return changed.size();
}
