#include <gtest/gtest.h>

#include "dxf/walked_file.h"

namespace {

using Kinds = std::vector<std::int32_t>;

const std::string kLine = "0|LINE|8|a|";
const std::string kEntities = "0|SECTION|2|ENTITIES|";
const std::string kEnd = "0|ENDSEC|0|EOF";

TEST(FileWalk, IsFalseWithoutAReceiver) {
  const WrittenDxf file("0\nEOF\n");
  EXPECT_FALSE(DXF_OpenFile(file.path).run(nullptr));
}

TEST(FileWalk, IsFalseForAFileThatCannotBeOpened) {
  DXF_Interface iface;
  DXF_OpenFile openFile("/nonexistent/drawing.dxf");
  EXPECT_FALSE(openFile.run(&iface));
}

TEST(FileWalk, AppliesExtrusionsFromTheStartOfTheReadOn) {
  DXF_Interface iface;
  DXF_OpenFile openFile("/nonexistent/drawing.dxf");
  EXPECT_FALSE(openFile.applyExtrusion);
  openFile.run(&iface);
  EXPECT_TRUE(openFile.applyExtrusion);
}

TEST(FileWalk, ReadsNothingFromAFileWithoutASection) {
  const WalkedFile walked("8|walls|0|LINE|10|1|0|EOF");
  EXPECT_TRUE(walked.opened);
  EXPECT_TRUE(walked.Model().empty());
  EXPECT_EQ(walked.Document().header, nullptr);
}

TEST(FileWalk, ReadsNothingFromAnEmptyFile) {
  const WalkedFile walked("");
  EXPECT_TRUE(walked.opened);
  EXPECT_TRUE(walked.Model().empty());
}

TEST(FileWalk, ReadsABinaryFileAsTextWithoutASection) {
  constexpr char kBytes[] = "AutoCAD Binary DXF\r\n\x1A\0\0\0SECTION\0\2\0ENTITIES\0";
  const WrittenDxf file(std::string(kBytes, sizeof kBytes));
  DXF_Interface iface;
  EXPECT_TRUE(DXF_OpenFile(file.path).run(&iface));
  EXPECT_TRUE(iface.document->modelBlock->entities.empty());
}

TEST(FileWalk, StopsAtEof) { EXPECT_TRUE(WalkedFile("0|EOF|" + kEntities + kLine + kEnd).Model().empty()); }

TEST(FileWalk, NeedsNoEof) { EXPECT_EQ(WalkedFile(kEntities + kLine + "0|ENDSEC").Kinds(), (Kinds{2})); }

TEST(FileWalk, ReadsPastCommentsBeforeAndBehindTheFirstGroupZero) {
  const WalkedFile walked("999|by hand|0|SECTION|999|x|2|ENTITIES|999|y|0|LINE|999|z|8|a|0|ENDSEC|0|EOF");
  ASSERT_EQ(walked.Kinds(), (Kinds{2}));
  EXPECT_EQ(walked.Model()[0]->layer, "a");
}

TEST(FileWalk, PassesOverSectionsOfOtherNames) {
  EXPECT_EQ(WalkedFile("0|SECTION|2|CLASSES|0|CLASS|1|X|0|ENDSEC|" + kEntities + kLine + kEnd).Kinds(),
            (Kinds{2}));
}

TEST(FileWalk, SeesAnEofAndASectionInsideASectionOfAnotherName) {
  EXPECT_TRUE(WalkedFile("0|SECTION|2|CLASSES|0|EOF|" + kEntities + kLine + kEnd).Model().empty());
  EXPECT_EQ(WalkedFile("0|SECTION|2|CLASSES|" + kEntities + kLine + kEnd).Kinds(), (Kinds{2}));
}

TEST(FileWalk, PassesOverASectionWithoutAName) {
  EXPECT_TRUE(WalkedFile("0|SECTION|8|ENTITIES|" + kLine + kEnd).Model().empty());
}

TEST(FileWalk, ReadsSectionsInAnyOrderAndAsOftenAsTheyStand) {
  EXPECT_EQ(
      WalkedFile(kEntities + kLine + "0|ENDSEC|" + kEntities + "0|POINT|0|ENDSEC|0|SECTION|2|HEADER|" + kEnd)
          .Kinds(),
      (Kinds{2, 0}));
}

TEST(FileWalk, KeepsWhatStandsBeforeASectionThatEndsTheFile) {
  EXPECT_EQ(WalkedFile(kEntities + kLine + "0|ENDSEC|0|SECTION").Kinds(), (Kinds{2}));
}

TEST(FileWalk, TakesLinesThatEndInCarriageReturnAndLineFeed) {
  std::string text = TagText(kEntities + kLine + kEnd);
  for (std::size_t i = 0; (i = text.find('\n', i)) != std::string::npos; i += 2) text.insert(i, "\r");
  const WrittenDxf file(text);
  DXF_Interface iface;
  DXF_OpenFile(file.path).run(&iface);
  ASSERT_EQ(iface.document->modelBlock->entities.size(), 1U);
  EXPECT_EQ(iface.document->modelBlock->entities[0]->layer, "a");
}

TEST(HeaderWalk, StoresTheHeaderAtItsEnd) {
  const WalkedFile walked("0|SECTION|2|HEADER|9|$INSUNITS|70|4|" + kEnd);
  ASSERT_NE(walked.Document().header, nullptr);
  EXPECT_EQ(walked.Document().header->insUnits, 4);
}

TEST(HeaderWalk, StoresNoHeaderThatDoesNotClose) {
  EXPECT_EQ(WalkedFile("0|SECTION|2|HEADER|9|$INSUNITS|70|4").Document().header, nullptr);
}

TEST(HeaderWalk, EndsTheFileAtAnyOtherGroupZero) {
  const WalkedFile walked("0|SECTION|2|HEADER|9|$INSUNITS|70|4|0|LINE|0|ENDSEC|" + kEntities + kLine + kEnd);
  EXPECT_EQ(walked.Document().header, nullptr);
  EXPECT_TRUE(walked.Model().empty());
}

WalkedFile WalkedTables(const std::string& tables) {
  return WalkedFile("0|SECTION|2|TABLES|" + tables + "0|ENDSEC|" + kEntities + kLine + kEnd);
}

TEST(TablesWalk, ReadsEveryTable) {
  const WalkedFile walked = WalkedTables(
      "0|TABLE|2|LTYPE|70|1|0|LTYPE|2|DASHED|73|9|49|0.5|49|-0.25|0|ENDTAB|0|TABLE|2|LAYER|0|LAYER|2|a|62|1|"
      "0|LAYER|2|b|0|"
      "ENDTAB|0|TABLE|2|STYLE|0|STYLE|2|notes|0|ENDTAB|0|TABLE|2|DIMSTYLE|0|DIMSTYLE|2|ISO|0|ENDTAB|");
  const DXF_Document& document = walked.Document();
  ASSERT_EQ(document.lineTypes.size(), 1U);
  EXPECT_EQ(document.lineTypes[0]->patternCount, 2);
  EXPECT_EQ(document.lineTypes[0]->patternLength, 0.75);
  ASSERT_EQ(document.layers.size(), 2U);
  EXPECT_EQ(document.layers[0]->name, "a");
  EXPECT_EQ(document.layers[0]->color, 1);
  EXPECT_EQ(document.layers[1]->name, "b");
  EXPECT_EQ(document.layers[1]->color, 7);
  ASSERT_EQ(document.textStyles.size(), 1U);
  EXPECT_EQ(document.textStyles[0]->name, "notes");
  ASSERT_EQ(document.dimStyles.size(), 1U);
  EXPECT_EQ(document.dimStyles[0]->name, "ISO");
  EXPECT_EQ(walked.Kinds(), (Kinds{2}));
}

TEST(TablesWalk, ReadsAndDropsTheTablesThatNobodyUses) {
  const WalkedFile walked =
      WalkedTables("0|TABLE|2|VPORT|0|VPORT|2|*ACTIVE|0|ENDTAB|0|TABLE|2|APPID|0|APPID|2|ACAD|0|ENDTAB|");
  EXPECT_TRUE(walked.Document().layers.empty());
  EXPECT_EQ(walked.Kinds(), (Kinds{2}));
}

TEST(TablesWalk, PassesOverOtherTables) {
  const WalkedFile walked =
      WalkedTables("0|TABLE|2|UCS|0|UCS|2|x|0|ENDTAB|0|TABLE|2|LAYER|0|LAYER|2|a|0|ENDTAB|");
  EXPECT_EQ(walked.Document().layers.size(), 1U);
}

TEST(TablesWalk, IgnoresTheHeadOfATable) {
  const WalkedFile walked = WalkedTables("0|TABLE|2|LAYER|5|2|62|9|70|3|0|LAYER|2|a|0|ENDTAB|");
  ASSERT_EQ(walked.Document().layers.size(), 1U);
  EXPECT_EQ(walked.Document().layers[0]->color, 7);
  EXPECT_EQ(walked.Document().layers[0]->flags, 0);
}

TEST(TablesWalk, AddsAnOpenEntryOnceMoreUnderTheNameThatItGetsAfterAForeignName) {
  const WalkedFile walked =
      WalkedTables("0|TABLE|2|LAYER|0|X|62|9|0|LAYER|2|a|62|1|6|DASHED|0|X|2|b|62|2|0|ENDTAB|");
  const DXF_Document& document = walked.Document();
  ASSERT_EQ(document.layers.size(), 2U);
  EXPECT_EQ(document.findLayer("a")->color, 1);
  EXPECT_EQ(document.findLayer("a")->lineType, "DASHED");
  EXPECT_EQ(document.findLayer("b")->color, 2);
  EXPECT_EQ(document.findLayer("b")->lineType, "DASHED");
}

TEST(TablesWalk, FindsAnOpenEntryUnderEachOfItsNames) {
  std::string table = "0|TABLE|2|LAYER|0|LAYER|2|first|62|99|";
  for (int i = 0; i < 100; ++i) table += "0|X|2|layer" + std::to_string(i) + "|62|" + std::to_string(i) + "|";
  const WalkedFile walked = WalkedTables(table + "0|ENDTAB|");
  EXPECT_EQ(walked.Document().findLayer("first")->color, 99);
  for (int i = 0; i < 100; ++i) {
    const DXF_Layer* layer = walked.Document().findLayer("layer" + std::to_string(i));
    ASSERT_NE(layer, nullptr) << i;
    EXPECT_EQ(layer->color, i);
  }
}

TEST(TablesWalk, FindsOpenLineTypesAndTextStylesUnderEachOfTheirNames) {
  const WalkedFile walked = WalkedTables(
      "0|TABLE|2|LTYPE|0|LTYPE|2|A|49|1|0|X|2|B|49|-2|0|X|2|C|49|4|0|ENDTAB|"
      "0|TABLE|2|STYLE|0|STYLE|2|A|40|1|0|X|2|B|40|2|0|ENDTAB|");
  const DXF_Document& document = walked.Document();
  EXPECT_EQ(document.findLineType("A")->path.size(), 1U);
  EXPECT_EQ(document.findLineType("A")->patternLength, 1.0);
  EXPECT_EQ(document.findLineType("B")->path.size(), 2U);
  EXPECT_EQ(document.findLineType("B")->path[1], -2.0);
  EXPECT_EQ(document.findLineType("B")->patternLength, 3.0);
  EXPECT_EQ(document.findLineType("C")->patternCount, 3);
  EXPECT_EQ(document.findLineType("C")->patternLength, 7.0);
  EXPECT_EQ(document.findTextStyle("a")->height, 1.0);
  EXPECT_EQ(document.findTextStyle("b")->height, 2.0);
}

// A look-up finds the first of a name.
TEST(TablesWalk, AddsAnOpenEntryOnceForEachNameInTurn) {
  std::string table = "0|TABLE|2|LAYER|0|LAYER|2|a|62|1|";
  for (int i = 0; i < 1000; ++i) table += "0|X|62|2|";
  const WalkedFile walked = WalkedTables(table + "0|LAYER|2|b|0|LAYER|2|b|0|ENDTAB|");
  ASSERT_EQ(walked.Document().layers.size(), 3U);
  EXPECT_EQ(walked.Document().layers[0]->color, 1);
}

// Copies of these lists and texts would be 36 GB.
TEST(TablesWalk, SharesTheContentOfAnEntryAmongItsNames) {
  std::string table = "0|TABLE|2|LTYPE|0|LTYPE|3|" + std::string(1'000'000, 'x') + "|";
  for (int i = 0; i < 100'000; ++i) table += "49|1|";
  for (int i = 0; i < 20'000; ++i) table += "0|X|2|n" + std::to_string(i) + "|49|2|";
  const WalkedFile walked = WalkedTables(table + "0|ENDTAB|");
  const DXF_LType* first = walked.Document().findLineType("n0");
  const DXF_LType* last = walked.Document().findLineType("n19999");
  ASSERT_NE(first, nullptr);
  ASSERT_NE(last, nullptr);
  EXPECT_EQ(first->path.size(), 100'001U);
  EXPECT_EQ(last->path.size(), 120'000U);
  EXPECT_EQ(last->patternLength, 100'000.0 + 2 * 20'000.0);
  EXPECT_EQ(first->path.begin(), last->path.begin());
  EXPECT_EQ(first->description.data(), last->description.data());
}

TEST(TablesWalk, LeavesAnEntryUnaddedWhereTheFileEnds) {
  const WalkedFile walked("0|SECTION|2|TABLES|0|TABLE|2|LAYER|0|LAYER|2|a|0|LAYER|2|b");
  ASSERT_EQ(walked.Document().layers.size(), 1U);
  EXPECT_EQ(walked.Document().layers[0]->name, "a");
}

TEST(TablesWalk, KeepsWhatStandsBeforeATableThatEndsTheFile) {
  const WalkedFile walked(kEntities + kLine +
                          "0|ENDSEC|0|SECTION|2|TABLES|0|TABLE|2|LAYER|0|LAYER|2|a|0|ENDTAB|0|TABLE");
  EXPECT_TRUE(walked.opened);
  EXPECT_EQ(walked.Document().layers.size(), 1U);
  EXPECT_EQ(walked.Kinds(), (Kinds{2}));
}

TEST(TablesWalk, PassesOverATableWithoutAName) {
  EXPECT_TRUE(WalkedTables("0|TABLE|5|LAYER|0|LAYER|2|a|0|ENDTAB|").Document().layers.empty());
}

WalkedFile WalkedBlocks(const std::string& blocks) {
  return WalkedFile("0|SECTION|2|BLOCKS|" + blocks + "0|ENDSEC|" + kEntities + kLine + kEnd);
}

TEST(BlocksWalk, StoresABlockWithItsEntities) {
  const WalkedFile walked =
      WalkedBlocks("0|BLOCK|8|0|2|door|70|2|10|1|20|2|0|LINE|5|1|8|a|0|CIRCLE|8|b|0|ENDBLK|5|9|8|0|");
  ASSERT_EQ(walked.Document().blocks.size(), 1U);
  const DXF_ifaceBlock& block = *walked.Document().blocks[0];
  EXPECT_EQ(block.name, "door");
  EXPECT_EQ(block.flags, 2);
  EXPECT_EQ(block.point, (DXF_Coord{1, 2, 0}));
  ASSERT_EQ(block.entities.size(), 2U);
  EXPECT_EQ(block.entities[0]->kind, 2);
  EXPECT_EQ(block.entities[0]->layer, "a");
  EXPECT_EQ(block.entities[1]->kind, 6);
  EXPECT_EQ(block.entities[1]->layer, "b");
  EXPECT_EQ(walked.Kinds(), (Kinds{2}));
  EXPECT_EQ(walked.iface.lineCount, 1);
}

TEST(BlocksWalk, StoresAnEmptyBlock) {
  const WalkedFile walked = WalkedBlocks("0|BLOCK|2|door|0|ENDBLK|0|BLOCK|2|window|0|ENDBLK|");
  ASSERT_EQ(walked.Document().blocks.size(), 2U);
  EXPECT_TRUE(walked.Document().blocks[0]->entities.empty());
  EXPECT_EQ(walked.Document().blocks[1]->name, "window");
}

TEST(BlocksWalk, LosesTheFirstTagOfABlocksFirstEntity) {
  const WalkedFile walked = WalkedBlocks("0|BLOCK|2|door|0|LINE|8|lost|62|3|0|LINE|8|kept|0|ENDBLK|");
  const DXF_EntityList& entities = walked.Document().blocks[0]->entities;
  ASSERT_EQ(entities.size(), 2U);
  EXPECT_EQ(entities[0]->layer, "0");
  EXPECT_EQ(entities[0]->color, 3);
  EXPECT_EQ(entities[1]->layer, "kept");
}

TEST(BlocksWalk, LosesAFirstEntityWithoutAnyGroup) {
  const WalkedFile walked = WalkedBlocks("0|BLOCK|2|door|0|POINT|0|LINE|8|a|0|ENDBLK|");
  const DXF_EntityList& entities = walked.Document().blocks[0]->entities;
  ASSERT_EQ(entities.size(), 1U);
  EXPECT_EQ(entities[0]->kind, 2);
}

TEST(BlocksWalk, DoesNotSeeAnEntityBehindEndblk) {
  const WalkedFile walked = WalkedBlocks("0|BLOCK|2|door|0|ENDBLK|0|LINE|8|b|0|BLOCK|2|window|0|ENDBLK|");
  EXPECT_EQ(walked.Document().blocks.size(), 2U);
  EXPECT_TRUE(walked.Document().blocks[0]->entities.empty());
  EXPECT_EQ(walked.Model().size(), 1U);
}

TEST(BlocksWalk, EndsTheEntitiesOfABlockAtAnEndsecToo) {
  // The walker of the blocks then looks for an ENDSEC of its own and so takes the next section along.
  const WalkedFile walked("0|SECTION|2|BLOCKS|0|BLOCK|2|door|0|LINE|5|1|0|ENDSEC|" + kEntities + kLine +
                          "0|ENDSEC|" + kEntities + "0|POINT|" + kEnd);
  EXPECT_EQ(walked.Document().blocks[0]->entities.size(), 1U);
  EXPECT_EQ(walked.Kinds(), (Kinds{0}));
}

TEST(BlocksWalk, DropsABlockWhoseHeadTheFileCutsOff) {
  EXPECT_TRUE(WalkedFile("0|SECTION|2|BLOCKS|0|BLOCK|2|door").Document().blocks.empty());
}

TEST(BlocksWalk, KeepsABlockWithWhatItHasWhereTheFileEnds) {
  const WalkedFile walked("0|SECTION|2|BLOCKS|0|BLOCK|2|door|0|LINE|5|1|0|CIRCLE|40|2");
  ASSERT_EQ(walked.Document().blocks.size(), 1U);
  EXPECT_EQ(walked.Document().blocks[0]->entities.size(), 1U);
}

TEST(ObjectsWalk, ReadsImageDefinitionsAndMultilineStyles) {
  const WalkedFile walked(
      "0|SECTION|2|OBJECTS|0|DICTIONARY|3|x|0|IMAGEDEF|5|3E|1|logo.png|0|PLOTSETTINGS|6|page|0|MLINESTYLE|2|"
      "DOUBLE|0|"
      "IMAGEDEF|5|3F|0|ENDSEC|" +
      kEntities + kLine + kEnd);
  ASSERT_EQ(walked.Document().imageDefs.size(), 2U);
  EXPECT_EQ(walked.Document().imageDefs[0]->path, "logo.png");
  EXPECT_EQ(walked.Document().imageDefs[1]->handle, 63U);
  ASSERT_EQ(walked.Document().mlineStyles.size(), 1U);
  EXPECT_EQ(walked.Document().mlineStyles[0]->name, "DOUBLE");
  EXPECT_EQ(walked.Kinds(), (Kinds{2}));
}

TEST(ObjectsWalk, EndsTheFileWhenItsFirstTagIsNoGroupZero) {
  EXPECT_TRUE(WalkedFile("0|SECTION|2|OBJECTS|5|1|0|ENDSEC|" + kEntities + kLine + kEnd).Model().empty());
}

TEST(ObjectsWalk, TakesAnEmptySection) {
  EXPECT_EQ(WalkedFile("0|SECTION|2|OBJECTS|0|ENDSEC|" + kEntities + kLine + kEnd).Kinds(), (Kinds{2}));
}

TEST(ObjectsWalk, StoresNoObjectThatTheFileCutsOff) {
  for (const char* name : {"IMAGEDEF", "PLOTSETTINGS", "MLINESTYLE", "DICTIONARY"}) {
    const WalkedFile walked("0|SECTION|2|OBJECTS|0|" + std::string(name) + "|5|1");
    EXPECT_TRUE(walked.Document().imageDefs.empty()) << name;
    EXPECT_TRUE(walked.Document().mlineStyles.empty()) << name;
  }
}

}  // namespace
