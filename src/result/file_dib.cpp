#include "drawload/file_dib.h"

namespace {

constexpr double kMillimetresPerPoint = 25.4 / 72;

}  // namespace

CFileDib::CFileDib()
    : bitmap(nullptr),
      a(kMillimetresPerPoint),
      c(0.0),
      b(0.0),
      d(kMillimetresPerPoint),
      e(0.0),
      f(0.0),
      auxiliary(nullptr),
      trailingWords{} {
  kind = kFileDib;
}

CFileDib::CFileDib(const CFileDib& other) = default;
CFileDib& CFileDib::operator=(const CFileDib& other) = default;

void CFileDib::TransMove(double dx, double dy) {
  e += dx;
  f += dy;
}

// A bitmap follows moves only.
void CFileDib::TransMirrorY(double) {}
void CFileDib::TransDrag(double, double, double, double) {}
