#ifndef DRAWLOAD_PDF_GRAPHICS_STATE_H
#define DRAWLOAD_PDF_GRAPHICS_STATE_H

#include <cstddef>
#include <cstdint>
#include <memory>

#include "entity/matrix2d.h"
#include "pdf/page_path.h"

namespace pdf {

/// Red, green and blue, 0 to 255. A file's numbers are not clamped: whoever writes a colour takes the low
/// byte.
struct PdfColor {
  std::int32_t r = 0;
  std::int32_t g = 0;
  std::int32_t b = 0;

  bool operator==(const PdfColor&) const = default;
};

/// What of the graphics state a painted path keeps.
struct PdfPaint {
  PdfColor stroke;
  PdfColor fill;
  double lineWidth = 0.0;  ///< PDF units, already transformed
  std::int32_t lineCap = 0;
  std::int32_t lineJoin = 0;
  double miterLimit = 0.0;
};

/// The clip outline: the first `size` segments of a path that only grows, so that taking it costs nothing.
struct PdfClip {
  std::shared_ptr<const PdfPathData> path;
  std::size_t size = 0;
};

/// What `q` saves and `Q` brings back.
struct PdfGraphicsState {
  Matrix2D transformation;
  PdfPaint paint;
  PdfClip clip;
};

}  // namespace pdf

#endif
