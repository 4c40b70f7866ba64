#ifndef DRAWLOAD_TOOLS_PREFLIGHT_ORDERING_H
#define DRAWLOAD_TOOLS_PREFLIGHT_ORDERING_H

#include "job.h"

struct Ordered {
  std::size_t outlines = 0;   ///< that now come after what lies inside them, and did not before
  double travelBefore = 0.0;  ///< millimetres
  double travelAfter = 0.0;
};

/// Puts what lies inside an outline before the outline, and makes the travel between the results short within
/// that.
///
/// Of what may come next, results of the layer at work go first, then those of the layer that comes first in
/// the drawing, and of these the one with the nearest end; open curves may be run from either end, loose
/// pieces of one contour follow each other. Then 2-opt moves (Croes, "A method for solving traveling-salesman
/// problems", 1958; between near neighbors as in Bentley, "Fast algorithms for geometric traveling salesman
/// problems", 1992) turn stretches round where that makes the travel shorter. Their time is bounded by a
/// count of steps rather than a clock, so that a drawing always comes out in the same order. Where the
/// drawing's own order was right and has less travel, it stays.
Ordered OrderInsideFirst(Job& job, double tolerance);

#endif
