// dump_results FILE: writes every byte that the results of a drawing hand to the caller, but for addresses,
// to standard output, so that two builds of the library can be compared.
#include <cstdint>
#include <cstdio>
#include <cstring>

#include "drawload/exports.h"

namespace {

template <typename Value>
void Write(const Value& value) {
  std::fwrite(&value, sizeof value, 1, stdout);
}

void WriteRange(const void* begin, const void* end) {
  std::fwrite(begin, 1,
              static_cast<std::size_t>(static_cast<const char*>(end) - static_cast<const char*>(begin)),
              stdout);
}

void Dump(const CFileCurve& curve) {
  for (const FileSegment* s = curve.segmentHead->next; s != curve.segmentHead; s = s->next) {
    WriteRange(s, &s->previous);
  }
  WriteRange(curve.segmentHead, &curve.segmentHead->previous);
  WriteRange(&curve.segmentCount, &curve.trailingWord + 1);
}

void Dump(const CFileDib& dib) {
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::memcpy(&width, static_cast<const char*>(dib.bitmap) + 4, sizeof width);
  std::memcpy(&height, static_cast<const char*>(dib.bitmap) + 8, sizeof height);
  const std::size_t rowBytes = (static_cast<std::size_t>(width) + 3) / 4 * 4;
  std::fwrite(dib.bitmap, 1, 40 + 1024 + rowBytes * static_cast<std::size_t>(height), stdout);
  WriteRange(&dib.a, &dib.f + 1);
  WriteRange(dib.trailingWords, dib.trailingWords + 2);
}

}  // namespace

int main(int argc, char** argv) {
  if (argc != 2 || DrawLoad_Z7(argv[1]) == 0) return 1;
  CFileDraw* result = nullptr;
  for (int more = GetFirstData_Z7(&result); more != 0; more = GetNextData_Z7(&result)) {
    WriteRange(&result->rect, &result->diameter + 1);
    if (result->kind == kFileCurve) Dump(static_cast<const CFileCurve&>(*result));
    if (result->kind == kFileDib) Dump(static_cast<const CFileDib&>(*result));
    const structRect bounds = result->CalRect();
    Write(bounds);
  }
  return 0;
}
