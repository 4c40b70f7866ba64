#include "fuzz/target.h"
#include "svg/path_data.h"
#include "svg/points.h"

namespace {

void Run(std::string_view input) {
  Svg::Path path;
  Svg::Parse(input, path);
  fuzz::Touch(path.segments.data(), path.segments.size() * sizeof(Svg::PathSegment));
  const std::vector<Svg::Point> points = Svg::ParsePoints(input);
  fuzz::Touch(points.data(), points.size() * sizeof(Svg::Point));
}

const fuzz::Target target("path_data", Run);

}  // namespace
