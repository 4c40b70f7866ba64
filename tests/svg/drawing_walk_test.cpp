#include <gmock/gmock.h>
#include <limits>

#include "svg_drawing.h"

using Entity_ZR::ZR_Circle;
using Entity_ZR::ZR_Insert;
using Entity_ZR::ZR_Line;
using Entity_ZR::ZR_Path;
using Entity_ZR::ZR_Text;
using testing::ElementsAre;
using testing::Pair;

namespace {

constexpr double kUnit = 0.35277777777777775;
const Matrix2D kDocument = {kUnit, 0, 0, kUnit, 0, 0};
const Matrix2D kIdentity;

/// Names of what `content` makes inside a root, without the brackets of the file and the page.
std::vector<std::string> Calls(const std::string& content) {
  std::vector<std::string> names = SvgDrawing("<svg>" + content + "</svg>").Names();
  names.erase(names.begin(), names.begin() + 3);
  names.resize(names.size() - 2);
  return names;
}

}  // namespace

TEST(DrawingWalk, CallsTheOperationOfEachElement) {
  EXPECT_THAT(
      Calls("<line stroke='red'/><rect/><circle/><ellipse/><polyline/><polygon/><path/><text/><image/>"),
      ElementsAre("AddLine", "AddPath", "AddCircle", "AddEllipse", "AddPath", "AddPath", "AddPath", "AddText",
                  "AddImage"));
}

TEST(DrawingWalk, HandsOverEntitiesOfTheirTypes) {
  const SvgDrawing drawing("<svg><g/><line stroke='red'/><circle/><ellipse/><path/><text/><image/></svg>");
  std::vector<std::uint32_t> types;
  for (const RecordedCall& call : drawing.sink.calls) {
    if (call.entity != nullptr) types.push_back(call.entity->type);
  }
  EXPECT_THAT(types, ElementsAre(10, 1, 5, 6, 22, 8, 18));
}

TEST(DrawingWalk, SkipsALineWithoutStroke) {
  EXPECT_THAT(Calls("<line/><line fill='red'/><line stroke='none' fill='red'/>"), ElementsAre());
}

TEST(DrawingWalk, SkipsShapesWithNeitherStrokeNorFill) {
  for (const char* const name : {"rect", "circle", "ellipse", "polyline", "polygon", "path"}) {
    const std::string element = std::string("<") + name;
    EXPECT_THAT(Calls(element + " fill='none'/>"), ElementsAre()) << name;
    EXPECT_EQ(Calls(element + "/>").size(), 1U) << name;
    EXPECT_EQ(Calls(element + " fill='none' stroke='red'/>").size(), 1U) << name;
  }
}

TEST(DrawingWalk, LooksAtTheFieldsAloneToSkip) {
  // The rule that would paint the circle stands behind it, where only its colour is looked up.
  EXPECT_THAT(Calls("<circle class='a' fill='none'/><style>.a{stroke:red}</style>"), ElementsAre());
  EXPECT_THAT(Calls("<circle class='a' stroke='none'/><style>.a{stroke:red}</style>"),
              ElementsAre("AddCircle"));
}

TEST(DrawingWalk, DrawsImagesAndTextsWhateverTheirPaint) {
  EXPECT_THAT(Calls("<image fill='none' stroke='none'/><text fill='none'/>"),
              ElementsAre("AddImage", "AddText"));
}

TEST(DrawingWalk, DrawsNothingInTopLevelDefsAndSymbols) {
  EXPECT_THAT(Calls("<defs><g><rect/></g><text/><Param/></defs><symbol><rect/></symbol>"), ElementsAre());
}

TEST(DrawingWalk, DrawsNothingInNestedDefs) {
  EXPECT_THAT(Calls("<g><defs><g><rect/></g><text/><image/><use xlink:href='#a'/></defs></g>"),
              ElementsAre("BeginGroup", "AddInsert", "EndGroup"));
}

TEST(DrawingWalk, DrawsSymbolsInsideGroups) {
  EXPECT_THAT(Calls("<g><symbol><rect/></symbol></g>"),
              ElementsAre("BeginGroup", "AddInsert", "AddPath", "EndGroup"));
}

TEST(DrawingWalk, ReadsMachineParametersInNestedDefsAndClipPaths) {
  EXPECT_THAT(Calls("<clipPath><Param/></clipPath><g><defs><Param/></defs></g>"),
              ElementsAre("SetMachineInfo", "BeginGroup", "AddInsert", "SetMachineInfo", "EndGroup"));
}

TEST(DrawingWalk, OpensAndClosesGroupsInClipPathsAroundNothing) {
  EXPECT_THAT(Calls("<clipPath><g><rect/><text/></g></clipPath><rect/>"),
              ElementsAre("BeginGroup", "AddInsert", "EndGroup", "AddPath"));
}

TEST(DrawingWalk, DrawsNothingOfASwitch) {
  EXPECT_THAT(Calls("<switch><rect/><circle/><image/></switch><rect/>"), ElementsAre("AddPath"));
}

TEST(DrawingWalk, EndsTheHidingAtTheFirstEnd) {
  // The inner end clears what the outer start set.
  EXPECT_THAT(Calls("<clipPath><switch></switch><rect/></clipPath>"), ElementsAre("AddPath"));
  EXPECT_THAT(Calls("<clipPath><mask/><text/><style/><rect/></clipPath>"), ElementsAre());
}

TEST(DrawingWalk, DrawsShapesInForeignObjectsAndUnknownElements) {
  EXPECT_THAT(Calls("<foreignObject><rect/></foreignObject><foo><rect/></foo><a><rect/></a>"),
              ElementsAre("AddPath", "AddPath", "AddPath"));
}

TEST(DrawingWalk, DrawsShapesInFlowedTexts) {
  EXPECT_THAT(Calls("<flowRoot><flowRegion><rect/></flowRegion></flowRoot>"), ElementsAre("AddPath"));
}

TEST(DrawingWalk, DrawsARectangleBehindAStyleElement) {
  EXPECT_THAT(Calls("<style>.a{fill:red}</style><rect/>"), ElementsAre("AddPath"));
}

TEST(DrawingWalk, SkipsDefsBehindAStyleElementByTheirFlag) {
  EXPECT_THAT(Calls("<style/><defs><rect/><g><rect/></g></defs><rect/>"), ElementsAre("AddPath"));
}

TEST(DrawingWalk, CountsTextDepth) {
  EXPECT_THAT(Calls("<text><text/><tspan/></text><text><tspan/></text>"),
              ElementsAre("AddText", "AddText", "AddText", "AddText"));
  const SvgDrawing nested("<svg><text>A<text>B<tspan>C</tspan></text></text></svg>");
  EXPECT_EQ(nested.Only<ZR_Text>().text, "A");
}

TEST(DrawingWalk, DrawsNoTspanOutsideATextAndOneInsideATspan) {
  EXPECT_THAT(Calls("<tspan>A</tspan>"), ElementsAre());
  EXPECT_THAT(Calls("<text><tspan><tspan>A</tspan></tspan></text>"),
              ElementsAre("AddText", "AddText", "AddText"));
}

TEST(DrawingWalk, CountsTheEndOfATextThatAClipPathHid) {
  // The depth is -1 behind the clip path: texts are drawn, tspans are not, until it has risen to 1.
  EXPECT_THAT(Calls("<clipPath><text/></clipPath><text><tspan/></text>"), ElementsAre("AddText"));
  EXPECT_THAT(Calls("<clipPath><text/></clipPath><text><text><text/></text></text>"),
              ElementsAre("AddText", "AddText"));
}

TEST(DrawingWalk, DrawsNoTspanWhereHidden) {
  EXPECT_THAT(Calls("<text><switch><tspan/></switch></text>"), ElementsAre("AddText"));
  EXPECT_THAT(Calls("<text><defs><tspan/></defs><tspan/></text>"), ElementsAre("AddText", "AddText"));
}

TEST(DrawingWalk, CountsNoEndOfATextInDefs) {
  EXPECT_THAT(Calls("<g><defs><text/></defs></g><text><tspan/></text>"),
              ElementsAre("BeginGroup", "AddInsert", "EndGroup", "AddText", "AddText"));
}

TEST(Groups, CarryTheDocumentsMatrix) {
  const SvgDrawing drawing("<svg><g transform='scale(2)'><rect/></g><rect/></svg>");
  EXPECT_EQ(drawing.Only<ZR_Insert>().matrix, (Matrix2D{2 * kUnit, 0, 0, 2 * kUnit, 0, 0}));
  const auto paths = drawing.All<ZR_Path>();
  EXPECT_EQ(paths[0]->matrix, kIdentity);
  EXPECT_EQ(paths[1]->matrix, kDocument);
}

TEST(Groups, CarryTheWholeProductFromTheRoot) {
  const SvgDrawing drawing(
      "<svg><g transform='translate(10,0)'><g transform='scale(2)'><rect transform='translate(1,1)'/></g>"
      "<rect transform='translate(2,2)'/></g></svg>");
  const auto inserts = drawing.All<ZR_Insert>();
  EXPECT_EQ(inserts[0]->matrix, (Matrix2D{kUnit, 0, 0, kUnit, 10 * kUnit, 0}));
  EXPECT_EQ(inserts[1]->matrix, (Matrix2D{2 * kUnit, 0, 0, 2 * kUnit, 10 * kUnit, 0}));
  EXPECT_EQ(drawing.All<ZR_Path>()[0]->matrix, (Matrix2D{1, 0, 0, 1, 1, 1}));
  EXPECT_EQ(drawing.All<ZR_Path>()[1]->matrix, (Matrix2D{1, 0, 0, 1, 2, 2}));
}

TEST(Groups, CarryAllTheirAttributesAsPairs) {
  const SvgDrawing drawing(
      "<svg><g id='a' transform='scale(2)' style='x:y' fill='red' cutPower='30'/></svg>");
  EXPECT_THAT(ParametersOf(drawing.Only<ZR_Insert>()),
              ElementsAre(Pair("cutPower", "30"), Pair("fill", "red"), Pair("id", "a"), Pair("style", "x:y"),
                          Pair("transform", "scale(2)"), Pair("x", "y")));
}

TEST(Groups, HaveNoPairsWithoutAttributes) {
  EXPECT_TRUE(SvgDrawing("<svg><g/></svg>").Only<ZR_Insert>().attributes.empty());
}

TEST(Groups, AreShownWhateverTheirDisplay) {
  const SvgDrawing drawing("<svg><g display='none'><rect stroke='red' width='1' height='1'/></g></svg>");
  EXPECT_EQ(drawing.Only<ZR_Insert>().visible, 1);
  EXPECT_EQ(drawing.Only<ZR_Path>().visible, 0);
}

TEST(Groups, StandsForItselfBehindItsEnd) {
  const SvgDrawing drawing("<svg><g><g/></g><g/></svg>");
  EXPECT_EQ(drawing.All<ZR_Insert>()[2]->matrix, kDocument);
}

TEST(Use, DrawsCopiesInPlaceWithoutAPlacement) {
  const SvgDrawing drawing("<svg><circle id='a' r='5'/><use xlink:href='#a'/></svg>");
  EXPECT_EQ(drawing.Count("AddCircle"), 2U);
  EXPECT_EQ(drawing.Count("AddInsert"), 0U);
  EXPECT_EQ(drawing.All<ZR_Circle>()[1]->matrix, kDocument);
}

TEST(Use, OpensAGroupForEachKindOfPlacement) {
  for (const char* const placement : {"x='0'", "y='0'", "transform='scale(1)'"}) {
    EXPECT_THAT(Calls("<circle id='a'/><use xlink:href='#a' " + std::string(placement) + "/>"),
                ElementsAre("AddCircle", "BeginGroup", "AddInsert", "AddCircle", "EndGroup"))
        << placement;
  }
}

TEST(Use, MovesFirstAndTransformsThen) {
  const SvgDrawing drawing(
      "<svg><circle id='a'/><use xlink:href='#a' x='3' y='4' transform='scale(2)'/></svg>");
  const ZR_Insert insert = drawing.Only<ZR_Insert>();
  EXPECT_EQ(insert.matrix, (Matrix2D{2 * kUnit, 0, 0, 2 * kUnit, 6 * kUnit, 8 * kUnit}));
  EXPECT_TRUE(insert.attributes.empty());
  EXPECT_EQ(drawing.All<ZR_Circle>()[1]->matrix, kIdentity);
}

TEST(Use, EndsItsPlacementBehindItself) {
  const SvgDrawing drawing(
      "<svg><circle id='a'/><use xlink:href='#a' x='3'/><circle/>"
      "<g transform='scale(2)'><use xlink:href='#a' x='3'/><g/></g></svg>");
  EXPECT_EQ(drawing.All<ZR_Circle>()[2]->matrix, kDocument);
  EXPECT_EQ(drawing.All<ZR_Insert>()[3]->matrix, (Matrix2D{2 * kUnit, 0, 0, 2 * kUnit, 0, 0}));
}

TEST(Use, StandsInsideAGroupWithTheGroupsMatrix) {
  const SvgDrawing drawing(
      "<svg><circle id='a'/><g transform='scale(2)'><use xlink:href='#a' x='3'/></g></svg>");
  EXPECT_EQ(drawing.All<ZR_Insert>()[1]->matrix, (Matrix2D{2 * kUnit, 0, 0, 2 * kUnit, 6 * kUnit, 0}));
}

TEST(Use, DrawsGroupsWithAllThatTheyHold) {
  EXPECT_THAT(Calls("<g id='a'><rect/><g><circle/></g></g><use xlink:href='#a'/>"),
              ElementsAre("BeginGroup", "AddInsert", "AddPath", "BeginGroup", "AddInsert", "AddCircle",
                          "EndGroup", "EndGroup", "BeginGroup", "AddInsert", "AddPath", "BeginGroup",
                          "AddInsert", "AddCircle", "EndGroup", "EndGroup"));
}

TEST(Use, FollowsNoUseInsideAUse) {
  EXPECT_THAT(Calls("<circle id='c'/><g id='a'><use xlink:href='#c'/><rect/></g><use xlink:href='#a'/>"),
              ElementsAre("AddCircle", "BeginGroup", "AddInsert", "AddCircle", "AddPath", "EndGroup",
                          "BeginGroup", "AddInsert", "AddPath", "EndGroup"));
}

TEST(Use, SurvivesReferencesInARing) {
  EXPECT_THAT(Calls("<g id='a'><use xlink:href='#b'/></g><g id='b'><use xlink:href='#a'/></g>"),
              ElementsAre("BeginGroup", "AddInsert", "BeginGroup", "AddInsert", "EndGroup", "EndGroup",
                          "BeginGroup", "AddInsert", "BeginGroup", "AddInsert", "EndGroup", "EndGroup"));
}

TEST(Use, CountsTextDepthAnew) {
  EXPECT_THAT(Calls("<text id='a'><tspan id='b'/></text><use xlink:href='#a'/><use xlink:href='#b'/>"),
              ElementsAre("AddText", "AddText", "AddText", "AddText"));
}

TEST(Use, SurvivesAReferenceToItself) {
  EXPECT_THAT(Calls("<use id='a' xlink:href='#a'/>"), ElementsAre());
  EXPECT_THAT(Calls("<g id='a'><use xlink:href='#a'/><rect/></g>"),
              ElementsAre("BeginGroup", "AddInsert", "BeginGroup", "AddInsert", "AddPath", "EndGroup",
                          "AddPath", "EndGroup"));
}

TEST(Use, NeedsALinkIntoThisDocument) {
  for (const char* const link :
       {"xlink:href='other.svg#a'", "href='#a'", "xlink:href='a'", "", "xlink:href='#b'"}) {
    EXPECT_THAT(Calls("<circle id='a'/><use x='1' " + std::string(link) + "/>"), ElementsAre("AddCircle"))
        << link;
  }
}

TEST(Use, TakesAllBehindTheHashForTheId) {
  EXPECT_EQ(SvgDrawing("<svg><circle id='a-b c'/><use xlink:href='#a-b c'/></svg>").Count("AddCircle"), 2U);
}

TEST(Use, DrawsNothingOfTopLevelDefsAndSymbols) {
  EXPECT_THAT(Calls("<defs><rect id='a'/></defs><symbol id='b'><rect/></symbol><use xlink:href='#a'/>"
                    "<use xlink:href='#b'/>"),
              ElementsAre());
}

TEST(Use, DrawsDefsThatAStyleElementMadeActive) {
  EXPECT_THAT(Calls("<style/><defs><rect id='a'/></defs><use xlink:href='#a'/>"), ElementsAre("AddPath"));
}

TEST(Use, DrawsNestedDefsWhenTheyAreMeantAlone) {
  EXPECT_THAT(Calls("<g><defs><rect id='a'/></defs></g><use xlink:href='#a'/>"),
              ElementsAre("BeginGroup", "AddInsert", "EndGroup", "AddPath"));
  EXPECT_THAT(Calls("<g><defs id='a'><rect/></defs></g><use xlink:href='#a'/>"),
              ElementsAre("BeginGroup", "AddInsert", "EndGroup"));
}

TEST(Use, DrawsAllElementsOfAnId) {
  EXPECT_THAT(Calls("<circle id='a'/><line stroke='red' id='a'/><use xlink:href='#a'/>"),
              ElementsAre("AddCircle", "AddLine", "AddCircle", "AddLine"));
}

TEST(Use, ShowsPathsAgainThatAreHidden) {
  const SvgDrawing drawing(
      "<svg><path id='a' display='none' d='M0 0L1 1'/><circle id='b' display='none'/><use xlink:href='#a'/>"
      "<use xlink:href='#b'/></svg>");
  EXPECT_EQ(drawing.All<ZR_Path>()[0]->visible, 0);
  EXPECT_EQ(drawing.All<ZR_Path>()[1]->visible, 1);
  EXPECT_EQ(drawing.All<ZR_Circle>()[1]->visible, 0);
}

TEST(Use, IsNotDrawnWhereHidden) {
  EXPECT_THAT(Calls("<rect id='a'/><clipPath><use xlink:href='#a' x='1'/></clipPath>"),
              ElementsAre("AddPath"));
}

TEST(Use, InheritsItsLink) {
  EXPECT_THAT(Calls("<circle id='a'/><g xlink:href='#a'><use/></g>"),
              ElementsAre("AddCircle", "BeginGroup", "AddInsert", "AddCircle", "EndGroup"));
}

TEST(Use, DrawsTheRangesOfAnIdThatIsNestedInItself) {
  // The child has the id of the group and ends the range.
  // The rectangle's end then opens a range that runs to the end of the group.
  EXPECT_THAT(Calls("<g id='a'><rect id='a'/></g><use xlink:href='#a'/>"),
              ElementsAre("BeginGroup", "AddInsert", "AddPath", "EndGroup", "BeginGroup", "AddInsert",
                          "AddPath", "EndGroup"));
  EXPECT_THAT(Calls("<g id='a'><foo id='a'/><rect/></g><use xlink:href='#a'/>"),
              ElementsAre("BeginGroup", "AddInsert", "AddPath", "EndGroup", "BeginGroup", "AddInsert",
                          "AddPath", "EndGroup"));
}

TEST(Use, SetsThePageAgainForACopiedRoot) {
  const SvgDrawing drawing(
      "<svg id='a' width='1' height='1'><use xlink:href='#a'/><line stroke='red'/></svg>");
  EXPECT_EQ(drawing.Count("SetPage"), 2U);
  EXPECT_EQ(drawing.All<ZR_Line>().back()->matrix.a, kUnit * kUnit);
}

namespace {

/// Counts groups and circles. Can refuse a group as the account does.
struct GroupSink : PARSE::DrawLoader {
  bool AddCircle(Entity_ZR::ZR_Circle*, PARSE::Context) override {
    ++circles;
    return false;
  }
  bool AddInsert(Entity_ZR::ZR_Insert*, PARSE::Context) override {
    if (begun + refused == refusedGroup && refused++ == 0) throw support::MemoryUsedUp();
    ++begun;
    return true;
  }
  void EndGroup(PARSE::Context) override { ++ended; }

  std::size_t refusedGroup = std::numeric_limits<std::size_t>::max();
  std::size_t circles = 0;
  std::size_t begun = 0;
  std::size_t ended = 0;
  std::size_t refused = 0;
};

void Draw(const std::string& text, GroupSink& sink) {
  const TemporarySvg file(text);
  SVG_RW reader;
  reader.sink = &sink;
  EXPECT_TRUE(reader.Read(file.path, 0));
}

}  // namespace

TEST(Use, DrawsAllOfManyReferencesToALargeGroup) {
  GroupSink sink;
  support::Account account;
  const support::AccountScope scope(account);
  Draw("<svg><g id='a'>" + Repeated("<circle/>", 1500) + "</g>" + Repeated("<use xlink:href='#a'/>", 1500) +
           "</svg>",
       sink);
  EXPECT_EQ(sink.circles, 1501U * 1500);
  EXPECT_EQ(account.Cuts(), 0U);
}

TEST(Use, ThatAsksForTooMuchLeavesWhatFollowsWhole) {
  const std::string circle = "<circle transform='" + Repeated("scale(1)", 20) + "'/>";
  const std::string circles = "<svg><g id='a'><g>" + Repeated(circle, 5000) + "</g></g>";
  const std::string use = "<use x='1' xlink:href='#a'/>";
  const std::string text = circles + use + use + "<g><circle/></g></svg>";
  GroupSink once;
  std::uint64_t work = 0;
  {
    support::Account account;
    const support::AccountScope scope(account);
    Draw(circles + "</svg>", once);
    work = account.Spent();
  }
  GroupSink sink;
  std::uint64_t cuts = 0;
  {
    const AccountWithWork read(text, work + work / 3);
    Draw(text, sink);
    cuts = read.account.Cuts();
  }
  EXPECT_EQ(cuts, 2U);
  EXPECT_GT(sink.circles, 5000U + 1);
  EXPECT_LT(sink.circles, 3U * 5000);
  // The groups of the references that were cut end with them.
  EXPECT_EQ(sink.begun, 2U + 2 * 3 + 1);
  EXPECT_EQ(sink.ended, sink.begun);
}

TEST(Group, ThatIsRefusedDrawsNothingAndHasNoEnd) {
  for (std::size_t refused = 0; refused < 3; ++refused) {
    GroupSink sink;
    sink.refusedGroup = refused;
    Draw("<svg><g><circle/><g><circle/><g><circle/></g></g></g><circle/></svg>", sink);
    EXPECT_EQ(sink.circles, refused + 1);
    EXPECT_EQ(sink.begun, refused);
    EXPECT_EQ(sink.ended, refused);
  }
}

TEST(Group, ThatIsRefusedLeavesThoseThatFollow) {
  GroupSink sink;
  sink.refusedGroup = 0;
  Draw("<svg><g><text>A<tspan>B</tspan></text><g/></g><g><circle/></g></svg>", sink);
  EXPECT_EQ(sink.circles, 1U);
  EXPECT_EQ(sink.begun, 1U);
  EXPECT_EQ(sink.ended, 1U);
}

TEST(Group, EndsWhereTheRecordOfItsEndIsMissing) {
  std::string text = "<svg><g><g>";
  for (int i = 0; i < 20000; ++i) text += "<circle id='" + std::to_string(i) + "'/>";
  text += "</g></g></svg>";
  // The XML tree takes some 200 bytes for each circle, the list of records 16, the records 160.
  GroupSink sink;
  {
    const AccountWithMemory read(text, 20000 * 300);
    Draw(text, sink);
  }
  EXPECT_GT(sink.circles, 0U);
  EXPECT_LT(sink.circles, 20000U);
  EXPECT_EQ(sink.begun, 2U);
  EXPECT_EQ(sink.ended, 2U);
}
