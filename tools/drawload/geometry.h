#ifndef DRAWLOAD_TOOLS_GEOMETRY_H
#define DRAWLOAD_TOOLS_GEOMETRY_H

#include <limits>
#include <optional>

#include "job.h"

/// An axis-parallel box in millimetres.
struct Box {
  double minX = std::numeric_limits<double>::infinity();
  double minY = std::numeric_limits<double>::infinity();
  double maxX = -std::numeric_limits<double>::infinity();
  double maxY = -std::numeric_limits<double>::infinity();

  void Include(Point p);
  double Width() const { return maxX - minX; }
  double Height() const { return maxY - minY; }
  bool IsEmpty() const { return minX > maxX; }
};

double Distance(Point a, Point b);

/// Length of the segment in millimetres, to about nine digits.
double LengthOf(const Segment& segment);
double LengthOf(const Curve& curve);

/// Widens `box` by the curve itself (not by its control points), or by the four corners of the bitmap.
void Include(Box& box, const Curve& curve);
void Include(Box& box, const Bitmap& bitmap);
Box BoundsOf(const Job& job);

/// Where the machine begins and ends to work a result; nothing for a curve without segments.
std::optional<Point> StartOf(const Result& result);
std::optional<Point> EndOf(const Result& result);

/// How far the head moves between the results, in millimetres, from the end of one to the start of the next.
double TravelOf(const Job& job);

#endif
