#include "dxf/dxf_shapes.h"

#include "dxf/take_value.h"

void DXF_Line::parseGroup(std::int32_t code, const dxfReader& reader) {
  if (!TakeCoord(code, 11, reader, secondPoint)) DXF_Point::parseGroup(code, reader);
}

void DXF_Circle::parseGroup(std::int32_t code, const dxfReader& reader) {
  if (code == 40) {
    radius = reader.realValue;
    return;
  }
  DXF_Point::parseGroup(code, reader);
}

void DXF_Arc::parseGroup(std::int32_t code, const dxfReader& reader) {
  switch (code) {
    case 50: startAngle = RadiansFrom(reader.realValue); break;
    case 51: endAngle = RadiansFrom(reader.realValue); break;
    default: DXF_Circle::parseGroup(code, reader); break;
  }
}

void DXF_Ellipse::parseGroup(std::int32_t code, const dxfReader& reader) {
  switch (code) {
    case 40: ratio = reader.realValue; break;
    case 41: startParam = reader.realValue; break;
    case 42: endParam = reader.realValue; break;
    default: DXF_Line::parseGroup(code, reader); break;
  }
}

void DXF_Solid::parseGroup(std::int32_t code, const dxfReader& reader) {
  if (TakeCoord(code, 12, reader, thirdPoint) || TakeCoord(code, 13, reader, fourthPoint)) return;
  DXF_Line::parseGroup(code, reader);
}

void DXF_Image::parseGroup(std::int32_t code, const dxfReader& reader) {
  if (TakeCoord(code, 12, reader, vVector)) return;
  switch (code) {
    case 13: sizeU = reader.realValue; break;
    case 23: sizeV = reader.realValue; break;
    case 280: clipping = reader.intValue; break;
    case 281: brightness = reader.intValue; break;
    case 282: contrast = reader.intValue; break;
    case 283: fade = reader.intValue; break;
    case 340: imageDefHandle = reader.handleFromText(); break;
    default: DXF_Line::parseGroup(code, reader); break;
  }
}
