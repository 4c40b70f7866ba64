#include "dxf/dxf_annotations.h"

#include "dxf/take_value.h"

void DXF_Table::parseGroup(std::int32_t code, const dxfReader& reader) {
  if (parseCellGroup(code, reader)) return;
  switch (code) {
    case 2: blockName = reader.text(); break;
    case 91: rowCount = reader.intValue; break;
    case 92: columnCount = reader.intValue; break;
    case 141: rowHeights.push_back(reader.realValue); break;
    case 142: columnWidths.push_back(reader.realValue); break;
    default: DXF_Line::parseGroup(code, reader); break;
  }
}

bool DXF_Table::parseCellGroup(std::int32_t code, const dxfReader& reader) {
  switch (code) {
    case 145: cell.rotation = reader.realValue; return true;
    case 171: cell.type = reader.intValue; return true;
    case 172: cell.flags = reader.intValue; return true;
    case 173: cell.merged = reader.intValue; return true;
    case 174: cell.autoFit = reader.intValue; return true;
    case 175: cell.mergedWidth = reader.intValue; return true;
    case 176: cell.mergedHeight = reader.intValue; return true;
    case 178: cell.virtualEdge = reader.intValue; return true;
    case 304:
      if (reader.text() == "ACVALUE_END") {
        cells.push_back(cell);
        cell = {};
      }
      return true;
    default: return false;
  }
}

void DXF_Dimension::parseGroup(std::int32_t code, const dxfReader& reader) {
  if (parseDefinitionPoint(code, reader)) return;
  switch (code) {
    case 1: text = reader.text(); break;
    case 2: blockName = reader.text(); break;
    case 3: styleName = reader.text(); break;
    case 41: spacingFactor = reader.realValue; break;
    case 42: measurement = reader.realValue; break;
    case 50: angle = reader.realValue; break;
    case 51: horizontalDir = reader.realValue; break;
    case 52: obliqueAngle = reader.realValue; break;
    case 53: textAngle = reader.realValue; break;
    case 70: type = reader.intValue; break;
    case 71: attachment = reader.intValue; break;
    case 72: spacingStyle = reader.intValue; break;
    case 280: version = reader.intValue; break;
    default: DXF_Line::parseGroup(code, reader); break;
  }
}

bool DXF_Dimension::parseDefinitionPoint(std::int32_t code, const dxfReader& reader) {
  std::int32_t xCode = 12;
  for (DXF_Coord& definitionPoint : definitionPoints) {
    if (TakeCoord(code, xCode++, reader, definitionPoint)) return true;
  }
  return false;
}

void DXF_Mline::parseGroup(std::int32_t code, const dxfReader& reader) {
  if (TakeCoord(code, 10, reader, startPoint) || parseVertexGroup(code, reader)) return;
  if (TakeCoord(code, 210, reader, normal)) {
    hasExtrusion = hasExtrusion || code == 210;
    return;
  }
  switch (code) {
    case 2: styleName = reader.text(); break;
    case 40: scale = reader.realValue; break;
    case 70: justification = reader.intValue; break;
    case 71: flags = reader.intValue; break;
    case 72: vertexCount = reader.intValue; break;
    case 73: elementCount = reader.intValue; break;
    case 340: styleHandle = reader.handleFromText(); break;
    default: DXF_Entity::parseGroup(code, reader); break;
  }
}

bool DXF_Mline::parseVertexGroup(std::int32_t code, const dxfReader& reader) {
  if (code == 11) vertices.emplace_back();
  if (vertices.empty()) return false;
  DXF_MlineVertex& vertex = vertices.back();
  return TakeCoord(code, 11, reader, vertex.position) || TakeCoord(code, 12, reader, vertex.direction) ||
         TakeCoord(code, 13, reader, vertex.miter) || parseElementGroup(code, reader);
}

bool DXF_Mline::parseElementGroup(std::int32_t code, const dxfReader& reader) {
  std::vector<ElemPram>& elements = vertices.back().elements;
  if (code == 74) elements.emplace_back().count = reader.intValue;
  if (elements.empty()) return false;
  switch (code) {
    case 41: elements.back().values.push_back(reader.realValue); break;
    case 42: elements.back().fillValues.push_back(reader.realValue); break;
    case 75: elements.back().fillCount = reader.intValue; break;
    default: return code == 74;
  }
  return true;
}
