// Tight bounds of curves and of placed bitmaps.
#include <algorithm>
#include <array>
#include <cmath>
#include <cstring>

#include "drawload/file_curve.h"
#include "drawload/file_dib.h"
#include "platform/global_memory.h"

namespace {

struct Interval {
  double low;
  double high;

  void Include(double value) {
    low = std::min(low, value);
    high = std::max(high, value);
  }
};

/// The value of a cubic Bezier polynomial with coefficients p0 to p3 at `t`.
double CubicAt(double p0, double p1, double p2, double p3, double t) {
  const double s = 1.0 - t;
  return s * s * s * p0 + 3.0 * s * s * t * p1 + 3.0 * s * t * t * p2 + t * t * t * p3;
}

/// Widens `interval` by the extrema of one coordinate of a cubic Bezier curve: the roots of its derivative
/// a·t² + b·t + c inside (0, 1). The roots come from the form that does not cancel: q = -(b ± √D)/2, with
/// the sign of b, then q/a and c/q. The coefficients are scaled first, so that no square overflows.
void IncludeCubic(Interval& interval, double p0, double p1, double p2, double p3) {
  interval.Include(p0);
  interval.Include(p3);
  if (std::min(p1, p2) >= interval.low && std::max(p1, p2) <= interval.high) return;
  const double scale = std::max({std::fabs(p0), std::fabs(p1), std::fabs(p2), std::fabs(p3)});
  const double q0 = p0 / scale;
  const double q1 = p1 / scale;
  const double q2 = p2 / scale;
  const double q3 = p3 / scale;
  const double a = 3.0 * (q3 - 3.0 * q2 + 3.0 * q1 - q0);
  const double b = 6.0 * (q2 - 2.0 * q1 + q0);
  const double c = 3.0 * (q1 - q0);
  const double discriminant = b * b - 4.0 * a * c;
  if (!(discriminant >= 0.0)) return;
  const double q = -0.5 * (b + std::copysign(std::sqrt(discriminant), b));
  for (const double root : {q / a, c / q}) {
    if (root > 0.0 && root < 1.0) interval.Include(CubicAt(p0, p1, p2, p3, root));
  }
}

void IncludeSegment(Interval& x, Interval& y, const FileSegment& segment) {
  if (segment.type == kSegmentLine) {
    x.Include(segment.start.x);
    x.Include(segment.end.x);
    y.Include(segment.start.y);
    y.Include(segment.end.y);
    return;
  }
  IncludeCubic(x, segment.start.x, segment.control1.x, segment.control2.x, segment.end.x);
  IncludeCubic(y, segment.start.y, segment.control1.y, segment.control2.y, segment.end.y);
}

/// Width and height in pixels of a packed bitmap; zero where there is none.
std::array<std::uint32_t, 2> PixelSize(platform::GlobalHandle bitmap) {
  constexpr std::size_t kWidthAt = 4;  // the height stands behind it
  std::array<std::uint32_t, 2> size{};
  if (bitmap == nullptr) return size;
  const auto* block = static_cast<const char*>(platform::GlobalLock(bitmap));
  std::memcpy(size.data(), block + kWidthAt, sizeof size);
  platform::GlobalUnlock(bitmap);
  return size;
}

}  // namespace

// A curve without segments keeps the bounds that it has.
structRect CFileCurve::CalRect() {
  const FileSegment* first = segmentHead->next;
  if (first == segmentHead) return rect;
  Interval x{first->start.x, first->start.x};
  Interval y{first->start.y, first->start.y};
  for (const FileSegment* segment = first; segment != segmentHead; segment = segment->next) {
    IncludeSegment(x, y, *segment);
  }
  rect = {x.low, y.low, x.high, y.high};
  return rect;
}

structRect CFileDib::CalRect() {
  const auto [pixelColumns, pixelRows] = PixelSize(bitmap);
  const double width = pixelColumns;
  const double height = pixelRows;
  Interval x{e, e};
  Interval y{f, f};
  for (const FilePosition corner : {FilePosition{width, 0.0}, {0.0, height}, {width, height}}) {
    x.Include(a * corner.x + c * corner.y + e);
    y.Include(b * corner.x + d * corner.y + f);
  }
  rect = {x.low, y.low, x.high, y.high};
  return rect;
}
