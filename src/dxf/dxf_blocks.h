#ifndef DRAWLOAD_DXF_DXF_BLOCKS_H
#define DRAWLOAD_DXF_DXF_BLOCKS_H

#include <memory>
#include <string>
#include <utility>
#include <vector>

#include "dxf/dxf_entity.h"

/// Ends the life of a record and leaves its memory to the arena that it lies in.
struct DXF_EndOfLife {
  void operator()(DXF_Entity* record) const { record->~DXF_Entity(); }
};

/// Entities in the order of the file. Their memory is the document's.
using DXF_EntityList = std::vector<std::unique_ptr<DXF_Entity, DXF_EndOfLife>>;

/// The head of a block definition; `point` is its base point.
class DXF_Block : public DXF_Point {
 public:
  DXF_Block() : DXF_Point(kDxfBlock) {}

  void parseGroup(std::int32_t code, const dxfReader& reader);

  std::string name;
  std::int32_t flags = 0;
};

/// A block in the store, with what stands in it.
class DXF_ifaceBlock : public DXF_Block {
 public:
  DXF_ifaceBlock() = default;
  explicit DXF_ifaceBlock(DXF_Block head) : DXF_Block(std::move(head)) {}

  DXF_EntityList entities;
};

/// The block stays a name until conversion. `angle` in radians.
class DXF_Insert : public DXF_Point {
 public:
  DXF_Insert() : DXF_Point(kDxfInsert) {}

  void parseGroup(std::int32_t code, const dxfReader& reader);

  std::string blockName;
  double xScale = 1.0;
  double yScale = 1.0;
  double zScale = 1.0;
  double angle = 0.0;
  std::int32_t columnCount = 1;
  std::int32_t rowCount = 1;
  double columnSpacing = 0.0;
  double rowSpacing = 0.0;
};

#endif
