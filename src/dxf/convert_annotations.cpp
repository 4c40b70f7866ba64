#include "dxf/convert.h"

namespace {

Entity_ZR::MLineVertex ConvertVertex(const DXF_MlineVertex& record) {
  Entity_ZR::MLineVertex vertex = {record.position, record.direction, record.miter, {}};
  vertex.elements.reserve(record.elements.size());
  for (const ElemPram& element : record.elements) {
    vertex.elements.push_back({element.values, element.fillValues});
  }
  return vertex;
}

}  // namespace

void fillEntity(DXF_Conversion& conversion, const DXF_Mline& record, Entity_ZR::ZR_MLine& entity) {
  conversion.fillCommon(record, entity);
  entity.styleName = record.styleName;
  entity.scale = record.scale;
  entity.justification = record.justification;
  entity.flags = record.flags;
  entity.vertexCount = record.vertexCount;
  entity.elementCount = record.elementCount;
  entity.start = record.startPoint;
  entity.normal = record.normal;
  entity.vertices.reserve(record.vertices.size());
  for (const DXF_MlineVertex& vertex : record.vertices) entity.vertices.push_back(ConvertVertex(vertex));
}

void fillEntity(DXF_Conversion& conversion, const DXF_Table& record, Entity_ZR::ZR_Table& entity) {
  conversion.fillCommon(record, entity);
  entity.position = record.point;
  entity.direction = record.secondPoint;
  entity.blockName = record.blockName;
  entity.rowCount = record.rowCount;
  entity.columnCount = record.columnCount;
  entity.rowHeights = record.rowHeights;
  entity.columnWidths = record.columnWidths;
  entity.cells.reserve(record.cells.size());
  for (const DXF_TableCell& cell : record.cells) {
    entity.cells.push_back({cell.type, cell.flags, cell.merged, cell.autoFit, cell.mergedWidth,
                            cell.mergedHeight, cell.virtualEdge, cell.rotation});
  }
}

void fillEntity(DXF_Conversion& conversion, const DXF_Entity& record, Entity_ZR::ZR_Tolerance& entity) {
  conversion.fillCommon(record, entity);
}

void fillEntity(DXF_Conversion& conversion, const DXF_Dimension& record, Entity_ZR::ZR_Dimension& entity) {
  conversion.fillCommon(record, entity);
  entity.dimensionType = record.type;
  entity.text = record.text;
  entity.attachment = record.attachment;
  // Kept: the two styles change places.
  entity.spacingStyle = record.spacingStyle != 1 ? 1 : 2;
  entity.spacingFactor = record.spacingFactor;
  entity.measurement = record.measurement;
  entity.styleName = record.styleName;
  entity.blockName = record.blockName;
  entity.points[0] = record.point;
  entity.points[1] = record.secondPoint;
  for (std::size_t i = 0; i < record.definitionPoints.size(); ++i) {
    entity.points[i + 2] = record.definitionPoints[i];
  }
}
