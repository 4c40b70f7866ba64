#include "dxf/dxf_polylines.h"

#include "dxf/take_value.h"

void DXF_Vertex::parseGroup(std::int32_t code, const dxfReader& reader) {
  switch (code) {
    case 40: startWidth = reader.realValue; break;
    case 41: endWidth = reader.realValue; break;
    case 42: bulge = reader.realValue; break;
    case 50: tangentAngle = reader.realValue; break;
    case 70: flags = reader.intValue; break;
    case 71:
    case 72:
    case 73:
    case 74: faceIndex[static_cast<std::size_t>(code - 71)] = reader.intValue; break;
    case 91: identifier = reader.intValue; break;
    default: DXF_Point::parseGroup(code, reader); break;
  }
}

void DXF_Polyline::parseGroup(std::int32_t code, const dxfReader& reader) {
  switch (code) {
    case 40: defaultStartWidth = reader.realValue; break;
    case 41: defaultEndWidth = reader.realValue; break;
    case 70: flags = reader.intValue; break;
    case 71: meshCountM = reader.intValue; break;
    case 72: meshCountN = reader.intValue; break;
    case 73: smoothM = reader.intValue; break;
    case 74: smoothN = reader.intValue; break;
    case 75: curveType = reader.intValue; break;
    default: DXF_Point::parseGroup(code, reader); break;
  }
}

bool DXF_LWPolyline::parseVertexGroup(std::int32_t code, const dxfReader& reader) {
  if (code == 10) {
    vertices.push_back({.x = reader.realValue});
    return true;
  }
  double DXF_Vertex2D::*member = nullptr;
  switch (code) {
    case 20: member = &DXF_Vertex2D::y; break;
    case 40: member = &DXF_Vertex2D::startWidth; break;
    case 41: member = &DXF_Vertex2D::endWidth; break;
    case 42: member = &DXF_Vertex2D::bulge; break;
    default: return false;
  }
  if (!vertices.empty()) vertices.back().*member = reader.realValue;
  return true;
}

void DXF_LWPolyline::parseGroup(std::int32_t code, const dxfReader& reader) {
  constexpr std::size_t kLinesPerVertex = 4;
  if (parseVertexGroup(code, reader)) return;
  if (TakeCoord(code, 210, reader, extrusion)) {
    hasExtrusion = hasExtrusion || code == 210;
    return;
  }
  switch (code) {
    case 38: elevation = reader.realValue; break;
    case 39: thickness = reader.realValue; break;
    case 43: width = reader.realValue; break;
    case 70: flags = reader.intValue; break;
    case 90:
      vertexCount = reader.intValue;
      vertices.reserve(reader.reservable(vertexCount, kLinesPerVertex));
      break;
    default: DXF_Entity::parseGroup(code, reader); break;
  }
}
