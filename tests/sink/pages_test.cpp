#include <gtest/gtest.h>

#include "entity/shapes.h"
#include "sink/sink_results.h"

namespace {

using PARSE::PageRect;

void SetPage(CMyDrawLoad& sink, double width, double height) {
  const PageRect rect{3.0, 4.0, width, height};
  sink.SetPage(&rect, 0);
}

/// Where the document point (x, y) lands now.
FilePosition PlaceOf(CMyDrawLoad& sink, double x, double y) {
  Entity_ZR::ZR_Line line;
  line.start = {x, y, 0};
  sink.AddLine(&line, 0);
  return Segments(*Curves(sink).back()).front().start;
}

CMyDrawLoad& Begun(CMyDrawLoad& sink, PARSE::FileType type) {
  sink.fileType = type;
  sink.BeginFile(0);
  return sink;
}

}  // namespace

TEST(SetPage, TurnsTheAxisOfAnSvgDocumentRoundWithinThePage) {
  CMyDrawLoad sink;
  SetPage(Begun(sink, PARSE::kSvgFile), 50, 100);
  EXPECT_THAT(PlaceOf(sink, 10, 30), IsExactly(10, 70));
}

TEST(SetPage, ReflectsAnSvgDocumentBackTheSecondTimeAndStacksThePage) {
  CMyDrawLoad sink;
  Begun(sink, PARSE::kSvgFile);
  SetPage(sink, 50, 100);
  SetPage(sink, 50, 100);
  EXPECT_THAT(PlaceOf(sink, 10, 30), IsExactly(10, -70));
}

TEST(SetPage, FlipsByTheMatrixAsItStands) {
  CMyDrawLoad sink;
  Begun(sink, PARSE::kSvgFile).pageMatrix = {1, 2, 3, 4, 5, 6};
  SetPage(sink, 50, 100);
  EXPECT_EQ(sink.pageMatrix, (Matrix2D{1, 2, -3, -4, 305, 406}));
}

TEST(SetPage, KeepsTheFirstPageOfAPdfFileWhereItIs) {
  CMyDrawLoad sink;
  SetPage(Begun(sink, PARSE::kPdfFile), 50, 200);
  EXPECT_THAT(PlaceOf(sink, 10, 30), IsExactly(10, 30));
  EXPECT_EQ(sink.firstPage, 0);
}

TEST(SetPage, MovesPdfPagesDownByNoneOneAndThreeHeights) {
  CMyDrawLoad sink;
  Begun(sink, PARSE::kPdfFile);
  SetPage(sink, 50, 200);
  EXPECT_THAT(PlaceOf(sink, 10, 30), IsExactly(10, 30));
  SetPage(sink, 50, 200);
  EXPECT_THAT(PlaceOf(sink, 10, 30), IsExactly(10, -170));
  SetPage(sink, 50, 200);
  EXPECT_THAT(PlaceOf(sink, 10, 30), IsExactly(10, -570));
  SetPage(sink, 50, 200);
  EXPECT_THAT(PlaceOf(sink, 10, 30), IsExactly(10, -1170));
}

TEST(SetPage, StacksByTheHeightOfThePageThatBegins) {
  CMyDrawLoad sink;
  Begun(sink, PARSE::kPdfFile);
  SetPage(sink, 50, 1000);
  SetPage(sink, 50, 10);
  SetPage(sink, 50, 100);
  EXPECT_THAT(PlaceOf(sink, 0, 0), IsExactly(0, -210));
}

TEST(SetPage, StacksAlongTheMatrixsOwnAxis) {
  CMyDrawLoad sink;
  Begun(sink, PARSE::kPdfFile).pageMatrix = {1, 0, 0.5, 2, 0, 0};
  SetPage(sink, 50, 100);
  SetPage(sink, 50, 100);
  EXPECT_EQ(sink.pageMatrix, (Matrix2D{1, 0, 0.5, 2, -50, -200}));
}

TEST(SetPage, KeepsThePagesSizeAndCentre) {
  CMyDrawLoad sink;
  sink.spareFloat = 7;
  SetPage(sink, 30, 80);
  EXPECT_EQ(sink.pageWidth, 30.0);
  EXPECT_EQ(sink.pageHeight, 80.0);
  EXPECT_EQ(sink.pageCenterX, 15.0);
  EXPECT_EQ(sink.pageCenterY, 40.0);
  EXPECT_EQ(sink.spareFloat, 0.0);
}

TEST(SetPage, CountsThePages) {
  CMyDrawLoad sink;
  SetPage(sink, 30, 80);
  EXPECT_EQ(sink.pageCount, 1u);
  SetPage(sink, 30, 80);
  EXPECT_EQ(sink.pageCount, 2u);
}

TEST(SetMachineInfo, KeepsAllButTheFrequency) {
  CMyDrawLoad sink;
  const PARSE::MachineInfo record{2.5, 3, 4, 5, 6};
  sink.SetMachineInfo(&record, 0);
  EXPECT_EQ(sink.machineInfo, (PARSE::MachineInfo{2.5, 3, 4, 5, 0}));
}
