// A host program in one page: load a drawing, walk the results, copy what is needed.
//
//   cmake -S . -B build && cmake --build build        or
//   c++ -std=c++17 host.cpp $(pkg-config --cflags --libs drawload) -o host
//   ./host drawing.dxf
#include <cstdio>
#include <drawload/exports.h>

static void PrintCurve(const CFileCurve& curve) {
  std::printf("curve #%06x, %d segments, cutSpeed %g, cutPower %g\n", curve.color, curve.segmentCount,
              curve.cutSpeed, curve.cutPower);
  for (const FileSegment* s = curve.segmentHead->next; s != curve.segmentHead; s = s->next) {
    std::printf("  %s (%g, %g) to (%g, %g)\n", s->type == kSegmentLine ? "line" : "cubic", s->start.x,
                s->start.y, s->end.x, s->end.y);
  }
}

static void PrintBitmap(CFileDib& dib) {
  const structRect box = dib.CalRect();
  std::printf("bitmap, placed in (%g, %g) to (%g, %g) mm\n", box.minX, box.minY, box.maxX, box.maxY);
}

int main(int argc, char** argv) {
  if (argc != 2) {
    std::fprintf(stderr, "usage: host FILE\n");
    return 2;
  }
  if (DrawLoad_Z7(argv[1]) == 0) {
    std::fprintf(stderr, "host: nothing could be read from %s\n", argv[1]);
    return 1;
  }
  CFileDraw* result = nullptr;
  // The objects live until GetNextData_Z7 returns 0: copy what you keep before that.
  for (int found = GetFirstData_Z7(&result); found != 0; found = GetNextData_Z7(&result)) {
    if (result->kind == kFileCurve) PrintCurve(static_cast<const CFileCurve&>(*result));
    if (result->kind == kFileDib) PrintBitmap(static_cast<CFileDib&>(*result));
  }
  return 0;
}
