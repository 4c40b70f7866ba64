#ifndef DRAWLOAD_TOOLS_PREFLIGHT_MARKS_H
#define DRAWLOAD_TOOLS_PREFLIGHT_MARKS_H

#include <cairo.h>
#include <optional>

#include "findings.h"
#include "job.h"

/// Marks in a picture whose coordinates are millimetres, y up: a segment is drawn over, an open contour has a
/// dot at either end and a dashed line between them, all else a dashed box; a ring is around each place.
void DrawMarks(cairo_t* canvas, const Job& job, const Report& report, const std::optional<Point>& bed);

/// The list of what the colors mean, at the upper edge, in pixels.
void DrawLegend(cairo_t* canvas, const Report& report);
double LegendHeight(const Report& report);
constexpr double kLegendWidth = 560.0;

#endif
