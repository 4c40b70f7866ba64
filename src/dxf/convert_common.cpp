#include "dxf/aci_colors.h"
#include "dxf/convert.h"

namespace {

constexpr std::uint32_t kAllBytesSet = 0xFFFFFFFF;

std::uint32_t TrueColor(std::int32_t color24) {
  const auto value = static_cast<std::uint32_t>(color24);
  return PackColor(value >> 16 & 0xFF, value >> 8 & 0xFF, value & 0xFF);
}

std::uint32_t ColorOf(const DXF_Entity& record, std::uint32_t layerColor) {
  if (record.color == 0) return kAllBytesSet;
  if (record.color < 1 || record.color > 255) return layerColor;
  return record.color24 != -1 ? TrueColor(record.color24) : AciColor(record.color);
}

// Kept: the class index goes through the table of weights a second time, so that the default weight is 0.08.
double LineWidthOf(const DXF_Entity& record) { return LineWeightClass(record.lineWeight) / 100.0; }

}  // namespace

DXF_Conversion::DXF_Conversion(const DXF_Document& source) : document(source) {
  if (document.header == nullptr) return;
  document.header->intVariable("$INSUNITS", units);
  document.header->coordVariable("$UCSORG", origin.x, origin.y, origin.z);
}

DXF_Conversion::LayerLook DXF_Conversion::resolve(const DXF_Layer& layer) {
  return {static_cast<std::uint8_t>(layer.plot ? 1 : 0), AciLayerColor(layer.color),
          dashesOf(layer.lineType)};
}

const DXF_Conversion::LayerLook& DXF_Conversion::lookOf(std::string_view layerName) {
  const auto known = layerLooks.find(layerName.data());
  if (known != layerLooks.end()) return known->second;
  const DXF_Layer* layer = document.findLayer(layerName);
  return layerLooks.emplace(layerName.data(), layer == nullptr ? resolve(DXF_Layer()) : resolve(*layer))
      .first->second;
}

const Entity_ZR::SharedNumbers& DXF_Conversion::dashesOf(std::string_view lineTypeName) {
  const auto known = dashes.find(lineTypeName.data());
  if (known != dashes.end()) return known->second;
  const DXF_LType* lineType = document.findLineType(lineTypeName);
  std::vector<double> path;
  if (lineType != nullptr) path.assign(lineType->path.begin(), lineType->path.end());
  return dashes.emplace(lineTypeName.data(), std::move(path)).first->second;
}

const Entity_ZR::SharedNumbers& DXF_Conversion::dashesOf(const DXF_Entity& record, const LayerLook& look) {
  const bool isLayers = record.lineType == "BYLAYER" || record.lineType == "BYBLOCK";
  return isLayers ? look.dashes : dashesOf(record.lineType);
}

const DXF_TextFormat& DXF_Conversion::formatOf(std::string_view styleName) {
  const DXF_TextStyle* style = document.findTextStyle(styleName);
  const auto known = textFormats.find(style);
  if (known != textFormats.end()) return known->second;
  return textFormats.emplace(style, TextFormatOf(style)).first->second;
}

void DXF_Conversion::fillCommon(const DXF_Entity& record, Entity_ZR::ZR_Entity& entity) {
  entity.units = units;
  entity.visible = record.invisible ? 0 : 1;
  entity.lineScale = record.lineTypeScale;
  entity.space = record.space;
  entity.layer = record.layer;
  entity.lineWidth = LineWidthOf(record);
  const LayerLook& look = lookOf(record.layer);
  entity.layerOn = look.on;
  entity.color = ColorOf(record, look.color);
  entity.dashes = dashesOf(record, look);
  entity.origin = origin;
}
