#ifndef DRAWLOAD_TOOLS_PREFLIGHT_CONTOURS_H
#define DRAWLOAD_TOOLS_PREFLIGHT_CONTOURS_H

#include <cstdint>
#include <vector>

#include "job.h"

/// A curve on its way along a contour.
struct Piece {
  std::uint32_t result = 0;
  bool isReversed = false;
};

/// Curves of one layer that meet end to end: the pieces from `first` on, `count` of them, in their order.
struct Contour {
  std::uint32_t first = 0;
  std::uint32_t count = 0;
  bool isClosed = false;
  double gap = 0.0;     ///< from its last point to its first, in millimetres
  double length = 0.0;  ///< of its control polygons: at least its own
};

struct Contours {
  std::vector<Piece> pieces;
  std::vector<Contour> contours;  ///< in the order of their first piece of work
};

/// Joins the curves of each layer whose ends lie within `tolerance` of each other. Every curve with segments
/// that is not `leftOut` (by its result) is a piece of exactly one contour; those without length, with gaps
/// inside or out of reach are open contours of their own.
///
/// A chain begins with the first curve that is free and takes on the free end that is nearest to its own end;
/// of several that are equally near the one that comes next in the drawing. It closes as soon as its own
/// start is no farther away. The ends are looked up in an R-tree of Boost.Geometry, packed as it is built
/// (Leutenegger, Lopez and Edgington, "STR: a simple and efficient algorithm for R-tree packing", 1997).
Contours FindContours(const Job& job, const std::vector<std::uint32_t>& layers,
                      const std::vector<bool>& leftOut, double tolerance);

/// Adds those of other curves of the same job, after the others.
void Append(Contours& contours, const Contours& more);

Point StartOf(const Job& job, const Piece& piece);
Point EndOf(const Job& job, const Piece& piece);

#endif
