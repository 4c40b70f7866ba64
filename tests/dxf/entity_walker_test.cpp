#include <gtest/gtest.h>

#include "dxf/walked_file.h"

namespace {

using Kinds = std::vector<std::int32_t>;

WalkedFile WalkedEntities(const std::string& entities) {
  return WalkedFile("0|SECTION|2|ENTITIES|" + entities + "0|ENDSEC|0|EOF");
}

struct NamedKind {
  const char* name;
  std::int32_t kind;
};

const NamedKind kNamedKinds[] = {
    {"POINT", 0},   {"LINE", 2},        {"CIRCLE", 6},       {"ARC", 8},        {"ELLIPSE", 7},
    {"INSERT", 12}, {"POLYLINE", 3},    {"LWPOLYLINE", 4},   {"TEXT", 9},       {"MTEXT", 10},
    {"SPLINE", 5},  {"IMAGE", 20},      {"HATCH", 13},       {"HELIX", 14},     {"MLINE", 15},
    {"SOLID", 16},  {"ACAD_TABLE", 17}, {"MULTILEADER", 22}, {"DIMENSION", 19},
};

TEST(EntityWalk, StoresEveryKindByItsName) {
  for (const auto& [name, kind] : kNamedKinds) {
    const WalkedFile walked = WalkedEntities("0|" + std::string(name) + "|8|walls|");
    ASSERT_EQ(walked.Kinds(), (Kinds{kind})) << name;
    EXPECT_EQ(walked.Model()[0]->layer, "walls") << name;
  }
}

TEST(EntityWalk, DropsViewports) {
  EXPECT_EQ(WalkedEntities("0|VIEWPORT|8|a|0|LINE|8|b|").Kinds(), (Kinds{2}));
}

TEST(EntityWalk, SkipsUnknownEntities) {
  for (const char* name : {"TRACE", "3DFACE", "ATTRIB", "ATTDEF", "LEADER", "RAY", "XLINE", "WIPEOUT",
                           "TOLERANCE", "line", "LINE ", ""}) {
    EXPECT_EQ(WalkedEntities("0|" + std::string(name) + "|8|a|10|1|0|POINT|").Kinds(), (Kinds{0})) << name;
  }
}

TEST(EntityWalk, TakesAnEmptySection) {
  EXPECT_EQ(WalkedFile("0|SECTION|2|ENTITIES|0|ENDSEC|0|SECTION|2|ENTITIES|0|LINE|0|ENDSEC|0|EOF").Kinds(),
            (Kinds{2}));
}

TEST(EntityWalk, EndsTheFileWhenItsFirstTagIsNoGroupZero) {
  const WalkedFile walked(
      "0|SECTION|2|ENTITIES|8|a|0|LINE|0|ENDSEC|0|SECTION|2|ENTITIES|0|LINE|0|ENDSEC|0|EOF");
  EXPECT_TRUE(walked.Model().empty());
}

TEST(EntityWalk, EndsAtAnEndblkToo) {
  EXPECT_EQ(WalkedEntities("0|LINE|0|ENDBLK|0|POINT|").Kinds(), (Kinds{2}));
}

TEST(EntityWalk, DecodesTheNamesOfEntities) {
  EXPECT_EQ(WalkedEntities("0|\\U+004CINE|8|a|").Kinds(), (Kinds{2}));
}

TEST(EntityWalk, ComesBackFromAFileThatEndsWithinAnyKind) {
  for (const auto& [name, kind] : kNamedKinds) {
    const WalkedFile walked("0|SECTION|2|ENTITIES|0|CIRCLE|40|1|0|" + std::string(name) + "|8|a");
    EXPECT_EQ(walked.Kinds(), (Kinds{6})) << name;
    EXPECT_EQ(walked.lastEntityName, name);
  }
}

TEST(EntityWalk, ComesBackFromAFileThatEndsBehindAnUnknownName) {
  EXPECT_EQ(WalkedFile("0|SECTION|2|ENTITIES|0|LINE|0|TRACE|8|a").Kinds(), (Kinds{2}));
  EXPECT_TRUE(WalkedFile("0|SECTION|2|ENTITIES").Model().empty());
}

TEST(EntityWalk, StoresNoEntityThatTheFileCutsOff) {
  EXPECT_EQ(WalkedFile("0|SECTION|2|ENTITIES|0|LINE|8|a|0|LINE|8|b").Model().size(), 1U);
}

TEST(EntityWalk, MapsAPointAndACircleThroughTheirNormal) {
  const WalkedFile walked =
      WalkedEntities("0|POINT|10|1|20|2|210|0|220|0|230|-1|0|CIRCLE|10|1|20|2|40|3|210|0|220|0|230|-1|");
  EXPECT_EQ(walked.At<DXF_Point>(0).point.x, -1.0);
  EXPECT_EQ(walked.At<DXF_Circle>(1).point.x, -1.0);
}

TEST(EntityWalk, StoresAnInsertUnmapped) {
  const WalkedFile walked = WalkedEntities("0|INSERT|2|door|10|1|20|2|210|0|220|0|230|-1|");
  EXPECT_EQ(walked.At<DXF_Insert>(0).point, (DXF_Coord{1, 2, 0}));
  EXPECT_EQ(walked.At<DXF_Insert>(0).blockName, "door");
}

TEST(EntityWalk, FinishesParagraphTexts) {
  EXPECT_EQ(WalkedEntities("0|MTEXT|11|0|21|1|").At<DXF_MText>(0).angle, 90.0);
}

TEST(EntityWalk, StoresWhatAHatchHolds) {
  EXPECT_EQ(WalkedEntities("0|HATCH|72|1|10|1|97|0|").At<DXF_Hatch>(0).edges.size(), 1U);
}

TEST(PolylineWalk, ReadsVerticesUpToTheSeqend) {
  const WalkedFile walked = WalkedEntities(
      "0|POLYLINE|8|poly|70|1|0|VERTEX|10|1|20|2|42|0.5|0|VERTEX|10|3|20|4|0|SEQEND|5|2F|8|end|0|LINE|");
  ASSERT_EQ(walked.Kinds(), (Kinds{3, 2}));
  const auto& polyline = walked.At<DXF_Polyline>(0);
  ASSERT_EQ(polyline.vertices.size(), 2U);
  EXPECT_EQ(polyline.vertices[0]->point, (DXF_Coord{1, 2, 0}));
  EXPECT_EQ(polyline.vertices[0]->bulge, 0.5);
  EXPECT_EQ(polyline.vertices[1]->point, (DXF_Coord{3, 4, 0}));
  EXPECT_EQ(polyline.vertices[1]->bulge, 0.0);
  EXPECT_EQ(polyline.flags, 1);
}

TEST(PolylineWalk, TakesLayerAndHandleOfTheSeqend) {
  const WalkedFile walked = WalkedEntities("0|POLYLINE|5|1|8|poly|0|VERTEX|10|1|0|SEQEND|5|2F|8|end|");
  EXPECT_EQ(walked.Model()[0]->layer, "end");
  EXPECT_EQ(walked.Model()[0]->handle, 47U);
}

TEST(PolylineWalk, PushesTheSameVertexAgainBehindAForeignName) {
  const WalkedFile walked = WalkedEntities("0|POLYLINE|0|VERTEX|10|1|0|X|20|2|0|VERTEX|10|3|0|SEQEND|");
  const auto& vertices = walked.At<DXF_Polyline>(0).vertices;
  ASSERT_EQ(vertices.size(), 3U);
  EXPECT_EQ(vertices[0], vertices[1]);
  EXPECT_EQ(vertices[0]->point, (DXF_Coord{1, 2, 0}));
  EXPECT_EQ(vertices[2]->point, (DXF_Coord{3, 0, 0}));
}

TEST(PolylineWalk, ReadsVerticesAgainBehindTheSeqend) {
  const WalkedFile walked =
      WalkedEntities("0|POLYLINE|0|VERTEX|10|1|0|SEQEND|8|a|0|VERTEX|10|2|0|SEQEND|8|b|0|LINE|");
  ASSERT_EQ(walked.Kinds(), (Kinds{3, 2}));
  EXPECT_EQ(walked.At<DXF_Polyline>(0).vertices.size(), 2U);
  EXPECT_EQ(walked.Model()[0]->layer, "b");
}

TEST(PolylineWalk, StoresAPolylineWithoutVertices) {
  EXPECT_EQ(WalkedEntities("0|POLYLINE|8|a|0|LINE|").Kinds(), (Kinds{3, 2}));
  EXPECT_EQ(WalkedEntities("0|POLYLINE|8|a|0|SEQEND|0|LINE|").Kinds(), (Kinds{3, 2}));
}

TEST(PolylineWalk, MapsItsVerticesThroughItsNormal) {
  const WalkedFile walked = WalkedEntities("0|POLYLINE|210|0|220|0|230|-1|0|VERTEX|10|1|20|2|0|SEQEND|");
  EXPECT_EQ(walked.At<DXF_Polyline>(0).vertices[0]->point.x, -1.0);
}

TEST(PolylineWalk, StoresNothingWhereTheFileEndsWithinAVertex) {
  EXPECT_TRUE(WalkedFile("0|SECTION|2|ENTITIES|0|POLYLINE|0|VERTEX|10|1|0|VERTEX|10|2").Model().empty());
  EXPECT_TRUE(WalkedFile("0|SECTION|2|ENTITIES|0|POLYLINE|0|VERTEX|10|1|0|SEQEND|8|a").Model().empty());
}

}  // namespace
