#include "dxf/dxf_tables.h"

#include <cmath>

#include "dxf/take_value.h"

void DXF_TableEntry::parseGroup(std::int32_t code, const dxfReader& reader) {
  switch (code) {
    case 2: name = reader.name(); break;
    case 5: handle = reader.handleFromText(); break;
    case 70: flags = reader.intValue; break;
    case 330: ownerHandle = reader.handleFromText(); break;
    default: TakeExtData(code, reader, extData); break;
  }
}

void DXF_LType::parseGroup(std::int32_t code, const dxfReader& reader) {
  switch (code) {
    case 3: description = reader.name(); break;
    case 40: patternLength = reader.realValue; break;
    case 49:
      path.push_back(reader.realValue);
      pathLength += std::fabs(reader.realValue);
      break;
    case 73: patternCount = reader.intValue; break;
    default: DXF_TableEntry::parseGroup(code, reader); break;
  }
}

void DXF_LType::finish() {
  patternCount = static_cast<std::int32_t>(path.size());
  patternLength = pathLength;
}

void DXF_Layer::parseGroup(std::int32_t code, const dxfReader& reader) {
  switch (code) {
    case 6: lineType = reader.name(); break;
    case 62: color = reader.intValue; break;
    case 290: plot = reader.intValue != 0; break;
    case 347: handleMaterial = reader.name(); break;
    case 370: lineWeight = LineWeightClass(reader.intValue); break;
    case 390: handlePlotStyle = reader.name(); break;
    case 420: color24 = reader.intValue; break;
    default: DXF_TableEntry::parseGroup(code, reader); break;
  }
}

void DXF_TextStyle::parseGroup(std::int32_t code, const dxfReader& reader) {
  switch (code) {
    case 3: font = reader.name(); break;
    case 4: bigFont = reader.name(); break;
    case 40: height = reader.realValue; break;
    case 41: widthScale = reader.realValue; break;
    case 42: lastHeight = reader.realValue; break;
    case 50: oblique = reader.realValue; break;
    case 71: generationFlags = reader.intValue; break;
    case 1000: extText = reader.name(); break;
    case 1001: extApp = reader.name(); break;
    case 1071: fontFamily = reader.intValue; break;
    default: DXF_TableEntry::parseGroup(code, reader); break;
  }
}
