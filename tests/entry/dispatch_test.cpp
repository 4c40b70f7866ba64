#include "entry/file_dispatch.h"
#include "entry/scratch_folder.h"
#include "sink/my_draw_load.h"

namespace {

using FileDispatch = ScratchFolder;

}  // namespace

TEST_F(FileDispatch, RefusesAnEmptyPathWithoutADispatcher) {
  CMyDrawLoad sink;
  EXPECT_FALSE(DispatchFile(sink, ""));
  EXPECT_EQ(sink.dispatcher, nullptr);
}

TEST_F(FileDispatch, IsContentWithAnUnknownExtension) {
  CMyDrawLoad sink;
  EXPECT_TRUE(DispatchFile(sink, Write("drawing.png", DxfOfLines(1))));
  EXPECT_FALSE(sink.HasResults());
  EXPECT_EQ(sink.fileType, 0);
}

TEST_F(FileDispatch, MakesAPlainDispatcherThatKnowsTheSink) {
  CMyDrawLoad sink;
  DispatchFile(sink, "drawing.png");
  ASSERT_NE(sink.dispatcher, nullptr);
  EXPECT_EQ(sink.dispatcher->sink, &sink);
  EXPECT_EQ(sink.dispatcher->fileType, 0);
  EXPECT_EQ(sink.dispatcher->path, "");
}

TEST_F(FileDispatch, SetsTheFileTypeOfADxfFileAndReadsIt) {
  CMyDrawLoad sink;
  EXPECT_TRUE(DispatchFile(sink, Write("drawing.dxf", DxfOfLines(1))));
  EXPECT_EQ(sink.fileType, 1);
  EXPECT_TRUE(sink.HasResults());
}

TEST_F(FileDispatch, HasNoDispatcherLeftWhenTheReaderIsDone) {
  CMyDrawLoad sink;
  DispatchFile(sink, Write("drawing.dxf", DxfOfLines(1)));
  EXPECT_EQ(sink.dispatcher, nullptr);
}

TEST_F(FileDispatch, GivesTheReadersAnswer) {
  CMyDrawLoad sink;
  EXPECT_FALSE(DispatchFile(sink, "missing.dxf"));
}
