#include "pdf/page_path.h"

#include <algorithm>

namespace pdf {

PdfPackedPath::PdfPackedPath(std::span<const PdfPathSegment> segments, support::Arena* memory)
    : tags(support::ArenaAllocator<std::uint8_t>(memory)), points(support::ArenaAllocator<PdfPoint>(memory)) {
  const auto curves = std::count_if(segments.begin(), segments.end(),
                                    [](const PdfPathSegment& segment) { return segment.tag == kPdfCurve; });
  tags.reserve(segments.size());
  points.reserve(segments.size() + 2 * static_cast<std::size_t>(curves));
  for (const PdfPathSegment& segment : segments) {
    tags.push_back(static_cast<std::uint8_t>(segment.tag));
    points.push_back(segment.end);
    if (segment.tag != kPdfCurve) continue;
    points.push_back(segment.control1);
    points.push_back(segment.control2);
  }
}

}  // namespace pdf
