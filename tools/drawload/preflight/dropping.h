#ifndef DRAWLOAD_TOOLS_PREFLIGHT_DROPPING_H
#define DRAWLOAD_TOOLS_PREFLIGHT_DROPPING_H

#include "job.h"

struct Dropped {
  std::size_t segments = 0;
  double length = 0.0;        ///< millimetres
  std::size_t partsLeft = 0;  ///< lines that share only a part with others: they stay
};

/// Takes out of the job the segments that repeat a whole segment of their layer or lie on a longer line of
/// it, within `tolerance`. What is left of a curve stays in its place: as one curve, begun behind the gap,
/// where the curve was closed and has one gap; otherwise as a curve for each run. Every place that was worked
/// still is, within three times the tolerance.
Dropped DropDuplicates(Job& job, double tolerance);

#endif
