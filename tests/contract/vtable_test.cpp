#include <gtest/gtest.h>
#include <vector>

#include "contract/table_length.h"
#include "contract/vtable_slot.h"
#include "drawload/exports.h"
#include "sink/my_draw_load.h"
#include "sink/reader_interface.h"

namespace {

/// The slots of the six operations of a result class.
template <typename Object>
std::vector<std::size_t> ResultSlots() {
  return {VtableSlot(&Object::TransMove),    VtableSlot(&Object::TransRotate),
          VtableSlot(&Object::TransMirrorX), VtableSlot(&Object::TransMirrorY),
          VtableSlot(&Object::TransDrag),    VtableSlot(&Object::CalRect)};
}

const std::vector<std::size_t> kSixInOrder = {0, 1, 2, 3, 4, 5};

}  // namespace

TEST(VtableOfResults, HoldsTheSixOperationsInOrder) {
  EXPECT_EQ(ResultSlots<CFileDraw>(), kSixInOrder);
  EXPECT_EQ(ResultSlots<CFilePoint>(), kSixInOrder);
  EXPECT_EQ(ResultSlots<CFileCurve>(), kSixInOrder);
  EXPECT_EQ(ResultSlots<CFileDib>(), kSixInOrder);
  EXPECT_EQ(ResultSlots<CFileGroup>(), kSixInOrder);
}

TEST(VtableOfResults, HoldsNothingElse) {
  EXPECT_EQ(TableLength<CFileDraw>(), 6u);
  EXPECT_EQ(TableLength<CFilePoint>(), 6u);
  EXPECT_EQ(TableLength<CFileCurve>(), 6u);
  EXPECT_EQ(TableLength<CFileDib>(), 6u);
  EXPECT_EQ(TableLength<CFileGroup>(), 6u);
}

TEST(VtableOfResults, HasNoPlaceForMove) { EXPECT_EQ(VtableSlot(&CFileCurve::Move), kNotVirtual); }

TEST(VtableOfDrawLoader, HoldsTheOperationsInOrderBehindTheDestructor) {
  using PARSE::DrawLoader;
  const std::vector<std::size_t> slots = {
      VtableSlot(&DrawLoader::Read),         VtableSlot(&DrawLoader::Write),
      VtableSlot(&DrawLoader::BeginFile),    VtableSlot(&DrawLoader::EndFile),
      VtableSlot(&DrawLoader::BeginGroup),   VtableSlot(&DrawLoader::EndGroup),
      VtableSlot(&DrawLoader::SetPage),      VtableSlot(&DrawLoader::SetMachineInfo),
      VtableSlot(&DrawLoader::AddPoint),     VtableSlot(&DrawLoader::AddLine),
      VtableSlot(&DrawLoader::AddPolyline),  VtableSlot(&DrawLoader::AddLWPolyline),
      VtableSlot(&DrawLoader::AddSpline),    VtableSlot(&DrawLoader::AddCircle),
      VtableSlot(&DrawLoader::AddEllipse),   VtableSlot(&DrawLoader::AddArc),
      VtableSlot(&DrawLoader::AddText),      VtableSlot(&DrawLoader::AddMText),
      VtableSlot(&DrawLoader::AddInsert),    VtableSlot(&DrawLoader::AddHatch),
      VtableSlot(&DrawLoader::AddHelix),     VtableSlot(&DrawLoader::AddMLine),
      VtableSlot(&DrawLoader::AddSolid),     VtableSlot(&DrawLoader::AddTable),
      VtableSlot(&DrawLoader::AddTolerance), VtableSlot(&DrawLoader::AddDimension),
      VtableSlot(&DrawLoader::AddImage),     VtableSlot(&DrawLoader::AddViewport),
      VtableSlot(&DrawLoader::AddMLeader),   VtableSlot(&DrawLoader::AddPath),
      VtableSlot(&DrawLoader::BeginRead),    VtableSlot(&DrawLoader::EndRead)};
  ExpectInOrderBehindTheDestructor(slots);
}

TEST(VtableOfDrawLoader, HoldsADestructorAndThirtyTwoOperations) {
  EXPECT_EQ(TableLength<PARSE::DrawLoader>(), kBehindDestructor + 32);
}

TEST(VtableOfTheSink, AddsNothing) { EXPECT_EQ(TableLength<CMyDrawLoad>(), kBehindDestructor + 32); }
