#include "entity/text.h"

#include <filesystem>
#include <gtest/gtest.h>
#include <limits>
#include <unistd.h>

#include "entity/insert.h"
#include "entity/path.h"
#include "fonts/direct_glyphs.h"
#include "sink/my_draw_load.h"
#include "support/account.h"

namespace {

using Entity_ZR::ZR_Insert;
using Entity_ZR::ZR_Path;
using Entity_ZR::ZR_Text;
using fonts::OutlineStep;

/// A segment of a result, without its links.
struct PlainSegment {
  std::int32_t type;
  FilePosition start;
  FilePosition control1;
  FilePosition control2;
  FilePosition end;
};

using PlainCurve = std::vector<PlainSegment>;

bool IsSame(FilePosition a, FilePosition b) { return a.x == b.x && a.y == b.y; }

bool operator==(const PlainSegment& a, const PlainSegment& b) {
  if (a.type != b.type || !IsSame(a.start, b.start) || !IsSame(a.end, b.end)) return false;
  return a.type == 0 || (IsSame(a.control1, b.control1) && IsSame(a.control2, b.control2));
}

std::vector<const CFileCurve*> CurvesOf(CMyDrawLoad& sink) {
  std::vector<const CFileCurve*> curves;
  for (const CFileDraw* result = sink.FirstResult(); result != nullptr; result = sink.NextResult()) {
    EXPECT_EQ(result->kind, kFileCurve);
    curves.push_back(static_cast<const CFileCurve*>(result));
  }
  return curves;
}

std::vector<PlainCurve> PlainCurvesOf(CMyDrawLoad& sink) {
  std::vector<PlainCurve> curves;
  for (const CFileCurve* curve : CurvesOf(sink)) {
    PlainCurve& plain = curves.emplace_back();
    for (const FileSegment* s = curve->segmentHead->next; s != curve->segmentHead; s = s->next) {
      plain.push_back({s->type, s->start, s->control1, s->control2, s->end});
    }
  }
  return curves;
}

/// The curves that glyph outlines become when each point goes through `matrix`: one for each subpath; both
/// controls of a conic curve are its one control point.
std::vector<PlainCurve> ExpectedCurves(const std::vector<fonts::Outline>& outlines,
                                       const Matrix2D& matrix = {}) {
  const auto place = [&](fonts::OutlinePoint p) {
    const Entity_ZR::Point3 placed = matrix.Apply({p.x, p.y});
    return FilePosition{placed.x, placed.y};
  };
  std::vector<PlainCurve> curves;
  for (const fonts::Outline& outline : outlines) {
    FilePosition current{};
    for (const OutlineStep& step : outline) {
      if (step.kind == OutlineStep::kMove) {
        curves.emplace_back();
      } else if (step.kind == OutlineStep::kLine) {
        curves.back().push_back({0, current, {}, {}, place(step.end)});
      } else {
        const FilePosition first = place(step.control1);
        const FilePosition second = step.kind == OutlineStep::kConic ? first : place(step.control2);
        curves.back().push_back({3, current, first, second, place(step.end)});
      }
      current = place(step.end);
    }
  }
  std::erase_if(curves, [](const PlainCurve& curve) { return curve.empty(); });
  return curves;
}

ZR_Text TextOf(const std::string& words, double height = 12.0, const std::string& fontName = "Nameplate") {
  ZR_Text text;
  text.text = words;
  text.fontName = fontName;
  text.height = height;
  return text;
}

ZR_Path LinePath() {
  ZR_Path path;
  path.LineTo(1.0, 0.0);
  return path;
}

/// A sink in the middle of a PDF file, whose page leaves points where they are.
class AddText : public testing::Test {
 protected:
  AddText() { sink.fileType = PARSE::kPdfFile; }

  CMyDrawLoad sink;
};

TEST_F(AddText, DrawsTheOutlinesOfTheFontEngine) {
  ZR_Text text = TextOf("Laser \xC3\xA9&8");
  text.position = {10.25, -3.7};
  EXPECT_TRUE(sink.AddText(&text, 0));
  const auto expected =
      ExpectedCurves(direct::Glyphs(direct::kSans, 12, U"Laser \u00E9&8", 10.25, -3.7, false));
  EXPECT_GT(expected.size(), 10u);
  EXPECT_EQ(PlainCurvesOf(sink), expected);
}

TEST_F(AddText, DrawsCubicOutlines) {
  ZR_Text text = TextOf("Rg", 20.0, "Script");
  sink.AddText(&text, 0);
  const auto expected = ExpectedCurves(direct::Glyphs(direct::kNimbusOtf, 20, U"Rg", 0.0, 0.0, false));
  EXPECT_GT(expected.size(), 2u);
  EXPECT_EQ(PlainCurvesOf(sink), expected);
}

TEST_F(AddText, AppliesTheMatrixOfTheText) {
  ZR_Text text = TextOf("Ag");
  text.position = {1.0, 2.0};
  text.matrix = {2.0, 0.0, 0.0, 4.0, 100.0, 200.0};
  sink.AddText(&text, 0);
  EXPECT_EQ(PlainCurvesOf(sink),
            ExpectedCurves(direct::Glyphs(direct::kSans, 12, U"Ag", 1.0, 2.0, false), text.matrix));
}

// y goes to 2 · 50 - y about the position of the text.
TEST_F(AddText, TurnsGlyphsOfAnSvgFileAboutThePosition) {
  sink.fileType = PARSE::kSvgFile;
  ZR_Text text = TextOf("Ag");
  text.position = {1.0, 50.0};
  sink.AddText(&text, 0);
  EXPECT_EQ(PlainCurvesOf(sink), ExpectedCurves(direct::Glyphs(direct::kSans, 12, U"Ag", 1.0, 50.0, false),
                                                {1.0, 0.0, 0.0, -1.0, 0.0, 100.0}));
}

TEST_F(AddText, StandsUprightOnThePageOfAnSvgFile) {
  sink.fileType = PARSE::kSvgFile;
  PARSE::PageRect page;
  page.height = 80.0;
  sink.SetPage(&page, 0);
  ZR_Text text = TextOf("L");
  text.position = {0.0, 50.0};
  sink.AddText(&text, 0);
  // Up again: the page's 80 - y undoes the turn, and the position lands at 80 - 50.
  EXPECT_EQ(PlainCurvesOf(sink), ExpectedCurves(direct::Glyphs(direct::kSans, 12, U"L", 0.0, 50.0, false),
                                                {1.0, 0.0, 0.0, 1.0, 0.0, -20.0}));
}

TEST_F(AddText, MirrorsFlippedGlyphs) {
  ZR_Text text = TextOf("Ag");
  text.position = {1.0, 50.0};
  text.flipY = 1;
  sink.AddText(&text, 0);
  EXPECT_EQ(PlainCurvesOf(sink), ExpectedCurves(direct::Glyphs(direct::kSans, 12, U"Ag", 1.0, 50.0, true)));
}

TEST_F(AddText, CutsTheHeightToAWholeNumber) {
  ZR_Text text = TextOf("A", 9.9);
  sink.AddText(&text, 0);
  EXPECT_EQ(PlainCurvesOf(sink), ExpectedCurves(direct::Glyphs(direct::kSans, 9, U"A", 0.0, 0.0, false)));
}

TEST_F(AddText, DrawsNoHeightAt24) {
  const auto expected = ExpectedCurves(direct::Glyphs(direct::kSans, 24, U"A", 0.0, 0.0, false));
  for (const double height : {0.0, 0.9e-8, -0.9e-8, std::numeric_limits<double>::quiet_NaN()}) {
    CMyDrawLoad each;
    ZR_Text text = TextOf("A", height);
    each.AddText(&text, 0);
    EXPECT_EQ(PlainCurvesOf(each), expected) << height;
  }
}

TEST_F(AddText, AsksForOtherHeightsAsUnsignedNumbers) {
  const std::pair<double, unsigned> cases[] = {{0.5, 0u},
                                               {-5.0, 4294967291u},
                                               {1e30, 2147483648u},
                                               {-std::numeric_limits<double>::infinity(), 2147483648u},
                                               {70000.0, 70000u}};
  for (const auto& [height, pixelSize] : cases) {
    CMyDrawLoad each;
    ZR_Text text = TextOf("A", height);
    each.AddText(&text, 0);
    EXPECT_EQ(PlainCurvesOf(each),
              ExpectedCurves(direct::Glyphs(direct::kSans, pixelSize, U"A", 0.0, 0.0, false)))
        << height;
  }
}

TEST_F(AddText, RunsOnOverLineFeeds) {
  ZR_Text text = TextOf("A\nB\r\nC");
  sink.AddText(&text, 0);
  EXPECT_EQ(PlainCurvesOf(sink), ExpectedCurves(direct::Glyphs(direct::kSans, 12, U"ABC", 0.0, 0.0, false)));
}

TEST_F(AddText, FindsInstalledFonts) {
  ZR_Text text = TextOf("A", 12.0, "DejaVu Serif:bold");
  sink.AddText(&text, 0);
  EXPECT_EQ(PlainCurvesOf(sink),
            ExpectedCurves(direct::Glyphs(direct::kSerifBold, 12, U"A", 0.0, 0.0, false)));
}

TEST_F(AddText, DrawsManyTextsAsEachAlone) {
  std::vector<PlainCurve> expected;
  for (int round = 0; round < 3; ++round) {
    for (const auto& [name, file] : {std::pair("Nameplate", direct::kSans),
                                     {"Engraved", direct::kSerifBold},
                                     {"Script", direct::kNimbusOtf},
                                     {"Stamp", direct::kNimbusType1}}) {
      for (const unsigned size : {6u, 12u}) {
        ZR_Text text = TextOf("Hamburgefonstiv 0123", size, name);
        text.position = {round * 17.3, round * -9.1};
        sink.AddText(&text, 0);
        const auto curves = ExpectedCurves(
            direct::Glyphs(file, size, U"Hamburgefonstiv 0123", text.position.x, text.position.y, false));
        expected.insert(expected.end(), curves.begin(), curves.end());
      }
    }
  }
  EXPECT_EQ(PlainCurvesOf(sink), expected);
}

TEST_F(AddText, RefusesDrawingsOfDxfFiles) {
  sink.fileType = PARSE::kDxfFile;
  ZR_Text text = TextOf("A");
  EXPECT_FALSE(sink.AddText(&text, 0));
  EXPECT_EQ(sink.textMode, 0);
  EXPECT_FALSE(sink.HasResults());
}

TEST_F(AddText, RefusesWhatIsHidden) {
  ZR_Text text = TextOf("A");
  text.visible = 0;
  EXPECT_FALSE(sink.AddText(&text, 0));
  text.visible = 1;
  text.layerOn = 0;
  EXPECT_FALSE(sink.AddText(&text, 0));
  EXPECT_EQ(sink.textMode, 0);
  EXPECT_FALSE(sink.HasResults());
}

TEST_F(AddText, LeavesItsModeWithTheLastGlyph) {
  ZR_Text text = TextOf("AB");
  sink.AddText(&text, 0);
  EXPECT_EQ(sink.textMode, 0);
  EXPECT_EQ(sink.textLast, 1);
  EXPECT_EQ(sink.textGroup, nullptr);
}

TEST_F(AddText, IsBlackWhateverItsColour) {
  ZR_Text text = TextOf("l");
  text.color = 0xFF0000FF;
  sink.AddText(&text, 0);
  const auto curves = CurvesOf(sink);
  ASSERT_EQ(curves.size(), 1u);
  EXPECT_EQ(curves[0]->color, 0u);
}

TEST_F(AddText, GivesItsParametersToEveryCurve) {
  ZR_Text text = TextOf("oo");
  text.attributes = {{7, {{"cutPower", "30"}}}};
  sink.AddText(&text, 0);
  const auto curves = CurvesOf(sink);
  EXPECT_EQ(curves.size(), 4u);
  for (const CFileCurve* curve : curves) {
    EXPECT_EQ(curve->cutPower, 30.0);
    EXPECT_EQ(curve->frequency, 1.0);
  }
}

TEST_F(AddText, WaitsInItsFrameWhereOneIsOpen) {
  ZR_Insert insert;
  insert.matrix = {2.0, 0.0, 0.0, 2.0, 5.0, 6.0};
  insert.attributes = {{7, {{"cutSpeed", "99"}}}};
  sink.AddInsert(&insert, 0);
  ZR_Text text = TextOf("A");
  EXPECT_TRUE(sink.AddText(&text, 0));
  EXPECT_EQ(sink.textGroup, nullptr);
  EXPECT_EQ(sink.textMode, 1);
  EXPECT_FALSE(sink.HasResults());
  sink.EndGroup(0);
  EXPECT_EQ(PlainCurvesOf(sink),
            ExpectedCurves(direct::Glyphs(direct::kSans, 12, U"A", 0.0, 0.0, false), insert.matrix));
  EXPECT_EQ(CurvesOf(sink)[0]->cutSpeed, 99.0);
}

// The mode of a text in a frame outlives it, but without a group nothing waits.
TEST_F(AddText, LosesNoPathBehindATextInAFrame) {
  ZR_Insert insert;
  sink.AddInsert(&insert, 0);
  ZR_Text text = TextOf("l");
  sink.AddText(&text, 0);
  sink.EndGroup(0);
  ZR_Path path = LinePath();
  EXPECT_TRUE(sink.AddPath(&path, 0));
  EXPECT_EQ(CurvesOf(sink).size(), 2u);
}

/// Texts of which nothing can be drawn.
std::vector<ZR_Text> EmptyTexts() {
  return {TextOf(""), TextOf("\n\r"), TextOf("A", 12.0, "Missing"), TextOf("A", 12.0, "Broken")};
}

TEST_F(AddText, IsUsedEvenWhereNothingIsDrawn) {
  for (ZR_Text& text : EmptyTexts()) {
    EXPECT_TRUE(sink.AddText(&text, 0));
    EXPECT_EQ(sink.textMode, 1);
    EXPECT_EQ(sink.textLast, 0);
    EXPECT_NE(sink.textGroup, nullptr);
  }
  EXPECT_FALSE(sink.HasResults());
}

TEST_F(AddText, HandsOutPathsBehindAnEmptyTextWithTheNextText) {
  ZR_Text empty = TextOf("");
  sink.AddText(&empty, 0);
  ZR_Path path = LinePath();
  sink.AddPath(&path, 0);
  EXPECT_FALSE(sink.HasResults());
  ZR_Text next = TextOf("l");
  sink.AddText(&next, 0);
  const auto curves = PlainCurvesOf(sink);
  ASSERT_EQ(curves.size(), 2u);
  EXPECT_EQ(curves[0].size(), 1u);
  EXPECT_EQ(curves[0][0].end.x, 1.0);
}

// The last path of "l " is that of the blank: without a segment it does not end the text.
TEST_F(AddText, WaitsForTheNextPathBehindATrailingBlank) {
  ZR_Text text = TextOf("l ");
  sink.AddText(&text, 0);
  EXPECT_FALSE(sink.HasResults());
  EXPECT_EQ(sink.textMode, 1);
  ZR_Path path = LinePath();
  sink.AddPath(&path, 0);
  EXPECT_EQ(CurvesOf(sink).size(), 2u);
  EXPECT_EQ(sink.textMode, 0);
}

TEST_F(AddText, KeepsItsStateOnInvalidUtf8) {
  for (const std::string& words : {std::string("A\xFF"), std::string("\xC3"), std::string("\xED\xA0\x80"),
                                   std::string("\xC0\x80"), std::string("AB\xF5\x80\x80\x80")}) {
    ZR_Text text = TextOf(words);
    EXPECT_TRUE(sink.AddText(&text, 0));
    EXPECT_EQ(sink.textMode, 0);
    EXPECT_EQ(sink.textLast, 0);
    EXPECT_EQ(sink.textGroup, nullptr);
  }
  EXPECT_FALSE(sink.HasResults());
}

TEST_F(AddText, KeepsWhatWaitsOnInvalidUtf8) {
  ZR_Text waiting = TextOf("l ");
  sink.AddText(&waiting, 0);
  const CFileGroup* group = sink.textGroup;
  ZR_Text invalid = TextOf("\xFF");
  sink.AddText(&invalid, 0);
  EXPECT_EQ(sink.textGroup, group);
  EXPECT_EQ(sink.textMode, 1);
  EXPECT_EQ(sink.textLast, 1);
}

TEST_F(AddText, DrawsAZeroCharacterAsTheFontDoes) {
  ZR_Text text = TextOf(std::string("A\0B", 3));
  sink.AddText(&text, 0);
  EXPECT_EQ(PlainCurvesOf(sink),
            ExpectedCurves(direct::Glyphs(direct::kSans, 12, std::u32string(U"A\0B", 3), 0.0, 0.0, false)));
}

TEST_F(AddText, DrawsALineOfAHundredThousandGlyphs) {
  ZR_Text text = TextOf(std::string(100'000, '|'), 2.0);
  sink.AddText(&text, 0);
  EXPECT_EQ(sink.resultCount, 100'000u);
}

TEST_F(AddText, HandsOutWhatFitsOfATextAndDrawsThePathsThatFollow) {
  support::Account account({.held = 10'000'000, .working = 10'000'000, .work = 1'000'000'000});
  const support::AccountScope scope(account);
  ZR_Text text = TextOf(std::string(1'000'000, '|'), 2.0);
  EXPECT_TRUE(sink.AddText(&text, 0));
  EXPECT_EQ(account.Cuts(), 1u);
  EXPECT_GT(sink.resultCount, 1000u);
  EXPECT_EQ(sink.textMode, 0);
  EXPECT_EQ(sink.textGroup, nullptr);
  account.AllowForFile(0);
  const std::uint32_t ofText = sink.resultCount;
  ZR_Path path = LinePath();
  sink.AddPath(&path, 0);
  EXPECT_EQ(sink.resultCount, ofText + 1);
}

TEST_F(AddText, StartsTheFontEngineAnewAfterItRanOutOfMemory) {
  ZR_Text text = TextOf("l");
  ZR_Text other = TextOf("l", 12.0, "Engraved");
  support::Account account;
  const support::AccountScope scope(account);
  sink.AddText(&text, 0);
  ASSERT_EQ(sink.resultCount, 1u);
  // Enough is left for the look-up of the font and for the file, but not for the engine's face.
  const std::uint64_t most = support::Allowance::Of(0).working;
  account.Hold(most - account.Held(support::MemoryUse::kWorking) - 100'000, support::MemoryUse::kWorking);
  EXPECT_TRUE(sink.AddText(&other, 0));
  EXPECT_EQ(sink.resultCount, 1u);
  EXPECT_EQ(account.Cuts(), 1u);
  account.AllowForFile(1'000'000);
  sink.AddText(&other, 0);
  sink.AddText(&text, 0);
  EXPECT_EQ(sink.resultCount, 3u);
}

TEST_F(AddText, PassesOverMillionsOfLineFeeds) {
  ZR_Text text = TextOf(std::string(10'000'000, '\n') + "l");
  sink.AddText(&text, 0);
  EXPECT_EQ(sink.resultCount, 1u);
}

/// Whether this process has a file open.
bool IsOpen(const std::filesystem::path& file) {
  for (const auto& descriptor : std::filesystem::directory_iterator("/proc/self/fd")) {
    std::error_code gone;  // the folder's own descriptor is listed too
    if (std::filesystem::equivalent(descriptor.path(), file, gone)) return true;
  }
  return false;
}

TEST_F(AddText, ClosesItsFontsAtTheEndOfTheFile) {
  ZR_Text text = TextOf("l");
  sink.AddText(&text, 0);
  EXPECT_TRUE(IsOpen(direct::kSans));
  sink.EndFile(0);
  EXPECT_FALSE(IsOpen(direct::kSans));
}

TEST_F(AddText, OpensItsFontsAgainForALaterText) {
  ZR_Text text = TextOf("l");
  sink.AddText(&text, 0);
  sink.EndFile(0);
  sink.AddText(&text, 0);
  EXPECT_EQ(CurvesOf(sink).size(), 2u);
}

}  // namespace
