#ifndef DRAWLOAD_PDF_PAGE_PATH_H
#define DRAWLOAD_PDF_PAGE_PATH_H

#include <cstdint>
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

/// Those of the page records lie in the memory of their pages.
using PdfPathData = std::vector<PdfPathSegment, support::ArenaAllocator<PdfPathSegment>>;

}  // namespace pdf

#endif
