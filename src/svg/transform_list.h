#ifndef DRAWLOAD_SVG_TRANSFORM_LIST_H
#define DRAWLOAD_SVG_TRANSFORM_LIST_H

#include <string_view>

#include "entity/matrix2d.h"

namespace Svg {

/// The product of the operations that `text` lists, the last of them acting first. Text that breaks off or is
/// not understood ends the list; what was read before it holds.
Matrix2D ParseTransform(std::string_view text);

/// The map that applies `first`, then `second`.
inline Matrix2D Concatenated(Matrix2D first, const Matrix2D& second) {
  Concat(first, second);
  return first;
}

}  // namespace Svg

#endif
