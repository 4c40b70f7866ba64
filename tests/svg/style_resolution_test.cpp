#include <gmock/gmock.h>

#include "svg_drawing.h"

using testing::ElementsAre;
using testing::Pair;

namespace {

std::string Field(std::string_view text, std::string_view element, Svg::KnownKey key) {
  const LoadedSvg svg(text);
  return svg.Field(svg.Find(element), key);
}

}  // namespace

TEST(MergedAttributes, HaveTheDefaultOfEachFieldThatIsMissing) {
  const LoadedSvg svg("<svg/>");
  const std::pair<const char*, const char*> rows[] = {{"display", "inline"},
                                                      {"transform", ""},
                                                      {"rotate", ""},
                                                      {"fill", "black"},
                                                      {"fill-opacity", "1"},
                                                      {"stroke", "none"},
                                                      {"stroke-dasharray", "none"},
                                                      {"stroke-linecap", "butt"},
                                                      {"stroke-linejoin", "miter"},
                                                      {"stroke-miterlimit", "4"},
                                                      {"stroke-opacity", "1"},
                                                      {"stroke-width", "1"},
                                                      {"stop-color", "black"},
                                                      {"font-family", ""},
                                                      {"font-size", ""},
                                                      {"font-style", ""},
                                                      {"font-weight", ""},
                                                      {"text-rendering", ""},
                                                      {"class", ""},
                                                      {"cx", "0"},
                                                      {"cy", "0"},
                                                      {"d", ""},
                                                      {"dx", ""},
                                                      {"dy", ""},
                                                      {"height", ""},
                                                      {"width", ""},
                                                      {"href", ""},
                                                      {"xlink:href", ""},
                                                      {"id", ""},
                                                      {"offset", "0"},
                                                      {"points", ""},
                                                      {"r", ""},
                                                      {"rx", ""},
                                                      {"ry", ""},
                                                      {"x", ""},
                                                      {"y", ""},
                                                      {"x1", "0%"},
                                                      {"y1", "0%"},
                                                      {"x2", "100%"},
                                                      {"y2", "100%"}};
  for (const auto& [name, value] : rows) {
    const auto key = static_cast<Svg::KnownKey>(svg.document->store.KeyOf(name));
    ASSERT_LT(key, Svg::kKnownKeyCount) << name;
    EXPECT_EQ(svg.Field(svg.Find("svg"), key), value) << name;
  }
}

TEST(MergedAttributes, LoseTheBlanksAtTheirEndsAsFields) {
  EXPECT_EQ(Field("<svg><rect fill='  red '/></svg>", "rect", Svg::kFill), "red");
  EXPECT_EQ(Field("<svg><rect fill='\tred'/></svg>", "rect", Svg::kFill), "\tred");
}

TEST(MergedAttributes, CountAsMissingWhenAllBlank) {
  EXPECT_EQ(Field("<svg><rect fill='   '/></svg>", "rect", Svg::kFill), "black");
}

TEST(MergedAttributes, CompareNamesWithCase) {
  EXPECT_EQ(Field("<svg><rect Fill='red'/></svg>", "rect", Svg::kFill), "black");
}

TEST(StyleAttribute, SetsProperties) {
  const LoadedSvg svg("<svg><rect style='stroke:red;fill:none'/></svg>");
  EXPECT_EQ(svg.Field(svg.Find("rect"), Svg::kStroke), "red");
  EXPECT_EQ(svg.Field(svg.Find("rect"), Svg::kFill), "none");
}

TEST(StyleAttribute, KeepsBlanksInFrontOfAKey) {
  const LoadedSvg svg("<svg><rect style='stroke:red; fill:none'/></svg>");
  EXPECT_EQ(svg.Field(svg.Find("rect"), Svg::kFill), "black");
  EXPECT_EQ(svg.Merged(svg.Find("rect"), " fill"), "none");
}

TEST(StyleAttribute, StaysAmongTheAttributesItself) {
  const LoadedSvg svg("<svg><rect style='fill:red'/></svg>");
  EXPECT_EQ(svg.Merged(svg.Find("rect"), "style"), "fill:red");
}

TEST(StyleAttribute, WinsOverAttributesWhereverItStands) {
  EXPECT_EQ(Field("<svg><rect style='fill:red' fill='blue'/></svg>", "rect", Svg::kFill), "red");
  EXPECT_EQ(Field("<svg><rect fill='blue' style='fill:red'/></svg>", "rect", Svg::kFill), "red");
}

TEST(StyleAttribute, SkipsPiecesThatBeginWithAColonAndDoublesThoseWithoutOne) {
  const LoadedSvg svg("<svg><rect style=':x;;abc;a:b:c'/></svg>");
  EXPECT_EQ(svg.Merged(svg.Find("rect"), "abc"), "abc");
  EXPECT_EQ(svg.Merged(svg.Find("rect"), "a"), "b:c");
  EXPECT_EQ(svg.Find("rect").StyleProperties().size(), 2U);
}

TEST(StyleAttribute, CanSetTheId) {
  const LoadedSvg svg("<svg><rect id='a' style='id: b '/></svg>");
  EXPECT_EQ(svg.Find("rect").id, "b");
  EXPECT_EQ(svg.Find("recttail").id, "b");
}

TEST(Inheritance, HandsOnAllOfAGroupButTransformAndId) {
  const LoadedSvg svg("<svg><g id='a' transform='scale(2)' fill='red' foo='bar'><rect/></g></svg>");
  const Svg::SVG_Element& rect = svg.Find("rect");
  EXPECT_EQ(svg.Merged(rect, "fill"), "red");
  EXPECT_EQ(svg.Merged(rect, "foo"), "bar");
  EXPECT_EQ(svg.Merged(rect, "transform"), "(none)");
  EXPECT_EQ(svg.Merged(rect, "id"), "(none)");
  EXPECT_EQ(rect.id, "");
}

TEST(Inheritance, LetsTheOwnAttributeWin) {
  EXPECT_EQ(Field("<svg><g fill='red'><rect fill='blue'/></g></svg>", "rect", Svg::kFill), "blue");
  EXPECT_EQ(Field("<svg><g style='fill:red'><rect fill='blue'/></g></svg>", "rect", Svg::kFill), "blue");
}

TEST(Inheritance, GoesThroughNestedGroups) {
  const LoadedSvg svg("<svg><g fill='red' a='1'><g fill='blue' b='2' id='x'><rect/></g></g></svg>");
  const Svg::SVG_Element& rect = svg.Find("rect");
  EXPECT_EQ(svg.Merged(rect, "fill"), "blue");
  EXPECT_EQ(svg.Merged(rect, "a"), "1");
  EXPECT_EQ(svg.Merged(rect, "b"), "2");
}

TEST(Inheritance, GoesThroughAGroupThatAddsNothing) {
  EXPECT_EQ(
      Field("<svg><g fill='red'><g id='x' transform='scale(2)'><rect/></g></g></svg>", "rect", Svg::kFill),
      "red");
  EXPECT_EQ(Field("<svg><g style='fill:red'><g><rect/></g></g></svg>", "rect", Svg::kFill), "red");
}

TEST(Inheritance, DoesNotComeFromTheRoot) {
  EXPECT_EQ(Field("<svg fill='red'><rect/></svg>", "rect", Svg::kFill), "black");
}

TEST(Inheritance, EndsForTheOuterGroupAtTheEndOfANestedOne) {
  const LoadedSvg svg("<svg><g fill='red'><rect id='a'/><g/><rect id='b'/></g></svg>");
  EXPECT_EQ(svg.Field(svg.FindId("a"), Svg::kFill), "red");
  EXPECT_EQ(svg.Field(svg.FindId("b"), Svg::kFill), "black");
}

TEST(Inheritance, StaysBehindTheEndOfDefs) {
  EXPECT_EQ(Field("<svg><defs fill='red'/><rect/></svg>", "rect", Svg::kFill), "red");
}

TEST(Inheritance, StaysBehindTheEndOfASymbol) {
  EXPECT_EQ(Field("<svg><symbol stroke='blue'/><rect/></svg>", "rect", Svg::kStroke), "blue");
}

TEST(Inheritance, HandsOnWhatARuleGaveToAGroup) {
  EXPECT_EQ(Field("<svg><style>g.a{fill:red}</style><g><rect/></g></svg>", "rect", Svg::kFill), "red");
  EXPECT_EQ(
      Field("<svg><style>g.a{fill:red}</style><g id='x' stroke='blue'><rect/></g></svg>", "rect", Svg::kFill),
      "red");
}

TEST(Inheritance, ComesFromASymbolsOwnAttributesAlone) {
  const LoadedSvg svg("<svg><g fill='red'><symbol stroke='blue'><rect/></symbol></g></svg>");
  EXPECT_EQ(svg.Field(svg.Find("rect"), Svg::kFill), "black");
  EXPECT_EQ(svg.Field(svg.Find("rect"), Svg::kStroke), "blue");
  EXPECT_EQ(svg.Field(svg.Find("symbol"), Svg::kFill), "black");
}

TEST(Inheritance, TakesTheStyleOfAGroupApartOnceMore) {
  // The inner group replaces the fill, but inherits the style text that sets it, and hands that text on.
  const LoadedSvg svg("<svg><g style='fill:red'><g fill='blue' id='i'><rect/></g></g></svg>");
  EXPECT_EQ(svg.Field(svg.FindId("i"), Svg::kFill), "blue");
  EXPECT_EQ(svg.Field(svg.Find("rect"), Svg::kFill), "red");
}

TEST(Inheritance, LetsTheStyleOfAGroupWinOverARuleForTheGroup) {
  const LoadedSvg svg(
      "<svg><style>.a{fill:green;stroke:blue}</style><g class='a' style='fill:red'><rect "
      "class='b'/></g></svg>");
  EXPECT_EQ(svg.Field(svg.Find("g"), Svg::kFill), "green");
  EXPECT_EQ(svg.Field(svg.Find("rect"), Svg::kFill), "red");
  EXPECT_EQ(svg.Field(svg.Find("rect"), Svg::kStroke), "blue");
}

TEST(Inheritance, GivesStylePropertiesToTheElementsInside) {
  const LoadedSvg svg("<svg><g style='a:1'><g b='2'><rect/></g></g></svg>");
  ASSERT_NE(svg.Find("rect").inherited, nullptr);
  ASSERT_EQ(svg.Find("rect").inherited->styleProperties.size(), 1U);
  EXPECT_EQ(svg.Find("rect").inherited->styleProperties[0].Value(), "1");
}

TEST(Inheritance, ExpandsAStyleThatNamesAStyle) {
  // The first expansion makes "b:1" the style text, the second one takes that apart.
  const LoadedSvg svg("<svg><g style='style:b:1'><g><rect/></g></g></svg>");
  EXPECT_EQ(svg.Merged(svg.Find("rect"), "b"), "1");
  const LoadedSvg direct("<svg><g style='style:b:1'><rect/></g></svg>");
  EXPECT_EQ(direct.Merged(direct.Find("rect"), "b"), "1");
  const LoadedSvg twice("<svg><g style='style:style:b:1'><g><rect/></g></g></svg>");
  EXPECT_EQ(twice.Merged(twice.Find("rect"), "b"), "1");
}

TEST(Inheritance, GivesATspanTheOwnAttributesOfTheText) {
  const LoadedSvg svg("<svg><g stroke='blue'><text fill='red' x='4'><tspan/></text></g></svg>");
  EXPECT_EQ(svg.Field(svg.Find("tspan"), Svg::kFill), "red");
  EXPECT_EQ(svg.Field(svg.Find("tspan"), Svg::kX), "4");
  EXPECT_EQ(svg.Field(svg.Find("tspan"), Svg::kStroke), "none");
}

TEST(Inheritance, GivesATspanTheOutermostTextsAttributes) {
  EXPECT_EQ(
      Field("<svg><text fill='red'><text fill='blue'><tspan/></text></text></svg>", "tspan", Svg::kFill),
      "red");
}

TEST(Inheritance, GivesATspanTheAttributesOfItsOwnTextAmongSeveral) {
  EXPECT_EQ(Field("<svg><text fill='red'/><text fill='blue'><tspan/></text></svg>", "tspan", Svg::kFill),
            "blue");
}

TEST(Inheritance, GivesATspanBehindATextItsAttributesStill) {
  EXPECT_EQ(Field("<svg><text fill='red'/><tspan/></svg>", "tspan", Svg::kFill), "red");
}

TEST(StyleRules, ActOnElementsBehindTheSheet) {
  const LoadedSvg svg(
      "<svg><rect id='x' class='a'/><style>.a{stroke-width:3}</style><rect id='y' class='a'/></svg>");
  EXPECT_EQ(svg.Field(svg.FindId("x"), Svg::kStrokeWidth), "1");
  EXPECT_EQ(svg.Field(svg.FindId("y"), Svg::kStrokeWidth), "3");
}

TEST(StyleRules, WinOverAttributesAndStyle) {
  const LoadedSvg svg(
      "<svg><style>.a{fill:blue}</style><rect fill='red' style='fill:green' class='a'/></svg>");
  EXPECT_EQ(svg.Field(svg.Find("rect"), Svg::kFill), "blue");
}

TEST(StyleRules, ActInTheOrderOfTheSheet) {
  const LoadedSvg svg("<svg><style>.b{fill:red}.a{fill:blue}</style><rect class='a b'/></svg>");
  EXPECT_EQ(svg.Field(svg.Find("rect"), Svg::kFill), "blue");
}

TEST(StyleRules, TakeASelectorWithoutADotForAClass) {
  const LoadedSvg svg("<svg><style>rect{fill:red}</style><rect id='x'/><circle id='y' class='rect'/></svg>");
  EXPECT_EQ(svg.Field(svg.FindId("x"), Svg::kFill), "black");
  EXPECT_EQ(svg.Field(svg.FindId("y"), Svg::kFill), "red");
}

TEST(StyleRules, ActOnTheTagAloneWithoutAClassAttribute) {
  const LoadedSvg svg(
      "<svg><style>rect.a{fill:red}</style><rect id='x'/><rect id='y' class='b'/><rect id='z' class=''/>"
      "<circle id='w'/></svg>");
  EXPECT_EQ(svg.Field(svg.FindId("x"), Svg::kFill), "red");
  EXPECT_EQ(svg.Field(svg.FindId("y"), Svg::kFill), "black");
  EXPECT_EQ(svg.Field(svg.FindId("z"), Svg::kFill), "black");
  EXPECT_EQ(svg.Field(svg.FindId("w"), Svg::kFill), "black");
}

TEST(StyleRules, ActThroughAnInheritedClass) {
  const LoadedSvg svg("<svg><style>.a{fill:red}</style><g class='a'><rect fill='blue'/></g></svg>");
  EXPECT_EQ(svg.Field(svg.Find("rect"), Svg::kFill), "red");
}

TEST(StyleRules, ActThroughAClassInAStyleAttribute) {
  EXPECT_EQ(Field("<svg><style>.a{fill:red}</style><rect style='class:a'/></svg>", "rect", Svg::kFill),
            "red");
}

TEST(StyleRules, ActThroughEachOfSeveralClasses) {
  const LoadedSvg svg("<svg><style>.a{fill:red}.b{stroke:blue}</style><rect class='  b  a '/></svg>");
  EXPECT_EQ(svg.Field(svg.Find("rect"), Svg::kFill), "red");
  EXPECT_EQ(svg.Field(svg.Find("rect"), Svg::kStroke), "blue");
}

TEST(StyleRules, StayOutOfTheStyleProperties) {
  const LoadedSvg svg("<svg><style>.a{cutPower:30}</style><rect class='a'/></svg>");
  EXPECT_EQ(svg.Merged(svg.Find("rect"), "cutPower"), "30");
  EXPECT_TRUE(svg.Find("rect").StyleProperties().empty());
}

TEST(StyleRules, KnowAFlowedTextsRegionByItsOwnName) {
  const LoadedSvg svg("<svg><style>flowregion.a{id:r}flowroot.a{id:f}</style><flowRoot/><flowRegion/></svg>");
  EXPECT_EQ(svg.Find("flowroot").id, "f");
  EXPECT_EQ(svg.Find("flowRegiontail").id, "r");
}

TEST(StyleRules, GoToTheDocumentWithTheFirstRuleOfAClassKept) {
  const LoadedSvg svg("<svg><style>.a{fill:red}rect.a{fill:blue}.b{x:y}</style></svg>");
  EXPECT_EQ(svg.document->styleRules.size(), 2U);
  ASSERT_NE(svg.document->ClassProperties("a"), nullptr);
  EXPECT_EQ(svg.document->ClassProperties("a")->at(Svg::kFill).Value(), "red");
  EXPECT_EQ(svg.document->ClassProperties("c"), nullptr);
}

TEST(StyleRules, DoNotOutliveTheirDocument) {
  const LoadedSvg first("<svg><style>.a{fill:red}</style></svg>");
  EXPECT_EQ(Field("<svg><rect class='a'/></svg>", "rect", Svg::kFill), "black");
}
