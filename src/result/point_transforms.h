#ifndef DRAWLOAD_RESULT_POINT_TRANSFORMS_H
#define DRAWLOAD_RESULT_POINT_TRANSFORMS_H

#include <cmath>

#include "drawload/file_segment.h"

/// `p` turned about (cx, cy) by the angle with the given cosine and sine.
inline FilePosition RotatedAbout(FilePosition p, double cx, double cy, double cosine, double sine) {
  const double u = p.x - cx;
  const double v = p.y - cy;
  return {cosine * u + cx - sine * v, cosine * v + cy + sine * u};
}

#endif
