#ifndef DRAWLOAD_ENTITY_INSERT_H
#define DRAWLOAD_ENTITY_INSERT_H

#include <string>

#include "entity/entity.h"

namespace Entity_ZR {

/// Opens a group. The sink reads `matrix`, which holds the whole placement, and `attributes`.
class ZR_Insert : public ZR_Entity {
 public:
  ZR_Insert() : ZR_Entity(kInsert) {}

  Point3 position;
  std::string blockName;
  double scaleX = 1.0;
  double scaleY = 1.0;
  double scaleZ = 1.0;
  double rotation = 0.0;
  std::int32_t columnCount = 0;
  std::int32_t rowCount = 0;
  double columnSpacing = 0.0;
  double rowSpacing = 0.0;
};

}  // namespace Entity_ZR

#endif
