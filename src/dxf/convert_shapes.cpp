#include <cmath>
#include <numbers>

#include "dxf/convert.h"

namespace {

using std::numbers::pi;

/// The angle, seen from the centre, of the point at an ellipse's parameter; `major` and `minor` are its
/// lengths.
double AngleAtParameter(double parameter, double major, double minor, bool turnedOver) {
  const double cosine = major * std::cos(parameter);
  double angle = std::atan(minor * std::sin(parameter) / cosine);
  if (!(cosine > 0.0)) angle += pi;
  if (angle < 0.0) angle += 2.0 * pi;
  return turnedOver ? angle + pi : angle;
}

}  // namespace

void fillEntity(DXF_Conversion& conversion, const DXF_Point& record, Entity_ZR::ZR_Point& entity) {
  conversion.fillCommon(record, entity);
  entity.position = record.point;
}

void fillEntity(DXF_Conversion& conversion, const DXF_Line& record, Entity_ZR::ZR_Line& entity) {
  conversion.fillCommon(record, entity);
  entity.start = record.point;
  entity.end = record.secondPoint;
}

void fillEntity(DXF_Conversion& conversion, const DXF_Circle& record, Entity_ZR::ZR_Circle& entity) {
  conversion.fillCommon(record, entity);
  entity.center = record.point;
  entity.radius = record.radius;
}

void fillEntity(DXF_Conversion& conversion, const DXF_Arc& record, Entity_ZR::ZR_Arc& entity) {
  conversion.fillCommon(record, entity);
  entity.center = record.point;
  entity.radius = record.radius;
  entity.startAngle = record.startAngle;
  entity.endAngle = record.endAngle;
  entity.reversed = record.counterClockwise == 0 ? 1 : 0;
}

void fillEntity(DXF_Conversion& conversion, const DXF_Ellipse& record, Entity_ZR::ZR_Ellipse& entity) {
  conversion.fillCommon(record, entity);
  const DXF_Coord axis = record.secondPoint;
  const bool turnedOver = record.extrusion.z < 0.0;
  entity.center = record.point;
  entity.radiusX = std::sqrt(axis.x * axis.x + axis.y * axis.y);
  entity.radiusY = entity.radiusX * record.ratio;
  entity.startAngle = AngleAtParameter(record.startParam, entity.radiusX, entity.radiusY, turnedOver);
  entity.endAngle = AngleAtParameter(record.endParam, entity.radiusX, entity.radiusY, turnedOver);
  entity.rotation = std::atan2(turnedOver ? -axis.y : axis.y, axis.x);
}

void fillEntity(DXF_Conversion& conversion, const DXF_Solid& record, Entity_ZR::ZR_Solid& entity) {
  conversion.fillCommon(record, entity);
  entity.corners[0] = record.point;
  entity.corners[1] = record.secondPoint;
  entity.corners[2] = record.thirdPoint;
  entity.corners[3] = record.fourthPoint;
}

void fillEntity(DXF_Conversion& conversion, const DXF_Viewport& record, Entity_ZR::ZR_Viewport& entity) {
  conversion.fillCommon(record, entity);
  entity.position = record.point;
}
