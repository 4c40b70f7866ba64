#include "pdf/content_interpreter.h"

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "pdf/interpret.h"
#include "support/account.h"
#include "support/limits.h"

namespace {

using pdf::PdfColor;
using testing::ElementsAre;
using testing::IsEmpty;
using namespace std::string_literals;

constexpr char kLine[] = "0 0 m\n1 1 l\nS\n";

// State and colours, seen through a path that is painted afterwards.

TEST(ContentState, EachMatrixReplacesTheOneBefore) {
  const Interpret run = Interpret().Run("1 0 0 1 10 10 cm\n1 0 0 1 5 5 cm\n0 0 m\n1 1 l\nS\n");
  EXPECT_THAT(run.Segments(), ElementsAre(Move(5, 5), Line(6, 6)));
}

TEST(ContentState, RestoringBringsTheSavedMatrixBack) {
  const Interpret run = Interpret().Run("1 0 0 1 3 0 cm\nq\n1 0 0 1 50 0 cm\nQ\n0 0 m\n1 1 l\nS\n");
  EXPECT_THAT(run.Segments(), ElementsAre(Move(3, 0), Line(4, 1)));
}

TEST(ContentState, OneRestoreTooManyIsIgnored) {
  const Interpret run = Interpret().Run("1 0 0 1 3 0 cm\nQ\n0 0 m\n1 1 l\nS\n");
  EXPECT_THAT(run.Segments(), ElementsAre(Move(3, 0), Line(4, 1)));
}

TEST(ContentState, ALineThatStartsWithSaveSetsItsMatrixBeforeItSaves) {
  // The operands are counted from the "q": 0 2 0 0 2 0. What is saved is the matrix of this line.
  const Interpret run = Interpret().Run("q 2 0 0 2 7 0 cm\n1 0 0 1 0 0 cm\nQ\n1 1 m\n1 2 l\nS\n");
  EXPECT_THAT(run.Segments(), ElementsAre(Move(2, 9), Line(2, 9)));
}

TEST(ContentState, RestoresMatchAnyNumberOfSaves) {
  std::string text = "1 0 0 1 3 0 cm\n";
  for (int i = 0; i < 20'000; ++i) text += "q\n";
  text += "1 0 0 1 9 0 cm\n";
  for (int i = 0; i < 20'000; ++i) text += "Q\n";
  const Interpret run = Interpret().Run(text + kLine);
  EXPECT_THAT(run.Segments(), ElementsAre(Move(3, 0), Line(4, 1)));
}

TEST(ContentState, ALineWithFewerOperandsThanItsMatrixEndsTheRead) {
  EXPECT_THROW(Interpret().Run("1 0 0 cm\n"), std::out_of_range);
  EXPECT_THROW(Interpret().Run("1 0 0 1 5 Tm\n1 0 Tm\n"), std::out_of_range);
}

TEST(ContentState, TheOperatorItselfCountsAsAnOperand) {
  // Five numbers: the sixth operand is "cm", which is 0.
  const Interpret run = Interpret().Run(std::string("1 0 0 1 4 cm\n") + kLine);
  EXPECT_THAT(run.Segments(), ElementsAre(Move(4, 0), Line(5, 1)));
}

TEST(ContentState, NumbersThatAreNoneAreZero) {
  const Interpret run = Interpret().Run(std::string("1 0 0 1 x y cm\n") + kLine);
  EXPECT_THAT(run.Segments(), ElementsAre(Move(0, 0), Line(1, 1)));
}

struct PaintCase {
  const char* lines;
  PdfColor stroke;
  PdfColor fill;
};

class ContentColor : public testing::TestWithParam<PaintCase> {};

TEST_P(ContentColor, ReachesThePath) {
  const Interpret run = Interpret()
                            .WithColorSpace("/Up", 0.0, 1.0)
                            .WithColorSpace("/Down", 1.0, 0.0)
                            .WithColorSpace("/Half", 0.0, 0.5)
                            .Run(std::string(GetParam().lines) + kLine);
  EXPECT_EQ(run.Path().paint.stroke, GetParam().stroke);
  EXPECT_EQ(run.Path().paint.fill, GetParam().fill);
}

INSTANTIATE_TEST_SUITE_P(
    Operators, ContentColor,
    testing::Values(PaintCase{"", {0, 0, 0}, {0, 0, 0}}, PaintCase{"0 0 1 rg\n", {0, 0, 0}, {0, 0, 255}},
                    PaintCase{"0 0 1 RG\n", {0, 0, 255}, {0, 0, 255}},
                    PaintCase{"0.5 0.25 1 rg\n", {0, 0, 0}, {127, 63, 255}},
                    PaintCase{"0.5 g\n0.5 G\n", {0, 0, 0}, {0, 0, 0}},
                    // 1 - min(1, 0.5 + 0.25) = 0.25; 63.75 is cut.
                    PaintCase{"0.5 0 1 0.25 k\n", {0, 0, 0}, {63, 191, 0}},
                    PaintCase{"0.5 0 1 0.25 K\n", {63, 191, 0}, {63, 191, 0}},
                    PaintCase{"0.5 SCN\n", {127, 127, 127}, {0, 0, 0}},
                    PaintCase{"0.5 scn\n", {0, 0, 0}, {127, 127, 127}},
                    PaintCase{"0.5 9 scn\n", {0, 0, 0}, {127, 127, 127}},
                    PaintCase{"/Down cs\n0.25 scn\n", {0, 0, 0}, {191, 191, 191}},
                    PaintCase{"/Down CS\n0.25 SCN\n", {191, 191, 191}, {0, 0, 0}},
                    PaintCase{"/Half cs\n1 scn\n", {0, 0, 0}, {0, 0, 0}},
                    PaintCase{"/Down cs\n/Missing cs\n1 scn\n", {0, 0, 0}, {255, 255, 255}},
                    PaintCase{"1 0 0 SCN\n", {255, 0, 0}, {255, 0, 0}},
                    PaintCase{"1 0 0 scn\n", {0, 0, 0}, {255, 0, 0}},
                    PaintCase{"0 1 1 0 SCN\n", {255, 0, 0}, {255, 0, 0}},
                    PaintCase{"0 1 1 0 scn\n", {0, 0, 0}, {255, 0, 0}},
                    PaintCase{"1 1 1 1 1 scn\n", {0, 0, 0}, {0, 0, 0}},
                    PaintCase{"/Down cs\n/P0 scn\n", {0, 0, 0}, {255, 255, 255}},
                    // Not clamped here: the low byte is taken where the colour is written.
                    PaintCase{"2 0 0 rg\n", {0, 0, 0}, {510, 0, 0}},
                    PaintCase{"q\n1 1 1 rg\nQ\n", {0, 0, 0}, {0, 0, 0}}));

TEST(ContentColorSpace, IsNotSaved) {
  const Interpret run =
      Interpret().WithColorSpace("/Down", 1.0, 0.0).Run(std::string("q\n/Down cs\nQ\n0.25 scn\n") + kLine);
  EXPECT_EQ(run.Path().paint.fill, (PdfColor{191, 191, 191}));
}

TEST(ContentColorSpace, AFillWithoutOperandsChangesNothing) {
  const Interpret run = Interpret().Run(std::string("1 1 1 rg\nscn\n") + kLine);
  EXPECT_EQ(run.Path().paint.fill, (PdfColor{255, 255, 255}));
}

TEST(ContentColorSpace, RgbWithOneOperandEndsTheRead) {
  EXPECT_THROW(Interpret().Run("1 rg\n"), std::out_of_range);
}

TEST(ContentLineStyle, WidthIsScaledByTheMatrixWithoutItsSign) {
  const Interpret run = Interpret().Run(std::string("-3 0 0 1 50 50 cm\n2 w\n") + kLine);
  EXPECT_EQ(run.Path().paint.lineWidth, 6.0);
}

TEST(ContentLineStyle, EachExtendedStateScalesTheWidthOnceMoreAndKeepsTheSign) {
  const Interpret run = Interpret().Run(std::string("-3 0 0 1 0 0 cm\n2 w\n/GS0 gs\n") + kLine);
  EXPECT_EQ(run.Path().paint.lineWidth, -18.0);
}

TEST(ContentLineStyle, PaintingUnderAMatrixThatIsNotTheSavedOneScalesTheWidthOnceMore) {
  const Interpret run = Interpret().Run(std::string("q\n2 0 0 2 0 0 cm\n3 w\n") + kLine);
  EXPECT_EQ(run.Path().paint.lineWidth, 12.0);
}

TEST(ContentLineStyle, PaintingUnderTheSavedMatrixLeavesTheWidth) {
  const Interpret run = Interpret().Run(std::string("2 0 0 2 0 0 cm\nq\n3 w\n") + kLine);
  EXPECT_EQ(run.Path().paint.lineWidth, 6.0);
}

TEST(ContentLineStyle, APathThatEndsUnpaintedInItsBlockScalesTheWidthToo) {
  const Interpret run = Interpret().Run(std::string("q\n2 0 0 2 0 0 cm\n3 w\n0 0 m\nn\n") + kLine);
  EXPECT_EQ(run.Path().paint.lineWidth, 24.0);
}

TEST(ContentLineStyle, ALoneEndOfPathDoesNot) {
  const Interpret run = Interpret().Run(std::string("q\n2 0 0 2 0 0 cm\n3 w\nn\n") + kLine);
  EXPECT_EQ(run.Path().paint.lineWidth, 12.0);
}

TEST(ContentLineStyle, CapJoinAndMiterLimitAreKeptAsNumbers) {
  const Interpret run = Interpret().Run(std::string("1.9 J\n2 j\n7.5 M\n") + kLine);
  EXPECT_EQ(run.Path().paint.lineCap, 1);
  EXPECT_EQ(run.Path().paint.lineJoin, 2);
  EXPECT_EQ(run.Path().paint.miterLimit, 7.5);
}

TEST(ContentOperators, UnknownOnesHaveNoEffect) {
  const Interpret run = Interpret().Run(
      "BT\nBX\nEX\n/A BMC\n/A /B BDC\nEMC\n/A MP\n/A /B DP\n[1] 0 d\n/R ri\n1 i\n12 TL\nT*\n(a) '\n1 2 (a) "
      "\"\n"
      "BI /W 1 ID\nEI\n1 0 d0\n1 Tc\n1 Tw\n1 Tr\n");
  EXPECT_EQ(run.Count(), 0U);
}

// The order of the tests, for lines that match several of them.

TEST(ContentCascade, TextIsShownBeforeItsLineSetsAColour) {
  const Interpret run = Interpret().Run("1 0 0 rg\n(TJ) 1 0 rg\n(b) Tj\n");
  ASSERT_EQ(run.Count(), 2U);
  EXPECT_EQ(run.Text(0).text, "TJ");
  EXPECT_EQ(run.Text(0).fill, (PdfColor{255, 0, 0}));
  EXPECT_EQ(run.Text(1).fill, (PdfColor{0, 255, 0}));
}

TEST(ContentCascade, TextIsShownBeforeItsLineSaves) {
  const Interpret run = Interpret().Run("1 0 0 1 5 6 Tm\nq (a) Tj\n(b) Tj\n");
  EXPECT_EQ(run.Text(0).position, (pdf::PdfPoint{5, 6}));
  EXPECT_EQ(run.Text(1).position, (pdf::PdfPoint{0, 0}));
}

TEST(ContentCascade, TheMatrixOfTheTextIsSetBeforeItsLineShows) {
  // The line ends with "Tm" and holds "Tj"; its operands are "(Tj)", 0, 0, 1, 5, 6.
  const Interpret run = Interpret().Run("(Tj) 0 0 1 5 6 Tm\n");
  ASSERT_EQ(run.Count(), 1U);
  EXPECT_EQ(run.Text().position, (pdf::PdfPoint{5, 6}));
}

TEST(ContentCascade, ALineRestoresBeforeItSetsTheWidth) {
  const Interpret run = Interpret().Run(std::string("2 w\nq\n7 w\nQ 5 w\n") + kLine);
  // Restored to 2, then set to the first operand, which is "Q".
  EXPECT_EQ(run.Path().paint.lineWidth, 0.0);
}

TEST(ContentCascade, ALineThatStartsWithAStrokeSetsItsColourFirst) {
  const Interpret run = Interpret().Run("0 0 1 1 re\nS 1 0 RG\n");
  ASSERT_EQ(run.Count(), 1U);
  EXPECT_EQ(run.Path().paint.stroke, (PdfColor{0, 255, 0}));
}

TEST(ContentCascade, ARectangleThatStartsWithAStrokeIsPaintedAtOnce) {
  const Interpret run = Interpret().Run("S 1 2 3 re\n");
  ASSERT_EQ(run.Count(), 1U);
  EXPECT_EQ(run.Segments().front(), Move(0, 1));
}

TEST(ContentCascade, AClipThatEndsABlockIsTakenByTheNextTest) {
  // The clip is the block's path, and the line behind it is still read.
  const Interpret run = Interpret().Run("0 0 m\n1 1 l\nW\n1 0 0 RG\nS\n/Sh0 sh\n");
  EXPECT_EQ(run.Path(0).paint.stroke, (PdfColor{255, 0, 0}));
  EXPECT_THAT(run.Segments(1), ElementsAre(Move(0, 0), Line(1, 1)));
}

TEST(ContentCascade, AnEndOfPathGoesOnWithTheNextLine) {
  // Outside a block "S n" is an end of path before it is a stroke.
  EXPECT_EQ(Interpret().Run("0 0 1 1 re\nS n\n").Count(), 0U);
}

// Operators are whole tokens.

TEST(ContentOperator, AfterANulByteTakesNoOperands) {
  for (const auto& line : {"\0k"s, "\0K"s, "\0\0rg"s, "\0cm"s, "\0Tm"s, "\0re"s, "\0Do"s}) {
    const Interpret run = Interpret().Run(line + "\n" + kLine);
    EXPECT_THAT(run.Segments(), ElementsAre(Move(0, 0), Line(1, 1))) << line;
  }
}

TEST(ContentOperator, AfterANulByteSetsNothing) {
  const Interpret run = Interpret().Run("1 0 0 \0\0rg\n0 0 0 0 \0k\n1 0 0 1 5 5 \0cm\n7 \0w\n"s + kLine);
  EXPECT_THAT(run.Segments(), ElementsAre(Move(0, 0), Line(1, 1)));
  EXPECT_EQ(run.Path().paint.fill, (PdfColor{0, 0, 0}));
  EXPECT_EQ(run.Path().paint.lineWidth, Interpret().Run(kLine).Path().paint.lineWidth);
}

TEST(ContentOperator, AfterANulByteStartsNoPath) {
  // What follows it would be taken as lines of the path, the matrix too.
  const Interpret run = Interpret().Run("\0m\n1 0 0 1 5 5 cm\n"s + kLine);
  EXPECT_THAT(run.Segments(), ElementsAre(Move(5, 5), Line(6, 6)));
}

TEST(ContentOperator, AfterANulByteNeitherPaintsNorClearsNorClips) {
  for (const auto& line : {"\0f"s, "\0S"s, "\0B*"s, "\0n"s, "\0W"s, "\0\0W"s, "\0W*"s}) {
    const Interpret run = Interpret().Run("0 0 m\n1 1 l\n" + line + "\n2 2 l\nf\n");
    ASSERT_EQ(run.Count(), 1U) << line;
    EXPECT_THAT(run.Segments(), ElementsAre(Move(0, 0), Line(1, 1), Line(2, 2))) << line;
    EXPECT_EQ(run.Path().paintMode, pdf::kNonZeroFill) << line;
  }
}

TEST(ContentOperator, AfterANulByteDrawsNothing) {
  EXPECT_EQ(Interpret().WithForm("/Fm", kLine).Run("/Fm \0Do\n"s).Count(), 0U);
}

TEST(ContentOperator, WithANulByteAtItsEndIsNone) {
  EXPECT_EQ(Interpret().Run("0 0 m\n1 1 l\nf\0\n"s).Count(), 0U);
}

// Text.

TEST(ContentText, ThreeStringsInARowStandAtOnePosition) {
  const Interpret run = Interpret().Run("1 0 0 1 10 20 Tm\n(a) Tj\n(b) Tj\n(c) Tj\n");
  ASSERT_EQ(run.Count(), 3U);
  EXPECT_EQ(run.Text(0).text, "a");
  EXPECT_EQ(run.Text(2).text, "c");
  for (std::size_t i = 0; i < 3; ++i) EXPECT_EQ(run.Text(i).position, (pdf::PdfPoint{10, 20}));
}

TEST(ContentText, AnArrayIsOneString) {
  const Interpret run = Interpret().Run("[(A)-120(B)] TJ\n");
  ASSERT_EQ(run.Count(), 1U);
  EXPECT_EQ(run.Text().text, "AB");
}

TEST(ContentText, TheOperatorsAreSearchedInTheWholeLine) {
  const Interpret run = Interpret().Run("(a TJ b) Tj\n");
  ASSERT_EQ(run.Count(), 2U);
  EXPECT_EQ(run.Text(0).text, "a TJ b");  // as an array
  EXPECT_EQ(run.Text(1).text, "a TJ b");  // as a string
}

TEST(ContentText, AnOperatorAtTheEndOfTheTextWithHalfAMatchIsNone) {
  EXPECT_EQ(Interpret().Run("(a) T").Count(), 0U);
}

TEST(ContentText, TheMatrixOfTheTextIsPlacedByThePageMatrix) {
  const Interpret run = Interpret().Run("2 0 0 3 1 1 cm\n1 0 0 1 10 20 Tm\n(a) Tj\n");
  EXPECT_EQ(run.Text().position, (pdf::PdfPoint{21, 61}));
}

TEST(ContentText, AStepGoesThroughTheTextMatrixWithoutItsTranslation) {
  const Interpret run = Interpret().Run("2 0 0 3 10 20 Tm\n1 1 Td\n(a) Tj\n");
  EXPECT_EQ(run.Text().position, (pdf::PdfPoint{12, 23}));
}

TEST(ContentText, AStepIsNotScaledByThePageMatrix) {
  const Interpret run = Interpret().Run("2 0 0 2 0 0 cm\n1 0 0 1 10 20 Tm\n1 1 Td\n(a) Tj\n");
  EXPECT_EQ(run.Text().position, (pdf::PdfPoint{21, 41}));
}

TEST(ContentText, TheLeadingStepUsesTheFirstValueForBothAxes) {
  const Interpret run = Interpret().Run("2 0 0 3 10 20 Tm\n1 1 TD\n(a) Tj\n");
  EXPECT_EQ(run.Text().position, (pdf::PdfPoint{12, 22}));
}

TEST(ContentText, RotationIsTheArcSineOfTheSecondValue) {
  const Interpret run = Interpret().Run("0 0.5 -0.5 0 0 0 Tm\n(a) Tj\n");
  EXPECT_NEAR(run.Text().rotation, 30.0, 1e-12);
}

TEST(ContentText, RotationStaysWhereTheSecondValueIsZero) {
  const Interpret run = Interpret().Run("0 1 -1 0 0 0 Tm\n1 0 0 1 0 0 Tm\n(a) Tj\n");
  EXPECT_NEAR(run.Text().rotation, 90.0, 1e-12);
}

TEST(ContentText, RotationBeyondOneIsNotANumber) {
  const Interpret run = Interpret().Run("0 12 -12 0 0 0 Tm\n(a) Tj\n");
  EXPECT_TRUE(std::isnan(run.Text().rotation));
}

struct SizeCase {
  const char* lines;
  double size;
};

class ContentFontSize : public testing::TestWithParam<SizeCase> {};

TEST_P(ContentFontSize, ReachesTheText) {
  const Interpret run = Interpret().WithFont("/F1", "Arial").Run(std::string(GetParam().lines) + "(a) Tj\n");
  EXPECT_EQ(run.Text().fontSize, GetParam().size);
}

INSTANTIATE_TEST_SUITE_P(
    Lines, ContentFontSize,
    testing::Values(
        // Without a font the text matrix (identity) sets the size to the base size, which is 0.
        SizeCase{"", 0.0}, SizeCase{"/F1 12 Tf\n", 12.0}, SizeCase{"3 0 0 5 0 0 cm\n/F1 12 Tf\n", 36.0},
        // With a shear part the page matrix does not count.
        SizeCase{"3 0.5 0 5 0 0 cm\n/F1 12 Tf\n", 12.0}, SizeCase{"3 0 0.5 5 0 0 cm\n/F1 12 Tf\n", 12.0},
        SizeCase{"/F1 12 Tf\n2 0 0 7 0 0 Tm\n", 24.0}, SizeCase{"/F1 12 Tf\n-2 0 0 7 0 0 Tm\n", -24.0},
        // A text matrix that starts with 0 leaves the size as it is.
        SizeCase{"0 1 -1 0 0 0 Tm\n/F1 12 Tf\n", 12.0}, SizeCase{"0 1 -1 0 0 0 Tm\n/F1 12 Tf\nET\n", 1.0},
        // Saving and restoring keep the base size.
        SizeCase{"q\n/F1 12 Tf\nQ\n", 12.0}));

TEST(ContentText, EndOfTextKeepsFontAndTextMatrix) {
  const Interpret run = Interpret().WithFont("/F1", "Arial").Run("/F1 12 Tf\n2 0 0 2 5 5 Tm\nET\n(a) Tj\n");
  EXPECT_EQ(run.Text().font->name, "Arial");
  EXPECT_EQ(run.Text().fontSize, 24.0);
  EXPECT_EQ(run.Text().position, (pdf::PdfPoint{0, 0}));
}

TEST(ContentText, EndOfTextResetsScaleAndRotation) {
  const Interpret run = Interpret().Run("50 Tz\n0 1 -1 0 0 0 Tm\nET\n(a) Tj\n");
  EXPECT_EQ(run.Text().horizontalScale, 1.0);
  EXPECT_EQ(run.Text().rotation, 0.0);
}

TEST(ContentText, SavingResetsTheText) {
  const Interpret run = Interpret().Run("50 Tz\n1 0 0 1 5 5 Tm\nq\n(a) Tj\n");
  EXPECT_EQ(run.Text().horizontalScale, 1.0);
  EXPECT_EQ(run.Text().position, (pdf::PdfPoint{0, 0}));
}

TEST(ContentText, HorizontalScaleIsAFraction) {
  EXPECT_EQ(Interpret().Run("50 Tz\n(a) Tj\n").Text().horizontalScale, 0.5);
}

TEST(ContentText, AMissingFontIsTheDefaultOne) {
  const Interpret run = Interpret().WithFont("/F1", "Arial").Run("/F1 9 Tf\n/F2 9 Tf\n(a) Tj\n");
  EXPECT_EQ(run.Text().font->name, "SimSun");
}

TEST(ContentText, TakesTheFillColour) {
  EXPECT_EQ(Interpret().Run("1 0 0 rg\n(a) Tj\n").Text().fill, (PdfColor{255, 0, 0}));
}

TEST(ContentText, WithAnUnpairedSurrogateIsNotShown) {
  pdf::PdfFont font;
  font.toUnicode.Store("0001", "D83D");
  font.toUnicode.Store("0002", "0041");
  Interpret run;
  run.resources.fonts["/F1"] = std::make_shared<const pdf::PdfFont>(font);
  run.Run("/F1 9 Tf\n<0001> Tj\n[<0002><0001>] TJ\n<0002> Tj\n");
  ASSERT_EQ(run.Count(), 1U);
  EXPECT_EQ(run.Text().text, "A");
}

// Paths.

TEST(ContentPath, MovesLinesAndCurvesThroughTheMatrix) {
  const Interpret run =
      Interpret().Run("2 0 0 2 1 0 cm\n0 0 m\n1 0 l\n1 1 2 2 3 3 c\n4 4 5 5 v\n6 6 7 7 y\nS\n");
  EXPECT_THAT(run.Segments(),
              ElementsAre(Move(1, 0), Line(3, 0), Curve({3, 2}, {5, 4}, {7, 6}),
                          Curve({7, 6}, {9, 8}, {11, 10}), Curve({13, 12}, {15, 14}, {15, 14})));
}

TEST(ContentPath, ClosingGoesBackToTheLastMove) {
  const Interpret run = Interpret().Run("0 0 m\n1 0 l\n5 5 m\n6 5 l\nh\nS\n");
  EXPECT_THAT(run.Segments(), ElementsAre(Move(0, 0), Line(1, 0), Move(5, 5), Line(6, 5), Line(5, 5)));
}

TEST(ContentPath, ClosingDoesNotMoveTheCurrentPoint) {
  const Interpret run = Interpret().Run("0 0 m\n4 0 l\nh\n1 1 2 2 v\nS\n");
  EXPECT_EQ(run.Segments().back(), Curve({4, 0}, {1, 1}, {2, 2}));
}

TEST(ContentPath, ARectangleIsAMoveThreeLinesAndALineBack) {
  const Interpret run = Interpret().Run("1 0 0 1 10 0 cm\n1 2 3 4 re\nf\n");
  EXPECT_THAT(run.Segments(), ElementsAre(Move(11, 2), Line(14, 2), Line(14, 6), Line(11, 6), Line(11, 2)));
}

TEST(ContentPath, ARectangleWithinABlockLeavesTheCurrentPoint) {
  const Interpret run = Interpret().Run("7 7 m\n1 2 3 4 re\n0 0 9 9 v\nS\n");
  EXPECT_THAT(run.Segments(), ElementsAre(Move(7, 7), Move(1, 2), Line(4, 2), Line(4, 6), Line(1, 6),
                                          Line(1, 2), Curve({7, 7}, {0, 0}, {9, 9})));
}

TEST(ContentPath, ARectangleOutsideABlockMayHaveMoreTokens) {
  EXPECT_EQ(Interpret().Run("1 2 3 4 5 re\nf\n").Segments().size(), 5U);
}

TEST(ContentPath, ARectangleWithoutItsOperandsEndsTheRead) {
  EXPECT_THROW(Interpret().Run("1 2 re\n"), std::out_of_range);
}

class ContentPathTokens : public testing::TestWithParam<const char*> {};

TEST_P(ContentPathTokens, AWrongNumberStopsTheBlock) {
  const Interpret run = Interpret().Run(std::string("0 0 m\n1 1 l\n") + GetParam() + "\n2 2 l\nS\n");
  EXPECT_THAT(run.Segments(), ElementsAre(Move(0, 0), Line(1, 1)));
}

INSTANTIATE_TEST_SUITE_P(Lines, ContentPathTokens,
                         testing::Values("1 m", "1 2 3 m", "1 l", "1 2 3 l", "1 2 3 v", "1 2 3 4 5 v",
                                         "1 2 3 y", "1 2 3 4 5 c", "1 2 3 4 5 6 7 c", "1 2 3 re",
                                         "1 2 3 4 5 re", " 2 2 l"));

TEST(ContentPath, OtherLinesWithinABlockAreSkipped) {
  const Interpret run = Interpret().Run("0 0 m\n5 w\n\n1 0 0 rg\n1 1 l\nS\n");
  EXPECT_THAT(run.Segments(), ElementsAre(Move(0, 0), Line(1, 1)));
  EXPECT_EQ(run.Path().paint.lineWidth, 0.0);
}

TEST(ContentPath, ABlockWithoutAnEndIsNotPainted) {
  EXPECT_EQ(Interpret().Run("0 0 m\n1 1 l\n").Count(), 0U);
}

TEST(ContentPath, TheLineThatEndsABlockBelongsToIt) {
  const Interpret run = Interpret().Run("0 0 m\nS 5 l\n");
  EXPECT_THAT(run.Segments(), ElementsAre(Move(0, 0), Line(0, 5)));
}

struct ModeCase {
  const char* line;
  int mode;
};

class ContentPaint : public testing::TestWithParam<ModeCase> {};

TEST_P(ContentPaint, SetsTheMode) {
  const Interpret block = Interpret().Run(std::string("0 0 m\n1 1 l\n") + GetParam().line + "\n");
  ASSERT_EQ(block.Count(), 1U);
  EXPECT_EQ(block.Path().paintMode, GetParam().mode);
  const Interpret rectangle = Interpret().Run(std::string("0 0 1 1 re\n") + GetParam().line + "\n");
  ASSERT_EQ(rectangle.Count(), 1U);
  EXPECT_EQ(rectangle.Path().paintMode, GetParam().mode);
}

INSTANTIATE_TEST_SUITE_P(Operators, ContentPaint,
                         testing::Values(ModeCase{"S", 0}, ModeCase{"s", 0}, ModeCase{"f", 2},
                                         ModeCase{"F", 2}, ModeCase{"f*", 1}, ModeCase{"b", 2},
                                         ModeCase{"B", 2}, ModeCase{"b*", 1}, ModeCase{"B*", 1},
                                         ModeCase{"S 1", 0}, ModeCase{"1 2 3 4 5 6 7 S", 0},
                                         ModeCase{"1 2 3 4 5 6 7 S 9", 0}));

TEST(ContentPaint, AStrokeThatIsNeitherFirstNorEighthIsNone) {
  EXPECT_EQ(Interpret().Run("0 0 m\n1 1 l\n1 S\n").Count(), 0U);
}

TEST(ContentPaint, ClearsThePath) {
  const Interpret run = Interpret().Run("0 0 m\n1 1 l\nS\n5 5 m\n6 6 l\nS\n");
  EXPECT_THAT(run.Segments(1), ElementsAre(Move(5, 5), Line(6, 6)));
}

TEST(ContentPaint, WithoutAPathStillMakesARecord) {
  const Interpret run = Interpret().Run("S\n");
  ASSERT_EQ(run.Count(), 1U);
  EXPECT_THAT(run.Segments(), IsEmpty());
}

TEST(ContentPaint, RectanglesAddUpUntilPainted) {
  EXPECT_EQ(Interpret().Run("0 0 1 1 re\n2 2 1 1 re\nf\n").Segments().size(), 10U);
}

TEST(ContentPaint, EndOfPathDropsIt) {
  const Interpret run = Interpret().Run("0 0 1 1 re\nn\n0 0 m\n1 1 l\nn\n5 5 m\nS\n");
  ASSERT_EQ(run.Count(), 1U);
  EXPECT_THAT(run.Segments(), ElementsAre(Move(5, 5)));
}

// Clips, seen through a shading.

TEST(ContentClip, IsTheOutlineOfAShading) {
  const Interpret run = Interpret().Run("0 0 m\n9 0 l\n9 9 l\nh\nW\nn\n/Sh0 sh\n");
  ASSERT_EQ(run.Count(), 1U);
  EXPECT_THAT(run.Segments(), ElementsAre(Move(0, 0), Line(9, 0), Line(9, 9), Line(0, 0)));
}

TEST(ContentClip, BothRulesAreOne) {
  const Interpret run = Interpret().Run("0 0 m\n9 0 l\nW*\nn\n/Sh0 sh\n");
  EXPECT_THAT(run.Segments(), ElementsAre(Move(0, 0), Line(9, 0)));
}

TEST(ContentClip, OfARectangleIsEmpty) {
  const Interpret run = Interpret().Run("0 0 m\n9 0 l\nW\nn\n0 0 1 1 re\nW\nn\n/Sh0 sh\n");
  EXPECT_THAT(run.Segments(), IsEmpty());
}

TEST(ContentClip, ARectangleOnTheLastLineIsNoClip) { EXPECT_EQ(Interpret().Run("0 0 1 1 re").Count(), 0U); }

TEST(ContentClip, ARectangleKeepsItsPathWhereTheNextLineIsMoreThanAClip) {
  EXPECT_EQ(Interpret().Run("0 0 1 1 re\nW n\nf\n").Segments().size(), 0U);  // "n" ends it
  EXPECT_EQ(Interpret().Run("0 0 1 1 re\n1 W\nf\n").Segments().size(), 5U);
}

TEST(ContentClip, DoesNotEndThePath) {
  const Interpret run = Interpret().Run("0 0 m\n9 0 l\nW\nS\n");
  EXPECT_THAT(run.Segments(), ElementsAre(Move(0, 0), Line(9, 0)));
}

TEST(ContentClip, KeepsItsOutlineWhenThePathGoesOn) {
  const Interpret run = Interpret().Run("0 0 m\n9 0 l\nW\n5 5 m\n6 6 l\nS\n/Sh0 sh\n");
  EXPECT_THAT(run.Segments(0), ElementsAre(Move(0, 0), Line(9, 0), Move(5, 5), Line(6, 6)));
  EXPECT_THAT(run.Segments(1), ElementsAre(Move(0, 0), Line(9, 0)));
}

TEST(ContentClip, CutsNothing) {
  const Interpret run = Interpret().Run("0 0 m\n1 0 l\n1 1 l\nh\nW\nn\n50 50 m\n60 60 l\nS\n");
  EXPECT_THAT(run.Segments(), ElementsAre(Move(50, 50), Line(60, 60)));
}

TEST(ContentShading, ResetsTheClip) {
  const Interpret run = Interpret().Run("0 0 m\n9 0 l\nW\nn\n/Sh0 sh\n/Sh0 sh\n");
  EXPECT_THAT(run.Segments(1), IsEmpty());
}

TEST(ContentShading, TheClipIsRestoredWithTheState) {
  const Interpret run = Interpret().Run("0 0 m\n9 0 l\nW\nn\nq\n/Sh0 sh\nQ\n/Sh0 sh\n");
  EXPECT_THAT(run.Segments(1), ElementsAre(Move(0, 0), Line(9, 0)));
}

TEST(ContentShading, WithoutTheNumbersOfItsAxisEndsTheRead) {
  EXPECT_THROW(Interpret().WithShading("/S", 2, {0, 0, 1}).Run("/S sh\n"), std::out_of_range);
  EXPECT_THROW(Interpret().WithShading("/S", 3, {0, 0, 1, 1}).Run("/S sh\n"), std::out_of_range);
  EXPECT_NO_THROW(Interpret().WithShading("/S", 2, {0, 0, 1, 1}).Run("/S sh\n"));
  EXPECT_NO_THROW(Interpret().WithShading("/S", 3, {0, 0, 1, 1, 1}).Run("/S sh\n"));
  EXPECT_NO_THROW(Interpret().WithShading("/S", 1, {}).Run("/S sh\n"));
}

// Images and forms.

TEST(ContentImage, IsPlacedByAnUprightMatrix) {
  const Interpret run = Interpret().WithImage("/I", 10, 20).Run("50 0 0 40 7 8 cm\n/I Do\n");
  EXPECT_EQ(run.Image().scaleX, 5.0);
  EXPECT_EQ(run.Image().scaleY, 2.0);
  EXPECT_EQ(run.Image().rotation, 0.0);
  EXPECT_EQ(run.Image().x, 7.0);
  EXPECT_EQ(run.Image().y, 48.0);
}

TEST(ContentImage, BothScalesNegativeIsHalfATurn) {
  const Interpret run = Interpret().WithImage("/I", 10, 20).Run("-50 0 0 -40 7 80 cm\n/I Do\n");
  EXPECT_EQ(run.Image().scaleX, 5.0);
  EXPECT_EQ(run.Image().scaleY, 2.0);
  EXPECT_EQ(run.Image().rotation, 180.0);
  EXPECT_EQ(run.Image().y, 40.0);
}

TEST(ContentImage, OnlyTheSecondScaleNegativeIsMeasuredFromTheTopOfThePage) {
  const Interpret run = Interpret().WithImage("/I", 10, 20).Run("50 0 0 -40 7 80 cm\n/I Do\n");
  EXPECT_EQ(run.Image().rotation, 0.0);
  EXPECT_EQ(run.Image().y, 160.0);  // 200 - (80 - 40)
}

TEST(ContentImage, UnderAShearKeepsThePlacementBefore) {
  const Interpret run =
      Interpret()
          .WithImage("/I", 10, 20)
          .Run("50 0 0 40 7 8 cm\n/I Do\n50 1 0 40 0 0 cm\n/I Do\n50 0 1 40 0 0 cm\n/I Do\n");
  EXPECT_EQ(run.Image(1).x, 7.0);
  EXPECT_EQ(run.Image(2).scaleX, 5.0);
}

TEST(ContentImage, UnderAShearBeforeAnyPlacementAllIsZero) {
  const Interpret run =
      Interpret().WithImage("/I", 10, 20).Run("50 0 0 40 7 8 cm\n/I Do\nq\n50 1 0 40 3 3 cm\n/I Do\n");
  EXPECT_EQ(run.Image(1).scaleX, 0.0);
  EXPECT_EQ(run.Image(1).scaleY, 0.0);
  EXPECT_EQ(run.Image(1).x, 0.0);
  EXPECT_EQ(run.Image(1).y, 0.0);
}

TEST(ContentImage, OfAMissingNameIsNothing) { EXPECT_EQ(Interpret().Run("/I Do\n").Count(), 0U); }

TEST(ContentForm, RunsFromAFreshState) {
  const Interpret run = Interpret().WithForm("/Fm", kLine).Run("1 0 0 1 50 50 cm\n1 0 0 rg\n/Fm Do\n");
  EXPECT_THAT(run.Segments(), ElementsAre(Move(0, 0), Line(1, 1)));
  EXPECT_EQ(run.Path().paint.fill, (PdfColor{0, 0, 0}));
}

TEST(ContentForm, LeavesTheStateOfItsCaller) {
  const Interpret run =
      Interpret().WithForm("/Fm", "9 0 0 9 9 9 cm\n").Run(std::string("1 0 0 1 50 50 cm\n/Fm Do\n") + kLine);
  EXPECT_THAT(run.Segments(), ElementsAre(Move(50, 50), Line(51, 51)));
}

TEST(ContentForm, ThatRunsItselfEndsAtTheLimitOfDepth) {
  const Interpret run = Interpret().WithForm("/Fm", std::string(kLine) + "/Fm Do\n").Run("/Fm Do\n");
  EXPECT_EQ(run.Count(), static_cast<std::size_t>(support::limits::kPdfFormDepth));
}

TEST(ContentForm, ThatRunsItselfTwiceEndsWithTheWorkOfTheRead) {
  Interpret run = Interpret().WithForm("/Fm", "/Fm Do\n/Fm Do\n");
  support::Account account({.held = 1 << 20, .working = 1 << 20, .work = 1 << 20});
  const support::AccountScope scope(account);
  EXPECT_FALSE(support::RunItem([&] { run.Run("/Fm Do\n"); }));
  // Half of it, and what it takes to end.
  EXPECT_LE(account.Spent(), (1U << 20) / 2 + 4096);
}

TEST(ContentForm, BeyondTheMemoryKeepsWhatItDrewAndTheRestOfThePage) {
  std::string form = kLine;
  for (int i = 0; i < 100'000; ++i) form += "q\n";
  Interpret run = Interpret().WithForm("/Fm", form + kLine);
  support::Account account({.held = 1 << 20, .working = 1 << 20, .work = 1 << 30});
  const support::AccountScope scope(account);
  run.Run(std::string("/Fm Do\n1 0 0 1 5 5 cm\n") + kLine);
  EXPECT_EQ(account.Cuts(), 1U);
  ASSERT_EQ(run.Count(), 2U);
  EXPECT_THAT(run.Segments(1), ElementsAre(Move(5, 5), Line(6, 6)));
}

}  // namespace
