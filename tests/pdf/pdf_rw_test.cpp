#include "pdf/pdf_rw.h"

#include <cstdio>
#include <fstream>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <unistd.h>

#include "pdf/pdf_builder.h"
#include "recording/recording_sink.h"

namespace {

using testing::ElementsAre;
using testing::SizeIs;

constexpr double k = 0.35277777777777775;

/// A file that lives as long as the object.
class TemporaryPdf {
 public:
  explicit TemporaryPdf(const std::string& bytes)
      : path(testing::TempDir() + "drawload_pdf_rw_" + std::to_string(getpid()) + ".pdf") {
    std::ofstream(path, std::ios::binary) << bytes;
  }
  TemporaryPdf(const TemporaryPdf&) = delete;
  TemporaryPdf& operator=(const TemporaryPdf&) = delete;
  ~TemporaryPdf() { std::remove(path.c_str()); }

  const std::string path;
};

/// Reads a file into a sink, and keeps what went to standard output.
struct ReadPdf {
  explicit ReadPdf(const std::string& bytes, bool answer = true) : file(bytes) {
    sink.answer = answer;
    reader.sink = &sink;
    testing::internal::CaptureStdout();
    try {
      result = reader.Read(file.path, 0);
    } catch (const std::exception&) {
      thrown = true;
    }
    notes = testing::internal::GetCapturedStdout();
  }

  TemporaryPdf file;
  RecordingSink sink;
  PDF_RW reader;
  std::string notes;
  bool result = false;
  bool thrown = false;
};

std::string OnePage(const std::string& content, const std::string& keys = "") {
  PdfBuilder file;
  const int page = file.AddPage(content, keys);
  return file.BuildPages({page});
}

// The root of the page tree is no kid of any node, so it is no page itself.
TEST(PdfReader, SendsEachPageAndItsContent) {
  PdfBuilder file;
  const int first = file.AddPage("0 0 m 72 72 l S\n");
  const int second = file.AddPage("(a) Tj\n");
  const ReadPdf read(file.BuildPages({first, second}));
  EXPECT_TRUE(read.result);
  EXPECT_THAT(read.sink.Names(),
              ElementsAre("BeginFile", "SetPage", "AddPath", "SetPage", "AddText", "EndFile"));
}

TEST(PdfReader, SendsPagesInMillimetres) {
  const ReadPdf read(OnePage(""));
  const PARSE::PageRect& page = read.sink.calls.at(1).page;
  EXPECT_EQ(page.x, 0.0);
  EXPECT_NEAR(page.width, 215.9, 1e-9);
  EXPECT_NEAR(page.height, 279.4, 1e-9);
}

TEST(PdfReader, SendsTheFarCornerOfTheBoxAsItsSize) {
  PdfBuilder file;
  const int page = file.Add("<< /Type /Page /MediaBox [ 10 20 110 220 ] >>");
  const ReadPdf read(file.BuildPages({page}));
  EXPECT_EQ(read.sink.calls.at(1).page, (PARSE::PageRect{10 * k, 20 * k, 110 * k, 220 * k}));
}

TEST(PdfReader, SendsEmptyPagesToo) {
  PdfBuilder file;
  const int node = file.AddNode({file.AddPage(""), file.AddPage("")});
  const ReadPdf read(file.BuildPages({node}));
  EXPECT_THAT(read.sink.Names(), ElementsAre("BeginFile", "SetPage", "SetPage", "SetPage", "EndFile"));
}

TEST(PdfReader, KeepsDrawingOrder) {
  PdfBuilder file;
  const int image = file.AddStream("x", "/Subtype /Image /Width 1 /Height 1");
  const int page = file.AddPage("(a) Tj\n/Im0 Do\n0 0 m\n1 1 l\nS\n(b) Tj\n",
                                "/Resources << /XObject << /Im0 " + PdfBuilder::Reference(image) + " >> >>");
  const ReadPdf read(file.BuildPages({page}));
  EXPECT_THAT(read.sink.Names(),
              ElementsAre("BeginFile", "SetPage", "AddText", "AddImage", "AddPath", "AddText", "EndFile"));
}

TEST(PdfReader, GoesOnWhereTheSinkRefuses) {
  const ReadPdf read(OnePage("(a) Tj\n(b) Tj\n"), false);
  EXPECT_TRUE(read.result);
  EXPECT_THAT(read.sink.All<Entity_ZR::ZR_Text>(), SizeIs(2));
}

TEST(PdfReader, RunsWithASinkThatKeepsAllDefaults) {
  const TemporaryPdf file(OnePage("(a) Tj\n"));
  PARSE::DrawLoader sink;
  PDF_RW reader;
  reader.sink = &sink;
  testing::internal::CaptureStdout();
  EXPECT_TRUE(reader.Read(file.path, 0));
  testing::internal::GetCapturedStdout();
}

TEST(PdfReader, RefusesAFileOfVersionTwo) {
  std::string bytes = OnePage("(a) Tj\n");
  bytes[5] = '2';
  const ReadPdf read(bytes);
  EXPECT_FALSE(read.result);
  EXPECT_THAT(read.sink.Names(), ElementsAre("BeginFile", "EndFile"));
}

TEST(PdfReader, RefusesAFileThatIsNotThere) {
  RecordingSink sink;
  PDF_RW reader;
  reader.sink = &sink;
  testing::internal::CaptureStdout();
  EXPECT_FALSE(reader.Read(testing::TempDir() + "no such file.pdf", 0));
  testing::internal::GetCapturedStdout();
  EXPECT_THAT(sink.Names(), ElementsAre("BeginFile", "EndFile"));
}

TEST(PdfReader, SucceedsWithoutAnyPages) {
  PdfBuilder file;
  const ReadPdf read(file.Build(file.Add("<< /Type /Catalog >>")));
  EXPECT_TRUE(read.result);
  EXPECT_THAT(read.sink.Names(), ElementsAre("BeginFile", "EndFile"));
}

TEST(PdfReader, ARangeFailureOnTheLastPageKeepsAllPagesFromTheSink) {
  PdfBuilder file;
  const int first = file.AddPage("(a) Tj\n");
  const int second = file.AddPage("1 0 0 cm\n");
  const ReadPdf read(file.BuildPages({first, second}));
  EXPECT_TRUE(read.thrown);
  EXPECT_THAT(read.sink.Names(), ElementsAre("BeginFile"));
}

TEST(PdfReader, CanReadASecondFile) {
  ReadPdf read(OnePage("(a) Tj\n"));
  const TemporaryPdf second(OnePage("(b) Tj\n"));
  read.sink.calls.clear();
  testing::internal::CaptureStdout();
  EXPECT_TRUE(read.reader.Read(second.path, 0));
  testing::internal::GetCapturedStdout();
  ASSERT_THAT(read.sink.All<Entity_ZR::ZR_Text>(), SizeIs(1));
  EXPECT_EQ(read.sink.All<Entity_ZR::ZR_Text>()[0]->text, "b");
}

TEST(PdfReader, ResettingForgetsPathAndVersion) {
  ReadPdf read(OnePage(""));
  EXPECT_EQ(read.reader.path, read.file.path);
  EXPECT_EQ(read.reader.version, 1.4);
  read.reader.ResetReader();
  EXPECT_EQ(read.reader.path, "");
  EXPECT_EQ(read.reader.version, 0.0);
}

TEST(PdfReader, NotesStandOnStandardOutput) {
  const std::string bytes = OnePage("", "/Resources << /ExtGState << /GS0 1 0 R >> >>");
  const ReadPdf read(bytes);
  EXPECT_EQ(read.notes, read.file.path + "\nVersion:1.4\nFileSize:" + std::to_string(bytes.size()) +
                            "\nExtGState:/GS0 1\n");
}

TEST(PdfReader, NotesOfASharedImageComeOncePerPage) {
  PdfBuilder file;
  const int image = file.AddStream("x", "/Subtype /Image /Width 1 /Height 1 /Filter /JBIG2Decode");
  const std::string keys = "/Resources << /XObject << /Im0 " + PdfBuilder::Reference(image) + " >> >>";
  const int first = file.AddPage("/Im0 Do\n", keys);
  const int second = file.AddPage("/Im0 Do\n", keys);
  const ReadPdf read(file.BuildPages({first, second}));
  EXPECT_THAT(read.sink.All<Entity_ZR::ZR_Image>(), SizeIs(2));
  const std::string note = "JBIG2Decode\n";
  EXPECT_EQ(read.notes.substr(read.notes.size() - 2 * note.size()), note + note);
}

TEST(PdfReader, ClippedPathsArriveWhole) {
  const ReadPdf read(OnePage("0 0 10 10 re W n\n500 500 m 600 600 l S\n"));
  const auto paths = read.sink.All<Entity_ZR::ZR_Path>();
  ASSERT_THAT(paths, SizeIs(1));
  EXPECT_EQ(paths[0]->segments.back().end, (Entity_ZR::Point3{600 * k, 600 * k, 0}));
}

TEST(PdfReader, ALineBreakWithinALineOperatorIsJoined) {
  const ReadPdf read(OnePage("0 0 m\n72 72\nl\nS\n"));
  const auto paths = read.sink.All<Entity_ZR::ZR_Path>();
  ASSERT_THAT(paths, SizeIs(1));
  EXPECT_EQ(paths[0]->segments.back().end, (Entity_ZR::Point3{72 * k, 72 * k, 0}));
}

TEST(PdfReader, AFormRunsWithTheResourcesOfThePage) {
  PdfBuilder file;
  const int own = file.Add("<< /BaseFont /Own >>");
  const int pageFont = file.Add("<< /BaseFont /OfThePage >>");
  const int form =
      file.AddStream("/F1 9 Tf\n(a) Tj\n/F2 9 Tf\n(b) Tj\n",
                     "/Subtype /Form /Resources << /Font << /F1 " + PdfBuilder::Reference(own) + " >> >>");
  const int page =
      file.AddPage("/Fm0 Do\n", "/Resources << /Font << /F2 " + PdfBuilder::Reference(pageFont) +
                                    " >> /XObject << /Fm0 " + PdfBuilder::Reference(form) + " >> >>");
  const ReadPdf read(file.BuildPages({page}));
  const auto texts = read.sink.All<Entity_ZR::ZR_Text>();
  ASSERT_THAT(texts, SizeIs(2));
  EXPECT_EQ(texts[0]->fontName, "SimSun");
  EXPECT_EQ(texts[1]->fontName, "OfThePage");
}

}  // namespace
