#include "sink/my_draw_load.h"

#include <gtest/gtest.h>

#include "drawload/file_dib.h"
#include "drawload/file_point.h"
#include "entity/hatch.h"
#include "entity/image.h"
#include "entity/path.h"
#include "entity/polylines.h"
#include "entity/shapes.h"
#include "entity/text.h"
#include "sink/sink_results.h"

TEST(CMyDrawLoad, BeginsWithNothing) {
  const CMyDrawLoad sink;
  EXPECT_EQ(sink.sink, nullptr);
  EXPECT_EQ(sink.fileType, 0);
  EXPECT_EQ(sink.path, "");
  EXPECT_EQ(sink.dispatcher, nullptr);
  EXPECT_EQ(sink.groupDepth, 0u);
  EXPECT_EQ(sink.firstPage, 0);
  EXPECT_EQ(sink.pageHeight, 0.0);
  EXPECT_EQ(sink.pageWidth, 0.0);
  EXPECT_EQ(sink.pageCount, 0u);
  EXPECT_EQ(sink.pageCenterX, 0.0);
  EXPECT_EQ(sink.pageCenterY, 0.0);
  EXPECT_EQ(sink.spareFloat, 0.0);
  EXPECT_EQ(sink.pageMatrix, Matrix2D{});
  EXPECT_EQ(sink.machineInfo, (PARSE::MachineInfo{1.0, 0, 0, 0, 0}));
  EXPECT_EQ(sink.spareWord, 1);
  EXPECT_EQ(sink.textMode, 0);
  EXPECT_EQ(sink.textLast, 0);
  EXPECT_EQ(sink.textGroup, nullptr);
  EXPECT_EQ(sink.pathGroup, nullptr);
  EXPECT_TRUE(sink.frames.empty());
  EXPECT_EQ(sink.results->next, sink.results);
  EXPECT_EQ(sink.results->previous, sink.results);
  EXPECT_EQ(sink.resultCursor, sink.results);
  EXPECT_EQ(sink.resultCount, 0u);
  EXPECT_FALSE(sink.HasResults());
}

TEST(CMyDrawLoad, ResetsDepthAndFirstPageWhenAFileBegins) {
  CMyDrawLoad sink;
  sink.BeginFile(0);
  EXPECT_EQ(sink.groupDepth, 0u);
  EXPECT_EQ(sink.firstPage, 1);
}

TEST(CMyDrawLoad, DestroysItsDispatcherWhenAFileEnds) {
  CMyDrawLoad sink;
  sink.dispatcher = std::make_unique<PARSE::DrawLoader>();
  sink.EndFile(0);
  EXPECT_EQ(sink.dispatcher, nullptr);
}

TEST(CMyDrawLoad, IsNeverAskedToReadOrWrite) {
  CMyDrawLoad sink;
  EXPECT_FALSE(sink.Read("drawing.dxf", 0));
  EXPECT_FALSE(sink.Write("drawing.dxf", 0));
  EXPECT_FALSE(sink.BeginRead(0));
  EXPECT_FALSE(sink.EndRead(0));
}

TEST(CMyDrawLoad, DropsWhatItDoesNotDraw) {
  CMyDrawLoad sink;
  Entity_ZR::ZR_Point point;
  Entity_ZR::ZR_Helix helix;
  Entity_ZR::ZR_Solid solid;
  EXPECT_FALSE(sink.AddPoint(&point, 0));
  EXPECT_FALSE(sink.AddHelix(&helix, 0));
  EXPECT_FALSE(sink.AddSolid(&solid, 0));
  EXPECT_FALSE(sink.AddMText(nullptr, 0));
  EXPECT_FALSE(sink.AddMLine(nullptr, 0));
  EXPECT_FALSE(sink.AddTable(nullptr, 0));
  EXPECT_FALSE(sink.AddTolerance(nullptr, 0));
  EXPECT_FALSE(sink.AddDimension(nullptr, 0));
  EXPECT_FALSE(sink.AddViewport(nullptr, 0));
  EXPECT_FALSE(sink.AddMLeader(nullptr, 0));
  EXPECT_FALSE(sink.HasResults());
}

TEST(CMyDrawLoad, WalksItsResultsInOrderAndAgain) {
  CMyDrawLoad sink;
  Entity_ZR::ZR_Line line;
  sink.AddLine(&line, 0);
  sink.AddLine(&line, 0);
  CFileDraw* first = sink.FirstResult();
  CFileDraw* second = sink.NextResult();
  EXPECT_NE(first, second);
  EXPECT_EQ(sink.FirstResult(), first);
  EXPECT_EQ(sink.NextResult(), second);
  EXPECT_EQ(sink.NextResult(), nullptr);
}

TEST(CMyDrawLoad, FreesNoPointInItsList) {
  CFilePoint mine;
  {
    CMyDrawLoad sink;
    sink.store.Append(sink.results, &mine);
  }
  mine.TransMove(1, 2);
  EXPECT_EQ(mine.x, 1.0);
}

TEST(DrawLoader, UsesNothingByDefault) {
  PARSE::DrawLoader loader;
  EXPECT_EQ(loader.sink, nullptr);
  EXPECT_EQ(loader.fileType, 0);
  EXPECT_EQ(loader.path, "");
  EXPECT_FALSE(loader.Read("drawing.dxf", 0));
  EXPECT_FALSE(loader.Write("drawing.dxf", 0));
  EXPECT_FALSE(loader.BeginRead(0));
  EXPECT_FALSE(loader.EndRead(0));
  loader.BeginFile(0);
  loader.EndFile(0);
  loader.BeginGroup(0);
  loader.EndGroup(0);
  loader.SetPage(nullptr, 0);
  loader.SetMachineInfo(nullptr, 0);
}

TEST(DrawLoader, RefusesEveryEntityByDefault) {
  PARSE::DrawLoader loader;
  EXPECT_FALSE(loader.AddPoint(nullptr, 0));
  EXPECT_FALSE(loader.AddLine(nullptr, 0));
  EXPECT_FALSE(loader.AddPolyline(nullptr, 0));
  EXPECT_FALSE(loader.AddLWPolyline(nullptr, 0));
  EXPECT_FALSE(loader.AddSpline(nullptr, 0));
  EXPECT_FALSE(loader.AddCircle(nullptr, 0));
  EXPECT_FALSE(loader.AddEllipse(nullptr, 0));
  EXPECT_FALSE(loader.AddArc(nullptr, 0));
  EXPECT_FALSE(loader.AddText(nullptr, 0));
  EXPECT_FALSE(loader.AddMText(nullptr, 0));
  EXPECT_FALSE(loader.AddInsert(nullptr, 0));
  EXPECT_FALSE(loader.AddHatch(nullptr, 0));
  EXPECT_FALSE(loader.AddHelix(nullptr, 0));
  EXPECT_FALSE(loader.AddMLine(nullptr, 0));
  EXPECT_FALSE(loader.AddSolid(nullptr, 0));
  EXPECT_FALSE(loader.AddTable(nullptr, 0));
  EXPECT_FALSE(loader.AddTolerance(nullptr, 0));
  EXPECT_FALSE(loader.AddDimension(nullptr, 0));
  EXPECT_FALSE(loader.AddImage(nullptr, 0));
  EXPECT_FALSE(loader.AddViewport(nullptr, 0));
  EXPECT_FALSE(loader.AddMLeader(nullptr, 0));
  EXPECT_FALSE(loader.AddPath(nullptr, 0));
}

TEST(PageRect, IsFourFloatsInOrder) {
  const PARSE::PageRect rect{1, 2, 3, 4};
  EXPECT_EQ(rect.x, 1.0);
  EXPECT_EQ(rect.y, 2.0);
  EXPECT_EQ(rect.width, 3.0);
  EXPECT_EQ(rect.height, 4.0);
}
