#include "dxf/dxf_objects.h"

#include "dxf/take_value.h"

void DXF_ObjectEntry::parseGroup(std::int32_t code, const dxfReader& reader) {
  if (code == 5) handle = reader.handleFromText();
  if (code == 330) ownerHandle = reader.handleFromText();
}

void DXF_ImageDef::parseGroup(std::int32_t code, const dxfReader& reader) {
  switch (code) {
    case 1: path = reader.text(); break;
    case 10: width = reader.realValue; break;
    case 20: height = reader.realValue; break;
    case 11: pixelWidth = reader.realValue; break;
    case 12:
    case 21: pixelHeight = reader.realValue; break;
    case 280: loaded = reader.intValue; break;
    case 281: units = reader.intValue; break;
    default: DXF_ObjectEntry::parseGroup(code, reader); break;
  }
}

void DXF_MlineStyle::parseGroup(std::int32_t code, const dxfReader& reader) {
  switch (code) {
    case 2: name = reader.text(); break;
    case 3: description = reader.text(); break;
    case 6:
      if (!elements.empty()) elements.back().lineType = reader.text();
      break;
    case 49: elements.emplace_back().offset = reader.realValue; break;
    case 51: startAngle = reader.realValue; break;
    case 52: endAngle = reader.realValue; break;
    case 62: (elements.empty() ? fillColor : elements.back().color) = reader.intValue; break;
    case 70: flags = reader.intValue; break;
    case 71: elementCount = reader.intValue; break;
    default: DXF_ObjectEntry::parseGroup(code, reader); break;
  }
}

void DXF_PlotSettings::parseGroup(std::int32_t code, const dxfReader& reader) {
  switch (code) {
    case 6: name = reader.text(); break;
    case 40: marginLeft = reader.realValue; break;
    case 41: marginBottom = reader.realValue; break;
    case 42: marginRight = reader.realValue; break;
    case 43: marginTop = reader.realValue; break;
    default: DXF_ObjectEntry::parseGroup(code, reader); break;
  }
}
