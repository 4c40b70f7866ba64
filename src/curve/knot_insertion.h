#ifndef DRAWLOAD_CURVE_KNOT_INSERTION_H
#define DRAWLOAD_CURVE_KNOT_INSERTION_H

#include <cstdint>

#include "curve/curve_block.h"
#include "curve/status.h"

namespace curve {

/// Makes the same curve with the knot `u` inserted `count` times. `result` may be the owner of `curve`.
StatusCode InsertKnot(const CurveBlock& curve, double u, std::uint32_t count, CurvePointer& result,
                      Status* status);

/// Makes the same curve with the knot `u` brought to order, so that nothing before it depends on anything
/// behind it. `index` becomes that of the last knot equal to `u`: `index` - degree control points stand
/// before the split.
StatusCode Split(const CurveBlock& curve, double u, CurvePointer& result, std::uint32_t& index,
                 Status* status);

/// Makes a curve with `count` control points (and knots) more, or fewer where it is negative, at the front
/// or at the back. Points and knots that stay are copied; added points are zero, and added knots repeat the
/// knot at that end.
StatusCode Resize(const CurveBlock& curve, std::int32_t count, bool atBack, CurvePointer& result,
                  Status* status);

}  // namespace curve

#endif
