#ifndef DRAWLOAD_TESTS_TOOLS_PREFLIGHT_DRAWINGS_H
#define DRAWLOAD_TESTS_TOOLS_PREFLIGHT_DRAWINGS_H

#include <initializer_list>
#include <vector>

#include "job.h"
#include "preflight/findings.h"

/// Jobs made by hand, in millimetres.

Segment Line(Point from, Point to);
Segment Cubic(Point start, Point control1, Point control2, Point end);

/// A curve through the points, in straight lines.
Curve Polyline(std::initializer_list<Point> points);
Curve CurveOf(std::vector<Segment> segments);

/// A closed square with its lower left corner there, one curve of four lines, counterclockwise.
Curve Square(Point corner, double side);
/// The same as four curves of one line each.
std::vector<Result> LooseSquare(Point corner, double side);

/// A circle of four cubics, counterclockwise from its right.
Curve Circle(Point center, double radius);

Curve Colored(Curve curve, std::uint32_t color);

/// A grey bitmap of `pixels` by `pixels`, that many millimetres wide and high.
Bitmap Picture(Point corner, double side, std::uint32_t pixels);

Job JobOf(std::vector<Result> results);

/// How many findings of that code the check with its usual options reports.
std::size_t CountOf(const Job& job, Code code);
/// Those findings; none where there are none.
Findings FindingsOf(const Job& job, Code code);
/// The codes of all that is found.
std::vector<Code> CodesOf(const Job& job);

double TotalLength(const Job& job);

#endif
