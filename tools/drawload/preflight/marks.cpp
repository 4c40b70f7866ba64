#include "marks.h"

#include <numbers>

#include "report_text.h"

namespace {

constexpr double kLine = 18.0;  // pixels

/// Makes what follows count in pixels and keeps the path that is there.
class InPixels {
 public:
  explicit InPixels(cairo_t* target) : canvas(target) {
    cairo_save(canvas);
    cairo_identity_matrix(canvas);
  }
  InPixels(const InPixels&) = delete;
  InPixels& operator=(const InPixels&) = delete;
  ~InPixels() { cairo_restore(canvas); }

 private:
  cairo_t* canvas;
};

void SetColor(cairo_t* canvas, std::uint32_t color, double opacity) {
  cairo_set_source_rgba(canvas, (color >> 16 & 0xFF) / 255.0, (color >> 8 & 0xFF) / 255.0,
                        (color & 0xFF) / 255.0, opacity);
}

void Stroke(cairo_t* canvas, double width, bool isDashed = false) {
  const InPixels pixels(canvas);
  const double dash = 5.0;
  cairo_set_dash(canvas, &dash, isDashed ? 1 : 0, 0.0);
  cairo_set_line_width(canvas, width);
  cairo_stroke(canvas);
}

void DrawRing(cairo_t* canvas, Point at, double radius, bool isFilled) {
  cairo_user_to_device(canvas, &at.x, &at.y);
  const InPixels pixels(canvas);
  cairo_new_path(canvas);
  cairo_arc(canvas, at.x, at.y, radius, 0.0, 2 * std::numbers::pi);
  if (isFilled) {
    cairo_fill(canvas);
    return;
  }
  cairo_set_dash(canvas, nullptr, 0, 0.0);
  cairo_set_line_width(canvas, 1.5);
  cairo_stroke(canvas);
}

void DrawBox(cairo_t* canvas, const Box& box) {
  cairo_rectangle(canvas, box.minX, box.minY, box.Width(), box.Height());
  Stroke(canvas, 1.5, true);
}

void DrawSegment(cairo_t* canvas, const Segment& s) {
  cairo_move_to(canvas, s.start.x, s.start.y);
  if (s.cubic) {
    cairo_curve_to(canvas, s.control1.x, s.control1.y, s.control2.x, s.control2.y, s.end.x, s.end.y);
  } else {
    cairo_line_to(canvas, s.end.x, s.end.y);
  }
  Stroke(canvas, 4.0);
}

void DrawMark(cairo_t* canvas, const Job& job, const Place& place) {
  if (place.other) {
    cairo_move_to(canvas, place.at.x, place.at.y);
    cairo_line_to(canvas, place.other->x, place.other->y);
    Stroke(canvas, 1.0, true);
    DrawRing(canvas, place.at, 4.0, true);
    DrawRing(canvas, *place.other, 4.0, true);
  } else if (place.segment != kNoSegment) {
    DrawSegment(canvas, std::get<Curve>(job.results[place.result]).segments[place.segment]);
    DrawRing(canvas, place.at, 7.0, false);
  } else if (!place.box.IsEmpty()) {
    DrawBox(canvas, place.box);
    DrawRing(canvas, place.at, 7.0, false);
  }
}

}  // namespace

void DrawMarks(cairo_t* canvas, const Job& job, const Report& report, const std::optional<Point>& bed) {
  if (bed) {
    SetColor(canvas, 0x000000, 0.6);
    cairo_rectangle(canvas, 0.0, 0.0, bed->x, bed->y);
    Stroke(canvas, 1.0);
  }
  for (const Findings& findings : report.findings) {
    SetColor(canvas, FactsOf(findings.code).color, 0.7);
    for (const Place& place : findings.places) DrawMark(canvas, job, place);
  }
}

double LegendHeight(const Report& report) {
  return kLine * static_cast<double>(report.findings.empty() ? 1 : report.findings.size()) + 8.0;
}

void DrawLegend(cairo_t* canvas, const Report& report) {
  const InPixels pixels(canvas);
  cairo_select_font_face(canvas, "sans-serif", CAIRO_FONT_SLANT_NORMAL, CAIRO_FONT_WEIGHT_NORMAL);
  cairo_set_font_size(canvas, 12.0);
  double y = 4.0;
  const auto addLine = [&](std::uint32_t color, const std::string& text) {
    SetColor(canvas, color, 1.0);
    cairo_rectangle(canvas, 8.0, y + 3.0, 11.0, 11.0);
    cairo_fill(canvas);
    SetColor(canvas, 0x000000, 1.0);
    cairo_move_to(canvas, 26.0, y + 13.0);
    cairo_show_text(canvas, text.c_str());
    y += kLine;
  };
  if (report.findings.empty()) addLine(0x008000, "nothing found");
  for (const Findings& findings : report.findings) {
    const CodeFacts& facts = FactsOf(findings.code);
    addLine(facts.color, std::string(facts.name) + ": " + FindingsText(findings));
  }
}
