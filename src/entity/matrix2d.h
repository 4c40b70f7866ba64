#ifndef DRAWLOAD_ENTITY_MATRIX2D_H
#define DRAWLOAD_ENTITY_MATRIX2D_H

#include "entity/point3.h"

/// An affine map of the plane: x' = a·x + c·y + e, y' = b·x + d·y + f. The default is the identity.
struct Matrix2D {
  double a = 1.0;
  double b = 0.0;
  double c = 0.0;
  double d = 1.0;
  double e = 0.0;
  double f = 0.0;

  bool operator==(const Matrix2D&) const = default;

  /// The image of `p`; z is kept.
  Entity_ZR::Point3 Apply(Entity_ZR::Point3 p) const {
    return {a * p.x + c * p.y + e, b * p.x + d * p.y + f, p.z};
  }
};

/// Replaces `m` with the map that applies `m` first, then `n`.
void Concat(Matrix2D& m, const Matrix2D& n);

/// Replaces `m` with the map that first scales by (sx, sy) about `point` and then applies `m`.
void ScaleAbout(Matrix2D& m, Entity_ZR::Point3 point, double sx, double sy);

#endif
