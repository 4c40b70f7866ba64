#ifndef DRAWLOAD_DXF_CONVERT_H
#define DRAWLOAD_DXF_CONVERT_H

#include <cstdint>
#include <string_view>
#include <unordered_map>
#include <vector>

#include "dxf/dxf_annotations.h"
#include "dxf/dxf_document.h"
#include "dxf/dxf_hatch.h"
#include "dxf/dxf_mleader.h"
#include "dxf/dxf_polylines.h"
#include "dxf/dxf_shapes.h"
#include "dxf/dxf_spline.h"
#include "dxf/dxf_text.h"
#include "dxf/picture_files.h"
#include "dxf/text_format.h"
#include "entity/annotations.h"
#include "entity/hatch.h"
#include "entity/image.h"
#include "entity/insert.h"
#include "entity/mleader.h"
#include "entity/mtext.h"
#include "entity/polylines.h"
#include "entity/shapes.h"
#include "entity/spline.h"
#include "entity/text.h"

/// The conversion of one drawing: what an entity takes from the rest of its file, and what the conversion has
/// spent so far.
class DXF_Conversion {
 public:
  explicit DXF_Conversion(const DXF_Document& source);

  /// The part of an entity that all kinds share: units, visibility, line, layer, colour, dashes, origin.
  void fillCommon(const DXF_Entity& record, Entity_ZR::ZR_Entity& entity);

  /// The format of the texts of a style.
  const DXF_TextFormat& formatOf(std::string_view styleName);

  const DXF_Document& document;
  DXF_PictureFiles pictures;
  int blockDepth = 0;  ///< blocks that are being expanded around the current record

 private:
  /// What the entities of one layer take from it.
  struct LayerLook {
    std::uint8_t on = 1;
    std::uint32_t color = 0;
    Entity_ZR::SharedNumbers dashes;
  };
  const LayerLook& lookOf(std::string_view layerName);
  LayerLook resolve(const DXF_Layer& layer);
  const Entity_ZR::SharedNumbers& dashesOf(std::string_view lineTypeName);
  const Entity_ZR::SharedNumbers& dashesOf(const DXF_Entity& record, const LayerLook& look);

  std::int32_t units = 0;
  Entity_ZR::Point3 origin;
  // Of the names that came up so far, by where they lie: records of one layer point at one name.
  std::unordered_map<const char*, LayerLook> layerLooks;
  std::unordered_map<const char*, Entity_ZR::SharedNumbers> dashes;  ///< of line types
  std::unordered_map<const DXF_TextStyle*, DXF_TextFormat> textFormats;
};

/// Counts a block while it is expanded.
class DXF_BlockScope {
 public:
  explicit DXF_BlockScope(DXF_Conversion& owner) : conversion(owner) { ++conversion.blockDepth; }
  DXF_BlockScope(const DXF_BlockScope&) = delete;
  DXF_BlockScope& operator=(const DXF_BlockScope&) = delete;
  ~DXF_BlockScope() { --conversion.blockDepth; }

 private:
  DXF_Conversion& conversion;
};

// One operation per kind: the common part, then what the kind has of its own.
void fillEntity(DXF_Conversion&, const DXF_Point& record, Entity_ZR::ZR_Point& entity);
void fillEntity(DXF_Conversion&, const DXF_Line& record, Entity_ZR::ZR_Line& entity);
void fillEntity(DXF_Conversion&, const DXF_Polyline& record, Entity_ZR::ZR_Polyline& entity);
void fillEntity(DXF_Conversion&, const DXF_LWPolyline& record, Entity_ZR::ZR_LWPolyline& entity);
void fillEntity(DXF_Conversion&, const DXF_Spline& record, Entity_ZR::ZR_Spline& entity);
void fillEntity(DXF_Conversion&, const DXF_Circle& record, Entity_ZR::ZR_Circle& entity);
void fillEntity(DXF_Conversion&, const DXF_Ellipse& record, Entity_ZR::ZR_Ellipse& entity);
void fillEntity(DXF_Conversion&, const DXF_Arc& record, Entity_ZR::ZR_Arc& entity);
void fillEntity(DXF_Conversion&, const DXF_Text& record, Entity_ZR::ZR_Text& entity);
void fillEntity(DXF_Conversion&, const DXF_MText& record, Entity_ZR::ZR_MText& entity);
/// The placement is left to `placeInsert`.
void fillEntity(DXF_Conversion&, const DXF_Insert& record, Entity_ZR::ZR_Insert& entity);
void fillEntity(DXF_Conversion&, const DXF_Hatch& record, Entity_ZR::ZR_Hatch& entity);
void fillEntity(DXF_Conversion&, const DXF_Helix& record, Entity_ZR::ZR_Helix& entity);
void fillEntity(DXF_Conversion&, const DXF_Mline& record, Entity_ZR::ZR_MLine& entity);
void fillEntity(DXF_Conversion&, const DXF_Solid& record, Entity_ZR::ZR_Solid& entity);
/// The entities of the table's block are left to `DXF_RW::convertBlockInto`.
void fillEntity(DXF_Conversion&, const DXF_Table& record, Entity_ZR::ZR_Table& entity);
/// No reader makes a record of its own for this kind.
void fillEntity(DXF_Conversion&, const DXF_Entity& record, Entity_ZR::ZR_Tolerance& entity);
void fillEntity(DXF_Conversion&, const DXF_Dimension& record, Entity_ZR::ZR_Dimension& entity);
void fillEntity(DXF_Conversion&, const DXF_Image& record, Entity_ZR::ZR_Image& entity);
void fillEntity(DXF_Conversion&, const DXF_Viewport& record, Entity_ZR::ZR_Viewport& entity);
void fillEntity(DXF_Conversion&, const DXF_MLeader& record, Entity_ZR::ZR_MLeader& entity);

/// The whole placement of a block reference: scale, then rotation, about the insertion point; the block's
/// base point comes to lie there (`block` may be null). `own` is the entity's matrix before; `outer` maps the
/// surrounding block, or is null.
Matrix2D placeInsert(const DXF_Insert& record, const DXF_Block* block, const Matrix2D& own,
                     const Matrix2D* outer);

#endif
