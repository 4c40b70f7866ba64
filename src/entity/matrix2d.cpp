#include "entity/matrix2d.h"

void Concat(Matrix2D& m, const Matrix2D& n) {
  m = {m.a * n.a + m.b * n.c, m.a * n.b + m.b * n.d,       m.c * n.a + m.d * n.c,
       m.c * n.b + m.d * n.d, m.e * n.a + m.f * n.c + n.e, m.e * n.b + m.f * n.d + n.f};
}

void ScaleAbout(Matrix2D& m, Entity_ZR::Point3 point, double sx, double sy) {
  m.e += m.a * (point.x - point.x * sx) + m.c * (point.y - point.y * sy);
  m.f += m.b * (point.x - point.x * sx) + m.d * (point.y - point.y * sy);
  m.a *= sx;
  m.b *= sx;
  m.c *= sy;
  m.d *= sy;
}
