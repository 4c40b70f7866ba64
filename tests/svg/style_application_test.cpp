#include <gmock/gmock.h>

#include "svg_drawing.h"

using Entity_ZR::Attribute;
using Entity_ZR::ZR_Circle;
using Entity_ZR::ZR_Path;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace {

constexpr double kUnit = 0.35277777777777775;
constexpr std::uint32_t kBlack = 0xFF000000;
constexpr std::uint32_t kRed = 0xFF0000FF;
constexpr std::uint32_t kBlue = 0xFFFF0000;
constexpr std::uint32_t kNone = 0xFFFFFFFF;

/// The circle in a document that begins with `before`; the circle has `attributes`.
ZR_Circle Circle(const std::string& attributes, const std::string& before = "",
                 const std::string& behind = "") {
  return SvgDrawing("<svg>" + before + "<circle " + attributes + "/>" + behind + "</svg>").Only<ZR_Circle>();
}

std::vector<int> TagsOf(const Entity_ZR::ZR_Entity& entity) {
  std::vector<int> tags;
  for (const Attribute& attribute : entity.attributes) tags.push_back(attribute.tag);
  return tags;
}

}  // namespace

TEST(ApplyStyle, ColoursTheOutlineByTheStroke) {
  EXPECT_EQ(Circle("stroke='red' fill='blue'").color, kRed);
  EXPECT_EQ(Circle("stroke='red' fill='blue'").fillColor, kBlue);
}

TEST(ApplyStyle, ColoursTheOutlineByTheFillWithoutAStroke) {
  EXPECT_EQ(Circle("fill='red'").color, kRed);
  EXPECT_EQ(Circle("").color, kBlack);
  EXPECT_EQ(Circle("").visible, 1);
}

TEST(ApplyStyle, PacksOpacities) {
  EXPECT_EQ(Circle("stroke='red' stroke-opacity='0.5' fill-opacity='0'").color, 0x7F0000FFU);
  EXPECT_EQ(Circle("stroke='red' stroke-opacity='0.5' fill-opacity='0'").fillColor, 0x00000000U);
}

TEST(ApplyStyle, MarksAStrokeThatIsNoColour) {
  EXPECT_EQ(Circle("stroke='inherit'").color, kNone);
  EXPECT_EQ(Circle("stroke='#12'").color, kNone);
  EXPECT_EQ(Circle("stroke='red' fill='inherit'").fillColor, kBlack);
}

TEST(ApplyStyle, HidesByDisplayNone) {
  EXPECT_EQ(Circle("stroke='red' display='none'").visible, 0);
  EXPECT_EQ(Circle("stroke='red' style='display:none'").visible, 0);
  EXPECT_EQ(Circle("stroke='red' display='block'").visible, 1);
}

TEST(ApplyStyle, HidesWhatARuleLeavesUnpainted) {
  EXPECT_EQ(Circle("class='a'", "", "<style>.a{fill:none}</style>").visible, 0);
  EXPECT_EQ(Circle("class='a' stroke='red'", "", "<style>.a{fill:none;stroke:}</style>").visible, 0);
}

TEST(ApplyStyle, LooksAClassUpForStrokeAndFillInAllSheets) {
  const ZR_Circle circle =
      Circle("class='a' stroke-width='2'", "", "<style>.a{stroke:red;fill:blue;stroke-width:3}</style>");
  EXPECT_EQ(circle.color, kRed);
  EXPECT_EQ(circle.fillColor, kBlue);
  EXPECT_EQ(circle.lineWidth, 2.0);
}

TEST(ApplyStyle, LooksAClassUpAsOneText) {
  EXPECT_EQ(Circle("class='a b'", "", "<style>.a{fill:red}</style>").color, kBlack);
  EXPECT_EQ(Circle("class=' a '", "", "<style>.a{fill:red}</style>").color, kRed);
  EXPECT_EQ(Circle("", "", "<style>a.b.c{fill:red}</style>").color, kBlack);
}

TEST(ApplyStyle, TakesTheFirstRuleOfAClass) {
  // Both rules act on the circle, the second one last; the look-up finds the first one.
  const ZR_Circle circle = Circle("class='a'", "<style>.a{fill:red}circle.a{fill:blue}</style>");
  EXPECT_EQ(circle.fillColor, kRed);
}

TEST(ApplyStyle, ReadsDashes) {
  EXPECT_THAT(Circle("").dashes, ElementsAre(0.0));
  EXPECT_THAT(Circle("stroke-dasharray='1,2.5,,3mm'").dashes, ElementsAre(1.0, 2.5, 3.0));
  EXPECT_THAT(Circle("stroke-dasharray='4 5 6'").dashes, ElementsAre(4.0));
}

TEST(ApplyStyle, ReadsCapsAndJoins) {
  EXPECT_EQ(Circle("").lineCap, 0);
  EXPECT_EQ(Circle("stroke-linecap='square'").lineCap, 1);
  EXPECT_EQ(Circle("stroke-linecap='round'").lineCap, 2);
  EXPECT_EQ(Circle("stroke-linecap='Round'").lineCap, 0);
  EXPECT_EQ(Circle("").lineJoin, 0);
  EXPECT_EQ(Circle("stroke-linejoin='bevel'").lineJoin, 1);
  EXPECT_EQ(Circle("stroke-linejoin='round'").lineJoin, 2);
  EXPECT_EQ(Circle("stroke-linejoin='arcs'").lineJoin, 0);
}

TEST(ApplyStyle, ReadsMiterLimitAndWidthWithoutUnitOrScale) {
  EXPECT_EQ(Circle("").miterLimit, 4.0);
  EXPECT_EQ(Circle("").lineWidth, 1.0);
  EXPECT_EQ(Circle("stroke-miterlimit='7.5' stroke-width='2mm'").miterLimit, 7.5);
  EXPECT_EQ(Circle("stroke-miterlimit='7.5' stroke-width='2mm'").lineWidth, 2.0);
}

TEST(ApplyStyle, PlacesAnEntityOutsideGroupsInTheDocument) {
  const ZR_Circle circle = Circle("transform=' translate(10) '");
  EXPECT_EQ(circle.matrix, (Matrix2D{kUnit, 0, 0, kUnit, 10 * kUnit, 0}));
  EXPECT_EQ(circle.lineType, "translate(10)");
}

TEST(ApplyStyle, TakesWhatItReadOutOfThePairs) {
  EXPECT_THAT(
      Circle("display='inline' stroke='red' stroke-opacity='1' fill='red' fill-opacity='1' "
             "stroke-dasharray='1' stroke-linecap='butt' stroke-linejoin='miter' stroke-miterlimit='1' "
             "stroke-width='1' transform='scale(1)' style='fill:red'")
          .attributes,
      IsEmpty());
}

TEST(ApplyStyle, LeavesAllOtherAttributesInThePairsByName) {
  EXPECT_THAT(ParametersOf(Circle("opacity='1' id='x' class='y' clip-path='url(#a)' B='2' a=' 1 '")),
              ElementsAre(Pair("B", "2"), Pair("a", " 1 "), Pair("class", "y"), Pair("clip-path", "url(#a)"),
                          Pair("id", "x"), Pair("opacity", "1")));
}

TEST(ApplyStyle, PutsOtherStylePropertiesAside) {
  const ZR_Circle circle = Circle("style='b:2;a:1;fill:red;b:3' a='9' c='4'");
  EXPECT_THAT(TagsOf(circle), ElementsAre(5, 7));
  EXPECT_THAT(ParametersOf(circle), ElementsAre(Pair("c", "4")));
}

TEST(ApplyStyle, PutsInheritedStylePropertiesAside) {
  const SvgDrawing drawing("<svg><g style='a:1;b:2'><circle style='b:3' d='5'/></g></svg>");
  const ZR_Circle circle = drawing.Only<ZR_Circle>();
  EXPECT_THAT(TagsOf(circle), ElementsAre(5, 7));
  EXPECT_THAT(ParametersOf(circle), ElementsAre(Pair("d", "5")));
}

TEST(ApplyStyle, TakesPropertiesOfAnOuterGroupForPlainAttributesWhereAnInnerGroupHasAStyle) {
  // The inner group's style text replaces the outer one's, which is not taken apart again.
  const SvgDrawing drawing("<svg><g style='a:1'><g style='b:2'><circle/></g></g></svg>");
  const ZR_Circle circle = drawing.Only<ZR_Circle>();
  EXPECT_THAT(TagsOf(circle), ElementsAre(5, 7));
  EXPECT_THAT(ParametersOf(circle), ElementsAre(Pair("a", "1")));
}

TEST(ApplyStyle, PlacesByATransformInAStyleAttribute) {
  const ZR_Circle circle = Circle("style='transform:translate(10)'");
  EXPECT_EQ(circle.matrix, (Matrix2D{kUnit, 0, 0, kUnit, 10 * kUnit, 0}));
  EXPECT_THAT(TagsOf(circle), ElementsAre(5));
}

TEST(ApplyStyle, HasNoSuchListForPropertiesThatItReads) {
  EXPECT_THAT(Circle("style='fill:red;stroke-width:1'").attributes, IsEmpty());
}

TEST(ApplyStyle, LetsAPropertyOfAStyleHideTheSameOneOfARule) {
  // The rule's value would be a parameter, but the key also stands in the style attribute.
  const ZR_Circle circle = Circle("class='a' style='cutPower:30'", "<style>.a{cutPower:40}</style>");
  EXPECT_EQ(ParameterOf(circle, "cutPower"), "(none)");
}

TEST(Gradients, KeepTheFillColourAndOutlineInBlack) {
  const ZR_Circle circle = Circle("fill='url(#g)'", "<linearGradient id='g'><stop/></linearGradient>");
  EXPECT_EQ(circle.color, kBlack);
  EXPECT_EQ(circle.fillColor, kBlack);
  EXPECT_EQ(circle.visible, 1);
}

TEST(Gradients, OutlineInBlackAsAStrokeToo) {
  EXPECT_EQ(Circle("stroke='url(#g)' fill='red'").color, kBlack);
}

TEST(Gradients, AreFoundWithWhiteSpaceInTheirAddress) {
  EXPECT_EQ(Circle("fill='url( #g )'", "<linearGradient id='g'/>").fillColor, kBlack);
  EXPECT_EQ(Circle("fill='url(\t#\n g)'", "<linearGradient id='g'/>").fillColor, kBlack);
  EXPECT_EQ(Circle("fill='url(#g'", "<linearGradient id='g'/>").fillColor, kBlack);
}

TEST(Gradients, SkipTheFirstFiveCharactersOfTheirAddressWhateverTheyAre) {
  EXPECT_EQ(Circle("fill='urlxyg)'", "<linearGradient id='g'/>").fillColor, kBlack);
}

TEST(Gradients, AreMissedInAnyOtherAddress) {
  // The ids are "#g'", ".svg#g" and "g)none".
  EXPECT_EQ(Circle("fill=\"url('#g')\"", "<linearGradient id='g'/>").fillColor, kNone);
  EXPECT_EQ(Circle("fill='url(x.svg#g)'", "<linearGradient id='g'/>").fillColor, kNone);
  EXPECT_EQ(Circle("fill='url(#g) none'", "<linearGradient id='g'/>").fillColor, kNone);
}

TEST(Gradients, HaveTheEmptyIdInAShortAddress) {
  for (const char* const address : {"url", "url(", "url()", "url(#", "url(#)"}) {
    // The first record without an id is the root.
    EXPECT_EQ(Circle("fill='" + std::string(address) + "'").fillColor, kNone) << address;
    EXPECT_EQ(SvgDrawing("<svg id='r'><linearGradient/><circle fill='" + std::string(address) + "'/></svg>")
                  .Only<ZR_Circle>()
                  .fillColor,
              kBlack)
        << address;
  }
}

TEST(Gradients, AreMarkedAsMissingUnlessLinear) {
  EXPECT_EQ(Circle("fill='url(#missing)'").fillColor, kNone);
  EXPECT_EQ(Circle("fill='url(#g)'", "<radialGradient id='g'/>").fillColor, kNone);
  EXPECT_EQ(Circle("fill='url(#g)'", "<rect id='g' fill='none'/>").fillColor, kNone);
}

TEST(Gradients, AreFoundInDefs) {
  EXPECT_EQ(Circle("fill='url(#g)'", "<defs><linearGradient id='g'/></defs>").fillColor, kBlack);
}

TEST(Gradients, CountAsOneAttributeHoweverManyStopsTheyHave) {
  const ZR_Circle circle = Circle("fill='url(#g)' a='1'",
                                  "<linearGradient id='g' x1='2'><stop offset='0.5' stop-color='red'/><stop/>"
                                  "</linearGradient>");
  EXPECT_THAT(TagsOf(circle), ElementsAre(1, 7));
  EXPECT_THAT(ParametersOf(circle), ElementsAre(Pair("a", "1")));
}

TEST(Gradients, CountAsAnAttributeWhereNothingIsLeftOfTheShape) {
  EXPECT_THAT(TagsOf(Circle("fill='url(#g)'", "<linearGradient id='g'/>")), ElementsAre(1));
}

TEST(Gradients, CountAsNoneWhereTheyAreMissing) {
  EXPECT_THAT(Circle("fill='url(#g)'").attributes, IsEmpty());
  EXPECT_THAT(Circle("fill='url(#g)'", "<radialGradient id='g'/>").attributes, IsEmpty());
}

TEST(Gradients, AreThoseThatTheyLinkTo) {
  EXPECT_THAT(TagsOf(Circle("fill='url(#g)'",
                            "<linearGradient id='base'><stop/></linearGradient>"
                            "<linearGradient id='g' xlink:href='#base'/>")),
              ElementsAre(1));
}

TEST(Gradients, AreNoneBehindAStopThatTheyLinkTo) {
  // The linked records are a stop and its end, which come before the gradient.
  const ZR_Circle circle = Circle("fill='url(#g)'", "<stop id='s'/><linearGradient id='g' xlink:href='#s'/>");
  EXPECT_THAT(circle.attributes, IsEmpty());
  EXPECT_EQ(circle.fillColor, kNone);
}

TEST(Gradients, ComeFromARuleOfTheClass) {
  EXPECT_EQ(Circle("class='a'", "", "<style>.a{fill:url(#missing)}</style>").fillColor, kNone);
}
