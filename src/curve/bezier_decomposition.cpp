#include "curve/bezier_decomposition.h"

#include <algorithm>
#include <utility>

#include "curve/knots.h"

namespace curve {

namespace {

/// (1 - a) · p + a · q, into p or q.
void Blend(double a, const double* p, const double* q, std::uint32_t dimension, double* into) {
  for (std::uint32_t d = 0; d < dimension; ++d) into[d] = (1.0 - a) * p[d] + a * q[d];
}

/// Cuts a curve into its pieces from left to right. At each knot de Boor's triangle is laid over the control
/// points of the piece: its left edge ends the piece, its right edge begins the next one.
class Decomposition {
 public:
  Decomposition(const CurveBlock& source, CurveBlock& pieces)
      : curve(source), knots(source.Knots()), made(pieces) {}

  void Run() {
    const std::uint32_t pieceCount = made.knotCount / curve.Order() - 1;
    lastOfLeft = LastOfKnot(curve, curve.degree);
    left = knots[FirstOfKnot(curve, curve.degree)];
    WriteKnots(0);
    ClampStart();
    for (std::uint32_t piece = 0; piece < pieceCount; ++piece) {
      CutPiece(piece, piece + 1 == pieceCount);
      WriteKnots(piece + 1);
    }
  }

 private:
  double* PiecePoint(std::size_t piece, std::size_t index) {
    return made.ControlPoint(piece * curve.Order() + index);
  }

  void WriteKnots(std::size_t group) {
    std::fill_n(made.Knots() + group * curve.Order(), curve.Order(), left);
  }

  void CopyPoints(std::size_t first, std::size_t count, double* to) const {
    std::copy_n(curve.ControlPoint(first), count * curve.dimension, to);
  }

  /// Brings the first knot of the domain to order: the right edge of its triangle begins the first piece.
  void ClampStart() {
    const std::uint32_t degree = curve.degree;
    const std::uint32_t multiplicity = lastOfLeft - FirstOfKnot(curve, lastOfLeft) + 1;
    const std::uint32_t firstPoint = lastOfLeft - degree;
    CopyPoints(firstPoint, curve.Order(), PiecePoint(0, 0));
    const std::uint32_t levels = multiplicity < degree ? degree - multiplicity : 0;
    for (std::uint32_t level = 1; level <= levels; ++level) {
      for (std::uint32_t j = 0; j + level <= levels; ++j) {
        const std::uint32_t i = firstPoint + level + j;
        const double a = (left - knots[i]) / (knots[i + degree - level + 1] - knots[i]);
        Blend(a, PiecePoint(0, j), PiecePoint(0, j + 1), curve.dimension, PiecePoint(0, j));
      }
    }
  }

  /// Ends `piece`, whose control points are those of its span, at the next knot, and begins the next piece.
  void CutPiece(std::size_t piece, bool isLast) {
    const std::uint32_t degree = curve.degree;
    const std::uint32_t last = LastOfKnot(curve, lastOfLeft + 1);
    const std::uint32_t multiplicity = last - lastOfLeft;
    const double right = knots[lastOfLeft + 1];
    if (multiplicity > degree) {
      if (!isLast) CopyPoints(last - degree, curve.Order(), PiecePoint(piece + 1, 0));
    } else {
      const std::uint32_t levels = degree - multiplicity;
      double* lastPoint = PiecePoint(piece, degree);
      for (std::uint32_t level = 0; level <= levels; ++level) {
        if (level > 0) RaiseLevel(piece, multiplicity + level, last + 1, right);
        if (!isLast) std::copy_n(lastPoint, curve.dimension, PiecePoint(piece + 1, levels - level));
      }
      if (!isLast) CopyPoints(lastOfLeft + 1, multiplicity, PiecePoint(piece + 1, levels + 1));
    }
    left = right;
    lastOfLeft = last;
  }

  /// Replaces the points of `piece` from `first` on by those one level up. All knots up to the piece's start
  /// are one with it by now, so that only the knots from `behind` on differ from point to point.
  void RaiseLevel(std::size_t piece, std::uint32_t first, std::uint32_t behind, double right) {
    for (std::uint32_t j = curve.degree; j >= first; --j) {
      const double a = (right - left) / (knots[behind + j - first] - left);
      Blend(a, PiecePoint(piece, j - 1), PiecePoint(piece, j), curve.dimension, PiecePoint(piece, j));
    }
  }

  const CurveBlock& curve;
  const double* knots;
  CurveBlock& made;
  double left = 0.0;             ///< the knot where the piece begins
  std::uint32_t lastOfLeft = 0;  ///< index of its last occurrence
};

std::uint64_t CountPieces(const CurveBlock& curve) {
  std::uint64_t count = 0;
  for (std::uint32_t last = LastOfKnot(curve, curve.degree); last < curve.controlPointCount;
       last = LastOfKnot(curve, last + 1)) {
    ++count;
  }
  return count;
}

}  // namespace

StatusCode ToBeziers(const CurveBlock& curve, CurvePointer& result, Status* status) {
  const std::uint64_t pieceCount = CountPieces(curve);
  CurvePointer made;
  StatusCode code = kSuccess;
  if (pieceCount == 0) {
    code = FailDegree(curve.degree, 0, status);
  } else {
    code = AllocateCurve(pieceCount * curve.Order(), curve.dimension, curve.degree, made, status);
  }
  if (code == kSuccess) Decomposition(curve, *made).Run();
  result = std::move(made);
  return code;
}

}  // namespace curve
