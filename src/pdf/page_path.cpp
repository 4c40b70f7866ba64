#include "pdf/page_path.h"

#include <bit>

namespace pdf {

namespace {

// Compared as bits, so that a NaN or a negative zero comes back as it was.
bool IsSame(double a, double b) { return std::bit_cast<std::uint64_t>(a) == std::bit_cast<std::uint64_t>(b); }

bool IsKnown(std::int32_t tag) { return tag == kPdfMove || tag == kPdfLine || tag == kPdfCurve; }

// A 64-bit float beyond the range of 32 bits must not be converted.
bool FitsFloat(double value) {
  return value > -1e38 && value < 1e38 && IsSame(static_cast<double>(static_cast<float>(value)), value);
}

}  // namespace

class PdfPackedPath::Packer {
 public:
  /// `room` must hold what `MostBytes` says.
  explicit Packer(std::byte* room) : at(room) {}

  static std::size_t MostBytes(std::span<const PdfPathSegment> segments) {
    constexpr std::size_t kPointBytes = 2 * sizeof(double);
    std::size_t bytes = 0;
    for (const PdfPathSegment& segment : segments)
      bytes += segment.tag == kPdfCurve ? 2 + 3 * kPointBytes : 1 + kPointBytes;
    return bytes;
  }

  void Put(const PdfPathSegment& segment) {
    const std::uint8_t kind = segment.tag == kPdfMove ? kMove : segment.tag == kPdfLine ? kLine : kCurve;
    std::byte* codes = at;
    at += segment.tag == kPdfCurve ? 2 : 1;
    codes[0] = static_cast<std::byte>(kind | Point(segment.end) << 2);
    if (kind != kCurve) return;
    const int control1 = Point(segment.control1);
    codes[1] = static_cast<std::byte>(control1 | Point(segment.control2) << 4);
  }

  const std::byte* End() const { return at; }

 private:
  int Point(PdfPoint point) {
    const int codes = Number(point.x, before.x, first.x) | Number(point.y, before.y, first.y) << 2;
    before = point;
    if (isFirst) first = point;
    isFirst = false;
    return codes;
  }

  int Number(double value, double asBefore, double asFirst) {
    if (!isFirst && IsSame(value, asBefore)) return kAsBefore;
    if (!isFirst && IsSame(value, asFirst)) return kAsFirst;
    if (FitsFloat(value)) return Write(static_cast<float>(value), kShort);
    return Write(value, kNew);
  }

  template <typename Float>
  int Write(Float number, Code code) {
    std::memcpy(at, &number, sizeof number);
    at += sizeof number;
    return code;
  }

  std::byte* at;
  PdfPoint before;
  PdfPoint first;
  bool isFirst = true;
};

PdfPackedPath::PdfPackedPath(std::span<const PdfPathSegment> segments, support::Arena& memory) {
  const std::size_t room = Packer::MostBytes(segments);
  auto* start = static_cast<std::byte*>(memory.Allocate(room));
  Packer packer(start);
  for (const PdfPathSegment& segment : segments) {
    if (!IsKnown(segment.tag)) continue;
    packer.Put(segment);
    ++count;
  }
  memory.TakeBack(room - static_cast<std::size_t>(packer.End() - start));
  bytes = start;
}

}  // namespace pdf
