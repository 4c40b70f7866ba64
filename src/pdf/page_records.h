#ifndef DRAWLOAD_PDF_PAGE_RECORDS_H
#define DRAWLOAD_PDF_PAGE_RECORDS_H

#include <array>
#include <cstdint>
#include <memory>
#include <span>
#include <string>
#include <utility>
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

/// The entities of a page, in drawing order. They are kept small, as those of all pages are alive at once: a
/// path is packed, and neighbors share their paint.
class PDF_PageEntities {
 public:
  PDF_PageEntities() : PDF_PageEntities(std::make_shared<support::Arena>()) {}
  /// `entryMemory` is where entries and paths lie; the pages of a document share it, one after the other.
  explicit PDF_PageEntities(std::shared_ptr<support::Arena> entryMemory) : memory(std::move(entryMemory)) {}

  void AddPath(std::span<const PdfPathSegment> segments, const PdfPaint& paint, PdfPaintMode mode);
  void Add(PDF_PageText text);
  void Add(PDF_PageImage image);

  std::size_t Size() const { return size; }

  /// Calls `take` with one `PDF_PagePath`, `PDF_PageText` or `PDF_PageImage` after the other.
  template <typename Take>
  void ForEach(Take take) const {
    for (const Entry* entry = first; entry != nullptr; entry = entry->next) Visit(*entry, take);
  }

  /// The same, and frees entries and paths on the way, those of earlier pages too.
  template <typename Take>
  void Consume(Take take) {
    for (const Entry* entry = first; entry != nullptr; entry = entry->next) {
      memory->FreeBefore(entry);
      Visit(*entry, take);
    }
    *this = PDF_PageEntities(memory);
  }

 private:
  enum class Kind : std::uint8_t { kPath, kText, kImage };

  struct Entry {
    Entry* next = nullptr;
    PdfPackedPath path = {};  ///< of a path
    std::uint32_t index = 0;  ///< of a path's paint, of a text or of an image
    std::uint8_t paintMode = 0;
    Kind kind = Kind::kPath;
  };

  void Append(Entry* entry);

  template <typename Take>
  void Visit(const Entry& entry, Take& take) const {
    switch (entry.kind) {
      case Kind::kPath: take(PDF_PagePath{entry.path, paints[entry.index], entry.paintMode}); break;
      case Kind::kText: take(texts[entry.index]); break;
      case Kind::kImage: take(images[entry.index]); break;
    }
  }

  std::shared_ptr<support::Arena> memory;
  Entry* first = nullptr;
  Entry* last = nullptr;
  std::size_t size = 0;
  std::vector<PdfPaint> paints;
  std::vector<PDF_PageText> texts;
  std::vector<PDF_PageImage> images;
};

/// A page as it goes to the sink.
struct PDF_Page {
  std::array<double, 4> mediaBox{};  ///< x0, y0, x1, y1; zero where the page's own dictionary has none
  PDF_PageEntities entities;
};

}  // namespace pdf

#endif
