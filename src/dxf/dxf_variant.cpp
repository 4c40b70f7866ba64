#include "dxf/dxf_variant.h"

#include <utility>

DXF_Variant::DXF_Variant(const DXF_Variant& other)
    : text(other.text),
      x(other.x),
      y(other.y),
      z(other.z),
      value(other.value),
      type(other.type),
      code(other.code) {
  pointAtOwnMember();
}

DXF_Variant& DXF_Variant::operator=(const DXF_Variant& other) {
  text = other.text;
  x = other.x;
  y = other.y;
  z = other.z;
  value = other.value;
  type = other.type;
  code = other.code;
  pointAtOwnMember();
  return *this;
}

void DXF_Variant::setText(std::int32_t groupCode, std::string content) {
  text = std::move(content);
  type = kText;
  code = groupCode;
  pointAtOwnMember();
}

void DXF_Variant::setInteger(std::int32_t groupCode, std::int32_t number) {
  value.integer = number;
  type = kInteger;
  code = groupCode;
}

void DXF_Variant::setReal(std::int32_t groupCode, double number) {
  value.real = number;
  type = kReal;
  code = groupCode;
}

void DXF_Variant::setCoordinate(std::int32_t groupCode, double first) {
  x = first;
  y = 0.0;
  z = 0.0;
  type = kCoordinate;
  code = groupCode;
  pointAtOwnMember();
}

void DXF_Variant::pointAtOwnMember() {
  if (type == kText) value.pointer = &text;
  if (type == kCoordinate) value.pointer = &x;
}
