#ifndef DRAWLOAD_TOOLS_GEOMETRY_H
#define DRAWLOAD_TOOLS_GEOMETRY_H

#include <optional>

#include "job.h"

double Distance(Point a, Point b);

/// Length of the segment in millimetres, to about nine digits.
double LengthOf(const Segment& segment);
double LengthOf(const Curve& curve);

/// The box around the boxes of all results; empty where there is nothing to draw.
Box BoundsOf(const Job& job);

/// Where the machine begins and ends to work a result; nothing for a curve without segments.
std::optional<Point> StartOf(const Result& result);
std::optional<Point> EndOf(const Result& result);

/// How far the head moves between the results, in millimetres, from the end of one to the start of the next.
double TravelOf(const Job& job);

#endif
