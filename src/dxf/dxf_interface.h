#ifndef DRAWLOAD_DXF_DXF_INTERFACE_H
#define DRAWLOAD_DXF_DXF_INTERFACE_H

#include <cstdint>
#include <memory>
#include <string>

#include "dxf/dxf_annotations.h"
#include "dxf/dxf_blocks.h"
#include "dxf/dxf_document.h"
#include "dxf/dxf_hatch.h"
#include "dxf/dxf_mleader.h"
#include "dxf/dxf_polylines.h"
#include "dxf/dxf_shapes.h"
#include "dxf/dxf_spline.h"
#include "dxf/dxf_text.h"

/// Receives finished records from the walkers and files them in the document store: entities and objects are
/// moved into it; table entries are copied, as a walker may add an open entry once more.
///
/// The order of the virtual operations is fixed. The `reserved` ones keep the places of four kinds of records
/// that are not read, so that every other operation has its own place. They do nothing and have no caller.
class DXF_Interface {
 public:
  DXF_Interface();
  DXF_Interface(const DXF_Interface&) = delete;
  DXF_Interface& operator=(const DXF_Interface&) = delete;

  virtual ~DXF_Interface();
  virtual void addHeader(DXF_Header&& record);
  virtual void addAppId(const DXF_AppId& record);
  virtual void reservedTable();
  virtual void addDimStyle(const DXF_Dimstyle& record);
  virtual void addLType(const DXF_LType& record);
  virtual void addLayer(const DXF_Layer& record);
  virtual void addTextStyle(const DXF_TextStyle& record);
  virtual void addVport(const DXF_Vport& record);
  virtual void reservedView();
  virtual void addBlock(const DXF_Block& record);
  virtual void endBlock();
  virtual void addPoint(DXF_Point&& record);
  virtual void addLine(DXF_Line&& record);
  virtual void addArc(DXF_Arc&& record);
  virtual void addCircle(DXF_Circle&& record);
  virtual void addEllipse(DXF_Ellipse&& record);
  virtual void addLWPolyline(DXF_LWPolyline&& record);
  virtual void addPolyline(DXF_Polyline&& record);
  virtual void addSpline(DXF_Spline&& record);
  virtual void reservedKnot();
  virtual void addInsert(DXF_Insert&& record);
  virtual void addMText(DXF_MText&& record);
  virtual void addText(DXF_Text&& record);
  virtual void addViewport(const DXF_Viewport& record);
  virtual void addImage(DXF_Image&& record);
  virtual void addImageDef(DXF_ImageDef&& record);
  virtual void reservedObject();
  virtual void addPlotSettings(const DXF_PlotSettings& record);
  virtual void addHatch(DXF_Hatch&& record);
  virtual void addHelix(DXF_Helix&& record);
  virtual void addMline(DXF_Mline&& record);
  virtual void addSolid(DXF_Solid&& record);
  virtual void addTable(DXF_Table&& record);
  virtual void addMLeader(DXF_MLeader&& record);
  virtual void addDimension(DXF_Dimension&& record);
  virtual void addMlineStyle(DXF_MlineStyle&& record);

  std::string path;
  bool inBlock = false;
  DXF_ifaceBlock* currentBlock;  ///< where entities go: a block, or the model-space block
  bool readOk = false;
  std::unique_ptr<DXF_Document> document;

  // Entities outside blocks, by kind, and all blocks.
  std::int32_t pointCount = 0;
  std::int32_t lineCount = 0;
  std::int32_t circleCount = 0;
  std::int32_t arcCount = 0;
  std::int32_t ellipseCount = 0;
  std::int32_t textCount = 0;
  std::int32_t mtextCount = 0;
  std::int32_t lwPolylineCount = 0;
  std::int32_t polylineCount = 0;
  std::int32_t splineCount = 0;
  std::int32_t helixCount = 0;
  std::int32_t solidCount = 0;
  std::int32_t mlineCount = 0;
  std::int32_t imageCount = 0;
  std::int32_t hatchCount = 0;
  std::int32_t dimensionCount = 0;
  std::int32_t mleaderCount = 0;
  std::int32_t insertCount = 0;
  std::int32_t blockCount = 0;

 private:
  /// For the records and their lists, in the order in which they come.
  support::Arena& memoryOfCurrentBlock();
  template <typename Record>
  void store(Record&& record);
  template <typename Record>
  void storeCounted(Record&& record, std::int32_t& counter);
};

#endif
