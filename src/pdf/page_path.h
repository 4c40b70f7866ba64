#ifndef DRAWLOAD_PDF_PAGE_PATH_H
#define DRAWLOAD_PDF_PAGE_PATH_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <span>
#include <vector>

#include "support/arena.h"

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

/// A finished path, packed: all paths of a document are alive at once, so their size is most of its memory.
///
/// Each segment is a byte of codes and what the codes need. Bits 0 and 1 are the kind of segment; then come
/// two bits for each coordinate, x before y: 0 a new number, 1 the number of the point before, 2 that of the
/// path's first point, 3 a new number that a 32-bit float holds exactly. A curve has a second byte for its
/// control points. So a rectangle along the axes takes four numbers, not ten.
class PdfPackedPath {
 public:
  PdfPackedPath() = default;
  /// Packs `segments` into `memory`, which must outlive the path. Segments of other tags draw nothing and are
  /// left out.
  PdfPackedPath(std::span<const PdfPathSegment> segments, support::Arena& memory);

  std::size_t Size() const { return count; }
  /// Where the path lies in its arena.
  const void* Place() const { return bytes; }

  /// Calls `take(segment)` for one segment after the other.
  template <typename Take>
  void ForEach(Take take) const {
    Unpacker unpacker(bytes);
    for (std::uint32_t i = 0; i < count; ++i) take(unpacker.Next());
  }

 private:
  enum Kind : std::uint8_t { kMove = 0, kLine = 1, kCurve = 2 };
  enum Code : std::uint8_t { kNew = 0, kAsBefore = 1, kAsFirst = 2, kShort = 3 };

  class Packer;

  class Unpacker {
   public:
    explicit Unpacker(const std::byte* start) : at(start) {}

    PdfPathSegment Next() {
      const auto codes = static_cast<std::uint8_t>(*at++);
      const int kind = codes & 3;
      if (kind != kCurve) return {kind == kMove ? kPdfMove : kPdfLine, Point(codes >> 2)};
      const auto controlCodes = static_cast<std::uint8_t>(*at++);
      PdfPathSegment curve{kPdfCurve, Point(codes >> 2)};
      curve.control1 = Point(controlCodes);
      curve.control2 = Point(controlCodes >> 4);
      return curve;
    }

   private:
    PdfPoint Point(int codes) {
      before = {Number(codes & 3, before.x, first.x), Number(codes >> 2 & 3, before.y, first.y)};
      if (isFirst) first = before;
      isFirst = false;
      return before;
    }

    double Number(int code, double asBefore, double asFirst) {
      switch (code) {
        case kNew: return Read<double>();
        case kShort: return Read<float>();
        case kAsBefore: return asBefore;
        default: return asFirst;
      }
    }

    template <typename Float>
    double Read() {
      Float number;
      std::memcpy(&number, at, sizeof number);
      at += sizeof number;
      return number;
    }

    const std::byte* at;
    PdfPoint before;
    PdfPoint first;
    bool isFirst = true;
  };

  const std::byte* bytes = nullptr;
  std::uint32_t count = 0;
};

}  // namespace pdf

#endif
