#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "drawing.h"
#include "sink/my_draw_load.h"
#include "support/account.h"
#include "support/limits.h"

namespace {

using namespace Entity_ZR;
using testing::ElementsAre;

constexpr double kClose = 1e-12;
const std::string kLine = "0|LINE|5|1|10|1|20|2|11|3|21|4|";

void ExpectMatrix(const Matrix2D& matrix, const Matrix2D& expected) {
  EXPECT_NEAR(matrix.a, expected.a, kClose);
  EXPECT_NEAR(matrix.b, expected.b, kClose);
  EXPECT_NEAR(matrix.c, expected.c, kClose);
  EXPECT_NEAR(matrix.d, expected.d, kClose);
  EXPECT_NEAR(matrix.e, expected.e, kClose);
  EXPECT_NEAR(matrix.f, expected.f, kClose);
}

std::unique_ptr<RecordingSink> ReadAll(const std::string& blocks, const std::string& entities) {
  Drawing drawing;
  drawing.blocks = blocks;
  drawing.entities = entities;
  auto sink = std::make_unique<RecordingSink>();
  ReadInto(*sink, drawing);
  return sink;
}

/// The calls between the two that begin the read and the two that end it.
std::vector<std::string> ContentOf(const RecordingSink& sink) {
  const std::vector<std::string> names = sink.Names();
  return {names.begin() + 2, names.end() - 2};
}

Matrix2D PlacementOf(const std::string& insert, const std::string& base = "") {
  Drawing drawing;
  drawing.blocks = Block("b", kLine, base);
  drawing.entities = "0|INSERT|2|b|" + insert;
  return ReadOne<ZR_Insert>(drawing)->matrix;
}

TEST(ConvertInsert, BracketsTheEntitiesOfTheBlock) {
  EXPECT_THAT(ContentOf(*ReadAll(Block("b", kLine), "0|INSERT|2|b|" + kLine)),
              ElementsAre("BeginGroup", "AddInsert", "AddLine", "EndGroup", "AddLine"));
}

TEST(ConvertInsert, CopiesWhatTheReferenceStates) {
  const auto insert = ReadOne<ZR_Insert>(
      "0|INSERT|2|b|10|1|20|2|30|3|41|4|42|5|43|6|50|90|70|7|71|8|44|9|45|10|8|walls|60|1");
  EXPECT_EQ(insert->position, (Point3{1, 2, 3}));
  EXPECT_EQ(insert->blockName, "b");
  EXPECT_EQ(insert->scaleX, 4.0);
  EXPECT_EQ(insert->scaleY, 5.0);
  EXPECT_EQ(insert->scaleZ, 6.0);
  EXPECT_NEAR(insert->rotation, 1.5707963267948966, kClose);
  EXPECT_EQ(insert->columnCount, 7);
  EXPECT_EQ(insert->rowCount, 8);
  EXPECT_EQ(insert->columnSpacing, 9.0);
  EXPECT_EQ(insert->rowSpacing, 10.0);
  EXPECT_EQ(insert->layer, "walls");
  EXPECT_EQ(insert->visible, 0);
}

TEST(ConvertInsert, DrawsTheBlockOnceWhateverItsRowsAndColumns) {
  EXPECT_EQ(ReadAll(Block("b", kLine), "0|INSERT|2|b|70|3|71|3")->All<ZR_Line>().size(), 1u);
}

TEST(ConvertInsert, LeavesTheEntitiesOfTheBlockInTheBlocksCoordinates) {
  const auto sink = ReadAll(Block("b", kLine), "0|INSERT|2|b|10|100|20|200");
  EXPECT_EQ(sink->All<ZR_Line>().at(0)->start, (Point3{1, 2, 0}));
  EXPECT_EQ(sink->All<ZR_Line>().at(0)->matrix, Matrix2D{});
}

TEST(ConvertInsert, PlacesABlockThatIsOnlyMovedWithAnExactScaleOfOne) {
  EXPECT_EQ(PlacementOf("10|100.1|20|200.3"), (Matrix2D{1, 0, 0, 1, 100.1, 200.3}));
}

TEST(ConvertInsert, ScalesAboutTheInsertionPoint) {
  ExpectMatrix(PlacementOf("10|10|20|20|41|2|42|3"), {2, 0, 0, 3, 10, 20});
}

TEST(ConvertInsert, ScalesFirstAndThenRotates) {
  // x' = cos·sx·x - sin·sy·y with a quarter turn: (1, 0) goes to (0, 2), (0, 1) to (-3, 0).
  ExpectMatrix(PlacementOf("10|10|20|20|41|2|42|3|50|90"), {0, 2, -3, 0, 10, 20});
}

TEST(ConvertInsert, BringsTheBasePointToTheInsertionPoint) {
  ExpectMatrix(PlacementOf("10|10|20|20", "10|1|20|2|"), {1, 0, 0, 1, 9, 18});
  const Matrix2D turned = PlacementOf("10|10|20|20|41|2|42|3|50|90", "10|1|20|2|");
  const Point3 base = turned.Apply({1, 2, 0});
  EXPECT_NEAR(base.x, 10, kClose);
  EXPECT_NEAR(base.y, 20, kClose);
}

TEST(ConvertInsert, MirrorsAReferenceThatLooksDown) {
  // All of the placement is mirrored in x behind the scale and the rotation.
  ExpectMatrix(PlacementOf("10|10|20|20|41|2|42|3|210|0|220|0|230|-1"), {-2, 0, 0, 3, -10, 20});
}

TEST(ConvertInsert, PutsTheOuterPlacementBehindTheInnerOne) {
  const auto sink =
      ReadAll(Block("inner", kLine) + Block("outer", "0|INSERT|5|2|2|inner|10|1|20|2|41|2|42|2|"),
              "0|INSERT|2|outer|10|10|20|20|50|90");
  const auto inserts = sink->All<ZR_Insert>();
  ASSERT_EQ(inserts.size(), 2u);
  ExpectMatrix(inserts[0]->matrix, {0, 1, -1, 0, 10, 20});
  // (x, y) goes to (2x + 1, 2y + 2), and that to (10 - (2y + 2), 20 + 2x + 1).
  ExpectMatrix(inserts[1]->matrix, {0, 2, -2, 0, 8, 21});
  EXPECT_THAT(ContentOf(*sink), ElementsAre("BeginGroup", "AddInsert", "BeginGroup", "AddInsert", "AddLine",
                                            "EndGroup", "EndGroup"));
}

TEST(ConvertInsert, ForgetsThePlacementBehindTheBlock) {
  const auto sink = ReadAll(Block("b", kLine), "0|INSERT|2|b|10|10|20|20|50|90|0|INSERT|2|b|10|1|20|2");
  EXPECT_EQ(sink->All<ZR_Insert>().at(1)->matrix, (Matrix2D{1, 0, 0, 1, 1, 2}));
}

TEST(ConvertInsert, DrawsNothingOfAnUnknownBlock) {
  const auto sink = ReadAll(Block("b", kLine), "0|INSERT|2|B|10|1|20|2|41|2|42|2");
  EXPECT_THAT(ContentOf(*sink), ElementsAre("BeginGroup", "AddInsert", "EndGroup"));
  ExpectMatrix(sink->All<ZR_Insert>().at(0)->matrix, {2, 0, 0, 2, 1, 2});
}

TEST(ConvertInsert, DrawsTheFirstOfTwoBlocksOfOneName) {
  const auto sink = ReadAll(Block("b", kLine) + Block("b", "0|CIRCLE|5|1|40|1|"), "0|INSERT|2|b");
  EXPECT_THAT(ContentOf(*sink), ElementsAre("BeginGroup", "AddInsert", "AddLine", "EndGroup"));
}

TEST(ConvertInsert, StillEndsTheGroupOfARefusedReferenceAndDrawsNothingOfIt) {
  Drawing drawing;
  drawing.blocks = Block("b", kLine);
  drawing.entities = "0|INSERT|2|b|" + kLine;
  RecordingSink sink;
  sink.answer = false;
  ReadInto(sink, drawing);
  EXPECT_THAT(ContentOf(sink), ElementsAre("BeginGroup", "AddInsert", "EndGroup", "AddLine"));
}

TEST(ConvertInsert, EndsTheGroupOfTheBlockAtATextInIt) {
  EXPECT_THAT(ContentOf(*ReadAll(Block("b", "0|TEXT|5|1|1|x|" + kLine), "0|INSERT|2|b")),
              ElementsAre("BeginGroup", "AddInsert", "AddText", "EndGroup", "AddLine", "EndGroup"));
}

TEST(ConvertInsert, ConvertsNoBlockThatIsNeverInserted) {
  EXPECT_TRUE(ContentOf(*ReadAll(Block("b", kLine), "")).empty());
}

TEST(ConvertInsert, DrawsNoBlockBetweenReads) {
  RecordingSink sink;
  DXF_RW reader;
  reader.sink = &sink;
  reader.DrawBlock("b", 0);
  Drawing drawing;
  drawing.blocks = Block("b", kLine);
  const TemporaryFile file("dxf", TextOf(drawing));
  EXPECT_TRUE(reader.Read(file.path, 0));
  reader.DrawBlock("b", 0);
  EXPECT_TRUE(sink.All<ZR_Line>().empty());
}

TEST(ConvertInsert, GivesTheSameOnEachReadOfOneReader) {
  Drawing drawing;
  drawing.tables = Table("LAYER", {"walls|62|1"});
  drawing.blocks = Block("b", kLine + "8|walls|");
  drawing.entities = "0|INSERT|2|b|10|1|20|2|50|90";
  const TemporaryFile file("dxf", TextOf(drawing));
  RecordingSink sink;
  DXF_RW reader;
  reader.sink = &sink;
  EXPECT_TRUE(reader.Read(file.path, 0));
  EXPECT_TRUE(reader.Read(file.path, 0));
  const auto inserts = sink.All<ZR_Insert>();
  const auto lines = sink.All<ZR_Line>();
  ASSERT_EQ(inserts.size(), 2u);
  ASSERT_EQ(lines.size(), 2u);
  EXPECT_EQ(inserts[0]->matrix, inserts[1]->matrix);
  EXPECT_EQ(lines[0]->color, lines[1]->color);
}

TEST(ConvertInsert, StopsABlockThatInsertsItselfAtTheDepth) {
  const auto sink = ReadAll(Block("b", "0|INSERT|5|2|2|b|" + kLine), "0|INSERT|2|b|0|CIRCLE|40|1");
  EXPECT_EQ(sink->All<ZR_Line>().size(), static_cast<std::size_t>(support::limits::kInsertDepth));
  EXPECT_EQ(sink->All<ZR_Insert>().size(), static_cast<std::size_t>(support::limits::kInsertDepth) + 1);
  EXPECT_EQ(sink->All<ZR_Circle>().size(), 1u);
}

/// Counts, as the calls of an expansion bomb are too many to keep.
class CountingSink : public PARSE::DrawLoader {
 public:
  bool AddInsert(ZR_Insert*, PARSE::Context) override { return true; }
  bool AddLine(ZR_Line*, PARSE::Context) override { return ++lines > 0; }
  bool AddCircle(ZR_Circle*, PARSE::Context) override { return ++circles > 0; }
  bool AddArc(ZR_Arc*, PARSE::Context) override { return ++arcs > 0; }
  void BeginGroup(PARSE::Context) override { ++open; }
  void EndGroup(PARSE::Context) override { --open; }

  std::size_t lines = 0;
  std::size_t circles = 0;
  std::size_t arcs = 0;
  int open = 0;
};

/// Leaves an account about an eighth of the work that a small file may do, so that a bomb ends soon.
void SpendMost(support::Account& account) {
  account.Spend(support::limits::kWorkBase - support::limits::kWorkBase / 8);
}

/// Reads a drawing as the program does: with an account of what it holds and does.
CountingSink& CountInto(CountingSink& sink, const std::string& blocks, const std::string& entities,
                        support::Account& account) {
  Drawing drawing;
  drawing.blocks = blocks;
  drawing.entities = entities;
  const TemporaryFile file("dxf", TextOf(drawing));
  const support::AccountScope scope(account);
  DXF_RW reader;
  reader.sink = &sink;
  EXPECT_TRUE(reader.Read(file.path, 0));
  return sink;
}

/// Ten blocks, each of which inserts the next one ten times; the last holds a line.
std::string BlocksOfBlocks() {
  std::string blocks = Block("b10", kLine);
  for (int i = 0; i < 10; ++i) {
    std::string inserts;
    for (int k = 0; k < 10; ++k) inserts += "0|INSERT|5|2|2|b" + std::to_string(i + 1) + "|";
    blocks += Block("b" + std::to_string(i), inserts);
  }
  return blocks;
}

TEST(ConvertInsert, EndsAnExpansionBombAndDrawsWhatFollows) {
  support::Account account;
  SpendMost(account);
  CountingSink sink;
  CountInto(sink, BlocksOfBlocks() + Block("plain", "0|ARC|5|1|40|1|"),
            "0|INSERT|2|b0|0|CIRCLE|40|1|0|INSERT|2|plain", account);
  EXPECT_GT(sink.lines, 50'000u);
  EXPECT_LT(sink.lines, 1'000'000u);
  EXPECT_EQ(sink.circles, 1u);
  EXPECT_EQ(sink.arcs, 1u);
  EXPECT_EQ(sink.open, 0);
}

TEST(ConvertInsert, EndsABlockThatInsertsItselfTwiceAndDrawsWhatFollows) {
  support::Account account;
  SpendMost(account);
  CountingSink sink;
  CountInto(sink, Block("twice", kLine + "0|INSERT|5|2|2|twice|0|INSERT|5|3|2|twice|"),
            "0|INSERT|2|twice|0|CIRCLE|40|1|0|INSERT|2|twice|0|CIRCLE|40|1", account);
  EXPECT_GT(sink.lines, 100u);
  EXPECT_LT(sink.lines, 1'000'000u);
  EXPECT_EQ(sink.circles, 2u);
  EXPECT_EQ(sink.open, 0);
}

/// A block with `copies` copies of `entity`.
std::string BlockOf(const std::string& name, const std::string& entity, int copies) {
  std::string entities;
  for (int i = 0; i < copies; ++i) entities += entity;
  return Block(name, entities);
}

TEST(ConvertInsert, ExpandsABlockOfAThousandBlocksOfAThousandHolesInFull) {
  support::Account account;
  CountingSink sink;
  CountInto(sink,
            BlockOf("sheet", "0|CIRCLE|5|1|40|1|", 1000) + BlockOf("stack", "0|INSERT|5|2|2|sheet|", 1000),
            "0|INSERT|2|stack", account);
  EXPECT_EQ(sink.circles, 1'000'000u);
}

TEST(ConvertInsert, EndsTheFramesOfAReferenceThatEndsEarly) {
  Drawing drawing;
  drawing.blocks =
      BlockOf("sheet", "0|CIRCLE|5|1|40|1|", 1000) + BlockOf("stack", "0|INSERT|5|2|2|sheet|", 3000);
  drawing.entities = "0|INSERT|2|stack|0|INSERT|2|stack|41|2|0|LINE|11|5";
  const TemporaryFile file("dxf", TextOf(drawing));
  CMyDrawLoad sink;
  const support::AccountScope scope(sink.account);
  SpendMost(sink.account);
  sink.fileType = PARSE::kDxfFile;
  DXF_RW reader;
  reader.sink = &sink;
  EXPECT_TRUE(reader.Read(file.path, 0));
  EXPECT_EQ(sink.groupDepth, 0u);
  EXPECT_TRUE(sink.frames.empty());
  EXPECT_GT(sink.account.Cuts(), 0u);
  EXPECT_GT(sink.resultCount, 100'000u);
  const CFileDraw* last = nullptr;
  for (const CFileDraw* result = sink.FirstResult(); result != nullptr; result = sink.NextResult())
    last = result;
  ASSERT_NE(last, nullptr);
  const auto& line = static_cast<const CFileCurve&>(*last);
  EXPECT_EQ(line.segmentCount, 1);
  EXPECT_EQ(line.segmentHead->next->end.x, 5.0);  // no frame of the references before it maps it
}

TEST(ConvertInsert, ExpandsAThousandTimesAThousandHolesInFull) {
  std::string holes;
  for (int i = 0; i < 1000; ++i) holes += "0|CIRCLE|5|1|40|1|";
  std::string inserts;
  for (int i = 0; i < 1000; ++i) inserts += "0|INSERT|2|sheet|";
  support::Account account;
  CountingSink sink;
  CountInto(sink, Block("sheet", holes), inserts, account);
  EXPECT_EQ(sink.circles, 1'000'000u);
}

}  // namespace
