#include <algorithm>

#include "dxf/aci_colors.h"
#include "dxf/convert.h"
#include "support/limits.h"

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

DXF_Conversion::LayerLook DXF_Conversion::resolve(const DXF_Layer& layer) const {
  return {static_cast<std::uint8_t>(layer.plot ? 1 : 0), AciLayerColor(layer.color),
          document.findLineType(layer.lineType)};
}

const DXF_Conversion::LayerLook& DXF_Conversion::lookOf(std::string_view layerName) {
  const auto [known, isFirst] = layerLooks.try_emplace(layerName.data());
  if (isFirst) {
    const DXF_Layer* layer = document.findLayer(layerName);
    known->second = layer == nullptr ? resolve(DXF_Layer()) : resolve(*layer);
  }
  return known->second;
}

const DXF_LType* DXF_Conversion::lineTypeOf(const DXF_Entity& record, const LayerLook& look) const {
  const bool isLayers = record.lineType == "BYLAYER" || record.lineType == "BYBLOCK";
  return isLayers ? look.lineType : document.findLineType(record.lineType);
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
  if (const DXF_LType* lineType = lineTypeOf(record, look)) {
    const std::size_t count = std::min(lineType->path.size(), support::limits::kLineTypeDashes);
    entity.dashes.insert(entity.dashes.end(), lineType->path.begin(), lineType->path.begin() + count);
  }
  entity.origin = origin;
}
