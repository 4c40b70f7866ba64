#ifndef DRAWLOAD_TOOLS_PREFLIGHT_SPATIAL_INDEX_H
#define DRAWLOAD_TOOLS_PREFLIGHT_SPATIAL_INDEX_H

#include <boost/geometry.hpp>
#include <boost/geometry/geometries/point_xy.hpp>
#include <boost/geometry/index/rtree.hpp>

#include "job.h"

/// The program's points and boxes as Boost.Geometry's R-trees (Guttman, "R-trees: a dynamic index structure
/// for spatial searching", 1984) take them.
namespace bgi = boost::geometry::index;
using Spot = boost::geometry::model::d2::point_xy<double>;
using Area = boost::geometry::model::box<Spot>;

inline Spot SpotOf(Point p) { return {p.x, p.y}; }

inline Area AreaOf(const Box& box, double margin = 0.0) {
  return {{box.minX - margin, box.minY - margin}, {box.maxX + margin, box.maxY + margin}};
}

/// Where many things lie on one place, removing one of them would look through all. A third coordinate, too
/// small to count beside the other two, tells things apart by a number of their own.
using NumberedSpot = boost::geometry::model::point<double, 3, boost::geometry::cs::cartesian>;
using NumberedArea = boost::geometry::model::box<NumberedSpot>;
constexpr double kNumberStep = 1e-9;

inline NumberedSpot NumberedSpotOf(Point p, std::uint32_t number) { return {p.x, p.y, kNumberStep * number}; }

inline NumberedArea NumberedAreaOf(const Box& box, std::uint32_t number) {
  return {{box.minX, box.minY, kNumberStep * number}, {box.maxX, box.maxY, kNumberStep * number}};
}

/// The area of all things, whatever their number, in a box and `margin` around it.
inline NumberedArea AnyNumberIn(const Box& box, double margin) {
  return {{box.minX - margin, box.minY - margin, -1.0}, {box.maxX + margin, box.maxY + margin, 10.0}};
}

#endif
