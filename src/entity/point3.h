#ifndef DRAWLOAD_ENTITY_POINT3_H
#define DRAWLOAD_ENTITY_POINT3_H

namespace Entity_ZR {

/// A point in space. Nothing behind the entities reads z.
struct Point3 {
  double x = 0.0;
  double y = 0.0;
  double z = 0.0;

  bool operator==(const Point3&) const = default;
};

}  // namespace Entity_ZR

#endif
