#ifndef DRAWLOAD_TOOLS_PREFLIGHT_JOINING_H
#define DRAWLOAD_TOOLS_PREFLIGHT_JOINING_H

#include "job.h"

struct Joined {
  std::size_t pieces = 0;  ///< curves that became part of a contour
  std::size_t contours = 0;
  std::size_t closed = 0;  ///< contours that close, and single curves whose ends were brought together
  double moved = 0.0;      ///< the farthest that a point was moved, in millimetres
};

/// Joins loose curves of one layer whose ends lie within `tolerance` into one curve each, which takes the
/// place of the first. Where ends do not meet exactly, the later one is moved onto the earlier, a cubic's
/// control point with it, so that the total length changes by no more than the gaps. Curves that repeat
/// others stay as they are.
Joined JoinCurves(Job& job, double tolerance);

#endif
