#include "dxf/dxf_text.h"

#include <cmath>

#include "dxf/take_value.h"

void DXF_Text::parseGroup(std::int32_t code, const dxfReader& reader) {
  switch (code) {
    case 1: text = reader.text(); break;
    case 7: styleName = reader.text(); break;
    case 40: height = reader.realValue; break;
    case 41: widthScale = reader.realValue; break;
    case 50: angle = reader.realValue; break;
    case 51: oblique = reader.realValue; break;
    case 71: generationFlags = reader.intValue; break;
    case 72: horizontalAlign = reader.intValue; break;
    case 73: verticalAlign = reader.intValue; break;
    default: DXF_Line::parseGroup(code, reader); break;
  }
}

void DXF_MText::parseGroup(std::int32_t code, const dxfReader& reader) {
  switch (code) {
    case 3: text += reader.text(); break;
    case 1:
      // An escape may have been cut in two by the pieces, so the whole is decoded once more.
      text = reader.decoder.decode(text + reader.text());
      break;
    case 11:
      hasDirection = true;
      DXF_Text::parseGroup(code, reader);
      break;
    case 40:
    case 41:
    case 42:
    case 43: parseSize(code, reader.realValue); break;
    case 44: lineSpacingFactor = reader.realValue; break;
    case 50:
      hasDirection = false;
      angle = reader.realValue;
      break;
    case 71: attachment = reader.intValue; break;
    case 73: lineSpacingStyle = reader.intValue; break;
    default: DXF_Text::parseGroup(code, reader); break;
  }
}

void DXF_MText::parseSize(std::int32_t code, double value) {
  if (code == 40) params.emplace_back();
  double MtextParam::*ofBox = &MtextParam::height;
  double* own = &height;
  switch (code) {
    case 41: ofBox = &MtextParam::rectWidth, own = &rectWidth; break;
    case 42: ofBox = &MtextParam::boxWidth, own = &boxWidth; break;
    case 43: ofBox = &MtextParam::boxHeight, own = &boxHeight; break;
    default: break;
  }
  *own = value;
  if (!params.empty()) params.back().*ofBox = value;
}

void DXF_MText::finish() {
  if (hasDirection) angle = std::atan2(secondPoint.y, secondPoint.x) * 57.29577951308232;
}
