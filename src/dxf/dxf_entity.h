#ifndef DRAWLOAD_DXF_DXF_ENTITY_H
#define DRAWLOAD_DXF_DXF_ENTITY_H

#include <cstdint>
#include <list>
#include <memory>
#include <string>
#include <string_view>
#include <vector>

#include "dxf/dxf_rare.h"
#include "dxf/dxf_variant.h"
#include "entity/point3.h"
#include "support/arena_allocator.h"

class dxfReader;

using DXF_Coord = Entity_ZR::Point3;

/// A list that may be long in a record of a drawing. In the store it lies in the document's memory.
template <typename Value>
using DXF_List = std::vector<Value, support::ArenaAllocator<Value>>;

/// Extended data of an entity, in the order of the file. Copies of a record share it.
using DXF_ExtData = std::vector<std::shared_ptr<DXF_Variant>>;

/// Values of `DXF_Entity::kind`.
enum DXF_Kind : std::int32_t {
  kDxfPoint = 0,
  kDxfLine = 2,
  kDxfPolyline = 3,
  kDxfLWPolyline = 4,
  kDxfSpline = 5,
  kDxfCircle = 6,
  kDxfEllipse = 7,
  kDxfArc = 8,
  kDxfText = 9,
  kDxfMText = 10,
  kDxfBlock = 11,
  kDxfInsert = 12,
  kDxfHatch = 13,
  kDxfHelix = 14,
  kDxfMline = 15,
  kDxfSolid = 16,
  kDxfTable = 17,
  kDxfTolerance = 18,
  kDxfDimension = 19,
  kDxfImage = 20,
  kDxfViewport = 21,
  kDxfMLeader = 22,
  kDxfNoKind = 24,
};

/// What few entities state.
struct DXF_EntityNotes {
  std::string colorName;
  std::list<std::list<DXF_Variant>> appData;  ///< one list per group 102; its text where that opens a group
  DXF_ExtData extData;
};

/// What every entity of a drawing states, as it stands in the file. The records of the kinds derive from it.
///
/// Each record has an operation `parseGroup(code, reader)` of its own, not virtual, which takes the value of
/// the current tag out of the reader's slots. A code that a class does not take goes to its base class; a
/// code that no class takes is ignored.
///
/// A drawing has a record for each of its entities, all at one time: what they need is what a big drawing
/// needs.
class DXF_Entity {
 public:
  virtual ~DXF_Entity();

  /// Maps what stands in the entity's own plane into the drawing, where the file states a normal.
  virtual void applyExtrusion() = 0;

  void parseGroup(std::int32_t code, const dxfReader& reader);

  std::int32_t kind = kDxfNoKind;
  std::uint32_t handle = 0;
  std::string_view layer = "0";  ///< names lie in the document
  std::string_view lineType = "BYLAYER";
  double lineTypeScale = 1.0;
  std::int32_t space = 0;
  std::int32_t color = 256;
  std::int32_t color24 = -1;     ///< 0xRRGGBB, or -1 for none
  std::int32_t lineWeight = 29;  ///< class index, see LineWeightClass
  std::uint32_t ownerHandle = 0;
  bool invisible = false;
  bool hasExtrusion = false;
  DXF_Rare<DXF_EntityNotes> notes;

 protected:
  DXF_Entity() = default;
  explicit DXF_Entity(DXF_Kind ownKind) : kind(ownKind) {}
  DXF_Entity(const DXF_Entity&) = default;
  DXF_Entity(DXF_Entity&&) = default;
  DXF_Entity& operator=(const DXF_Entity&) = default;
  DXF_Entity& operator=(DXF_Entity&&) = default;
};

/// POINT, and the base of everything that has a first point.
class DXF_Point : public DXF_Entity {
 public:
  DXF_Point() : DXF_Entity(kDxfPoint) {}

  void applyExtrusion() override;
  void parseGroup(std::int32_t code, const dxfReader& reader);

  DXF_Coord point;
  double thickness = 0.0;
  DXF_Coord extrusion = {0.0, 0.0, 1.0};

 protected:
  explicit DXF_Point(DXF_Kind ownKind) : DXF_Entity(ownKind) {}
};

/// The class index of a line weight in hundredths of a millimetre, as group 370 states it: 0 to 23, or 29 for
/// -1 (by layer), 30 for -2 (by block), 31 for any other negative weight.
std::int32_t LineWeightClass(std::int32_t weight);

#endif
