#include "dxf/dxf_entity.h"

#include <algorithm>
#include <array>
#include <utility>

#include "dxf/take_value.h"

namespace {

/// Kept: each group 102 appends a list, also the one that closes; only an opening brace puts a text in it.
void TakeAppData(const dxfReader& reader, std::list<std::list<DXF_Variant>>& appData) {
  std::list<DXF_Variant>& group = appData.emplace_back();
  std::string text = reader.text();
  if (text.starts_with('{')) group.emplace_back().setText(102, text.substr(1));
}

}  // namespace

DXF_Entity::~DXF_Entity() = default;

void DXF_Entity::parseGroup(std::int32_t code, const dxfReader& reader) {
  switch (code) {
    case 5: handle = reader.handleFromText(); break;
    case 6: lineType = reader.name(); break;
    case 8: layer = reader.name(); break;
    case 48: lineTypeScale = reader.realValue; break;
    case 60: invisible = reader.intValue != 0; break;
    case 62: color = reader.intValue; break;
    case 67: space = reader.intValue; break;
    case 102: TakeAppData(reader, notes.make().appData); break;
    case 210: hasExtrusion = true; break;
    case 330: ownerHandle = reader.handleFromText(); break;
    case 370: lineWeight = LineWeightClass(reader.intValue); break;
    case 420: color24 = reader.intValue; break;
    case 430: notes.make().colorName = reader.text(); break;
    default:
      if (IsExtDataCode(code)) TakeExtData(code, reader, notes.make().extData);
      break;
  }
}

void DXF_Point::parseGroup(std::int32_t code, const dxfReader& reader) {
  if (TakeCoord(code, 10, reader, point)) return;
  if (TakeCoord(code, 210, reader, extrusion)) {
    hasExtrusion = hasExtrusion || code == 210;
    return;
  }
  if (code == 39) {
    thickness = reader.realValue;
    return;
  }
  DXF_Entity::parseGroup(code, reader);
}

std::int32_t LineWeightClass(std::int32_t weight) {
  if (weight == -1) return 29;
  if (weight == -2) return 30;
  if (weight < 0) return 31;
  constexpr std::array<std::int32_t, 23> kBounds = {3,  7,  11, 14, 16, 19,  22,  27,  32,  37,  45, 52,
                                                    57, 65, 75, 85, 95, 103, 112, 130, 149, 180, 205};
  const auto above = std::upper_bound(kBounds.begin(), kBounds.end(), weight);
  return static_cast<std::int32_t>(above - kBounds.begin());
}
