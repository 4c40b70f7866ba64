#ifndef DRAWLOAD_PDF_PAGE_PATH_H
#define DRAWLOAD_PDF_PAGE_PATH_H

#include <cstdint>
#include <span>
#include <vector>

#include "support/arena_allocator.h"

namespace pdf {

/// A point of a page, in PDF units.
struct PdfPoint {
  double x = 0.0;
  double y = 0.0;

  bool operator==(const PdfPoint&) const = default;
};

/// Values of `PdfPathSegment::tag`; the same numbers as those of the neutral paths.
enum PdfSegmentTag : std::int32_t {
  kPdfMove = 1,
  kPdfLine = 2,
  kPdfCurve = 5,
};

/// One step of a path. The control points belong to curves.
struct PdfPathSegment {
  std::int32_t tag = kPdfMove;
  PdfPoint end;
  PdfPoint control1 = {};
  PdfPoint control2 = {};

  bool operator==(const PdfPathSegment&) const = default;
};

/// A path that grows.
using PdfPathData = std::vector<PdfPathSegment>;

/// A finished path. Only curves have room for control points.
class PdfPackedPath {
 public:
  PdfPackedPath() = default;
  /// Copies `segments` into `memory`, which must outlive the path; null: the heap.
  PdfPackedPath(std::span<const PdfPathSegment> segments, support::Arena* memory);

  std::size_t Size() const { return tags.size(); }

  /// Calls `take(segment)` for one segment after the other.
  template <typename Take>
  void ForEach(Take take) const {
    const PdfPoint* point = points.data();
    for (const std::uint8_t tag : tags) {
      if (tag == kPdfCurve) {
        take(PdfPathSegment{tag, point[0], point[1], point[2]});
        point += 3;
      } else {
        take(PdfPathSegment{tag, *point++});
      }
    }
  }

 private:
  std::vector<std::uint8_t, support::ArenaAllocator<std::uint8_t>> tags;  ///< of the segments
  std::vector<PdfPoint, support::ArenaAllocator<PdfPoint>> points;        ///< each end, then its controls
};

}  // namespace pdf

#endif
