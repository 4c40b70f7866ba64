#ifndef DRAWLOAD_DXF_TAKE_VALUE_H
#define DRAWLOAD_DXF_TAKE_VALUE_H

#include "dxf/dxf_entity.h"
#include "dxf/dxf_reader.h"

/// Takes a coordinate whose x stands in group `xCode`, y in the group 10 above and z in that 20 above. False
/// for any other code.
inline bool TakeCoord(std::int32_t code, std::int32_t xCode, const dxfReader& reader, DXF_Coord& coord) {
  if (code == xCode) {
    coord.x = reader.realValue;
  } else if (code == xCode + 10) {
    coord.y = reader.realValue;
  } else if (code == xCode + 20) {
    coord.z = reader.realValue;
  } else {
    return false;
  }
  return true;
}

/// The same for a list: group `xCode` starts a coordinate, the other two go to the last one and are dropped
/// if there is none.
template <typename List>
bool TakeListedCoord(std::int32_t code, std::int32_t xCode, const dxfReader& reader, List& list) {
  if (code == xCode) {
    list.push_back({reader.realValue, 0.0, 0.0});
    return true;
  }
  if (code != xCode + 10 && code != xCode + 20) return false;
  if (!list.empty()) TakeCoord(code, xCode, reader, list.back());
  return true;
}

/// Whether groups of this code may be extended data.
inline bool IsExtDataCode(std::int32_t code) { return code >= 1000 && code <= 1071; }

/// Takes a group of extended data (1000 to 1071). False for any other code. For lists of entities and of
/// table entries.
template <typename List>
bool TakeExtData(std::int32_t code, const dxfReader& reader, List& data);

/// The format states angles in degrees; the records that say so hold radians.
inline double RadiansFrom(double degrees) { return degrees / 57.29577951308232; }

#endif
