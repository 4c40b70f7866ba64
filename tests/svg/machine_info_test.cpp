#include <gmock/gmock.h>

#include "svg_drawing.h"

using Entity_ZR::ZR_Insert;
using Entity_ZR::ZR_Path;
using Entity_ZR::ZR_Text;
using PARSE::MachineInfo;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::Pair;

namespace {

std::vector<MachineInfo> InfosOf(const std::string& content) {
  const SvgDrawing drawing("<svg>" + content + "</svg>");
  std::vector<MachineInfo> infos;
  for (const RecordedCall& call : drawing.sink.calls) {
    if (call.name == "SetMachineInfo") infos.push_back(call.machine);
  }
  return infos;
}

}  // namespace

TEST(MachineInfo, ReadsEachAttribute) {
  EXPECT_THAT(InfosOf("<Param diameter='2.9' machineType='3' AutoFocus='4' machineModel='5' frequency='6'/>"),
              ElementsAre(MachineInfo{2.0, 3, 4, 5, 6}));
}

TEST(MachineInfo, HasDefaults) {
  EXPECT_THAT(InfosOf("<Param/>"), ElementsAre(MachineInfo{1.0, 0, 0, 0, 0}));
  EXPECT_THAT(InfosOf("<Param diameter='2.9' machineType='3'/>"), ElementsAre(MachineInfo{2.0, 3, 0, 0, 0}));
  EXPECT_THAT(InfosOf("<Param diameter='abc' Diameter='5' MachineType='5' other='7'/>"),
              ElementsAre(MachineInfo{0.0, 0, 0, 0, 0}));
}

TEST(MachineInfo, IsCompleteEachTime) {
  EXPECT_THAT(InfosOf("<Param diameter='2'/><Param machineType='3'/>"),
              ElementsAre(MachineInfo{2.0, 0, 0, 0, 0}, MachineInfo{1.0, 3, 0, 0, 0}));
}

TEST(MachineInfo, ComesFromTheElementItselfAlone) {
  EXPECT_THAT(
      InfosOf("<style>Param.a{machineType:9}</style><g machineType='8'><Param style='machineType:7'/></g>"),
      ElementsAre(MachineInfo{1.0, 0, 0, 0, 0}));
}

TEST(MachineInfo, IsNotReadFromOtherNamesNorTopLevelDefs) {
  EXPECT_THAT(InfosOf("<param diameter='2'/><defs><Param/></defs>"), IsEmpty());
}

TEST(MachineParameters, TravelWithTheirShape) {
  const ZR_Path path =
      SvgDrawing(
          "<svg><rect width='1' cutPower='abc' engraveSpeed='1' cutSpeed='2' engDensity='3' highFocus='4' "
          "EngMinP='5' EngMaxP='6' processType='7' diameter='8' machineType='9' imageType='10' Reverse='11' "
          "frequency='12'/></svg>")
          .Only<ZR_Path>();
  EXPECT_THAT(
      ParametersOf(path),
      ElementsAre(Pair("EngMaxP", "6"), Pair("EngMinP", "5"), Pair("Reverse", "11"), Pair("cutPower", "abc"),
                  Pair("cutSpeed", "2"), Pair("diameter", "8"), Pair("engDensity", "3"),
                  Pair("engraveSpeed", "1"), Pair("frequency", "12"), Pair("highFocus", "4"),
                  Pair("imageType", "10"), Pair("machineType", "9"), Pair("processType", "7")));
}

TEST(MachineParameters, ReachGroupsAndTheirShapes) {
  const SvgDrawing drawing(
      "<svg><g cutPower='30'><rect cutSpeed='10' width='1'/><rect cutPower='5'/></g></svg>");
  EXPECT_THAT(ParametersOf(drawing.Only<ZR_Insert>()), ElementsAre(Pair("cutPower", "30")));
  EXPECT_THAT(ParametersOf(*drawing.All<ZR_Path>()[0]),
              ElementsAre(Pair("cutPower", "30"), Pair("cutSpeed", "10")));
  EXPECT_THAT(ParametersOf(*drawing.All<ZR_Path>()[1]), ElementsAre(Pair("cutPower", "5")));
}

TEST(MachineParameters, EndForTheOuterGroupBehindANestedOne) {
  const SvgDrawing drawing("<svg><g cutPower='30'><g/><rect/></g></svg>");
  EXPECT_TRUE(drawing.Only<ZR_Path>().attributes.empty());
}

TEST(MachineParameters, AreLostInAStyleAttribute) {
  const ZR_Path path = SvgDrawing("<svg><rect style='cutPower:30'/></svg>").Only<ZR_Path>();
  EXPECT_THAT(ParametersOf(path), IsEmpty());
  ASSERT_EQ(path.attributes.size(), 1U);
  EXPECT_EQ(path.attributes[0].tag, 5);
}

TEST(MachineParameters, ReachAGroupFromItsStyleAttribute) {
  EXPECT_EQ(ParameterOf(SvgDrawing("<svg><g style='cutPower:30'/></svg>").Only<ZR_Insert>(), "cutPower"),
            "30");
}

TEST(MachineParameters, ArriveThroughARule) {
  const SvgDrawing drawing("<svg><style>.a{cutPower:30}</style><rect class='a'/></svg>");
  EXPECT_EQ(ParameterOf(drawing.Only<ZR_Path>(), "cutPower"), "30");
}
