#include "dxf/dxf_interface.h"

#include <utility>

DXF_Interface::DXF_Interface() : document(std::make_unique<DXF_Document>()) {
  currentBlock = document->modelBlock.get();
}

DXF_Interface::~DXF_Interface() = default;

support::Arena& DXF_Interface::memoryOfCurrentBlock() {
  return currentBlock == document->modelBlock.get() ? document->modelMemory : document->blockMemory;
}

template <typename Record>
void DXF_Interface::store(Record&& record) {
  void* room = memoryOfCurrentBlock().RoomFor<Record>();
  DXF_EntityList::value_type kept(new (room) Record(std::forward<Record>(record)));
  currentBlock->entities.push_back(std::move(kept));
}

template <typename Record>
void DXF_Interface::storeCounted(Record&& record, std::int32_t& counter) {
  store(std::forward<Record>(record));
  if (!inBlock) ++counter;
}

void DXF_Interface::addHeader(DXF_Header&& record) {
  document->header = std::make_unique<DXF_Header>(std::move(record));
}

void DXF_Interface::addAppId(const DXF_AppId&) {}

void DXF_Interface::reservedTable() {}

void DXF_Interface::addDimStyle(const DXF_Dimstyle& record) {
  document->dimStyles.push_back(std::make_unique<DXF_Dimstyle>(record));
}

void DXF_Interface::addLType(const DXF_LType& record) {
  document->lineTypes.push_back(std::make_unique<DXF_LType>(record));
}

void DXF_Interface::addLayer(const DXF_Layer& record) {
  document->layers.push_back(std::make_unique<DXF_Layer>(record));
}

void DXF_Interface::addTextStyle(const DXF_TextStyle& record) {
  document->textStyles.push_back(std::make_unique<DXF_TextStyle>(record));
}

void DXF_Interface::addVport(const DXF_Vport&) {}

void DXF_Interface::reservedView() {}

void DXF_Interface::addBlock(const DXF_Block& record) {
  document->blocks.push_back(std::make_unique<DXF_ifaceBlock>(record));
  currentBlock = document->blocks.back().get();
  inBlock = true;
  ++blockCount;
}

void DXF_Interface::endBlock() {
  currentBlock = document->modelBlock.get();
  inBlock = false;
}

void DXF_Interface::addPoint(DXF_Point&& record) { storeCounted(std::move(record), pointCount); }

void DXF_Interface::addLine(DXF_Line&& record) { storeCounted(std::move(record), lineCount); }

void DXF_Interface::addArc(DXF_Arc&& record) { storeCounted(std::move(record), arcCount); }

void DXF_Interface::addCircle(DXF_Circle&& record) { storeCounted(std::move(record), circleCount); }

void DXF_Interface::addEllipse(DXF_Ellipse&& record) { storeCounted(std::move(record), ellipseCount); }

void DXF_Interface::addLWPolyline(DXF_LWPolyline&& record) {
  support::Settle(record.vertices, memoryOfCurrentBlock());
  storeCounted(std::move(record), lwPolylineCount);
}

void DXF_Interface::addPolyline(DXF_Polyline&& record) { storeCounted(std::move(record), polylineCount); }

void DXF_Interface::addSpline(DXF_Spline&& record) {
  support::Arena& memory = memoryOfCurrentBlock();
  support::Settle(record.knots, memory);
  support::Settle(record.controlPoints, memory);
  support::Settle(record.weights, memory);
  support::Settle(record.fitPoints, memory);
  storeCounted(std::move(record), splineCount);
}

void DXF_Interface::reservedKnot() {}

void DXF_Interface::addInsert(DXF_Insert&& record) { storeCounted(std::move(record), insertCount); }

void DXF_Interface::addMText(DXF_MText&& record) { storeCounted(std::move(record), mtextCount); }

void DXF_Interface::addText(DXF_Text&& record) { storeCounted(std::move(record), textCount); }

void DXF_Interface::addViewport(const DXF_Viewport&) {}

void DXF_Interface::addImage(DXF_Image&& record) { storeCounted(std::move(record), imageCount); }

void DXF_Interface::addImageDef(DXF_ImageDef&& record) {
  document->imageDefs.push_back(std::make_unique<DXF_ImageDef>(std::move(record)));
}

void DXF_Interface::reservedObject() {}

void DXF_Interface::addPlotSettings(const DXF_PlotSettings&) {}

void DXF_Interface::addHatch(DXF_Hatch&& record) { storeCounted(std::move(record), hatchCount); }

void DXF_Interface::addHelix(DXF_Helix&& record) { storeCounted(std::move(record), helixCount); }

void DXF_Interface::addMline(DXF_Mline&& record) { storeCounted(std::move(record), mlineCount); }

void DXF_Interface::addSolid(DXF_Solid&& record) { storeCounted(std::move(record), solidCount); }

void DXF_Interface::addTable(DXF_Table&& record) { store(std::move(record)); }

void DXF_Interface::addMLeader(DXF_MLeader&& record) { storeCounted(std::move(record), mleaderCount); }

void DXF_Interface::addDimension(DXF_Dimension&& record) { storeCounted(std::move(record), dimensionCount); }

void DXF_Interface::addMlineStyle(DXF_MlineStyle&& record) {
  document->mlineStyles.push_back(std::make_unique<DXF_MlineStyle>(std::move(record)));
}
