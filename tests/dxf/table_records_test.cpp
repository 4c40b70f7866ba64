#include <gtest/gtest.h>

#include "dxf/dxf_objects.h"
#include "dxf/dxf_tables.h"
#include "dxf/tag_text.h"

namespace {

TEST(TableEntry, TakesTheGroupsOfEveryEntry) {
  const auto record = Parsed<DXF_AppId>("5|1F|330|A|2|ACAD|70|4|1000|note|1070|5");
  EXPECT_EQ(record.handle, 31U);
  EXPECT_EQ(record.ownerHandle, 10U);
  EXPECT_EQ(record.name, "ACAD");
  EXPECT_EQ(record.flags, 4);
  ASSERT_EQ(record.extData.size(), 2U);
  EXPECT_EQ(record.extData[0]->text, "note");
}

TEST(TableEntry, HasTheKindOfItsTable) {
  EXPECT_EQ(DXF_AppId().kind, 1);
  EXPECT_EQ(DXF_Layer().kind, 4);
  EXPECT_EQ(DXF_LType().kind, 5);
  EXPECT_EQ(DXF_TextStyle().kind, 6);
}

TEST(LineTypeRecord, TakesItsGroups) {
  const auto record = Parsed<DXF_LType>("2|DASHED|3|__ __|73|2|40|0.75|49|0.5|49|-0.25");
  EXPECT_EQ(record.name, "DASHED");
  EXPECT_EQ(record.description, "__ __");
  EXPECT_EQ(record.patternCount, 2);
  EXPECT_EQ(record.patternLength, 0.75);
  EXPECT_EQ(std::vector(record.path.begin(), record.path.end()), (std::vector<double>{0.5, -0.25}));
}

TEST(LineTypeRecord, CountsAndMeasuresItsPatternAtTheEnd) {
  auto record = Parsed<DXF_LType>("73|9|40|9|49|0.5|49|-0.25|49|0");
  record.finish();
  EXPECT_EQ(record.patternCount, 3);
  EXPECT_EQ(record.patternLength, 0.75);
}

TEST(SharedList, GrowsWithoutChangingItsCopies) {
  DXF_SharedList<int> list;
  EXPECT_TRUE(list.empty());
  list.push_back(1);
  DXF_SharedList<int> copy = list;
  list.push_back(2);
  copy.push_back(3);
  copy.push_back(4);
  EXPECT_EQ(std::vector(list.begin(), list.end()), (std::vector<int>{1, 2}));
  EXPECT_EQ(std::vector(copy.begin(), copy.end()), (std::vector<int>{1, 3, 4}));
  EXPECT_EQ(copy.back(), 4);
}

TEST(SharedList, SharesItsValuesWithItsCopies) {
  DXF_SharedList<int> list;
  list.push_back(1);
  const DXF_SharedList<int> copy = list;
  list.push_back(2);
  EXPECT_EQ(copy.size(), 1U);
  EXPECT_EQ(copy.begin(), list.begin());
}

TEST(LayerRecord, HasItsDefaults) {
  const DXF_Layer record;
  EXPECT_EQ(record.lineType, "CONTINUOUS");
  EXPECT_EQ(record.color, 7);
  EXPECT_EQ(record.color24, -1);
  EXPECT_TRUE(record.plot);
  EXPECT_EQ(record.lineWeight, 31);
}

TEST(LayerRecord, TakesItsGroups) {
  const auto record = Parsed<DXF_Layer>("2|walls|6|DASHED|62|-3|420|255|290|0|370|30|390|F|347|98");
  EXPECT_EQ(record.name, "walls");
  EXPECT_EQ(record.lineType, "DASHED");
  EXPECT_EQ(record.color, -3);
  EXPECT_EQ(record.color24, 255);
  EXPECT_FALSE(record.plot);
  EXPECT_EQ(record.lineWeight, 8);
  EXPECT_EQ(record.handlePlotStyle, "F");
  EXPECT_EQ(record.handleMaterial, "98");
}

TEST(TextStyleRecord, HasItsDefaults) {
  const DXF_TextStyle record;
  EXPECT_EQ(record.height, 0.0);
  EXPECT_EQ(record.widthScale, 1.0);
  EXPECT_EQ(record.oblique, 0.0);
  EXPECT_EQ(record.generationFlags, 0);
  EXPECT_EQ(record.lastHeight, 1.0);
  EXPECT_EQ(record.font, "txt");
  EXPECT_EQ(record.bigFont, "");
  EXPECT_EQ(record.fontFamily, 0);
}

TEST(TextStyleRecord, TakesItsGroups) {
  const auto record = Parsed<DXF_TextStyle>(
      "2|notes|70|4|40|1.5|41|0.8|50|15|71|2|42|2.5|3|arial.ttf|4|big|1001|ACAD|1000|Arial|1071|34");
  EXPECT_EQ(record.name, "notes");
  EXPECT_EQ(record.flags, 4);
  EXPECT_EQ(record.height, 1.5);
  EXPECT_EQ(record.widthScale, 0.8);
  EXPECT_EQ(record.oblique, 15.0);
  EXPECT_EQ(record.generationFlags, 2);
  EXPECT_EQ(record.lastHeight, 2.5);
  EXPECT_EQ(record.font, "arial.ttf");
  EXPECT_EQ(record.bigFont, "big");
  EXPECT_EQ(record.extApp, "ACAD");
  EXPECT_EQ(record.extText, "Arial");
  EXPECT_EQ(record.fontFamily, 34);
}

TEST(DimensionStyleRecord, IsNamedStandardByDefault) { EXPECT_EQ(DXF_Dimstyle().name, "Standard"); }

TEST(ImageDefRecord, TakesItsGroups) {
  const auto record = Parsed<DXF_ImageDef>("5|3E|330|A|1|logo.png|10|640|20|480|11|0.1|21|0.2|280|1|281|2");
  EXPECT_EQ(record.handle, 62U);
  EXPECT_EQ(record.ownerHandle, 10U);
  EXPECT_EQ(record.path, "logo.png");
  EXPECT_EQ(record.width, 640.0);
  EXPECT_EQ(record.height, 480.0);
  EXPECT_EQ(record.pixelWidth, 0.1);
  EXPECT_EQ(record.pixelHeight, 0.2);
  EXPECT_EQ(record.loaded, 1);
  EXPECT_EQ(record.units, 2);
}

TEST(ImageDefRecord, TakesGroup12AsThePixelHeightToo) {
  EXPECT_EQ(Parsed<DXF_ImageDef>("21|0.2|12|0.3").pixelHeight, 0.3);
}

TEST(MlineStyleRecord, TakesItsGroups) {
  const auto record = Parsed<DXF_MlineStyle>(
      "5|18|2|DOUBLE|70|1|3|two lines|62|5|51|90|52|45|71|2|49|0.5|62|1|6|BYLAYER|49|-0.5|62|2|6|DASHED");
  EXPECT_EQ(record.handle, 24U);
  EXPECT_EQ(record.name, "DOUBLE");
  EXPECT_EQ(record.flags, 1);
  EXPECT_EQ(record.description, "two lines");
  EXPECT_EQ(record.fillColor, 5);
  EXPECT_EQ(record.startAngle, 90.0);
  EXPECT_EQ(record.endAngle, 45.0);
  EXPECT_EQ(record.elementCount, 2);
  EXPECT_EQ(record.elements, (std::vector<DXF_MlineElement>{{0.5, 1, "BYLAYER"}, {-0.5, 2, "DASHED"}}));
}

TEST(MlineStyleRecord, DropsALineTypeBeforeTheFirstElement) {
  EXPECT_TRUE(Parsed<DXF_MlineStyle>("6|DASHED").elements.empty());
}

TEST(PlotSettingsRecord, TakesItsGroups) {
  const auto record = Parsed<DXF_PlotSettings>("6|page|40|1|41|2|42|3|43|4");
  EXPECT_EQ(record.name, "page");
  EXPECT_EQ(record.marginLeft, 1.0);
  EXPECT_EQ(record.marginBottom, 2.0);
  EXPECT_EQ(record.marginRight, 3.0);
  EXPECT_EQ(record.marginTop, 4.0);
}

}  // namespace
