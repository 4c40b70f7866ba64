#ifndef DRAWLOAD_TOOLS_PREFLIGHT_SIMPLIFYING_H
#define DRAWLOAD_TOOLS_PREFLIGHT_SIMPLIFYING_H

#include "job.h"

struct Simplified {
  std::size_t before = 0;  ///< segments
  std::size_t after = 0;
};

/// Leaves out points of runs of straight segments that lie within `tolerance` of the lines that stay (Douglas
/// and Peucker, "Algorithms for the reduction of the number of points required to represent a digitized
/// line", 1973), and makes lines of cubics that are straight within `tolerance`. Every 1,000th point of a run
/// stays in any case, which bounds the time. Both ends of a curve stay where they are, and a closed curve
/// keeps three points.
Simplified Simplify(Job& job, double tolerance);

#endif
