#include <cmath>

#include "dxf/convert.h"

namespace {

/// The rotation by `angle` about `center`.
Matrix2D RotationAbout(Entity_ZR::Point3 center, double angle) {
  const double cosine = std::cos(angle);
  const double sine = std::sin(angle);
  return {cosine,
          sine,
          -sine,
          cosine,
          center.x - (cosine * center.x - sine * center.y),
          center.y - (sine * center.x + cosine * center.y)};
}

void MoveTo(Matrix2D& matrix, Entity_ZR::Point3 point) {
  matrix.e = point.x;
  matrix.f = point.y;
}

}  // namespace

void fillEntity(DXF_Conversion& conversion, const DXF_Insert& record, Entity_ZR::ZR_Insert& entity) {
  conversion.fillCommon(record, entity);
  entity.position = record.point;
  entity.blockName = record.blockName;
  entity.scaleX = record.xScale;
  entity.scaleY = record.yScale;
  entity.scaleZ = record.zScale;
  entity.rotation = record.angle;
  entity.columnCount = record.columnCount;
  entity.rowCount = record.rowCount;
  entity.columnSpacing = record.columnSpacing;
  entity.rowSpacing = record.rowSpacing;
  if (record.extrusion.z < 0.0) {
    entity.matrix.a *= -1.0;
    entity.matrix.b *= -1.0;
  }
}

Matrix2D placeInsert(const DXF_Insert& record, const DXF_Block* block, const Matrix2D& own,
                     const Matrix2D* outer) {
  Matrix2D placement = RotationAbout(record.point, record.angle);
  ScaleAbout(placement, record.point, record.xScale, record.yScale);
  MoveTo(placement, placement.Apply(record.point));
  if (block != nullptr) MoveTo(placement, placement.Apply({-block->point.x, -block->point.y, 0.0}));
  Concat(placement, own);
  if (outer != nullptr) Concat(placement, *outer);
  return placement;
}
