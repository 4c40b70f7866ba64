#ifndef DRAWLOAD_TOOLS_PREFLIGHT_NESTING_H
#define DRAWLOAD_TOOLS_PREFLIGHT_NESTING_H

#include <cstdint>
#include <utility>
#include <vector>

#include "contours.h"
#include "job.h"

constexpr std::uint32_t kNoShape = 0xFFFFFFFF;

/// Something that is cut or engraved as one: a contour, or a bitmap.
struct Shape {
  std::uint32_t contour = kNoShape;  ///< of the contours; kNoShape for a bitmap
  std::uint32_t bitmap = kNoShape;   ///< the bitmap's result
  bool isOutline = false;            ///< a closed contour that is cut, so that what is inside drops out
  std::uint32_t parent = kNoShape;   ///< the smallest outline around it, of the shapes
  bool isOnParent = false;           ///< it is an outline itself, and the same as its parent
  std::uint32_t firstResult = 0;     ///< when the first and the last piece of it are worked
  std::uint32_t lastResult = 0;
  Box bounds;
};

struct Nesting {
  std::vector<Shape> shapes;
  /// Further outlines around shapes, where outlines cross each other: (shape, outline), sorted.
  std::vector<std::pair<std::uint32_t, std::uint32_t>> furtherParents;
  bool isComplete = true;  ///< false where the search was cut short
};

/// Finds the smallest outline around each contour and bitmap within reach.
///
/// From small to large, each outline takes those inside it that no smaller one took; candidates are those
/// whose boxes lie in its own, found in an R-tree of Boost.Geometry. Whether one lies inside is decided by
/// the winding number of the outline around points of it (Hormann and Agathos, "The point in polygon problem
/// for arbitrary polygons", 2001), so that every loop of an outline that crosses itself counts. Points within
/// `tolerance` of the outline decide nothing: shapes that share an edge lie beside each other.
Nesting FindNesting(const Job& job, const Contours& contours, double tolerance);

/// The outlines whose last piece is worked before the last of what lies inside them, in the order of work.
std::vector<std::uint32_t> OutlinesCutTooEarly(const Nesting& nesting);

/// All parents of a shape.
std::vector<std::uint32_t> ParentsOf(const Nesting& nesting, std::uint32_t shape);

/// How many shapes have each shape as a parent.
std::vector<std::uint32_t> ChildCounts(const Nesting& nesting);

#endif
