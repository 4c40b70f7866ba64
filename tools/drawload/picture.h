#ifndef DRAWLOAD_TOOLS_PICTURE_H
#define DRAWLOAD_TOOLS_PICTURE_H

#include <string>

#include "job.h"

/// How large a picture becomes: a width in pixels where it is above 0, else the density.
struct PictureSize {
  double dpi = 96.0;
  int width = 0;
};

/// The job drawn as a PNG picture, true to scale at the chosen density, with a margin of a few pixels.
/// Throws std::runtime_error where the picture would be larger than the drawing engine's 32,767 pixels.
std::string DrawPng(const Job& job, PictureSize size);

#endif
