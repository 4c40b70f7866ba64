#ifndef DRAWLOAD_SVG_POINTS_H
#define DRAWLOAD_SVG_POINTS_H

#include <string_view>
#include <vector>

#include "svg/path_data.h"

namespace Svg {

/// The points of a "points" attribute, which is split at blanks. A piece `x,y` is a point. Kept: the first
/// piece without a comma starts the text over, now with two pieces for each point, and what was found before
/// stays.
std::vector<Point> ParsePoints(std::string_view text);

}  // namespace Svg

#endif
