#include "dxf/dxf_spline.h"

#include "dxf/take_value.h"

bool DXF_Spline::parsePointGroup(std::int32_t code, const dxfReader& reader) {
  return TakeListedCoord(code, 10, reader, controlPoints) || TakeListedCoord(code, 11, reader, fitPoints);
}

void DXF_Spline::parseGroup(std::int32_t code, const dxfReader& reader) {
  if (parsePointGroup(code, reader)) return;
  if (TakeCoord(code, 12, reader, startTangent) || TakeCoord(code, 13, reader, endTangent)) return;
  switch (code) {
    case 40: knots.push_back(reader.realValue); break;
    case 41: weights.push_back(reader.realValue); break;
    case 42: knotTolerance = reader.realValue; break;
    case 43: controlTolerance = reader.realValue; break;
    case 44: fitTolerance = reader.realValue; break;
    case 70: flags = reader.intValue; break;
    case 71: degree = reader.intValue; break;
    case 72: knotCount = reader.intValue; break;
    case 73: controlCount = reader.intValue; break;
    case 74: fitCount = reader.intValue; break;
    default: DXF_Entity::parseGroup(code, reader); break;
  }
}

void DXF_Helix::parseGroup(std::int32_t code, const dxfReader& reader) {
  if (code == 70) inSpline = true;
  if (code == 90) inSpline = false;
  if (inSpline) spline.parseGroup(code, reader);
  if (TakeCoord(code, 10, reader, axisBase) || TakeCoord(code, 11, reader, startPoint) ||
      TakeCoord(code, 12, reader, axisVector)) {
    return;
  }
  switch (code) {
    case 40: radius = reader.realValue; break;
    case 41: turns = reader.realValue; break;
    case 42: turnHeight = reader.realValue; break;
    case 90: majorVersion = reader.intValue; break;
    case 91: minorVersion = reader.intValue; break;
    case 280: constraint = reader.intValue; break;
    case 290: handedness = reader.intValue; break;
    default: DXF_Line::parseGroup(code, reader); break;
  }
}
