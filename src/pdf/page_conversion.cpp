#include "pdf/page_conversion.h"

#include <cmath>

namespace pdf {

namespace {

using Entity_ZR::Point3;

constexpr double kRadiansPerDegree = 0.017453292519943295;

/// Stands in for the bytes of an image that has none, so that it keeps its place on the page.
constexpr unsigned char kNoPixels = 0;

Point3 ToMillimetres(PdfPoint point) {
  return {point.x * kMillimetresPerUnit, point.y * kMillimetresPerUnit, 0.0};
}

std::uint32_t LowByte(std::int32_t value) { return static_cast<std::uint32_t>(value) & 0xFFU; }

std::uint32_t OpaqueColor(PdfColor color) {
  return 0xFF000000U | LowByte(color.b) << 16U | LowByte(color.g) << 8U | LowByte(color.r);
}

/// Line caps and joins are numbered differently in neutral entities. An unknown one leaves `target`.
void ConvertStyle(std::int32_t style, std::int32_t& target) {
  switch (style) {
    case 0: target = 0; break;
    case 1: target = 2; break;
    case 2: target = 1; break;
    default: break;
  }
}

/// The map that turns by `degrees` about `center`.
Matrix2D RotationAbout(Point3 center, double degrees) {
  const double cosine = std::cos(degrees * kRadiansPerDegree);
  const double sine = std::sin(degrees * kRadiansPerDegree);
  Matrix2D matrix = {1.0, 0.0, 0.0, 1.0, -center.x, -center.y};
  Concat(matrix, {cosine, sine, -sine, cosine, center.x, center.y});
  return matrix;
}

Matrix2D Rotation(double degrees) {
  if (degrees == 90.0 || degrees == -270.0) return {0.0, 1.0, -1.0, 0.0, 0.0, 0.0};
  if (degrees == 270.0 || degrees == -90.0) return {0.0, -1.0, 1.0, 0.0, 0.0, 0.0};
  if (degrees == 180.0) return {-1.0, 0.0, 0.0, -1.0, 0.0, 0.0};
  const double cosine = std::cos(degrees * kRadiansPerDegree);
  const double sine = std::sin(degrees * kRadiansPerDegree);
  return {cosine, sine, -sine, cosine, 0.0, 0.0};
}

}  // namespace

// A shading's colours do not come along: its outline is all that is drawn of it.
void ConvertPath(const PDF_PagePath& source, Entity_ZR::ZR_Path& target) {
  target.segments.reserve(target.segments.size() + source.path.Size());
  source.path.ForEach([&](const PdfPathSegment& segment) {
    switch (segment.tag) {
      case kPdfMove: target.segments.push_back({Entity_ZR::kMoveTo, ToMillimetres(segment.end)}); break;
      case kPdfLine: target.segments.push_back({Entity_ZR::kLineTo, ToMillimetres(segment.end)}); break;
      case kPdfCurve:
        target.segments.push_back({Entity_ZR::kCubicTo, ToMillimetres(segment.end),
                                   ToMillimetres(segment.control1), ToMillimetres(segment.control2)});
        break;
      default: break;
    }
  });
  target.fillMode = static_cast<std::uint32_t>(source.paintMode);
  target.paintMode = target.fillMode;
  ConvertStyle(source.paint.lineJoin, target.lineJoin);
  ConvertStyle(source.paint.lineCap, target.lineCap);
  target.miterLimit = source.paint.miterLimit;
  target.color = OpaqueColor(source.paint.stroke);
  target.fillColor = OpaqueColor(source.paint.fill);
  target.lineWidth = source.paint.lineWidth * kMillimetresPerUnit;
}

void ConvertText(const PDF_PageText& source, FontNames& fontNames, Entity_ZR::ZR_Text& target) {
  target.position = ToMillimetres(source.position);
  // Kept: half a millimetre is added to every height.
  target.height = source.fontSize * kMillimetresPerUnit + 0.5;
  target.text = source.text;
  target.fontName = source.font->name;
  target.unit = "px";
  target.color = OpaqueColor(source.fill);
  // Kept: only a rotation that is not a number reaches the matrix, and turns all points into none.
  if (std::isnan(source.rotation)) target.matrix = RotationAbout(target.position, source.rotation);
  const ResolvedFont& font = fontNames.Resolve(source.font->name);
  if (!font.family.empty()) target.fontName = font.family;
  target.bold = font.style == "Bold";
  target.italic = font.style == "Italic";
}

void ConvertImage(const PDF_PageImage& source, Entity_ZR::ZR_Image& target) {
  const PdfImage& image = *source.image;
  if (image.width <= 0) return;
  constexpr double k = kMillimetresPerUnit;
  Matrix2D matrix;
  ScaleAbout(matrix, {image.width / 2.0, image.height / 2.0, 0.0}, 1.0, -1.0);
  Concat(matrix, {source.scaleX * k, 0.0, 0.0, source.scaleY * k, 0.0, 0.0});
  Concat(matrix, Rotation(source.rotation));
  Concat(matrix, {1.0, 0.0, 0.0, 1.0, source.x * k, -(source.y * k)});
  Concat(matrix, {1.0, 0.0, 0.0, -1.0, 0.0, 0.0});
  target.matrix = matrix;
  target.width = image.width;
  target.height = image.height;
  target.channels = image.components;
  target.displayWidth = image.width;
  target.displayHeight = image.height;
  const std::span<const std::uint8_t> bytes = image.Bytes();
  target.pixels =
      std::shared_ptr<const unsigned char>(source.image, bytes.empty() ? &kNoPixels : bytes.data());
  target.pixelBytes = bytes.size();
}

}  // namespace pdf
