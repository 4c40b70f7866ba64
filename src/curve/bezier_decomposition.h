#ifndef DRAWLOAD_CURVE_BEZIER_DECOMPOSITION_H
#define DRAWLOAD_CURVE_BEZIER_DECOMPOSITION_H

#include "curve/curve_block.h"
#include "curve/status.h"

namespace curve {

/// Makes the same curve as a chain of Bezier pieces: the ends outside the domain are cut, and every knot is
/// brought to order. Each run of order control points is one piece, with the last point of one piece
/// repeated as the first of the next, unless the curve breaks off between them.
///
/// The result is that of `Split` at each knot in turn, found in one pass: the cost is linear in the number
/// of pieces. A domain that is a single knot holds no piece and fails like a curve with too few points.
StatusCode ToBeziers(const CurveBlock& curve, CurvePointer& result, Status* status);

}  // namespace curve

#endif
