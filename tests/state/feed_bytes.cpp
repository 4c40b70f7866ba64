// feed_bytes FILE...: reads each drawing and looks something up by every byte of its results, so that a
// memory checker tells where one was never set.
#include <array>
#include <cstdio>

#include "dump/result_dump.h"

int main(int argc, char** argv) {
  std::array<unsigned long, 256> times{};
  unsigned long bytes = 0;
  for (int i = 1; i < argc; ++i) {
    for (const char byte : result_dump::OfFile(argv[i])) {
      ++bytes;
      ++times[static_cast<unsigned char>(byte)];
    }
  }
  std::fprintf(stderr, "%lu bytes, %lu of them zero\n", bytes, times[0]);
  return bytes == 0 ? 1 : 0;
}
