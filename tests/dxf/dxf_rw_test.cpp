#include "dxf/dxf_rw.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dxf/walked_file.h"
#include "support/account.h"

namespace {

using testing::ElementsAre;

/// Notes the calls around the content and the units that come with the last one.
class BracketSink : public PARSE::DrawLoader {
 public:
  bool BeginRead(PARSE::Context context) override { return Note("BeginRead", context); }
  void BeginFile(PARSE::Context context) override { Note("BeginFile", context); }
  void EndFile(PARSE::Context context) override { Note("EndFile", context); }
  bool EndRead(PARSE::Context context) override {
    calls.emplace_back("EndRead");
    units = *reinterpret_cast<const std::int32_t*>(context);
    return false;
  }
  void SetPage(const PARSE::PageRect*, PARSE::Context context) override { Note("SetPage", context); }
  void SetMachineInfo(const PARSE::MachineInfo*, PARSE::Context context) override {
    Note("SetMachineInfo", context);
  }
  bool AddLine(Entity_ZR::ZR_Line*, PARSE::Context context) override { return Note("AddLine", context); }

  bool Note(const char* name, PARSE::Context context) {
    calls.push_back(name + (context == 0 ? std::string() : " " + std::to_string(context)));
    return false;
  }

  std::vector<std::string> calls;
  std::int32_t units = -1;
};

const std::string kOneLine = "0|SECTION|2|ENTITIES|0|LINE|11|1|0|ENDSEC|0|EOF";

TEST(DxfRead, BracketsTheContentOfAFile) {
  const WrittenDxf file(TagText(kOneLine));
  BracketSink sink;
  DXF_RW reader;
  reader.sink = &sink;
  EXPECT_TRUE(reader.Read(file.path, 0));
  EXPECT_THAT(sink.calls, ElementsAre("BeginRead", "BeginFile", "AddLine", "EndFile", "EndRead"));
}

TEST(DxfRead, PassesItsContextToEverythingButTheBeginAndTheEndOfTheRead) {
  const WrittenDxf file(TagText(kOneLine));
  BracketSink sink;
  DXF_RW reader;
  reader.sink = &sink;
  reader.Read(file.path, 7);
  EXPECT_THAT(sink.calls, ElementsAre("BeginRead", "BeginFile 7", "AddLine 7", "EndFile 7", "EndRead"));
}

/// Leaves the account `spare` bytes of working memory beside the file itself.
void HoldAllBut(std::uint64_t spare, std::size_t fileBytes, support::Account& account) {
  account.AllowForFile(fileBytes);
  account.Hold(support::Allowance::Of(fileBytes).working - fileBytes - spare, support::MemoryUse::kWorking);
}

TEST(DxfRead, ReadsOnAfterARecordThatDoesNotFit) {
  const std::string text =
      TagText("0|SECTION|2|HEADER|9|$A|1|" + std::string(300'000, 'h') +
              "|0|ENDSEC|0|SECTION|2|TABLES|0|TABLE|2|STYLE|0|STYLE|3|" + std::string(300'000, 's') +
              "|0|ENDTAB|0|ENDSEC|0|SECTION|2|BLOCKS|0|BLOCK|2|" + std::string(300'000, 'b') +
              "|0|ENDBLK|0|ENDSEC|0|SECTION|2|ENTITIES|0|LINE|11|1|0|MTEXT|1|" + std::string(300'000, 'm') +
              "|0|LINE|11|2|0|ENDSEC|0|EOF");
  const WrittenDxf file(text);
  support::Account account;
  HoldAllBut(200'000, text.size(), account);
  const support::AccountScope scope(account);
  BracketSink sink;
  DXF_RW reader;
  reader.sink = &sink;
  EXPECT_TRUE(reader.Read(file.path, 0));
  EXPECT_THAT(sink.calls, ElementsAre("BeginRead", "BeginFile", "AddLine", "AddLine", "EndFile", "EndRead"));
  EXPECT_EQ(account.Cuts(), 4u);
}

TEST(DxfRead, DrawsWhatWasReadBeforeTheMemoryIsUsedUp) {
  std::string lines;
  for (int i = 0; i < 10'000; ++i) lines += "0|LINE|11|1|";
  const std::string text = TagText("0|SECTION|2|ENTITIES|" + lines + "0|ENDSEC|0|EOF");
  const WrittenDxf file(text);
  support::Account account;
  HoldAllBut(500'000, text.size(), account);
  const support::AccountScope scope(account);
  BracketSink sink;
  DXF_RW reader;
  reader.sink = &sink;
  EXPECT_TRUE(reader.Read(file.path, 0));
  EXPECT_GT(std::count(sink.calls.begin(), sink.calls.end(), "AddLine"), 500);
  EXPECT_LT(std::count(sink.calls.begin(), sink.calls.end(), "AddLine"), 5000);
  EXPECT_EQ(sink.calls.back(), "EndRead");
}

TEST(DxfRead, EndsTheFileButNotTheReadWhenItCannotBeOpened) {
  BracketSink sink;
  DXF_RW reader;
  reader.sink = &sink;
  EXPECT_FALSE(reader.Read("/nonexistent/drawing.dxf", 0));
  EXPECT_THAT(sink.calls, ElementsAre("BeginRead", "BeginFile", "EndFile"));
}

TEST(DxfRead, IsTrueForAnyFileThatOpens) {
  for (const char* text : {"", "0", "no drawing at all", "\n\n\n", "0\nSECTION\n"}) {
    const WrittenDxf file(text);
    BracketSink sink;
    DXF_RW reader;
    reader.sink = &sink;
    EXPECT_TRUE(reader.Read(file.path, 0)) << text;
    EXPECT_THAT(sink.calls, ElementsAre("BeginRead", "BeginFile", "EndFile", "EndRead")) << text;
  }
}

TEST(DxfRead, EndsWithTheUnitsOfTheHeader) {
  const WrittenDxf file(TagText("0|SECTION|2|HEADER|9|$INSUNITS|70|4|0|ENDSEC|0|EOF"));
  BracketSink sink;
  DXF_RW reader;
  reader.sink = &sink;
  reader.Read(file.path, 0);
  EXPECT_EQ(sink.units, 4);
}

TEST(DxfRead, EndsWithNoUnitsWithoutAHeader) {
  const WrittenDxf file("0\nEOF\n");
  BracketSink sink;
  DXF_RW reader;
  reader.sink = &sink;
  reader.Read(file.path, 0);
  EXPECT_EQ(sink.units, 0);
}

TEST(DxfRead, CanBeRepeatedWithOneReader) {
  const WrittenDxf file(TagText(kOneLine));
  BracketSink sink;
  DXF_RW reader;
  reader.sink = &sink;
  EXPECT_FALSE(reader.Read("/nonexistent/drawing.dxf", 0));
  EXPECT_TRUE(reader.Read(file.path, 0));
  EXPECT_TRUE(reader.Read(file.path, 0));
  EXPECT_EQ(sink.calls.size(), 13U);
}

TEST(DxfRead, FreesItsDocumentAtAReset) {
  const WrittenDxf file(TagText("0|SECTION|2|BLOCKS|0|BLOCK|2|b|0|LINE|5|1|11|1|0|ENDBLK|0|ENDSEC|0|EOF"));
  DXF_RW reader;
  /// Draws the block before and after a reset, where the document is still there.
  struct ResettingSink : BracketSink {
    explicit ResettingSink(DXF_RW& resetReader) : reader(resetReader) {}
    bool EndRead(PARSE::Context context) override {
      reader.DrawBlock("b", 0);
      Note("reset", 0);
      reader.ResetReader();
      reader.DrawBlock("b", 0);
      return BracketSink::EndRead(context);
    }
    DXF_RW& reader;
  } sink(reader);
  reader.sink = &sink;
  EXPECT_TRUE(reader.Read(file.path, 0));
  EXPECT_THAT(sink.calls, ElementsAre("BeginRead", "BeginFile", "EndFile", "AddLine", "reset", "EndRead"));
}

TEST(DxfRead, CanBeResetAtAnyTime) {
  const WrittenDxf file(TagText(kOneLine));
  BracketSink sink;
  DXF_RW reader;
  reader.ResetReader();
  reader.sink = &sink;
  EXPECT_FALSE(reader.Read("/nonexistent/drawing.dxf", 0));
  reader.ResetReader();
  reader.ResetReader();
  sink.calls.clear();
  EXPECT_TRUE(reader.Read(file.path, 0));
  EXPECT_THAT(sink.calls, ElementsAre("BeginRead", "BeginFile", "AddLine", "EndFile", "EndRead"));
}

}  // namespace
