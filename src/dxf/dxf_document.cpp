#include "dxf/dxf_document.h"

#include <string>

namespace {

std::string InCapitals(std::string_view name) {
  std::string capitals(name);
  for (char& c : capitals) {
    if (c >= 'a' && c <= 'z') c = static_cast<char>(c - 'a' + 'A');
  }
  return capitals;
}

constexpr auto kNameOf = [](const auto& record) { return std::string_view(record.name); };

}  // namespace

DXF_Document::DXF_Document() : modelBlock(std::make_unique<DXF_ifaceBlock>()) {}

const DXF_Layer* DXF_Document::findLayer(std::string_view name) const {
  return layerIndex.find(layers, name, kNameOf);
}

const DXF_LType* DXF_Document::findLineType(std::string_view name) const {
  return lineTypeIndex.find(lineTypes, name, kNameOf);
}

const DXF_TextStyle* DXF_Document::findTextStyle(std::string_view name) const {
  return textStyleIndex.find(textStyles, InCapitals(name),
                             [](const DXF_TextStyle& style) { return InCapitals(style.name); });
}

const DXF_ifaceBlock* DXF_Document::findBlock(std::string_view name) const {
  return blockIndex.find(blocks, name, kNameOf);
}

const DXF_ImageDef* DXF_Document::findImageDef(std::uint32_t handle) const {
  return imageDefIndex.find(imageDefs, handle, [](const DXF_ImageDef& def) { return def.handle; });
}
