#ifndef DRAWLOAD_TOOLS_PICTURE_H
#define DRAWLOAD_TOOLS_PICTURE_H

#include <string>

#include "job.h"
#include "preflight/findings.h"

/// How large a picture becomes: a width in pixels, or a density in pixels an inch, whichever is above 0.
/// Where neither is, 96 pixels an inch, and less for a drawing that would have more than 8,000 pixels on a
/// side.
struct PictureSize {
  double dpi = 0.0;
  int width = 0;
};

/// The job drawn as a PNG picture, true to scale at the chosen density, with a margin of a few pixels.
/// Throws std::runtime_error where the picture would be larger than the drawing engine's 32,767 pixels.
std::string DrawPng(const Job& job, PictureSize size);

/// The same in grey, with each finding marked in the color of its code, a list of them above, and the bed.
std::string DrawReportPng(const Job& job, const Report& report, const std::optional<Point>& bed,
                          PictureSize size);

#endif
