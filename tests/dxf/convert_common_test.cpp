#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drawing.h"
#include "dxf/aci_colors.h"

namespace {

using namespace Entity_ZR;
using testing::ElementsAre;
using testing::IsEmpty;

const std::string kLine = "0|LINE|10|1|20|2|11|3|21|4|";

std::shared_ptr<const ZR_Line> ReadLine(const std::string& tags) { return ReadOne<ZR_Line>(kLine + tags); }

/// A line with `tags` in a drawing that has a layer "walls" with `layerTags`.
std::shared_ptr<const ZR_Line> ReadLineOnLayer(const std::string& layerTags, const std::string& tags = "") {
  Drawing drawing;
  drawing.tables = Table("LAYER", {"walls|" + layerTags});
  drawing.entities = kLine + "8|walls|" + tags;
  return ReadOne<ZR_Line>(drawing);
}

std::shared_ptr<const ZR_Line> ReadLineWithHeader(const std::string& header) {
  Drawing drawing;
  drawing.header = header;
  drawing.entities = kLine;
  return ReadOne<ZR_Line>(drawing);
}

TEST(ConvertCommon, TakesTheUnitsFromTheHeader) {
  EXPECT_EQ(ReadLineWithHeader("9|$INSUNITS|70|4")->units, 4);
  EXPECT_EQ(ReadLine("")->units, 0);
  EXPECT_EQ(ReadLineWithHeader("9|$INSUNITS|40|4")->units, 0);
}

TEST(ConvertCommon, AppliesNoScaleForTheUnits) {
  EXPECT_EQ(ReadLineWithHeader("9|$INSUNITS|70|1")->end, (Point3{3, 4, 0}));
}

TEST(ConvertCommon, TakesTheOriginFromTheHeader) {
  EXPECT_EQ(ReadLineWithHeader("9|$UCSORG|10|1.5|20|2.5|30|3.5")->origin, (Point3{1.5, 2.5, 3.5}));
  EXPECT_EQ(ReadLineWithHeader("9|$UCSORG|40|7")->origin, (Point3{0, 0, 0}));
  EXPECT_EQ(ReadLine("")->origin, (Point3{0, 0, 0}));
}

TEST(ConvertCommon, HandsInvisibleEntitiesOverWithTheFlagDown) {
  EXPECT_EQ(ReadLine("60|1")->visible, 0);
  EXPECT_EQ(ReadLine("60|0")->visible, 1);
  EXPECT_EQ(ReadLine("")->visible, 1);
}

TEST(ConvertCommon, CopiesLayerSpaceAndLineTypeScale) {
  const auto line = ReadLine("8|outer walls|67|1|48|0.25");
  EXPECT_EQ(line->layer, "outer walls");
  EXPECT_EQ(line->space, 1);
  EXPECT_EQ(line->lineScale, 0.25);
  const auto plain = ReadLine("");
  EXPECT_EQ(plain->layer, "0");
  EXPECT_EQ(plain->space, 0);
  EXPECT_EQ(plain->lineScale, 1.0);
}

TEST(ConvertCommon, PutsTheLineWeightThroughItsTableTwice) {
  EXPECT_EQ(ReadLine("")->lineWidth, 0.08);         // 29 gives 8
  EXPECT_EQ(ReadLine("370|30")->lineWidth, 0.02);   // 30 gives 8, 8 gives 2
  EXPECT_EQ(ReadLine("370|0")->lineWidth, 0.0);     // 0 gives 0
  EXPECT_EQ(ReadLine("370|211")->lineWidth, 0.07);  // 211 gives 23, 23 gives 7
  EXPECT_EQ(ReadLine("370|-1")->lineWidth, 0.08);   // 29 gives 8
  EXPECT_EQ(ReadLine("370|-2")->lineWidth, 0.08);   // 30 gives 8
  EXPECT_EQ(ReadLine("370|-3")->lineWidth, 0.08);   // 31 gives 8
}

TEST(ConvertCommon, TakesAColourFromTheTable) {
  EXPECT_EQ(ReadLine("62|1")->color, PackColor(255, 0, 0));
  EXPECT_EQ(ReadLine("62|12")->color, PackColor(204, 0, 0));
  EXPECT_EQ(ReadLine("62|255")->color, PackColor(255, 255, 255));
}

TEST(ConvertCommon, PrefersATrueColourToTheTable) {
  EXPECT_EQ(ReadLine("62|1|420|66051")->color, PackColor(1, 2, 3));  // 0x010203
  EXPECT_EQ(ReadLine("62|1|420|0")->color, PackColor(0, 0, 0));
  EXPECT_EQ(ReadLine("62|1|420|-1")->color, PackColor(255, 0, 0));
}

TEST(ConvertCommon, TakesATrueColourOnlyBesideAColourOfTheEntitysOwn) {
  EXPECT_EQ(ReadLineOnLayer("62|3", "420|66051")->color, PackColor(0, 255, 0));
}

TEST(ConvertCommon, TakesColour0AsWhite) { EXPECT_EQ(ReadLineOnLayer("62|3", "62|0")->color, 0xFFFFFFFFU); }

TEST(ConvertCommon, TakesAnyOtherColourFromTheLayer) {
  for (const char* color : {"", "62|256", "62|300", "62|-1", "62|257"}) {
    EXPECT_EQ(ReadLineOnLayer("62|3", color)->color, PackColor(0, 255, 0)) << color;
  }
}

TEST(ConvertCommon, TakesTheColourOfALayerThatIsOff) {
  EXPECT_EQ(ReadLineOnLayer("62|-5")->color, PackColor(0, 0, 255));
}

TEST(ConvertCommon, TakesALayersColourBeyondTheTableAsWhite) {
  EXPECT_EQ(ReadLineOnLayer("62|-256")->color, PackColor(255, 255, 255));
  EXPECT_EQ(ReadLineOnLayer("62|256")->color, PackColor(255, 255, 255));
}

TEST(ConvertCommon, TakesAnUnknownLayerAsWhiteAndOn) {
  const auto line = ReadLine("8|nowhere");
  EXPECT_EQ(line->color, PackColor(255, 255, 255));
  EXPECT_EQ(line->layerOn, 1);
}

TEST(ConvertCommon, TakesWhetherTheLayerIsOnFromItsPlotFlagAlone) {
  EXPECT_EQ(ReadLineOnLayer("290|0")->layerOn, 0);
  EXPECT_EQ(ReadLineOnLayer("290|1")->layerOn, 1);
  EXPECT_EQ(ReadLineOnLayer("62|-5|70|1")->layerOn, 1);
}

TEST(ConvertCommon, TakesTheFirstOfTwoLayersOfOneName) {
  Drawing drawing;
  drawing.tables = Table("LAYER", {"walls|62|1", "walls|62|2|290|0"});
  drawing.entities = kLine + "8|walls";
  const auto line = ReadOne<ZR_Line>(drawing);
  EXPECT_EQ(line->color, PackColor(255, 0, 0));
  EXPECT_EQ(line->layerOn, 1);
}

/// The dashes of a line with `tags`, where the layers "walls" and the line types "dash" and "CONTINUOUS" are
/// known.
std::vector<double> DashesOf(const std::string& tags) {
  Drawing drawing;
  drawing.tables = Table("LTYPE", {"dash|49|2|49|-1", "dot|49|0|49|-3", "CONTINUOUS|49|9"}) +
                   Table("LAYER", {"walls|6|dot", "plain"});
  drawing.entities = kLine + tags;
  return ReadOne<ZR_Line>(drawing)->dashes;
}

TEST(ConvertCommon, TakesTheDashesOfTheEntitysLineType) {
  EXPECT_THAT(DashesOf("6|dash"), ElementsAre(2, -1));
}

TEST(ConvertCommon, TakesTheDashesOfTheLayersLineType) {
  EXPECT_THAT(DashesOf("8|walls"), ElementsAre(0, -3));
  EXPECT_THAT(DashesOf("8|walls|6|BYLAYER"), ElementsAre(0, -3));
  EXPECT_THAT(DashesOf("8|walls|6|BYBLOCK"), ElementsAre(0, -3));
}

TEST(ConvertCommon, TakesTheLineTypeOfADefaultLayerForAnUnknownOne) {
  EXPECT_THAT(DashesOf("8|nowhere"), ElementsAre(9));
}

TEST(ConvertCommon, HasNoDashesForAnUnknownLineType) {
  EXPECT_THAT(DashesOf("6|DASH"), IsEmpty());
  EXPECT_THAT(DashesOf("6|bylayer|8|walls"), IsEmpty());
  EXPECT_THAT(ReadLine("")->dashes, IsEmpty());
}

TEST(ConvertCommon, SharesTheDashesOfALineTypeAmongAllEntities) {
  std::string type = "long";
  for (std::size_t i = 0; i < 2000; ++i) type += "|49|1";
  Drawing drawing;
  drawing.tables = Table("LTYPE", {type}) + Table("LAYER", {"dashed|6|long"});
  drawing.entities = kLine + "6|long|" + kLine + "6|long|" + kLine + "8|dashed";
  RecordingSink sink;
  ReadInto(sink, drawing);
  const auto lines = sink.All<ZR_Line>();
  ASSERT_EQ(lines.size(), 3u);
  EXPECT_EQ(lines[0]->dashes.size(), 2000u);
  EXPECT_EQ(&lines[1]->dashes.Get(), &lines[0]->dashes.Get());
  EXPECT_EQ(lines[2]->dashes, lines[0]->dashes);
}

TEST(ConvertCommon, FreesEntitiesThatTheSinkRefusesAndGoesOn) {
  RecordingSink sink;
  sink.answer = false;
  Drawing drawing;
  drawing.entities = kLine + kLine;
  ReadInto(sink, drawing);
  EXPECT_EQ(sink.All<ZR_Line>().size(), 2u);
}

TEST(ConvertCommon, RunsToItsEndOnASinkThatUsesNothing) {
  Drawing drawing;
  drawing.blocks = Block("b", "0|TEXT|5|1|1|x|");
  drawing.entities = kLine + "0|INSERT|2|b|0|TEXT|1|y|0|HATCH|2|x|";
  const TemporaryFile file("dxf", TextOf(drawing));
  PARSE::DrawLoader sink;
  DXF_RW reader;
  reader.sink = &sink;
  EXPECT_TRUE(reader.Read(file.path, 0));
}

TEST(ConvertCommon, ConvertsEntitiesOfPaperSpaceAllTheSame) {
  RecordingSink sink;
  Drawing drawing;
  drawing.entities = kLine + "67|1|" + kLine + "67|0";
  ReadInto(sink, drawing);
  EXPECT_EQ(sink.All<ZR_Line>().size(), 2u);
}

}  // namespace
