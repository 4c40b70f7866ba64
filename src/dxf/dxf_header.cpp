#include "dxf/dxf_header.h"

#include <utility>

#include "dxf/dxf_reader.h"

void DXF_Header::parseGroup(std::int32_t code, dxfReader& reader) {
  if (code == 9) {
    openVariable(reader);
    return;
  }
  if (current == nullptr) return;
  switch (code) {
    case 1:
    case 2:
    case 3:
    case 6:
    case 7:
    case 8:
    case 390: parseText(code, reader); break;
    case 10: current->setCoordinate(code, reader.realValue); break;
    case 20:
      if (current->type == DXF_Variant::kCoordinate) current->y = reader.realValue;
      break;
    case 30:
      if (current->type == DXF_Variant::kCoordinate) current->z = reader.realValue;
      break;
    case 40:
    case 50: current->setReal(code, reader.realValue); break;
    case 62:
    case 70:
    case 280:
    case 290:
    case 370:
    case 380: parseInteger(code, reader); break;
    default: break;
  }
}

void DXF_Header::openVariable(const dxfReader& reader) {
  currentName = reader.text();
  // Kept, though the version is 7 from the start: the name that the oldest files use.
  if (version < 5 && currentName == "$DIMUNIT") currentName = "$DIMLUNIT";
  auto variable = std::make_shared<DXF_Variant>();
  current = variable.get();
  variables.insert_or_assign(currentName, std::move(variable));
}

void DXF_Header::parseText(std::int32_t code, dxfReader& reader) {
  std::string text = reader.text();
  if (code == 1 && currentName == "$ACADVER") {
    reader.decoder.setVersion(text);
    version = static_cast<std::int16_t>(reader.decoder.versionClass);
  }
  if (code == 3 && currentName == "$DWGCODEPAGE") {
    reader.decoder.setCodePage(text);
    text = reader.decoder.encodingName;
  }
  current->setText(code, std::move(text));
}

void DXF_Header::parseInteger(std::int32_t code, const dxfReader& reader) {
  current->setInteger(code, reader.intValue);
  if (code == 70 && currentName == "$INSUNITS") {
    insUnits = static_cast<std::int16_t>(static_cast<std::uint32_t>(reader.intValue));
  }
}

bool DXF_Header::intVariable(std::string_view name, std::int32_t& out) const {
  const DXF_Variant* variable = find(name, DXF_Variant::kInteger);
  if (variable != nullptr) out = variable->value.integer;
  return variable != nullptr;
}

bool DXF_Header::textVariable(std::string_view name, std::string& out) const {
  const DXF_Variant* variable = find(name, DXF_Variant::kText);
  if (variable != nullptr) out = variable->text;
  return variable != nullptr;
}

bool DXF_Header::coordVariable(std::string_view name, double& x, double& y, double& z) const {
  const DXF_Variant* variable = find(name, DXF_Variant::kCoordinate);
  if (variable == nullptr) return false;
  x = variable->x;
  y = variable->y;
  z = variable->z;
  return true;
}

const DXF_Variant* DXF_Header::find(std::string_view name, std::int32_t type) const {
  const auto found = variables.find(name);
  if (found == variables.end() || found->second->type != type) return nullptr;
  return found->second.get();
}
