#include <gtest/gtest.h>
#include <vector>

#include "contract/table_length.h"
#include "contract/vtable_slot.h"
#include "dxf/dxf_converter.h"
#include "dxf/dxf_entity.h"
#include "dxf/dxf_interface.h"
#include "dxf/dxf_reader.h"
#include "dxf/dxf_rw.h"

TEST(VtableOfDxfReader, HoldsADestructorAndEightOperationsInOrder) {
  const std::vector<std::size_t> slots = {
      VtableSlot(&dxfReader::fetchGroupCode), VtableSlot(&dxfReader::fetchText),
      VtableSlot(&dxfReader::fetchLine),      VtableSlot(&dxfReader::fetchShort),
      VtableSlot(&dxfReader::fetchLong),      VtableSlot(&dxfReader::fetchWide),
      VtableSlot(&dxfReader::fetchReal),      VtableSlot(&dxfReader::fetchFlag)};
  ExpectInOrderBehindTheDestructor(slots);
  EXPECT_EQ(TableLength<dxfReader>(), kBehindDestructor + 8);
  EXPECT_EQ(VtableSlot(&dxfReader::nextGroup), kNotVirtual);
  EXPECT_EQ(VtableSlot(&dxfReader::handleFromText), kNotVirtual);
}

TEST(VtableOfDxfConverter, HoldsADestructorAndBothDirections) {
  ExpectInOrderBehindTheDestructor(
      {VtableSlot(&DXF_Converter::fromUtf8), VtableSlot(&DXF_Converter::toUtf8)});
  EXPECT_EQ(TableLength<DXF_Converter>(), kBehindDestructor + 2);
  EXPECT_EQ(TableLength<DXF_ConvTable>(), kBehindDestructor + 2);
  EXPECT_EQ(TableLength<DXF_ConvDBCSTable>(), kBehindDestructor + 2);
}

TEST(VtableOfDxfInterface, HoldsADestructorAndThirtySixOperationsInOrder) {
  const std::vector<std::size_t> slots = {
      VtableSlot(&DXF_Interface::addHeader),      VtableSlot(&DXF_Interface::addAppId),
      VtableSlot(&DXF_Interface::reservedTable),  VtableSlot(&DXF_Interface::addDimStyle),
      VtableSlot(&DXF_Interface::addLType),       VtableSlot(&DXF_Interface::addLayer),
      VtableSlot(&DXF_Interface::addTextStyle),   VtableSlot(&DXF_Interface::addVport),
      VtableSlot(&DXF_Interface::reservedView),   VtableSlot(&DXF_Interface::addBlock),
      VtableSlot(&DXF_Interface::endBlock),       VtableSlot(&DXF_Interface::addPoint),
      VtableSlot(&DXF_Interface::addLine),        VtableSlot(&DXF_Interface::addArc),
      VtableSlot(&DXF_Interface::addCircle),      VtableSlot(&DXF_Interface::addEllipse),
      VtableSlot(&DXF_Interface::addLWPolyline),  VtableSlot(&DXF_Interface::addPolyline),
      VtableSlot(&DXF_Interface::addSpline),      VtableSlot(&DXF_Interface::reservedKnot),
      VtableSlot(&DXF_Interface::addInsert),      VtableSlot(&DXF_Interface::addMText),
      VtableSlot(&DXF_Interface::addText),        VtableSlot(&DXF_Interface::addViewport),
      VtableSlot(&DXF_Interface::addImage),       VtableSlot(&DXF_Interface::addImageDef),
      VtableSlot(&DXF_Interface::reservedObject), VtableSlot(&DXF_Interface::addPlotSettings),
      VtableSlot(&DXF_Interface::addHatch),       VtableSlot(&DXF_Interface::addHelix),
      VtableSlot(&DXF_Interface::addMline),       VtableSlot(&DXF_Interface::addSolid),
      VtableSlot(&DXF_Interface::addTable),       VtableSlot(&DXF_Interface::addMLeader),
      VtableSlot(&DXF_Interface::addDimension),   VtableSlot(&DXF_Interface::addMlineStyle)};
  EXPECT_EQ(slots.size(), 36u);
  ExpectInOrderBehindTheDestructor(slots);
  EXPECT_EQ(TableLength<DXF_Interface>(), kBehindDestructor + 36);
}

TEST(VtableOfDxfEntity, HoldsADestructorAndTheExtrusion) {
  EXPECT_EQ(VtableSlot(&DXF_Entity::applyExtrusion), kBehindDestructor);
  EXPECT_EQ(TableLength<DXF_Entity>(), kBehindDestructor + 1);
}

TEST(VtableOfDxfRw, AddsResetReaderAndDrawBlockBehindTheSharedTable) {
  const std::size_t shared = TableLength<PARSE::DrawLoader>();
  EXPECT_EQ(VtableSlot(&DXF_RW::ResetReader), shared);
  EXPECT_EQ(VtableSlot(&DXF_RW::DrawBlock), shared + 1);
  EXPECT_EQ(TableLength<DXF_RW>(), shared + 2);
}
