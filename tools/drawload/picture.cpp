#include "picture.h"

#include <algorithm>
#include <cairo.h>
#include <cmath>
#include <memory>
#include <stdexcept>

#include "colors.h"
#include "geometry.h"
#include "preflight/layers.h"
#include "preflight/marks.h"

namespace {

constexpr double kMargin = 8.0;  // pixels
constexpr double kMostPixels = 32767.0;

using Surface = std::unique_ptr<cairo_surface_t, decltype(&cairo_surface_destroy)>;
using CanvasHandle = std::unique_ptr<cairo_t, decltype(&cairo_destroy)>;

void Check(cairo_status_t status) {
  if (status != CAIRO_STATUS_SUCCESS)
    throw std::runtime_error(std::string("drawing: ") + cairo_status_to_string(status));
}

void SetColor(cairo_t* canvas, std::uint32_t color) {
  cairo_set_source_rgb(canvas, (color >> 16 & 0xFF) / 255.0, (color >> 8 & 0xFF) / 255.0,
                       (color & 0xFF) / 255.0);
}

void Draw(cairo_t* canvas, const Curve& curve, std::uint32_t color) {
  if (curve.segments.empty()) return;
  const Segment* previous = nullptr;
  for (const Segment& s : curve.segments) {
    if (previous == nullptr || previous->end != s.start) cairo_move_to(canvas, s.start.x, s.start.y);
    if (s.cubic) {
      cairo_curve_to(canvas, s.control1.x, s.control1.y, s.control2.x, s.control2.y, s.end.x, s.end.y);
    } else {
      cairo_line_to(canvas, s.end.x, s.end.y);
    }
    previous = &s;
  }
  SetColor(canvas, color);
  // The path is in millimetres, the pen in pixels.
  cairo_save(canvas);
  cairo_identity_matrix(canvas);
  cairo_set_line_width(canvas, 1.0);
  cairo_stroke(canvas);
  cairo_restore(canvas);
}

void Draw(cairo_t* canvas, const Bitmap& bitmap) {
  // A bitmap without pixels, or squeezed to a line, has no picture.
  if (bitmap.grey.empty() || bitmap.a * bitmap.d - bitmap.b * bitmap.c == 0.0) return;
  if (bitmap.width > kMostPixels || bitmap.height > kMostPixels) {
    throw std::runtime_error("a bitmap has more than 32,767 pixels on a side");
  }
  const int width = static_cast<int>(bitmap.width);
  const int height = static_cast<int>(bitmap.height);
  const Surface image(cairo_image_surface_create(CAIRO_FORMAT_RGB24, width, height), cairo_surface_destroy);
  Check(cairo_surface_status(image.get()));
  cairo_surface_flush(image.get());
  unsigned char* rows = cairo_image_surface_get_data(image.get());
  const auto stride = static_cast<std::size_t>(cairo_image_surface_get_stride(image.get()));
  for (std::size_t y = 0; y < bitmap.height; ++y) {
    auto* pixels = reinterpret_cast<std::uint32_t*>(rows + y * stride);
    for (std::size_t x = 0; x < bitmap.width; ++x) pixels[x] = bitmap.grey[y * bitmap.width + x] * 0x010101U;
  }
  cairo_surface_mark_dirty(image.get());
  const cairo_matrix_t placement{bitmap.a, bitmap.b, bitmap.c, bitmap.d, bitmap.e, bitmap.f};
  cairo_save(canvas);
  cairo_transform(canvas, &placement);
  cairo_set_source_surface(canvas, image.get(), 0, 0);
  cairo_paint(canvas);
  cairo_restore(canvas);
}

cairo_status_t AppendBytes(void* closure, const unsigned char* bytes, unsigned length) {
  static_cast<std::string*>(closure)->append(reinterpret_cast<const char*>(bytes), length);
  return CAIRO_STATUS_SUCCESS;
}

double PixelsPerMillimetre(const Box& box, PictureSize size) {
  constexpr double kUsualDpi = 96.0;
  constexpr double kUsualPixels = 8000.0;
  if (size.width > 0) return std::max(1.0, size.width - 2 * kMargin) / std::max(box.Width(), 1e-6);
  if (size.dpi > 0.0) return size.dpi / 25.4;
  return std::min(kUsualDpi / 25.4, kUsualPixels / std::max({box.Width(), box.Height(), 1e-6}));
}

/// A picture of a drawing whose bounds are `box`, `above` pixels below its upper edge.
class Picture {
 public:
  Picture(Box bounds, PictureSize size, std::uint32_t pageColor, double above, double leastWidth)
      : box(bounds.IsEmpty() ? Box{0.0, 0.0, 1.0, 1.0} : bounds), scale(PixelsPerMillimetre(box, size)) {
    const double width = std::max(std::ceil(box.Width() * scale + 2 * kMargin), leastWidth);
    height = std::ceil(box.Height() * scale + 2 * kMargin) + above;
    if (!(width <= kMostPixels && height <= kMostPixels)) {
      throw std::runtime_error(
          "the picture would be larger than 32,767 pixels; choose a lower --dpi or a --width");
    }
    surface.reset(
        cairo_image_surface_create(CAIRO_FORMAT_RGB24, static_cast<int>(width), static_cast<int>(height)));
    Check(cairo_surface_status(surface.get()));
    canvas.reset(cairo_create(surface.get()));
    SetColor(canvas.get(), pageColor);
    cairo_paint(canvas.get());
    // y up, with the lower left corner of the bounds one margin inside the picture
    const cairo_matrix_t page{
        scale, 0.0, 0.0, -scale, kMargin - box.minX * scale, height - kMargin + box.minY * scale};
    cairo_set_matrix(canvas.get(), &page);
  }

  cairo_t* Canvas() { return canvas.get(); }

  std::string Png() {
    Check(cairo_status(canvas.get()));
    std::string bytes;
    Check(cairo_surface_write_to_png_stream(surface.get(), AppendBytes, &bytes));
    return bytes;
  }

 private:
  Box box;
  double scale;
  double height = 0.0;
  Surface surface{nullptr, cairo_surface_destroy};
  CanvasHandle canvas{nullptr, cairo_destroy};
};

}  // namespace

std::string DrawPng(const Job& job, PictureSize size) {
  Picture picture(BoundsOf(job), size, PageColorFor(job), 0.0, 0.0);
  for (const Result& result : job.results) {
    if (const auto* curve = std::get_if<Curve>(&result)) {
      Draw(picture.Canvas(), *curve, curve->color);
    } else {
      Draw(picture.Canvas(), std::get<Bitmap>(result));
    }
  }
  return picture.Png();
}

std::string DrawReportPng(const Job& job, const Report& report, const std::optional<Point>& bed,
                          PictureSize size) {
  constexpr std::uint32_t kGrey = 0xA8A8A8;
  Box box;
  for (const Result& result : job.results) {
    if (IsWithinReach(result)) std::visit([&box](const auto& value) { box.Include(value.bounds); }, result);
  }
  if (bed) box.Include({0.0, 0.0, bed->x, bed->y});
  Picture picture(box, size, kWhitePage, LegendHeight(report), kLegendWidth);
  for (const Result& result : job.results) {
    if (!IsWithinReach(result)) continue;
    if (const auto* curve = std::get_if<Curve>(&result)) {
      Draw(picture.Canvas(), *curve, kGrey);
    } else {
      Draw(picture.Canvas(), std::get<Bitmap>(result));
    }
  }
  DrawMarks(picture.Canvas(), job, report, bed);
  DrawLegend(picture.Canvas(), report);
  return picture.Png();
}
