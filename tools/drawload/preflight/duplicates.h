#ifndef DRAWLOAD_TOOLS_PREFLIGHT_DUPLICATES_H
#define DRAWLOAD_TOOLS_PREFLIGHT_DUPLICATES_H

#include <cstddef>
#include <cstdint>
#include <vector>

#include "job.h"

/// What a segment repeats of the segments of its layer.
enum class Repeat : std::uint8_t {
  kNothing,
  kSegment,    ///< a whole earlier segment, in either direction
  kWithin,     ///< lies on a longer straight segment
  kPart,       ///< shares a part with straight segments that are at least as long
  kElsewhere,  ///< a whole earlier segment of another layer
};

struct RepeatedSegment {
  std::uint32_t result = 0;
  std::uint32_t segment = 0;  ///< of the result's curve
  Repeat repeat = Repeat::kNothing;
  double length = 0.0;  ///< how much of it is repeated, in millimetres
};

struct Repeats {
  std::vector<RepeatedSegment> segments;  ///< those that repeat something, in the order of work
  bool isComplete = true;                 ///< false where the search for shared parts was cut short
};

/// Finds the segments whose place is worked before. Segments without length repeat nothing, and those shorter
/// than `tolerance` only their exact equals: neighbors along a fine curve are as close.
///
/// Whole segments are looked up in an R-tree (Guttman 1984; Boost.Geometry's) of points with one coordinate
/// for each number that defines the segment, taken so that both directions give the same point. Only the
/// first segment of a place goes into the tree, so that a million copies find one. Straight segments that
/// share a part lie on one line: they are looked up by the angle of that line, its distance from the middle
/// of the drawing and their range along it, the longest first.
Repeats FindRepeats(const Job& job, const std::vector<std::uint32_t>& layers, double tolerance);

/// The results all of whose segments are worked by others of their layer.
std::vector<bool> RepeatedResults(const Job& job, const Repeats& repeats);

#endif
