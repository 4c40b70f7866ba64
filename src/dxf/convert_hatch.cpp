#include <cmath>
#include <numbers>
#include <variant>

#include "dxf/convert.h"

namespace {

using std::numbers::pi;

/// Builds the neutral edge of each kind. An edge states no layer and no colour: it has those of a record that
/// states nothing, not those of its hatch.
class EdgeBuilder {
 public:
  explicit EdgeBuilder(DXF_Conversion& owner) : conversion(owner) {}

  Entity_ZR::HatchEdge operator()(const std::shared_ptr<const DXF_HatchLine>& record) const {
    return Convert<Entity_ZR::ZR_Line>(Entity_ZR::kLineEdge, static_cast<const DXF_Line&>(*record));
  }

  Entity_ZR::HatchEdge operator()(const std::shared_ptr<const DXF_HatchArc>& record) const {
    return Convert<Entity_ZR::ZR_Arc>(Entity_ZR::kArcEdge, static_cast<const DXF_Arc&>(*record));
  }

  Entity_ZR::HatchEdge operator()(const std::shared_ptr<const DXF_HatchEllipse>& record) const {
    Entity_ZR::ZR_Ellipse edge;
    conversion.fillCommon(*record, edge);
    const DXF_Coord axis = record->secondPoint;
    edge.center = record->point;
    edge.radiusX = std::sqrt(axis.x * axis.x + axis.y * axis.y);
    edge.radiusY = edge.radiusX * record->ratio;
    // Kept: of all edges only ellipses have their angles turned round.
    edge.startAngle = pi * (180.0 - record->endParam) / 180.0;
    edge.endAngle = pi * (180.0 - record->startParam) / 180.0;
    edge.rotation = std::atan2(axis.y, axis.x) + pi;
    edge.reversed = record->counterClockwise == 0 ? 1 : 0;
    return {Entity_ZR::kEllipseEdge, std::move(edge)};
  }

  Entity_ZR::HatchEdge operator()(const std::shared_ptr<const DXF_HatchSpline>& record) const {
    Entity_ZR::ZR_Spline edge;
    fillEntity(conversion, static_cast<const DXF_Spline&>(*record), edge);
    // Kept: the two bits are the other way round than those of a spline of its own.
    edge.flags = (record->rational != 0 ? 2 : 0) | (record->periodic != 0 ? 4 : 0);
    return {Entity_ZR::kSplineEdge, std::move(edge)};
  }

  Entity_ZR::HatchEdge operator()(const std::shared_ptr<const DXF_HatchLWPolyline>& record) const {
    Entity_ZR::ZR_LWPolyline edge;
    fillEntity(conversion, static_cast<const DXF_LWPolyline&>(*record), edge);
    edge.closed = record->closed & 1;
    return {Entity_ZR::kPolylineEdge, std::move(edge)};
  }

 private:
  template <typename Entity, typename Record>
  Entity_ZR::HatchEdge Convert(Entity_ZR::HatchEdgeKind kind, const Record& record) const {
    Entity edge;
    fillEntity(conversion, record, edge);
    return {kind, std::move(edge)};
  }

  DXF_Conversion& conversion;
};

void FillPattern(const DXF_Hatch& record, Entity_ZR::ZR_Hatch& entity) {
  entity.patternName = record.patternName;
  entity.patternType = record.patternType;
  entity.patternAngle = record.patternAngle;
  entity.patternScale = record.patternScale;
  entity.patternDouble = record.patternDouble;
  entity.pixelSize = record.pixelSize;
  entity.patternLineCount = record.patternLineCount;
  for (const DXF_HatchPatternLine& line : record.patternLines) {
    entity.patternLines.push_back({line.lineAngle, line.lineBaseX, line.lineBaseY, line.lineOffsetX,
                                   line.lineOffsetY, line.dashCount, line.dashes});
  }
}

void FillGradient(const DXF_Hatch& record, Entity_ZR::ZR_Hatch& entity) {
  entity.gradientFlag = record.gradientFlag;
  entity.gradientColorCount = record.gradientColorCount;
  entity.gradientOneColor = record.gradientOneColor;
  entity.gradientStopCount = record.gradientStopCount;
  entity.gradientName = record.gradientName;
  entity.gradientAngle = record.gradientAngle;
  entity.gradientShift = record.gradientShift;
  entity.gradientTint = record.gradientTint;
  entity.gradientValue = record.gradientValue;
}

}  // namespace

void fillEntity(DXF_Conversion& conversion, const DXF_Hatch& record, Entity_ZR::ZR_Hatch& entity) {
  conversion.fillCommon(record, entity);
  entity.fillType = record.fillType;
  entity.associative = record.associative;
  entity.pathCount = record.pathCount;
  entity.pathFlags = record.pathFlags;
  entity.edgeCount = record.edgeCount;
  entity.edgeType = record.edgeType;
  entity.sourceCount = record.sourceCount;
  entity.hatchStyle = record.hatchStyle;
  entity.seedCount = record.seedCount;
  entity.seeds = record.seeds;
  FillPattern(record, entity);
  FillGradient(record, entity);
  entity.edges.reserve(record.edges.size());
  const EdgeBuilder builder(conversion);
  for (const DXF_HatchEdge& edge : record.edges) entity.edges.push_back(std::visit(builder, edge.record));
}
