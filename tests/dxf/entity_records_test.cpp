#include <gtest/gtest.h>

#include "dxf/dxf_blocks.h"
#include "dxf/dxf_entity.h"
#include "dxf/dxf_shapes.h"
#include "dxf/tag_text.h"

namespace {

using Coord = DXF_Coord;

TEST(EntityRecord, HasTheDefaultsOfTheFormat) {
  const DXF_Point record;
  EXPECT_EQ(record.handle, 0U);
  EXPECT_EQ(record.space, 0);
  EXPECT_EQ(record.layer, "0");
  EXPECT_EQ(record.lineType, "BYLAYER");
  EXPECT_EQ(record.color, 256);
  EXPECT_EQ(record.lineWeight, 29);
  EXPECT_EQ(record.lineTypeScale, 1.0);
  EXPECT_FALSE(record.invisible);
  EXPECT_EQ(record.color24, -1);
  EXPECT_EQ(record.notes->colorName, "");
  EXPECT_FALSE(record.hasExtrusion);
  EXPECT_TRUE(record.notes->appData.empty());
  EXPECT_EQ(record.ownerHandle, 0U);
  EXPECT_TRUE(record.notes->extData.empty());
  EXPECT_EQ(record.point, (Coord{0, 0, 0}));
  EXPECT_EQ(record.thickness, 0.0);
  EXPECT_EQ(record.extrusion, (Coord{0, 0, 1}));
}

TEST(EntityRecord, TakesTheGroupsOfEveryEntity) {
  const auto record = Parsed<DXF_Point>(
      "5|2F|67|1|8|walls|6|DASHED|62|3|370|30|48|2.5|60|1|420|1193046|430|RED$1|330|1F|10|1|20|2|30|3|39|0.5|"
      "210|0.1|220|"
      "0.2|230|0.3");
  EXPECT_EQ(record.handle, 47U);
  EXPECT_EQ(record.space, 1);
  EXPECT_EQ(record.layer, "walls");
  EXPECT_EQ(record.lineType, "DASHED");
  EXPECT_EQ(record.color, 3);
  EXPECT_EQ(record.lineWeight, 8);
  EXPECT_EQ(record.lineTypeScale, 2.5);
  EXPECT_TRUE(record.invisible);
  EXPECT_EQ(record.color24, 1193046);
  EXPECT_EQ(record.notes->colorName, "RED$1");
  EXPECT_EQ(record.ownerHandle, 31U);
  EXPECT_EQ(record.point, (Coord{1, 2, 3}));
  EXPECT_EQ(record.thickness, 0.5);
  EXPECT_EQ(record.extrusion, (Coord{0.1, 0.2, 0.3}));
  EXPECT_TRUE(record.hasExtrusion);
}

TEST(EntityRecord, HasAnExtrusionByGroup210Alone) {
  EXPECT_FALSE(Parsed<DXF_Point>("220|0|230|-1").hasExtrusion);
  EXPECT_TRUE(Parsed<DXF_Point>("210|0").hasExtrusion);
}

TEST(EntityRecord, DecodesEveryText) {
  const auto record = Parsed<DXF_Point>("8|a\\U+00B0|6|\\U+0041|430|\\U+0042");
  EXPECT_EQ(record.layer, "a\xC2\xB0");
  EXPECT_EQ(record.lineType, "A");
  EXPECT_EQ(record.notes->colorName, "B");
}

TEST(EntityRecord, IgnoresCodesThatNoClassTakes) {
  const auto record = Parsed<DXF_Point>("64|1|99|1|350|x|8|a");
  EXPECT_EQ(record.layer, "a");
}

TEST(EntityRecord, IgnoresTheSmallestAndTheLargestCode) {
  const auto record = Parsed<DXF_Solid>("-2147483648|1|2147483647|1|10|3");
  EXPECT_EQ(record.point, (Coord{3, 0, 0}));
}

TEST(EntityRecord, AppendsAListPerApplicationGroup) {
  const auto record = Parsed<DXF_Point>("102|{ACAD_REACTORS|330|7|102|}");
  ASSERT_EQ(record.notes->appData.size(), 2U);
  ASSERT_EQ(record.notes->appData.front().size(), 1U);
  EXPECT_EQ(record.notes->appData.front().front().text, "ACAD_REACTORS");
  EXPECT_EQ(record.notes->appData.front().front().code, 102);
  EXPECT_TRUE(record.notes->appData.back().empty());
  // The groups between are the entity's own.
  EXPECT_EQ(record.ownerHandle, 7U);
}

TEST(EntityRecord, KeepsExtendedDataInOrder) {
  const auto record =
      Parsed<DXF_Point>("1001|APP|1000|note|1010|1.5|1020|2.5|1030|3.5|1040|4.5|1070|6|1071|70000|1005|AB");
  ASSERT_EQ(record.notes->extData.size(), 7U);
  EXPECT_EQ(record.notes->extData[0]->text, "APP");
  EXPECT_EQ(record.notes->extData[0]->type, DXF_Variant::kText);
  EXPECT_EQ(record.notes->extData[1]->text, "note");
  EXPECT_EQ(record.notes->extData[2]->type, DXF_Variant::kCoordinate);
  EXPECT_EQ(record.notes->extData[2]->x, 1.5);
  EXPECT_EQ(record.notes->extData[2]->y, 2.5);
  EXPECT_EQ(record.notes->extData[2]->z, 3.5);
  EXPECT_EQ(record.notes->extData[3]->type, DXF_Variant::kReal);
  EXPECT_EQ(record.notes->extData[3]->value.real, 4.5);
  EXPECT_EQ(record.notes->extData[4]->type, DXF_Variant::kInteger);
  EXPECT_EQ(record.notes->extData[4]->value.integer, 6);
  EXPECT_EQ(record.notes->extData[5]->value.integer, 70000);
  EXPECT_EQ(record.notes->extData[6]->text, "AB");
}

TEST(EntityRecord, TakesEveryCodeOfExtendedData) {
  for (const char* code : {"1000", "1005", "1010", "1013", "1040", "1042", "1070", "1071"}) {
    EXPECT_EQ(Parsed<DXF_Point>(std::string(code) + "|1").notes->extData.size(), 1U) << code;
  }
  for (const char* code : {"1006", "1009", "1014", "1043", "1069", "1072"}) {
    EXPECT_TRUE(Parsed<DXF_Point>(std::string(code) + "|1").notes->extData.empty()) << code;
  }
}

TEST(EntityRecord, DropsACoordinatePartWithoutACoordinate) {
  const auto record = Parsed<DXF_Point>("1020|1|1000|a|1030|2");
  ASSERT_EQ(record.notes->extData.size(), 1U);
  EXPECT_EQ(record.notes->extData[0]->text, "a");
  EXPECT_EQ(record.notes->extData[0]->z, 0.0);
}

TEST(LineWeightClass, CountsTheBoundsThatAWeightReaches) {
  const std::int32_t bounds[] = {3,  7,  11, 14, 16, 19,  22,  27,  32,  37,  45, 52,
                                 57, 65, 75, 85, 95, 103, 112, 130, 149, 180, 205};
  std::int32_t reached = 0;
  for (const std::int32_t bound : bounds) {
    EXPECT_EQ(LineWeightClass(bound - 1), reached) << bound;
    EXPECT_EQ(LineWeightClass(bound), ++reached) << bound;
  }
  EXPECT_EQ(reached, 23);
  EXPECT_EQ(LineWeightClass(0), 0);
  EXPECT_EQ(LineWeightClass(2147483647), 23);
}

TEST(LineWeightClass, HasClassesForByLayerByBlockAndDefault) {
  EXPECT_EQ(LineWeightClass(-1), 29);
  EXPECT_EQ(LineWeightClass(-2), 30);
  EXPECT_EQ(LineWeightClass(-3), 31);
  EXPECT_EQ(LineWeightClass(-100), 31);
}

TEST(ShapeRecords, HaveTheKindsOfTheirNames) {
  EXPECT_EQ(DXF_Point().kind, 0);
  EXPECT_EQ(DXF_Line().kind, 2);
  EXPECT_EQ(DXF_Circle().kind, 6);
  EXPECT_EQ(DXF_Ellipse().kind, 7);
  EXPECT_EQ(DXF_Arc().kind, 8);
  EXPECT_EQ(DXF_Block().kind, 11);
  EXPECT_EQ(DXF_ifaceBlock().kind, 11);
  EXPECT_EQ(DXF_Insert().kind, 12);
  EXPECT_EQ(DXF_Solid().kind, 16);
  EXPECT_EQ(DXF_Image().kind, 20);
  EXPECT_EQ(DXF_Viewport().kind, 21);
}

TEST(LineRecord, TakesItsSecondPoint) {
  const auto record = Parsed<DXF_Line>("10|1|20|2|30|3|11|4|21|5|31|6|8|a");
  EXPECT_EQ(record.point, (Coord{1, 2, 3}));
  EXPECT_EQ(record.secondPoint, (Coord{4, 5, 6}));
  EXPECT_EQ(record.layer, "a");
}

TEST(CircleRecord, TakesItsRadius) {
  const auto record = Parsed<DXF_Circle>("10|1|40|2.5|39|7");
  EXPECT_EQ(record.radius, 2.5);
  EXPECT_EQ(record.point.x, 1.0);
  EXPECT_EQ(record.thickness, 7.0);
}

TEST(ArcRecord, HoldsItsAnglesInRadians) {
  const auto record = Parsed<DXF_Arc>("40|2|50|57.29577951308232|51|114.59155902616464");
  EXPECT_EQ(record.radius, 2.0);
  EXPECT_EQ(record.startAngle, 1.0);
  EXPECT_EQ(record.endAngle, 2.0);
  EXPECT_EQ(record.counterClockwise, 1);
}

TEST(EllipseRecord, TakesItsAxisRatioAndParameters) {
  const auto record = Parsed<DXF_Ellipse>("10|1|20|2|11|3|21|4|40|0.5|41|0.25|42|1.25");
  EXPECT_EQ(record.secondPoint, (Coord{3, 4, 0}));
  EXPECT_EQ(record.ratio, 0.5);
  EXPECT_EQ(record.startParam, 0.25);
  EXPECT_EQ(record.endParam, 1.25);
  EXPECT_EQ(record.counterClockwise, 1);
}

TEST(SolidRecord, TakesFourCorners) {
  const auto record = Parsed<DXF_Solid>("10|1|20|2|11|3|21|4|12|5|22|6|32|7|13|8|23|9|33|10");
  EXPECT_EQ(record.point, (Coord{1, 2, 0}));
  EXPECT_EQ(record.secondPoint, (Coord{3, 4, 0}));
  EXPECT_EQ(record.thirdPoint, (Coord{5, 6, 7}));
  EXPECT_EQ(record.fourthPoint, (Coord{8, 9, 10}));
}

TEST(ImageRecord, HasItsDefaults) {
  const DXF_Image record;
  EXPECT_EQ(record.sizeU, 0.0);
  EXPECT_EQ(record.sizeV, 0.0);
  EXPECT_EQ(record.imageDefHandle, 0U);
  EXPECT_EQ(record.clipping, 0);
  EXPECT_EQ(record.brightness, 50);
  EXPECT_EQ(record.contrast, 50);
  EXPECT_EQ(record.fade, 0);
}

TEST(ImageRecord, TakesItsGroups) {
  const auto record = Parsed<DXF_Image>(
      "10|1|20|2|11|0.1|21|0.2|31|0.3|12|0.4|22|0.5|32|0.6|13|640|23|480|340|3E|280|1|281|60|282|70|283|80");
  EXPECT_EQ(record.uVector(), (Coord{0.1, 0.2, 0.3}));
  EXPECT_EQ(record.vVector, (Coord{0.4, 0.5, 0.6}));
  EXPECT_EQ(record.sizeU, 640.0);
  EXPECT_EQ(record.sizeV, 480.0);
  EXPECT_EQ(record.imageDefHandle, 62U);
  EXPECT_EQ(record.clipping, 1);
  EXPECT_EQ(record.brightness, 60);
  EXPECT_EQ(record.contrast, 70);
  EXPECT_EQ(record.fade, 80);
}

TEST(BlockRecord, TakesNameFlagsAndBasePoint) {
  const auto record = Parsed<DXF_Block>("2|door|70|4|10|1|20|2|8|a");
  EXPECT_EQ(record.name, "door");
  EXPECT_EQ(record.flags, 4);
  EXPECT_EQ(record.point, (Coord{1, 2, 0}));
}

TEST(InsertRecord, HasItsDefaults) {
  const DXF_Insert record;
  EXPECT_EQ(record.blockName, "");
  EXPECT_EQ(record.xScale, 1.0);
  EXPECT_EQ(record.yScale, 1.0);
  EXPECT_EQ(record.zScale, 1.0);
  EXPECT_EQ(record.angle, 0.0);
  EXPECT_EQ(record.columnCount, 1);
  EXPECT_EQ(record.rowCount, 1);
  EXPECT_EQ(record.columnSpacing, 0.0);
  EXPECT_EQ(record.rowSpacing, 0.0);
}

TEST(InsertRecord, TakesItsGroups) {
  const auto record =
      Parsed<DXF_Insert>("2|door|10|1|41|2|42|3|43|4|50|57.29577951308232|70|5|71|6|44|7|45|8");
  EXPECT_EQ(record.blockName, "door");
  EXPECT_EQ(record.point.x, 1.0);
  EXPECT_EQ(record.xScale, 2.0);
  EXPECT_EQ(record.yScale, 3.0);
  EXPECT_EQ(record.zScale, 4.0);
  EXPECT_EQ(record.angle, 1.0);
  EXPECT_EQ(record.columnCount, 5);
  EXPECT_EQ(record.rowCount, 6);
  EXPECT_EQ(record.columnSpacing, 7.0);
  EXPECT_EQ(record.rowSpacing, 8.0);
}

TEST(Variant, PointsAtItsOwnMembersAfterACopy) {
  DXF_Variant text;
  text.setText(1, "abc");
  const DXF_Variant copyOfText(text);
  EXPECT_EQ(copyOfText.value.pointer, &copyOfText.text);
  DXF_Variant coordinate;
  coordinate.setCoordinate(10, 1.5);
  DXF_Variant assigned;
  assigned = coordinate;
  EXPECT_EQ(assigned.value.pointer, &assigned.x);
  EXPECT_EQ(assigned.x, 1.5);
}

TEST(Variant, HasNoTypeAtFirst) { EXPECT_EQ(DXF_Variant().type, 4); }

}  // namespace
