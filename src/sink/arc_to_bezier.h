#ifndef DRAWLOAD_SINK_ARC_TO_BEZIER_H
#define DRAWLOAD_SINK_ARC_TO_BEZIER_H

#include <vector>

#include "entity/point3.h"

/// The arc of an ellipse as cubic Bezier sections of at most a quarter turn: four points a section (start,
/// first control, second control, end), z zero, in the place of what `points` held before. Whoever draws many
/// arcs hands in the same list again.
///
/// `rx` is the radius along the first axis, which `rotation` turns away from x; `ry` the other one. Radii
/// below 0.01 count as 0.01. The angles are geometric (the direction in which a point is seen from the
/// centre), in radians; equal ones give a full turn. `reversed` runs clockwise from `startAngle` to
/// `endAngle`. Nothing comes out of angles that are beyond the bounds of `support/limits.h`.
void ArcToBezier(bool reversed, Entity_ZR::Point3 center, double ry, double rotation, double startAngle,
                 double endAngle, double rx, std::vector<Entity_ZR::Point3>& points);

#endif
