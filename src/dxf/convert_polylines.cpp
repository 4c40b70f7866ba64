#include <algorithm>
#include <limits>

#include "dxf/convert.h"

namespace {

std::int32_t CountOf(std::size_t size) {
  return static_cast<std::int32_t>(
      std::min<std::size_t>(size, static_cast<std::size_t>(std::numeric_limits<std::int32_t>::max())));
}

Entity_ZR::PolylineVertex ConvertVertex(const DXF_Vertex& record) {
  Entity_ZR::PolylineVertex vertex;
  vertex.x = record.point.x;
  vertex.y = record.point.y;
  vertex.z = record.point.z;
  vertex.startWidth = record.startWidth;
  vertex.endWidth = record.endWidth;
  vertex.bulge = record.bulge;
  vertex.vertexFlags = record.flags;
  vertex.tangentAngle = record.tangentAngle;
  std::copy(record.faceIndex.begin(), record.faceIndex.end(), vertex.faceIndex);
  vertex.identifier = record.identifier;
  return vertex;
}

void FillSpline(const DXF_Spline& record, Entity_ZR::ZR_Spline& entity) {
  entity.startTangent = record.startTangent;
  entity.endTangent = record.endTangent;
  entity.flags = record.flags;
  entity.degree = record.degree;
  entity.knotCount = record.knotCount;
  entity.controlCount = record.controlCount;
  entity.fitCount = record.fitCount;
  entity.knotTolerance = record.knotTolerance;
  entity.controlTolerance = record.controlTolerance;
  entity.fitTolerance = record.fitTolerance;
  entity.knots.assign(record.knots.begin(), record.knots.end());
  entity.weights.assign(record.weights.begin(), record.weights.end());
  entity.controlPoints.assign(record.controlPoints.begin(), record.controlPoints.end());
  entity.fitPoints.assign(record.fitPoints.begin(), record.fitPoints.end());
}

}  // namespace

void fillEntity(DXF_Conversion& conversion, const DXF_Polyline& record, Entity_ZR::ZR_Polyline& entity) {
  conversion.fillCommon(record, entity);
  entity.elevationPoint = record.point;
  entity.polylineFlags = record.flags;
  entity.startWidth = record.defaultStartWidth;
  entity.endWidth = record.defaultEndWidth;
  entity.vertexCount = CountOf(record.vertices.size());
  entity.meshCountM = record.meshCountM;
  entity.meshCountN = record.meshCountN;
  entity.smoothM = record.smoothM;
  entity.smoothN = record.smoothN;
  entity.curveType = record.curveType;
  entity.vertices.reserve(record.vertices.size());
  for (const auto& vertex : record.vertices) {
    entity.vertices.push_back(std::make_shared<Entity_ZR::PolylineVertex>(ConvertVertex(*vertex)));
  }
}

void fillEntity(DXF_Conversion& conversion, const DXF_LWPolyline& record, Entity_ZR::ZR_LWPolyline& entity) {
  conversion.fillCommon(record, entity);
  entity.vertexCount = record.vertexCount;
  entity.closed = record.flags & 1;
  entity.width = record.width;
  entity.elevation = record.elevation;
  entity.thickness = record.thickness;
  entity.vertices.reserve(record.vertices.size());
  for (const DXF_Vertex2D& vertex : record.vertices) {
    entity.vertices.push_back({vertex.x, vertex.y, vertex.startWidth, vertex.endWidth, vertex.bulge});
  }
}

void fillEntity(DXF_Conversion& conversion, const DXF_Spline& record, Entity_ZR::ZR_Spline& entity) {
  conversion.fillCommon(record, entity);
  FillSpline(record, entity);
}

void fillEntity(DXF_Conversion& conversion, const DXF_Helix& record, Entity_ZR::ZR_Helix& entity) {
  conversion.fillCommon(record, entity);
  entity.axisBase = record.axisBase;
  entity.start = record.startPoint;
  entity.axis = record.axisVector;
  entity.radius = record.radius;
  entity.turns = record.turns;
  entity.turnHeight = record.turnHeight;
  entity.clockwise = record.handedness == 0 ? 1 : 0;
  entity.constraint = record.constraint;
  conversion.fillCommon(record, entity.spline);
  FillSpline(record.spline, entity.spline);
}
