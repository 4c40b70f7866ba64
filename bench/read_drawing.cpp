// read_drawing [--memory] [FILE]: loads a drawing, walks its results and writes how many there are to
// standard error, with --memory also the bytes that they take and the most memory that the program had.
// Nothing more, so that its time is the library's. Without a file it ends at once: what that takes, every run
// takes. Returns 1 if nothing could be read.
#include <cstdio>
#include <cstring>

#include "drawload/exports.h"
#include "peak_memory.h"

namespace {

std::size_t BytesOf(const CFileDraw& result) {
  if (result.kind == kFileCurve) {
    const auto segments = static_cast<std::size_t>(static_cast<const CFileCurve&>(result).segmentCount);
    return sizeof(CFileCurve) + (segments + 1) * sizeof(FileSegment);
  }
  constexpr std::size_t headerBytes = 40 + 1024;
  const auto& dib = static_cast<const CFileDib&>(result);
  std::int32_t size[2] = {};
  std::memcpy(size, static_cast<const char*>(dib.bitmap) + 4, sizeof size);
  return sizeof dib + headerBytes +
         (static_cast<std::size_t>(size[0]) + 3) / 4 * 4 * static_cast<std::size_t>(size[1]);
}

}  // namespace

int main(int argc, char** argv) {
  const bool tellsMemory = argc > 1 && std::strcmp(argv[1], "--memory") == 0;
  const int file = tellsMemory ? 2 : 1;
  const bool failed = file < argc && DrawLoad_Z7(argv[file]) == 0;
  if (failed && !tellsMemory) return 1;
  CFileDraw* result = nullptr;
  std::size_t count = 0;
  std::size_t bytes = 0;
  for (int more = GetFirstData_Z7(&result); more != 0; more = GetNextData_Z7(&result)) {
    ++count;
    if (tellsMemory) bytes += BytesOf(*result) + sizeof(FileMember);
  }
  std::fprintf(stderr, "results %zu\n", count);
  if (tellsMemory) std::fprintf(stderr, "bytes %zu\npeak %zu\n", bytes, bench::PeakMemory());
  return failed ? 1 : 0;
}
