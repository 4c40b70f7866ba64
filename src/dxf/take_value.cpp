#include "dxf/take_value.h"

#include "dxf/dxf_tables.h"

namespace {

template <typename List>
DXF_Variant& Append(List& data) {
  data.push_back(std::make_shared<DXF_Variant>());
  return *data.back();
}

/// The coordinate that a y or z goes to; null where there is none.
template <typename List>
DXF_Variant* LastCoordinate(const List& data) {
  const bool there = !data.empty() && data.back()->type == DXF_Variant::kCoordinate;
  return there ? data.back().get() : nullptr;
}

}  // namespace

template <typename List>
bool TakeExtData(std::int32_t code, const dxfReader& reader, List& data) {
  if (code >= 1000 && code <= 1005) {
    Append(data).setText(code, reader.text());
  } else if (code >= 1010 && code <= 1013) {
    Append(data).setCoordinate(code, reader.realValue);
  } else if (code >= 1020 && code <= 1023) {
    if (DXF_Variant* coordinate = LastCoordinate(data)) coordinate->y = reader.realValue;
  } else if (code >= 1030 && code <= 1033) {
    if (DXF_Variant* coordinate = LastCoordinate(data)) coordinate->z = reader.realValue;
  } else if (code >= 1040 && code <= 1042) {
    Append(data).setReal(code, reader.realValue);
  } else if (code == 1070 || code == 1071) {
    Append(data).setInteger(code, reader.intValue);
  } else {
    return false;
  }
  return true;
}

template bool TakeExtData(std::int32_t code, const dxfReader& reader, DXF_ExtData& data);
template bool TakeExtData(std::int32_t code, const dxfReader& reader,
                          decltype(DXF_TableEntry::extData)& data);
