#ifndef DRAWLOAD_BENCH_PEAK_MEMORY_H
#define DRAWLOAD_BENCH_PEAK_MEMORY_H

#include <cstddef>
#include <cstdlib>
#include <fstream>
#include <string>

namespace bench {

/// The most memory, in bytes, that this program has had at once, as Linux tells it; 0 elsewhere. (What a
/// parent is told of its child counts the parent's own memory from before the program began.)
inline std::size_t PeakMemory() {
  constexpr std::string_view kKey = "VmHWM:";
  std::ifstream status("/proc/self/status");
  for (std::string line; std::getline(status, line);) {
    if (line.starts_with(kKey)) return std::strtoull(line.c_str() + kKey.size(), nullptr, 10) * 1024;
  }
  return 0;
}

}  // namespace bench

#endif
