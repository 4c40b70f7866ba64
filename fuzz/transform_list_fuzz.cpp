#include "fuzz/target.h"
#include "svg/transform_list.h"

namespace {

void Run(std::string_view input) {
  const Matrix2D matrix = Svg::ParseTransform(input);
  fuzz::Touch(&matrix, sizeof matrix);
}

const fuzz::Target target("transform_list", Run);

}  // namespace
