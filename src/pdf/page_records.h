#ifndef DRAWLOAD_PDF_PAGE_RECORDS_H
#define DRAWLOAD_PDF_PAGE_RECORDS_H

#include <array>
#include <cstdint>
#include <memory>
#include <string>
#include <variant>
#include <vector>

#include "pdf/font.h"
#include "pdf/graphics_state.h"
#include "pdf/xobject.h"

/// What the content interpreter makes of a page: one record for each path painted, string shown and image
/// drawn. All lengths in PDF units (1/72 inch).
namespace pdf {

enum PdfPaintMode : std::int32_t {
  kStroke = 0,
  kEvenOddFill = 1,
  kNonZeroFill = 2,
};

/// A painted path, or the clip outline through which a shading was painted.
struct PDF_PagePath {
  PdfPackedPath path;
  PdfPaint paint;
  std::int32_t paintMode = kStroke;
};

/// A string shown.
struct PDF_PageText {
  std::string text;  ///< UTF-8, or the bytes of a literal string as they stand
  PdfPoint position;
  std::shared_ptr<const PdfFont> font;  ///< never null in a page's entities
  double rotation = 0.0;                ///< degrees; NaN where the text matrix is no rotation
  double fontSize = 1.0;
  double horizontalScale = 1.0;
  PdfColor fill;
};

/// An image drawn. All fields are zero where no upright matrix was met before.
struct PDF_PageImage {
  std::shared_ptr<const PdfImage> image;  ///< never null in a page's entities
  double scaleX = 0.0;                    ///< PDF units a pixel
  double scaleY = 0.0;
  double rotation = 0.0;  ///< degrees
  double x = 0.0;
  double y = 0.0;
};

using PDF_Entity = std::variant<PDF_PagePath, PDF_PageText, PDF_PageImage>;

/// A page as it goes to the sink.
struct PDF_Page {
  std::shared_ptr<support::Arena> memory;  ///< of the entities' paths, shared by all pages; null: the heap
  std::array<double, 4> mediaBox{};        ///< x0, y0, x1, y1; zero where the page's own dictionary has none
  std::vector<PDF_Entity> entities;        ///< in drawing order
};

}  // namespace pdf

#endif
