#ifndef DRAWLOAD_TOOLS_PREFLIGHT_BEZIER_H
#define DRAWLOAD_TOOLS_PREFLIGHT_BEZIER_H

#include <vector>

#include "job.h"

/// Points and shapes of single segments. All functions expect coordinates within `kFarthest`.

Point PointAt(const Segment& segment, double t);

/// The segment run from its end to its start.
Segment Reversed(const Segment& segment);
Curve Reversed(Curve curve);

/// Whether all defining points of the two are at most `tolerance` apart, in the same or the reverse
/// direction.
///
/// For lines and for cubics alike the distance of two points at the same parameter is then at most
/// `tolerance`, because their difference is a Bezier segment itself and lies in the convex hull of its
/// control points. Conversely two proper cubics with the same trace have the same control points: the
/// polynomial parametrization over [0, 1] is unique but for its direction (Sendra, Winkler and Perez-Diaz,
/// "Rational Algebraic Curves", 2008, section 4.2). So with tolerance 0 the comparison is exact.
bool IsSameWithin(const Segment& a, const Segment& b, double tolerance);

/// Whether the segment runs from start to end without leaving its chord by more than `tolerance` and without
/// turning back: every line does, and a cubic whose control points lie along the chord in order.
bool IsStraight(const Segment& segment, double tolerance);

/// How much of a segment is run a second time in the opposite direction: 0 for all but cubics whose control
/// points lie on one line, within `tolerance`, and not in order along it.
double RetracedLength(const Segment& segment, double tolerance);

/// An upper bound of the segment's length: the length of its control polygon.
double PolygonLength(const Segment& segment);

/// Whether the segment is shorter than `length`.
bool IsShorterThan(const Segment& segment, double length);

/// The box around the segment's control points.
Box ControlBoxOf(const Segment& segment);

/// The box around the curve itself.
Box TightBoxOf(const Curve& curve);

/// Appends points along the segment, its start left out, so that the chords stay within `flatness` of it. The
/// number of chords is Wang's bound on the second differences (Goldman, "Pyramid Algorithms", 2003, section
/// 5.6.3), at most 64.
void AppendFlattened(std::vector<Point>& points, const Segment& segment, double flatness);

/// The integral of (x dy - y dx) / 2 along the segment about `origin`: summed over a closed contour, its
/// signed area. Exact for cubics but for rounding.
double AreaUnder(const Segment& segment, Point origin);

#endif
