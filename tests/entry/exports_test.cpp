#include "drawload/exports.h"

#include <gmock/gmock.h>
#include <memory>
#include <vector>

#include "entry/scratch_folder.h"

namespace {

using testing::ElementsAre;

/// Where the line of a result ends along x.
double EndOf(const CFileDraw* object) {
  return static_cast<const CFileCurve*>(object)->segmentHead->next->end.x;
}

/// Walks to the end: where the lines of all results end.
std::vector<double> WalkToTheEnd() {
  std::vector<double> ends;
  CFileDraw* object = nullptr;
  for (int found = GetFirstData_Z7(&object); found == 1; found = GetNextData_Z7(&object)) {
    EXPECT_EQ(object->kind, kFileCurve);
    ends.push_back(EndOf(object));
  }
  return ends;
}

/// Leaves no parse behind, whatever the test did.
class Exports : public ScratchFolder {
 protected:
  ~Exports() override { DrawLoad_Z7(nullptr); }
};

}  // namespace

TEST_F(Exports, ReadADxfFileWhateverTheCaseOfItsExtension) {
  EXPECT_EQ(DrawLoad_Z7(Write("drawing.dxf", DxfOfLines(1))), 1);
  EXPECT_EQ(DrawLoad_Z7(Write("DRAWING.DXF", DxfOfLines(1))), 1);
  EXPECT_EQ(DrawLoad_Z7(Write("Drawing.dXf", DxfOfLines(1))), 1);
}

TEST_F(Exports, JudgeByTheLastDotAlone) {
  EXPECT_EQ(DrawLoad_Z7(Write("drawing.svg.txt.dxf", DxfOfLines(1))), 1);
  EXPECT_EQ(DrawLoad_Z7(Write("drawing.dxf.txt", DxfOfLines(1))), 0);
}

TEST_F(Exports, CompareTheWholeExtension) {
  EXPECT_EQ(DrawLoad_Z7(Write("drawing.dxfx", DxfOfLines(1))), 0);
  EXPECT_EQ(DrawLoad_Z7(Write("drawing.dx", DxfOfLines(1))), 0);
  EXPECT_EQ(DrawLoad_Z7(Write("drawing.", DxfOfLines(1))), 0);
}

TEST_F(Exports, TakeTheLastDotOfADirectoryForTheFilesOwn) {
  EXPECT_EQ(DrawLoad_Z7(Write("version.1/dxf", DxfOfLines(1))), 0);
  EXPECT_EQ(DrawLoad_Z7(Write("all.dxf/drawing", DxfOfLines(1))), 0);
  EXPECT_EQ(DrawLoad_Z7(Write("version.1/drawing.dxf", DxfOfLines(1))), 1);
}

TEST_F(Exports, TakeAWholePathWithoutADotForTheExtension) {
  EXPECT_EQ(DrawLoad_Z7(Write("dxf", DxfOfLines(1))), 1);
  EXPECT_EQ(DrawLoad_Z7(Write("DXF", DxfOfLines(1))), 1);
  EXPECT_EQ(DrawLoad_Z7(Write("drawings/dxf", DxfOfLines(1))), 0);
}

TEST_F(Exports, ReadAFileThatIsAllExtension) { EXPECT_EQ(DrawLoad_Z7(Write(".dxf", DxfOfLines(1))), 1); }

TEST_F(Exports, FindNothingWithoutAPath) {
  EXPECT_EQ(DrawLoad_Z7(nullptr), 0);
  EXPECT_EQ(DrawLoad_Z7(""), 0);
}

TEST_F(Exports, FindNothingWhereThereIsNoFile) {
  EXPECT_EQ(DrawLoad_Z7("missing.dxf"), 0);
  EXPECT_EQ(DrawLoad_Z7("missing.svg"), 0);
  EXPECT_EQ(DrawLoad_Z7("missing.pdf"), 0);
  EXPECT_EQ(DrawLoad_Z7("missing.png"), 0);
  EXPECT_EQ(DrawLoad_Z7("dxf"), 0);
}

TEST_F(Exports, FindNothingInAFolder) {
  std::filesystem::create_directory("folder.dxf");
  EXPECT_EQ(DrawLoad_Z7("folder.dxf"), 0);
}

TEST_F(Exports, FindNothingInAFileOfAnotherContent) {
  EXPECT_EQ(DrawLoad_Z7(Write("empty.dxf", "")), 0);
  EXPECT_EQ(DrawLoad_Z7(Write("picture.dxf", std::string("\x89PNG\r\n\x1a\n\0\0\0\rIHDR", 16))), 0);
  EXPECT_EQ(DrawLoad_Z7(Write("drawing.svg", DxfOfLines(1))), 0);
  EXPECT_EQ(DrawLoad_Z7(Write("drawing.pdf", DxfOfLines(1))), 0);
}

TEST_F(Exports, HandOutTheResultsInOrder) {
  ASSERT_EQ(DrawLoad_Z7(Write("a.dxf", DxfOfLines(3))), 1);
  EXPECT_THAT(WalkToTheEnd(), ElementsAre(1, 2, 3));
}

TEST_F(Exports, LeaveTheOutPointerAloneAtTheEnd) {
  ASSERT_EQ(DrawLoad_Z7(Write("a.dxf", DxfOfLines(1))), 1);
  CFileDraw* object = nullptr;
  ASSERT_EQ(GetFirstData_Z7(&object), 1);
  const CFileDraw* last = object;
  EXPECT_EQ(GetNextData_Z7(&object), 0);
  EXPECT_EQ(object, last);
}

TEST_F(Exports, HaveNothingLeftBehindTheEndOfTheWalk) {
  ASSERT_EQ(DrawLoad_Z7(Write("a.dxf", DxfOfLines(1))), 1);
  WalkToTheEnd();
  CFileDraw* object = nullptr;
  EXPECT_EQ(GetFirstData_Z7(&object), 0);
  EXPECT_EQ(GetNextData_Z7(&object), 0);
  EXPECT_EQ(object, nullptr);
}

TEST_F(Exports, HandOutNothingBeforeTheFirstLoad) {
  CFileDraw* object = nullptr;
  EXPECT_EQ(GetNextData_Z7(&object), 0);
  EXPECT_EQ(GetFirstData_Z7(&object), 0);
  EXPECT_EQ(object, nullptr);
}

TEST_F(Exports, StartTheWalkAgainInTheMiddle) {
  ASSERT_EQ(DrawLoad_Z7(Write("a.dxf", DxfOfLines(3))), 1);
  CFileDraw* object = nullptr;
  ASSERT_EQ(GetFirstData_Z7(&object), 1);
  ASSERT_EQ(GetNextData_Z7(&object), 1);
  EXPECT_EQ(EndOf(object), 2.0);
  EXPECT_THAT(WalkToTheEnd(), ElementsAre(1, 2, 3));
}

TEST_F(Exports, BeginAtTheFirstResultAlsoWithoutAskingForIt) {
  ASSERT_EQ(DrawLoad_Z7(Write("a.dxf", DxfOfLines(2))), 1);
  CFileDraw* object = nullptr;
  ASSERT_EQ(GetNextData_Z7(&object), 1);
  EXPECT_EQ(EndOf(object), 1.0);
}

TEST_F(Exports, ThrowTheFirstResultsAwayAtTheSecondLoad) {
  ASSERT_EQ(DrawLoad_Z7(Write("a.dxf", DxfOfLines(3))), 1);
  CFileDraw* object = nullptr;
  ASSERT_EQ(GetFirstData_Z7(&object), 1);
  ASSERT_EQ(DrawLoad_Z7(Write("b.dxf", DxfOfLines(1))), 1);
  EXPECT_THAT(WalkToTheEnd(), ElementsAre(1));
}

TEST_F(Exports, ThrowTheFirstResultsAwayAlsoWhenTheSecondLoadFindsNothing) {
  ASSERT_EQ(DrawLoad_Z7(Write("a.dxf", DxfOfLines(3))), 1);
  EXPECT_EQ(DrawLoad_Z7("missing.dxf"), 0);
  CFileDraw* object = nullptr;
  EXPECT_EQ(GetFirstData_Z7(&object), 0);
  EXPECT_EQ(object, nullptr);
}

TEST_F(Exports, LetACopyOutliveTheWalk) {
  ASSERT_EQ(DrawLoad_Z7(Write("a.dxf", DxfOfLines(1))), 1);
  CFileDraw* object = nullptr;
  ASSERT_EQ(GetFirstData_Z7(&object), 1);
  const CFileCurve copy(*static_cast<CFileCurve*>(object));
  EXPECT_EQ(GetNextData_Z7(&object), 0);
  EXPECT_EQ(copy.segmentCount, 1);
  EXPECT_EQ(copy.cutSpeed, 100.0);
}

TEST_F(Exports, NeverHandOutAGroupOrAPoint) {
  const char* name =
      Write("a.dxf",
            "0\nSECTION\n2\nBLOCKS\n0\nBLOCK\n2\nB\n10\n0\n20\n0\n0\nLINE\n8\n0\n11\n5\n0\nENDBLK\n0\n"
            "ENDSEC\n0\nSECTION\n2\nENTITIES\n0\nPOINT\n10\n1\n20\n1\n0\nINSERT\n2\nB\n10\n0\n20\n0\n"
            "0\nENDSEC\n0\nEOF\n");
  ASSERT_EQ(DrawLoad_Z7(name), 1);
  EXPECT_THAT(WalkToTheEnd(), ElementsAre(5));
}
