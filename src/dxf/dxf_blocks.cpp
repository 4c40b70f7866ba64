#include "dxf/dxf_blocks.h"

#include "dxf/take_value.h"

void DXF_Block::parseGroup(std::int32_t code, const dxfReader& reader) {
  switch (code) {
    case 2: name = reader.text(); break;
    case 70: flags = reader.intValue; break;
    default: DXF_Point::parseGroup(code, reader); break;
  }
}

void DXF_Insert::parseGroup(std::int32_t code, const dxfReader& reader) {
  switch (code) {
    case 2: blockName = reader.text(); break;
    case 41: xScale = reader.realValue; break;
    case 42: yScale = reader.realValue; break;
    case 43: zScale = reader.realValue; break;
    case 44: columnSpacing = reader.realValue; break;
    case 45: rowSpacing = reader.realValue; break;
    case 50: angle = RadiansFrom(reader.realValue); break;
    case 70: columnCount = reader.intValue; break;
    case 71: rowCount = reader.intValue; break;
    default: DXF_Point::parseGroup(code, reader); break;
  }
}
