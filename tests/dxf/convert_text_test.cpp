#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drawing.h"
#include "dxf/aci_colors.h"

namespace {

using namespace Entity_ZR;
using testing::ElementsAre;

constexpr double kClose = 1e-12;

std::shared_ptr<const ZR_Text> ReadText(const std::string& tags) {
  return ReadOne<ZR_Text>("0|TEXT|1|abc|" + tags);
}

template <typename Entity>
std::shared_ptr<const Entity> ReadWithStyle(const std::string& style, const std::string& entities) {
  Drawing drawing;
  drawing.tables = Table("STYLE", {style});
  drawing.entities = entities;
  return ReadOne<Entity>(drawing);
}

TEST(ConvertText, CopiesWhatTheTextStates) {
  const auto text = ReadText("10|1|20|2|30|3|11|4|21|5|31|6|40|2.5|41|0.8|50|30|51|15");
  EXPECT_EQ(text->text, "abc");
  EXPECT_EQ(text->height, 2.5);
  EXPECT_EQ(text->widthScale, 0.8);
  EXPECT_EQ(text->oblique, 15.0);
  EXPECT_EQ(text->rotation, 30.0);
  EXPECT_EQ(text->position, (Point3{1, 2, 3}));
  EXPECT_EQ(text->secondPosition, (Point3{4, 5, 6}));
}

TEST(ConvertText, HandsTextOverInTheBytesOfTheFile) {
  EXPECT_EQ(ReadOne<ZR_Text>("0|TEXT|1|\xD6\xD0\xCE\xC4")->text, "\xD6\xD0\xCE\xC4");
}

TEST(ConvertText, SharesTheFontNamesOfAStyleAmongItsTexts) {
  Drawing drawing;
  drawing.tables = Table("STYLE", {"s|3|" + std::string(5000, 'a') + "|4|" + std::string(5000, 'b')});
  drawing.entities = "0|TEXT|1|x|7|s|0|TEXT|1|y|7|S";
  RecordingSink sink;
  ReadInto(sink, drawing);
  const auto texts = sink.All<ZR_Text>();
  ASSERT_EQ(texts.size(), 2u);
  EXPECT_EQ(texts[0]->fontName, std::string(5000, 'a'));
  EXPECT_EQ(&texts[1]->fontName.Get(), &texts[0]->fontName.Get());
  EXPECT_EQ(&texts[1]->bigFontName.Get(), &texts[0]->bigFontName.Get());
}

TEST(ConvertText, UsesSimSunWithoutAStyle) { EXPECT_EQ(ReadText("")->fontName, "SimSun"); }

TEST(ConvertText, FindsItsStyleWhateverTheCase) {
  EXPECT_EQ(ReadWithStyle<ZR_Text>("standard|3|isocp.shx|4|big.shx", "0|TEXT|1|x")->fontName, "isocp");
  const auto text = ReadWithStyle<ZR_Text>("Notes|3|arial.ttf|4|big.shx", "0|TEXT|1|x|7|nOTES");
  EXPECT_EQ(text->fontName, "arial");
  EXPECT_EQ(text->bigFontName, "big.shx");
}

TEST(ConvertText, TakesBoldItalicAndVerticalFromTheStyleButItsSizesFromTheRecord) {
  const auto text = ReadWithStyle<ZR_Text>("s|70|4|40|7|41|3|50|9|1071|50331648", "0|TEXT|1|x|7|s|40|2.5");
  EXPECT_EQ(text->bold, 1);
  EXPECT_EQ(text->italic, 1);
  EXPECT_EQ(text->vertical, 1);
  EXPECT_EQ(text->height, 2.5);
  EXPECT_EQ(text->widthScale, 1.0);
  EXPECT_EQ(text->oblique, 0.0);
}

TEST(ConvertText, TakesTheMirroringFromTheRecordNotFromTheStyle) {
  const auto text = ReadWithStyle<ZR_Text>("s|71|6", "0|TEXT|1|x|7|s");
  EXPECT_EQ(text->backward, 0);
  EXPECT_EQ(text->upsideDown, 0);
}

TEST(ConvertText, ReadsTheGenerationFlagsAsOneNumber) {
  struct Row {
    int flags, backward, upsideDown;
  };
  for (const Row& row : {Row{0, 0, 0}, {2, 1, 0}, {4, 0, 1}, {6, 1, 1}, {3, 0, 0}}) {
    const auto text = ReadText("71|" + std::to_string(row.flags));
    EXPECT_EQ(text->backward, row.backward) << row.flags;
    EXPECT_EQ(text->upsideDown, row.upsideDown) << row.flags;
  }
}

TEST(ConvertText, WorksTheAlignmentOutFromBothGroups) {
  struct Row {
    int horizontal, vertical, alignment;
  };
  for (const Row& row :
       {Row{0, 0, 10}, {1, 0, 11}, {2, 0, 12}, {3, 0, 13}, {4, 0, 14},  {5, 0, 10},         {0, 1, 7},
        {1, 1, 8},     {2, 1, 9},  {3, 1, 10}, {0, 2, 4},  {1, 2, 5},   {2, 2, 6},          {0, 3, 1},
        {1, 3, 2},     {2, 3, 3},  {3, 3, 10}, {0, 4, 10}, {-1, 0, 10}, {0, 2147483647, 10}}) {
    const auto text =
        ReadText("72|" + std::to_string(row.horizontal) + "|73|" + std::to_string(row.vertical));
    EXPECT_EQ(text->alignment, row.alignment) << row.horizontal << " " << row.vertical;
  }
}

TEST(ConvertText, RotatesTheFirstPointOfAnAlignedTextAboutTheSecond) {
  const auto text = ReadText("10|3|20|1|11|1|21|1|50|90|72|1");
  EXPECT_NEAR(text->position.x, 1.0, kClose);
  EXPECT_NEAR(text->position.y, 3.0, kClose);
}

TEST(ConvertText, LeavesTheFirstPointOfALeftAlignedOrLevelTextAlone) {
  EXPECT_EQ(ReadText("10|3|20|1|11|1|21|1|50|90")->position, (Point3{3, 1, 0}));
  EXPECT_EQ(ReadText("10|3|20|1|11|1|21|1|72|1")->position, (Point3{3, 1, 0}));
}

TEST(ConvertText, EndsAGroupAfterEachTextWhateverTheSinkAnswers) {
  for (const bool answer : {true, false}) {
    RecordingSink sink;
    sink.answer = answer;
    Drawing drawing;
    drawing.entities = "0|TEXT|1|x|0|LINE|8|0";
    ReadInto(sink, drawing);
    EXPECT_THAT(sink.Names(), ElementsAre("BeginRead", "BeginFile", "AddText", "EndGroup", "AddLine",
                                          "EndFile", "EndRead"));
  }
}

std::shared_ptr<const ZR_MText> ReadMText(const std::string& tags) {
  return ReadOne<ZR_MText>("0|MTEXT|" + tags);
}

TEST(ConvertMText, CopiesWhatTheTextStates) {
  const auto text = ReadMText("10|1|20|2|30|3|40|2.5|41|30|71|5|44|1.5|50|30|1|abc");
  EXPECT_EQ(text->position, (Point3{1, 2, 3}));
  EXPECT_EQ(text->height, 2.5);
  EXPECT_EQ(text->rectWidth, 30.0);
  EXPECT_EQ(text->attachment, 5);
  EXPECT_EQ(text->lineSpacingFactor, 1.5);
  EXPECT_EQ(text->rotation, 30.0);
}

TEST(ConvertMText, TakesItsDirectionAndTheRotationFromIt) {
  const auto text = ReadMText("11|0|21|2|31|0|1|abc");
  EXPECT_EQ(text->direction, (Point3{0, 2, 0}));
  EXPECT_NEAR(text->rotation, 90.0, 1e-9);
}

TEST(ConvertMText, ExchangesTheTwoLineSpacingStyles) {
  EXPECT_EQ(ReadMText("73|2|1|a")->lineSpacingStyle, 1);
  EXPECT_EQ(ReadMText("73|1|1|a")->lineSpacingStyle, 2);
  EXPECT_EQ(ReadMText("1|a")->lineSpacingStyle, 2);
  EXPECT_EQ(ReadMText("73|2|1|a")->paragraphs.front().lineSpacingStyle, 1);
}

TEST(ConvertMText, AlignsParagraphsByTheAttachment) {
  const int alignments[] = {12, 10, 11, 12, 10, 11, 12, 10, 11, 12, 12};
  for (int attachment = 0; attachment <= 10; ++attachment) {
    EXPECT_EQ(ReadMText("1|a|71|" + std::to_string(attachment))->paragraphs.front().alignment,
              alignments[attachment])
        << attachment;
  }
}

TEST(ConvertMText, StartsWithTheFormatOfItsStyleAndTheColourOfItsOwn) {
  const auto text = ReadWithStyle<ZR_MText>("s|3|arial.ttf|40|7|41|0.5|50|15|1071|16777216",
                                            "0|MTEXT|62|1|7|s|40|2.5|1|abc");
  ASSERT_EQ(text->paragraphs.size(), 1u);
  EXPECT_THAT(
      text->paragraphs[0].items,
      ElementsAre(MTextItem{kMTextFont, SharedText("arial")}, MTextItem{kMTextHeight, 7.0},
                  MTextItem{kMTextWidth, 0.5}, MTextItem{kMTextOblique, 15.0}, MTextItem{kMTextBold, false},
                  MTextItem{kMTextItalic, true}, MTextItem{kMTextColor, PackColor(255, 0, 0)},
                  MTextItem{kMTextRun, std::string("abc")}));
}

TEST(ConvertMText, JoinsThePiecesOfALongTextBeforeItIsTakenApart) {
  const auto text = ReadMText("3|one\\|3|Ptwo|1| three");
  ASSERT_EQ(text->paragraphs.size(), 2u);
  EXPECT_EQ(text->paragraphs[0].items.back(), (MTextItem{kMTextRun, std::string("one")}));
  EXPECT_EQ(text->paragraphs[1].items.back(), (MTextItem{kMTextRun, std::string("two three")}));
}

TEST(ConvertMText, GuessesTheEncodingFromTheFirstPieceOfText) {
  EXPECT_EQ(ReadMText("1|plain")->encoding, "UTF-8");
  EXPECT_EQ(ReadMText("1|")->encoding, "UTF-8");
  EXPECT_EQ(ReadMText("1|\xD6\xD0\xCE\xC4")->encoding, "GBK");
  EXPECT_EQ(ReadMText("1|\\P\\L\xD6\xD0\xCE\xC4\\Pplain")->encoding, "GBK");
  EXPECT_EQ(ReadMText("1|plain\\P\xD6\xD0\xCE\xC4")->encoding, "UTF-8");
  EXPECT_EQ(ReadMText("1|ab\xFF\xFF")->encoding, "unknown");
}

TEST(ConvertMText, CostsItsOwnTailOnlyWhereItBreaksOff) {
  RecordingSink sink;
  Drawing drawing;
  drawing.entities = "0|MTEXT|1|abc\\H2|0|LINE|8|0";
  ReadInto(sink, drawing);
  ASSERT_EQ(sink.All<ZR_MText>().size(), 1u);
  EXPECT_EQ(sink.All<ZR_MText>()[0]->paragraphs.back().items.back(),
            (MTextItem{kMTextRun, std::string("abc")}));
  EXPECT_EQ(sink.All<ZR_Line>().size(), 1u);
}

}  // namespace
