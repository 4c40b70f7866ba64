#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drawing.h"
#include "support/limits.h"

namespace {

using namespace Entity_ZR;
using testing::ElementsAre;

TEST(ConvertMLine, CopiesItsVerticesWithTheirElements) {
  const auto line = ReadOne<ZR_MLine>(
      "0|MLINE|2|STANDARD|340|18|40|2.5|70|1|71|3|72|1|73|2|10|1|20|2|30|3|210|0|220|0|230|1|"
      "11|4|21|5|31|6|12|1|22|0|32|0|13|0|23|1|33|0|74|2|41|0.5|41|7|75|1|42|8|74|1|41|-0.5|75|0");
  EXPECT_EQ(line->styleName, "STANDARD");
  EXPECT_EQ(line->scale, 2.5);
  EXPECT_EQ(line->justification, 1);
  EXPECT_EQ(line->flags, 3);
  EXPECT_EQ(line->vertexCount, 1);
  EXPECT_EQ(line->elementCount, 2);
  EXPECT_EQ(line->start, (Point3{1, 2, 3}));
  EXPECT_EQ(line->normal, (Point3{0, 0, 1}));
  ASSERT_EQ(line->vertices.size(), 1u);
  EXPECT_EQ(line->vertices[0].position, (Point3{4, 5, 6}));
  EXPECT_EQ(line->vertices[0].direction, (Point3{1, 0, 0}));
  EXPECT_EQ(line->vertices[0].miter, (Point3{0, 1, 0}));
  EXPECT_THAT(line->vertices[0].elements, ElementsAre(MLineElement{{0.5, 7}, {8}}, MLineElement{{-0.5}, {}}));
}

TEST(ConvertDimension, CopiesWhatItStates) {
  const auto dimension = ReadOne<ZR_Dimension>(
      "0|DIMENSION|2|*D1|1|about <>|3|ISO-25|70|32|71|5|72|1|41|1.5|42|12.5|10|1|20|2|11|3|21|4|"
      "12|5|22|6|13|7|23|8|14|9|24|10|15|11|25|12|16|13|26|14|36|15");
  EXPECT_EQ(dimension->blockName, "*D1");
  EXPECT_EQ(dimension->text, "about <>");
  EXPECT_EQ(dimension->styleName, "ISO-25");
  EXPECT_EQ(dimension->dimensionType, 32);
  EXPECT_EQ(dimension->attachment, 5);
  EXPECT_EQ(dimension->spacingFactor, 1.5);
  EXPECT_EQ(dimension->measurement, 12.5);
  EXPECT_THAT(dimension->points,
              ElementsAre(Point3{1, 2, 0}, Point3{3, 4, 0}, Point3{5, 6, 0}, Point3{7, 8, 0},
                          Point3{9, 10, 0}, Point3{11, 12, 0}, Point3{13, 14, 15}));
}

TEST(ConvertDimension, ExchangesTheTwoSpacingStyles) {
  EXPECT_EQ(ReadOne<ZR_Dimension>("0|DIMENSION|72|1")->spacingStyle, 2);
  EXPECT_EQ(ReadOne<ZR_Dimension>("0|DIMENSION|72|2")->spacingStyle, 1);
  EXPECT_EQ(ReadOne<ZR_Dimension>("0|DIMENSION|72|0")->spacingStyle, 1);
}

TEST(ConvertDimension, DrawsNothingOfItsBlock) {
  Drawing drawing;
  drawing.blocks = Block("*D1", "0|LINE|5|1|");
  drawing.entities = "0|DIMENSION|2|*D1";
  RecordingSink sink;
  ReadInto(sink, drawing);
  EXPECT_TRUE(sink.All<ZR_Line>().empty());
}

TEST(ConvertTable, CopiesItsRowsColumnsAndCells) {
  const auto table = ReadOne<ZR_Table>(
      "0|ACAD_TABLE|2|*T1|10|1|20|2|11|0|21|1|91|1|92|2|141|3|142|4|142|5|"
      "171|1|172|2|173|3|174|4|175|5|176|6|178|7|145|0.5|304|ACVALUE_END|171|2|304|ACVALUE_END");
  EXPECT_EQ(table->blockName, "*T1");
  EXPECT_EQ(table->position, (Point3{1, 2, 0}));
  EXPECT_EQ(table->direction, (Point3{0, 1, 0}));
  EXPECT_EQ(table->rowCount, 1);
  EXPECT_EQ(table->columnCount, 2);
  EXPECT_THAT(table->rowHeights, ElementsAre(3));
  EXPECT_THAT(table->columnWidths, ElementsAre(4, 5));
  ASSERT_EQ(table->cells.size(), 2u);
  EXPECT_EQ(table->cells[0], (TableCell{1, 2, 3, 4, 5, 6, 7, 0.5}));
  EXPECT_EQ(table->cells[1].type, 2);
}

/// A table that shows the block "t", in a drawing with `blocks`.
std::unique_ptr<RecordingSink> ReadTable(const std::string& blocks) {
  Drawing drawing;
  drawing.tables = Table("LAYER", {"grid|62|1"});
  drawing.blocks = blocks;
  drawing.entities = "0|ACAD_TABLE|2|t|0|POINT|8|0";
  auto sink = std::make_unique<RecordingSink>();
  ReadInto(*sink, drawing);
  return sink;
}

TEST(ConvertTable, TakesTheEntitiesOfItsBlockInsteadOfSendingThem) {
  const auto sink = ReadTable(Block("t", "0|LINE|5|1|8|grid|10|1|20|2|0|CIRCLE|40|3|"));
  EXPECT_THAT(sink->Names(),
              ElementsAre("BeginRead", "BeginFile", "AddTable", "AddPoint", "EndFile", "EndRead"));
  const auto table = sink->All<ZR_Table>().at(0);
  ASSERT_EQ(table->entities.size(), 2u);
  const auto line = std::dynamic_pointer_cast<ZR_Line>(table->entities[0]);
  ASSERT_NE(line, nullptr);
  EXPECT_EQ(line->start, (Point3{1, 2, 0}));
  EXPECT_EQ(line->color, 0xFF0000FFU);
  const auto circle = std::dynamic_pointer_cast<ZR_Circle>(table->entities[1]);
  ASSERT_NE(circle, nullptr);
  EXPECT_EQ(circle->radius, 3.0);
}

TEST(ConvertTable, TakesABlockReferenceOfItsBlockAsOneEntityWithItsPlacement) {
  const auto sink =
      ReadTable(Block("t", "0|INSERT|5|1|2|u|10|1|20|2|41|2|42|2|") + Block("u", "0|LINE|5|1|"));
  const auto table = sink->All<ZR_Table>().at(0);
  ASSERT_EQ(table->entities.size(), 1u);
  const auto insert = std::dynamic_pointer_cast<ZR_Insert>(table->entities[0]);
  ASSERT_NE(insert, nullptr);
  EXPECT_EQ(insert->matrix, (Matrix2D{2, 0, 0, 2, 1, 2}));
}

TEST(ConvertTable, StopsATableThatHoldsItselfAtTheDepth) {
  const auto sink = ReadTable(Block("t", "0|ACAD_TABLE|5|1|2|t|"));
  int depth = 0;
  for (auto table = sink->All<ZR_Table>().at(0); table != nullptr && !table->entities.empty();
       table = std::dynamic_pointer_cast<const ZR_Table>(table->entities[0])) {
    ++depth;
  }
  EXPECT_EQ(depth, support::limits::kInsertDepth);
  EXPECT_EQ(sink->All<ZR_Point>().size(), 1u);
}

TEST(ConvertMLeader, CopiesWhatItStates) {
  const auto leader = ReadOne<ZR_MLeader>(
      "0|MULTILEADER|340|1A|90|33|170|1|91|5|341|2B|171|-2|290|1|291|1|41|8|342|3C|42|4|172|2|343|4D|173|1|"
      "95|6|"
      "174|1|175|2|92|7|292|1|344|5E|93|9|10|2|20|3|30|4|43|0.5|176|1|293|1|271|0|272|9|273|10|270|2");
  EXPECT_EQ(leader->styleHandle, 0x1AU);
  EXPECT_EQ(leader->overrideFlags, 33);
  EXPECT_EQ(leader->leaderType, 1);
  EXPECT_EQ(leader->leaderColor, 5);
  EXPECT_EQ(leader->lineTypeHandle, 0x2BU);
  EXPECT_EQ(leader->leaderLineWeight, -2);
  EXPECT_TRUE(leader->landing);
  EXPECT_TRUE(leader->dogleg);
  EXPECT_EQ(leader->doglegLength, 8.0);
  EXPECT_EQ(leader->arrowheadHandle, 0x3CU);
  EXPECT_EQ(leader->arrowheadSize, 4.0);
  EXPECT_EQ(leader->contentType, 2);
  EXPECT_EQ(leader->textStyleHandle, 0x4DU);
  EXPECT_EQ(leader->leftAttachment, 1);
  EXPECT_EQ(leader->rightAttachment, 6);
  EXPECT_EQ(leader->textAngleType, 1);
  EXPECT_EQ(leader->textAlignment, 2);
  EXPECT_EQ(leader->textColor, 7);
  EXPECT_TRUE(leader->textFrame);
  EXPECT_EQ(leader->blockHandle, 0x5EU);
  EXPECT_EQ(leader->blockColor, 9);
  EXPECT_EQ(leader->blockScale, (Point3{2, 3, 4}));
  EXPECT_EQ(leader->blockRotation, 0.5);
  EXPECT_EQ(leader->blockConnection, 1);
  EXPECT_TRUE(leader->annotationScale);
  EXPECT_EQ(leader->bottomAttachment, 9);
  EXPECT_EQ(leader->topAttachment, 10);
  EXPECT_EQ(leader->version, 2);
  EXPECT_EQ(leader->context, nullptr);
}

TEST(ConvertMLeader, CopiesItsContextWithLeadersAndLines) {
  const auto leader = ReadOne<ZR_MLeader>(
      "0|MULTILEADER|300|CONTEXT_DATA{|40|2|10|1|20|2|30|3|41|4|140|5|145|6|290|1|304|note|12|7|22|8|"
      "302|LEADER{|290|1|10|9|20|10|11|1|21|0|90|3|40|11|304|LEADER_LINE{|10|12|20|13|10|14|20|15|91|2|305|}|"
      "303|}|"
      "301|}|170|1");
  ASSERT_NE(leader->context, nullptr);
  EXPECT_EQ(leader->context->contentScale, 2.0);
  EXPECT_EQ(leader->context->contentBase, (Point3{1, 2, 3}));
  EXPECT_EQ(leader->context->textHeight, 4.0);
  EXPECT_EQ(leader->context->arrowheadSize, 5.0);
  EXPECT_EQ(leader->context->landingGap, 6.0);
  EXPECT_TRUE(leader->context->hasText);
  EXPECT_EQ(leader->context->text, "note");
  EXPECT_EQ(leader->context->textLocation, (Point3{7, 8, 0}));
  ASSERT_EQ(leader->context->leaders.size(), 1u);
  const MLeaderBranch& branch = leader->context->leaders[0];
  EXPECT_EQ(branch.lastPoint, (Point3{9, 10, 0}));
  EXPECT_EQ(branch.doglegVector, (Point3{1, 0, 0}));
  EXPECT_EQ(branch.index, 3);
  EXPECT_EQ(branch.doglegLength, 11.0);
  ASSERT_EQ(branch.lines.size(), 1u);
  EXPECT_THAT(branch.lines[0].points, ElementsAre(Point3{12, 13, 0}, Point3{14, 15, 0}));
  EXPECT_EQ(branch.lines[0].index, 2);
}

}  // namespace
