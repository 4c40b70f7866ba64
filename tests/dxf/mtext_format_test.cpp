#include "dxf/mtext_format.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "dxf/aci_colors.h"

namespace {

using namespace Entity_ZR;
using testing::ElementsAre;

constexpr std::uint32_t kOwnColor = PackColor(1, 2, 3);

DXF_TextFormat Format() {
  DXF_TextFormat format;
  format.fontName = "txt";
  format.height = 2.0;
  format.widthScale = 0.5;
  format.oblique = 10.0;
  format.color = kOwnColor;
  return format;
}

MTextParagraph Defaults() {
  MTextParagraph defaults;
  defaults.alignment = 12;
  defaults.lineSpacingStyle = 1;
  defaults.lineSpacingFactor = 1.25;
  return defaults;
}

std::vector<MTextParagraph> Parse(std::string_view text) {
  return ParseMTextFormat(text, Format(), Defaults());
}

MTextItem Text(const char* text) { return {kMTextRun, std::string(text)}; }

/// The items that a text yields behind the seven that every text begins with.
std::vector<MTextItem> Items(std::string_view text) {
  const std::vector<MTextParagraph> paragraphs = Parse(text);
  EXPECT_EQ(paragraphs.size(), 1u) << text;
  const std::vector<MTextItem>& items = paragraphs.front().items;
  EXPECT_GE(items.size(), 7u) << text;
  return {items.begin() + 7, items.end()};
}

/// The paragraph settings that hold for the text behind `options`.
MTextParagraph Settings(const std::string& options) { return Parse(options + "x").front(); }

TEST(MTextFormat, BeginsWithTheAttributesOfTheFormat) {
  const std::vector<MTextParagraph> paragraphs = Parse("");
  ASSERT_EQ(paragraphs.size(), 1u);
  EXPECT_THAT(
      paragraphs[0].items,
      ElementsAre(MTextItem{kMTextFont, SharedText("txt")}, MTextItem{kMTextHeight, 2.0},
                  MTextItem{kMTextWidth, 0.5}, MTextItem{kMTextOblique, 10.0}, MTextItem{kMTextBold, false},
                  MTextItem{kMTextItalic, false}, MTextItem{kMTextColor, kOwnColor}));
}

TEST(MTextFormat, GathersPlainBytesIntoOneRun) {
  EXPECT_THAT(Items("plain \xD6\xD0 text;"), ElementsAre(Text("plain \xD6\xD0 text;")));
}

TEST(MTextFormat, TakesEscapedBytesAsText) {
  EXPECT_THAT(Items("a\\\\b\\{c\\}d"), ElementsAre(Text("a\\b{c}d")));
}

TEST(MTextFormat, TakesATildeCodeAsABlank) { EXPECT_THAT(Items("a\\~b"), ElementsAre(Text("a b"))); }

TEST(MTextFormat, PassesOverAnOpeningBrace) { EXPECT_THAT(Items("a{b"), ElementsAre(Text("ab"))); }

TEST(MTextFormat, ClosesTheRunAtAClosingBrace) {
  EXPECT_THAT(Items("a}b"), ElementsAre(Text("a"), Text("b")));
}

TEST(MTextFormat, ResetsWhatDiffersFromTheDefaultsAtAClosingBrace) {
  EXPECT_THAT(Items("{\\L\\W2;a}b"),
              ElementsAre(MTextItem{kMTextUnderline, true}, MTextItem{kMTextWidth, 2.0}, Text("a"),
                          MTextItem{kMTextWidth, 0.5}, MTextItem{kMTextUnderline, false}, Text("b")));
}

TEST(MTextFormat, ResetsEverythingAtTheFirstOfTwoClosingBraces) {
  EXPECT_THAT(
      Items("{\\L{\\Oa}b}c"),
      ElementsAre(MTextItem{kMTextUnderline, true}, MTextItem{kMTextOverline, true}, Text("a"),
                  MTextItem{kMTextOverline, false}, MTextItem{kMTextUnderline, false}, Text("b"), Text("c")));
}

TEST(MTextFormat, ResetsEachAttributeToItsDefault) {
  EXPECT_THAT(Items("\\fA|b1|i1;\\H3;\\C1;\\Q5;\\K\\T2;}"),
              ElementsAre(MTextItem{kMTextFont, SharedText("A")}, MTextItem{kMTextBold, true},
                          MTextItem{kMTextItalic, true}, MTextItem{kMTextHeight, 6.0},
                          MTextItem{kMTextColor, PackColor(255, 0, 0)}, MTextItem{kMTextOblique, 5.0},
                          MTextItem{kMTextStrike, true}, MTextItem{kMTextTracking, 2.0},
                          MTextItem{kMTextFont, SharedText("txt")}, MTextItem{kMTextHeight, 2.0},
                          MTextItem{kMTextColor, kOwnColor}, MTextItem{kMTextOblique, 10.0},
                          MTextItem{kMTextBold, false}, MTextItem{kMTextItalic, false},
                          MTextItem{kMTextStrike, false}, MTextItem{kMTextTracking, 1.0}));
}

TEST(MTextFormat, DoesNotResetWhatWasTakenBack) {
  EXPECT_THAT(Items("\\La\\lb}"), ElementsAre(MTextItem{kMTextUnderline, true}, Text("a"),
                                              MTextItem{kMTextUnderline, false}, Text("b")));
  EXPECT_THAT(Items("\\W2;\\W0.5;}"), ElementsAre(MTextItem{kMTextWidth, 2.0}, MTextItem{kMTextWidth, 0.5}));
}

TEST(MTextFormat, StoresAParagraphAtItsCode) {
  const std::vector<MTextParagraph> paragraphs = Parse("a\\P\\Pb");
  ASSERT_EQ(paragraphs.size(), 3u);
  EXPECT_EQ(paragraphs[0].items.back(), Text("a"));
  EXPECT_TRUE(paragraphs[1].items.empty());
  EXPECT_THAT(paragraphs[2].items, ElementsAre(Text("b")));
}

TEST(MTextFormat, StoresNoParagraphThatHoldsNothingAtTheEnd) { EXPECT_EQ(Parse("a\\P").size(), 1u); }

TEST(MTextFormat, CarriesAttributesIntoTheNextParagraph) {
  const std::vector<MTextParagraph> paragraphs = Parse("\\La\\Pb}c");
  ASSERT_EQ(paragraphs.size(), 2u);
  EXPECT_THAT(paragraphs[1].items, ElementsAre(Text("b"), MTextItem{kMTextUnderline, false}, Text("c")));
}

TEST(MTextFormat, SkipsTheAlignmentCodeWithTwoBytes) {
  EXPECT_THAT(Items("a\\A1;b"), ElementsAre(Text("ab")));
}

TEST(MTextFormat, TakesIndexedColours) {
  EXPECT_THAT(Items("a\\C3;b"),
              ElementsAre(Text("a"), MTextItem{kMTextColor, PackColor(0, 255, 0)}, Text("b")));
  EXPECT_THAT(Items("\\C12;"), ElementsAre(MTextItem{kMTextColor, PackColor(204, 0, 0)}));
  EXPECT_THAT(Items("\\C999;"), ElementsAre(MTextItem{kMTextColor, PackColor(255, 255, 255)}));
}

TEST(MTextFormat, TakesColour256AsTheEntitysOwn) {
  EXPECT_THAT(Items("\\C1;\\C256;}"),
              ElementsAre(MTextItem{kMTextColor, PackColor(255, 0, 0)}, MTextItem{kMTextColor, kOwnColor}));
}

TEST(MTextFormat, TakesTrueColoursWithRedInTheLowestByte) {
  EXPECT_THAT(Items("\\c197121;"), ElementsAre(MTextItem{kMTextColor, PackColor(1, 2, 3)}));  // 0x030201
  EXPECT_THAT(Items("\\c16711680;"), ElementsAre(MTextItem{kMTextColor, PackColor(0, 0, 255)}));
}

TEST(MTextFormat, TakesAFontWithAndWithoutOptions) {
  EXPECT_THAT(Items("\\Fisocp.shx;a"),
              ElementsAre(MTextItem{kMTextFont, SharedText("isocp.shx")}, Text("a")));
  EXPECT_THAT(Items("\\fArial|b1|i0|c134|p34;a"),
              ElementsAre(MTextItem{kMTextFont, SharedText("Arial")}, MTextItem{kMTextBold, true},
                          MTextItem{kMTextItalic, false}, Text("a")));
  EXPECT_THAT(Items("\\fArial|b0|i1;"),
              ElementsAre(MTextItem{kMTextFont, SharedText("Arial")}, MTextItem{kMTextBold, false},
                          MTextItem{kMTextItalic, true}));
}

TEST(MTextFormat, MultipliesTheHeightInBothForms) {
  EXPECT_THAT(Items("\\H2;\\H2;"), ElementsAre(MTextItem{kMTextHeight, 4.0}, MTextItem{kMTextHeight, 8.0}));
  EXPECT_THAT(Items("\\H2x;a\\H0.5x;b"),
              ElementsAre(MTextItem{kMTextHeight, 4.0}, Text("a"), MTextItem{kMTextHeight, 2.0}, Text("b")));
}

TEST(MTextFormat, StartsFromTheFormatsHeightBehindAClosingBrace) {
  EXPECT_THAT(Items("\\H2;}\\H3;"), ElementsAre(MTextItem{kMTextHeight, 4.0}, MTextItem{kMTextHeight, 2.0},
                                                MTextItem{kMTextHeight, 6.0}));
}

TEST(MTextFormat, TakesTheWidthFactorInBothForms) {
  EXPECT_THAT(Items("\\W1.5;a\\W3x;b"),
              ElementsAre(MTextItem{kMTextWidth, 1.5}, Text("a"), MTextItem{kMTextWidth, 3.0}, Text("b")));
}

TEST(MTextFormat, TakesAMinusForTheObliqueAngleOnly) {
  EXPECT_THAT(Items("\\Q-12.5;\\T-2;\\W-3;"),
              ElementsAre(MTextItem{kMTextOblique, -12.5}, MTextItem{kMTextTracking, 2.0},
                          MTextItem{kMTextWidth, 3.0}));
}

TEST(MTextFormat, SwitchesTheThreeLinesOnAndOff) {
  EXPECT_THAT(Items("\\L\\l\\O\\o\\K\\k"),
              ElementsAre(MTextItem{kMTextUnderline, true}, MTextItem{kMTextUnderline, false},
                          MTextItem{kMTextOverline, true}, MTextItem{kMTextOverline, false},
                          MTextItem{kMTextStrike, true}, MTextItem{kMTextStrike, false}));
}

TEST(MTextFormat, KeepsStackedTextAsItStands) {
  EXPECT_THAT(Items("a\\S1/2;b"), ElementsAre(Text("a\\S1/2b")));
}

TEST(MTextFormat, PassesOverAnyOtherCode) { EXPECT_THAT(Items("a\\Xb\\Nc"), ElementsAre(Text("abc"))); }

TEST(MTextFormat, StartsAParagraphWithTheDefaults) {
  const MTextParagraph paragraph = Settings("");
  EXPECT_EQ(paragraph.alignment, 12);
  EXPECT_EQ(paragraph.lineSpacingStyle, 1);
  EXPECT_EQ(paragraph.lineSpacingFactor, 1.25);
  EXPECT_EQ(paragraph.indent, 0.0);
  EXPECT_EQ(paragraph.leftMargin, 0.0);
  EXPECT_EQ(paragraph.afterMargin, 0.0);
}

TEST(MTextFormat, MultipliesMarginsByTheTextHeightButNotTheIndent) {
  const MTextParagraph paragraph = Settings("\\pi1,l2,r3,t4,b5,a6.5;");
  EXPECT_EQ(paragraph.indent, 1.0);
  EXPECT_EQ(paragraph.leftMargin, 4.0);
  EXPECT_EQ(paragraph.rightMargin, 6.0);
  EXPECT_EQ(paragraph.topMargin, 8.0);
  EXPECT_EQ(paragraph.bottomMargin, 10.0);
  EXPECT_EQ(paragraph.afterMargin, 13.0);
}

TEST(MTextFormat, LosesTheSignOfAnIndent) { EXPECT_EQ(Settings("\\pi-1.5,l2;").indent, 1.5); }

TEST(MTextFormat, TakesTheAlignmentOfAParagraph) {
  struct Row {
    const char* options;
    std::int32_t alignment;
  };
  for (const Row& row : {Row{"\\pql;", 10},
                         {"\\pqc;", 11},
                         {"\\pqr;", 12},
                         {"\\pqj;", 13},
                         {"\\pqd;", 17},
                         {"\\pxqc;", 11},
                         {"\\pql,q*;", 12},
                         {"\\pql,q?;", 10}}) {
    EXPECT_EQ(Settings(row.options).alignment, row.alignment) << row.options;
  }
}

TEST(MTextFormat, TakesTheLineSpacingOfAParagraph) {
  struct Row {
    const char* options;
    std::int32_t style;
    double factor;
  };
  for (const Row& row : {Row{"\\pse1.5;", 1, 1.5},
                         {"\\pse0.5;", 1, 0.5},
                         {"\\psa2;", 2, 2.0},
                         {"\\psa0.5;", 2, 1.0},
                         {"\\psm0.5;", 3, 0.5},
                         {"\\psm3,s*;", 1, 1.25}}) {
    EXPECT_EQ(Settings(row.options).lineSpacingStyle, row.style) << row.options;
    EXPECT_EQ(Settings(row.options).lineSpacingFactor, row.factor) << row.options;
  }
}

TEST(MTextFormat, HoldsParagraphSettingsUntilTheyAreTakenBack) {
  const std::vector<MTextParagraph> paragraphs = Parse("\\pqc,l1;a\\Pb\\P\\pq*,l0;c");
  ASSERT_EQ(paragraphs.size(), 3u);
  EXPECT_EQ(paragraphs[1].alignment, 11);
  EXPECT_EQ(paragraphs[1].leftMargin, 2.0);
  EXPECT_EQ(paragraphs[2].alignment, 12);
  EXPECT_EQ(paragraphs[2].leftMargin, 0.0);
}

TEST(MTextFormat, StopsWhereTheTextEndsWithinACodeAndKeepsWhatStandsBefore) {
  for (const char* code : {"\\", "\\A", "\\A1", "\\C1", "\\c255", "\\fArial", "\\FArial|b1", "\\H2", "\\W2",
                           "\\Q5", "\\T2", "\\S1/2", "\\pqc"}) {
    const std::vector<MTextParagraph> paragraphs = Parse(std::string("a\\Pb") + code);
    ASSERT_EQ(paragraphs.size(), 2u) << code;
    EXPECT_EQ(paragraphs[0].items.back(), Text("a")) << code;
    EXPECT_EQ(paragraphs[1].alignment, 12) << code;
    EXPECT_EQ(paragraphs[1].items.front(), Text("b")) << code;
  }
}

TEST(MTextFormat, KeepsTheFontOfACodeThatBreaksOffInItsOptions) {
  EXPECT_THAT(Items("\\fArial|b1"), ElementsAre(MTextItem{kMTextFont, SharedText("Arial")}));
}

TEST(MTextFormat, SharesTheDefaultFontAmongAllChangesBackToIt) {
  DXF_TextFormat format;
  format.fontName = std::string(5000, 'f');
  const std::vector<MTextParagraph> paragraphs = ParseMTextFormat("\\fA;}\\fA;}", format, {});
  ASSERT_EQ(paragraphs.size(), 1u);
  const auto& items = paragraphs[0].items;  // the seven of the start, then the font there and back, twice
  ASSERT_EQ(items.size(), 11u);
  for (const std::size_t i : {0u, 8u, 10u}) {
    EXPECT_EQ(&std::get<SharedText>(items[i].value).Get(), &format.fontName.Get());
  }
}

TEST(MTextFormat, ReadsABook) {
  std::string text;
  for (int i = 0; i < 300'000; ++i) text += "\\l\\l\\l\\l\\P";
  const std::vector<MTextParagraph> paragraphs = Parse(text);
  ASSERT_EQ(paragraphs.size(), 300'000u);
  EXPECT_EQ(paragraphs.back().items.size(), 4u);
}

}  // namespace
