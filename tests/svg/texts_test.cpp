#include <gmock/gmock.h>

#include "svg_drawing.h"

using Entity_ZR::Point3;
using Entity_ZR::ZR_Text;
using testing::ElementsAre;
using testing::Pair;

namespace {

constexpr double kUnit = 0.35277777777777775;

ZR_Text Text(const std::string& attributes) {
  return SvgDrawing("<svg><text " + attributes + ">A</text></svg>").Only<ZR_Text>();
}

}  // namespace

TEST(SvgText, CarriesItsBytes) {
  EXPECT_EQ(Text("").text, "A");
  EXPECT_EQ(SvgDrawing("<svg><text> \xC3\xA9&#xE9; </text></svg>").Only<ZR_Text>().text,
            " \xC3\xA9\xC3\xA9 ");
}

TEST(SvgText, HasItsPosition) {
  EXPECT_EQ(Text("x='1' y='2'").position, (Point3{1, 2, 0}));
  EXPECT_EQ(Text("x='1' dx='3' y='5' dy='-1'").position, (Point3{4, 4, 0}));
  EXPECT_EQ(Text("x='1 2 3' y='4mm'").position, (Point3{1, 4, 0}));
}

TEST(SvgText, HasItsHeightAsWritten) {
  EXPECT_EQ(Text("font-size='12pt'").height, 12.0);
  EXPECT_EQ(Text("font-size='12pt'").unit, "pt");
  EXPECT_EQ(Text("font-size='12.5'").height, 12.5);
  EXPECT_EQ(Text("font-size='12.5'").unit, "px");
  EXPECT_EQ(Text("").height, 0.0);
  EXPECT_EQ(Text("").unit, "");
}

TEST(SvgText, HasItsFontNameAsWritten) {
  EXPECT_EQ(Text("font-family='Arial, sans-serif'").fontName, "Arial, sans-serif");
  EXPECT_EQ(Text("font-family=\"'Open Sans'\"").fontName, "'Open Sans'");
  EXPECT_EQ(Text("").fontName, "Microsoft YaHei");
}

TEST(SvgText, IsBoldAndItalicByWordsAlone) {
  EXPECT_EQ(Text("font-weight='bold'").bold, 1);
  EXPECT_EQ(Text("font-weight='black'").bold, 1);
  EXPECT_EQ(Text("font-weight='700'").bold, 0);
  EXPECT_EQ(Text("font-style='italic'").italic, 1);
  EXPECT_EQ(Text("font-style='oblique'").italic, 1);
  EXPECT_EQ(Text("font-style='normal'").italic, 0);
}

TEST(SvgText, TakesItsAnchorFromTextRendering) {
  EXPECT_EQ(Text("text-anchor='middle'").alignment, 10);
  EXPECT_EQ(Text("text-rendering='middle'").alignment, 14);
  EXPECT_EQ(Text("text-rendering='end'").alignment, 12);
  EXPECT_EQ(Text("text-rendering='start'").alignment, 10);
  EXPECT_EQ(Text("text-rendering='auto'").alignment, 10);
  EXPECT_EQ(Text("").alignment, 10);
}

TEST(SvgText, ReadsItsRotation) {
  EXPECT_EQ(Text("rotate='30 40'").rotation, 30.0);
  EXPECT_EQ(Text("").rotation, 0.0);
}

TEST(SvgText, LeavesABlankRotationInThePairs) {
  EXPECT_EQ(Text("rotate='  '").rotation, 0.0);
  EXPECT_EQ(ParameterOf(Text("rotate='  '"), "rotate"), "  ");
}

TEST(SvgText, IsNotFlippedHere) { EXPECT_EQ(Text("").flipY, 0); }

TEST(SvgText, TakesWhatItReadOutOfThePairs) {
  EXPECT_THAT(ParametersOf(Text(
                  "x='1' y='1' dx='1' dy='1' rotate='1' font-size='1' font-family='a' font-weight='bold' "
                  "font-style='italic' text-anchor='end' text-rendering='end' cutPower='30'")),
              ElementsAre(Pair("cutPower", "30"), Pair("text-rendering", "end")));
}

TEST(SvgText, TakesItsFillForItsColour) { EXPECT_EQ(Text("fill='red'").color, 0xFF0000FFU); }

TEST(SvgText, IsSentWithoutText) {
  const SvgDrawing drawing("<svg><text x='9'><tspan x='5'>A</tspan><tspan>B</tspan></text></svg>");
  const auto texts = drawing.All<ZR_Text>();
  ASSERT_EQ(texts.size(), 3U);
  EXPECT_EQ(texts[0]->text, "");
  EXPECT_EQ(texts[1]->text, "A");
  EXPECT_EQ(texts[1]->position.x, 5.0);
  EXPECT_EQ(texts[2]->text, "B");
  EXPECT_EQ(texts[2]->position.x, 9.0);
}

TEST(SvgText, LosesTextBehindAChild) {
  const SvgDrawing drawing("<svg><text>A<tspan>B</tspan>C</text></svg>");
  const auto texts = drawing.All<ZR_Text>();
  ASSERT_EQ(texts.size(), 2U);
  EXPECT_EQ(texts[0]->text, "A");
  EXPECT_EQ(texts[1]->text, "B");
}

TEST(SvgText, GivesItsMatrixToItsTspans) {
  const SvgDrawing drawing(
      "<svg><text transform='translate(10)'>A<tspan transform='translate(77)'>B</tspan></text>"
      "<g><text transform='scale(2)'>C<tspan>D</tspan></text></g></svg>");
  const auto texts = drawing.All<ZR_Text>();
  ASSERT_EQ(texts.size(), 4U);
  EXPECT_EQ(texts[0]->matrix, (Matrix2D{kUnit, 0, 0, kUnit, 10 * kUnit, 0}));
  EXPECT_EQ(texts[1]->matrix, texts[0]->matrix);
  EXPECT_EQ(texts[2]->matrix, (Matrix2D{2, 0, 0, 2, 0, 0}));
  EXPECT_EQ(texts[3]->matrix, texts[2]->matrix);
}

TEST(SvgText, GivesItsFontToItsTspans) {
  const SvgDrawing drawing(
      "<svg><text font-family='F' font-size='7' style='fill:red' cutPower='9'>A<tspan "
      "cutSpeed='8'>B</tspan></text>"
      "</svg>");
  const auto tspan = drawing.All<ZR_Text>()[1];
  EXPECT_EQ(tspan->fontName, "F");
  EXPECT_EQ(tspan->height, 7.0);
  EXPECT_EQ(tspan->color, 0xFF0000FFU);
  EXPECT_THAT(ParametersOf(*tspan), ElementsAre(Pair("cutPower", "9"), Pair("cutSpeed", "8")));
}
