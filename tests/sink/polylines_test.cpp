#include "entity/polylines.h"

#include <cmath>
#include <gtest/gtest.h>
#include <memory>
#include <numbers>

#include "sink/sink_results.h"

namespace {

using Entity_ZR::LWVertex;
using Entity_ZR::PolylineVertex;
using Entity_ZR::ZR_LWPolyline;
using Entity_ZR::ZR_Polyline;

LWVertex At(double x, double y, double bulge = 0.0) { return {x, y, 0.0, 0.0, bulge}; }

ZR_LWPolyline Light(std::vector<LWVertex> vertices, bool closed = false) {
  ZR_LWPolyline polyline;
  polyline.vertices = std::move(vertices);
  polyline.closed = closed ? 1 : 0;
  return polyline;
}

ZR_Polyline Heavy(const std::vector<LWVertex>& vertices, std::int32_t flags = 0) {
  ZR_Polyline polyline;
  for (const LWVertex& vertex : vertices) {
    auto copy = std::make_shared<PolylineVertex>();
    copy->x = vertex.x;
    copy->y = vertex.y;
    copy->z = 42.0;
    copy->bulge = vertex.bulge;
    polyline.vertices.push_back(std::move(copy));
  }
  polyline.polylineFlags = flags;
  return polyline;
}

bool Add(CMyDrawLoad& sink, ZR_LWPolyline polyline) { return sink.AddLWPolyline(&polyline, 0); }
bool Add(CMyDrawLoad& sink, ZR_Polyline polyline) { return sink.AddPolyline(&polyline, 0); }

}  // namespace

TEST(AddLWPolyline, JoinsItsVerticesByStraightSegments) {
  CMyDrawLoad sink;
  EXPECT_TRUE(Add(sink, Light({At(0, 0), At(4, 0), At(4, 3)})));
  const auto segments = OnlySegments(sink);
  ASSERT_EQ(segments.size(), 2u);
  EXPECT_EQ(segments[0].type, 0);
  EXPECT_THAT(segments[0].end, IsExactly(4, 0));
  EXPECT_THAT(segments[1].start, IsExactly(4, 0));
  EXPECT_THAT(segments[1].end, IsExactly(4, 3));
}

TEST(AddLWPolyline, ClosesWithASpanToTheFirstVertex) {
  CMyDrawLoad sink;
  Add(sink, Light({At(0, 0), At(4, 0), At(4, 3)}, true));
  const auto segments = OnlySegments(sink);
  ASSERT_EQ(segments.size(), 3u);
  EXPECT_THAT(segments[2].start, IsExactly(4, 3));
  EXPECT_THAT(segments[2].end, IsExactly(0, 0));
}

TEST(AddLWPolyline, ReadsOnlyTheLowestBitOfClosed) {
  CMyDrawLoad sink;
  ZR_LWPolyline polyline = Light({At(0, 0), At(4, 0), At(4, 3)});
  polyline.closed = 128;
  sink.AddLWPolyline(&polyline, 0);
  EXPECT_EQ(OnlySegments(sink).size(), 2u);
}

TEST(AddLWPolyline, ClosesWithoutLengthWhereTheEndsCoincide) {
  CMyDrawLoad sink;
  Add(sink, Light({At(0, 0), At(4, 0), At(0, 0)}, true));
  const auto segments = OnlySegments(sink);
  ASSERT_EQ(segments.size(), 3u);
  EXPECT_THAT(segments[2].start, IsExactly(0, 0));
  EXPECT_THAT(segments[2].end, IsExactly(0, 0));
}

TEST(AddLWPolyline, DrawsABulgeOfOneAsAHalfCircle) {
  CMyDrawLoad sink;
  Add(sink, Light({At(0, 0, 1), At(2, 0)}));
  const auto segments = OnlySegments(sink);
  ASSERT_EQ(segments.size(), 2u);
  EXPECT_EQ(segments[0].type, 3);
  EXPECT_THAT(segments[0].start, IsAt(0, 0));
  EXPECT_THAT(segments[0].end, IsAt(1, -1));
  EXPECT_THAT(segments[1].end, IsAt(2, 0));
}

TEST(AddLWPolyline, RunsClockwiseForANegativeBulge) {
  CMyDrawLoad sink;
  Add(sink, Light({At(0, 0, -1), At(2, 0)}));
  const auto segments = OnlySegments(sink);
  ASSERT_EQ(segments.size(), 2u);
  EXPECT_THAT(segments[0].end, IsAt(1, 1));
  EXPECT_THAT(segments[1].end, IsAt(2, 0));
}

TEST(AddLWPolyline, DrawsABulgeBelowATenThousandthAsALine) {
  CMyDrawLoad sink;
  Add(sink, Light({At(0, 0, 0.00005), At(2, 0, -0.00009), At(4, 0)}));
  const auto segments = OnlySegments(sink);
  ASSERT_EQ(segments.size(), 2u);
  EXPECT_EQ(segments[0].type, 0);
  EXPECT_EQ(segments[1].type, 0);
}

TEST(AddLWPolyline, DrawsABulgeOfATenThousandthAsAnArc) {
  CMyDrawLoad sink;
  Add(sink, Light({At(0, 0, 0.0001), At(2, 0)}));
  EXPECT_EQ(OnlySegments(sink)[0].type, 3);
}

TEST(AddLWPolyline, UsesTheLastVertexsBulgeForTheClosingSpan) {
  CMyDrawLoad sink;
  Add(sink, Light({At(0, 0), At(2, 0, 1)}, true));
  const auto segments = OnlySegments(sink);
  ASSERT_EQ(segments.size(), 3u);
  EXPECT_EQ(segments[0].type, 0);
  EXPECT_THAT(segments[1].start, IsAt(2, 0));
  EXPECT_THAT(segments[1].end, IsAt(1, 1));
  EXPECT_THAT(segments[2].end, IsAt(0, 0));
}

TEST(AddLWPolyline, GoesOnFromWhereAnArcReallyEnded) {
  CMyDrawLoad sink;
  ZR_LWPolyline polyline = Light({At(0, 0, 1), At(2, 0), At(3, 0)});
  polyline.matrix = {2, 0, 0, 2, 0, 0};
  sink.AddLWPolyline(&polyline, 0);
  const auto segments = OnlySegments(sink);
  ASSERT_EQ(segments.size(), 3u);
  // The arc ends a rounding error beside its vertex; the line begins there, to the last bit.
  EXPECT_NE(segments[1].end.y, 0.0);
  EXPECT_EQ(segments[2].start.x, segments[1].end.x);
  EXPECT_EQ(segments[2].start.y, segments[1].end.y);
  EXPECT_THAT(segments[2].start, IsAt(4, 0));
  EXPECT_THAT(segments[2].end, IsExactly(6, 0));
}

TEST(AddLWPolyline, GoesThroughTheWholeCoordinateChain) {
  CMyDrawLoad sink;
  sink.pageMatrix = {1, 0, 0, 1, 0, 100};
  OpenFrame(sink, {0, 1, -1, 0, 10, 0});
  ZR_LWPolyline polyline = Light({At(0, 0), At(2, 0, 1), At(4, 0)});
  polyline.matrix = {2, 0, 0, 2, 1, 1};
  sink.AddLWPolyline(&polyline, 0);
  sink.EndGroup(0);
  // (0, 0) doubled and moved is (1, 1); a quarter turn about the origin and +10 give (9, 1); +100.
  const auto segments = OnlySegments(sink);
  ASSERT_EQ(segments.size(), 3u);
  EXPECT_THAT(segments[0].start, IsExactly(9, 101));
  EXPECT_THAT(segments[0].end, IsExactly(9, 105));
  // The deepest point of the arc, (3, -1): (7, -1), (11, 7), +100.
  EXPECT_THAT(segments[1].end, IsAt(11, 107));
}

TEST(AddLWPolyline, EntersTheListWithoutSegmentsWhenItHasOneVertex) {
  CMyDrawLoad sink;
  EXPECT_TRUE(Add(sink, Light({At(3, 3)})));
  EXPECT_EQ(OnlySegments(sink).size(), 0u);
}

TEST(AddLWPolyline, ClosesASingleVertexOnItself) {
  CMyDrawLoad sink;
  EXPECT_TRUE(Add(sink, Light({At(3, 3)}, true)));
  const auto segments = OnlySegments(sink);
  ASSERT_EQ(segments.size(), 1u);
  EXPECT_THAT(segments[0].start, IsExactly(3, 3));
  EXPECT_THAT(segments[0].end, IsExactly(3, 3));
}

TEST(AddLWPolyline, DrawsABulgeBetweenEqualVerticesAsATinyFullTurn) {
  CMyDrawLoad sink;
  Add(sink, Light({At(5, 5, 1), At(5, 5)}));
  const auto segments = OnlySegments(sink);
  ASSERT_EQ(segments.size(), 4u);
  EXPECT_THAT(segments[0].start, IsAt(5.01, 5));
  EXPECT_THAT(segments[1].end, IsAt(4.99, 5));
}

TEST(AddLWPolyline, RefusesAPolylineWithoutVertices) {
  CMyDrawLoad sink;
  EXPECT_FALSE(Add(sink, Light({}, true)));
  EXPECT_FALSE(sink.HasResults());
}

TEST(AddLWPolyline, TakesItsColourAndNoProcessingBlock) {
  CMyDrawLoad sink;
  ZR_LWPolyline polyline = Light({At(0, 0), At(1, 0)});
  polyline.color = 0xFF0000FF;
  polyline.attributes = Parameters({{"cutPower", "50"}});
  sink.AddLWPolyline(&polyline, 0);
  OpenFrame(sink, {}, {{"cutPower", "70"}});
  sink.AddLWPolyline(&polyline, 0);
  sink.EndGroup(0);
  const auto curves = Curves(sink);
  ASSERT_EQ(curves.size(), 2u);
  for (const CFileCurve* curve : curves) {
    EXPECT_EQ(curve->color, 0xFFu);
    EXPECT_EQ(curve->cutPower, 30.0);
    EXPECT_EQ(curve->frequency, 0.0);
  }
}

TEST(AddPolyline, DrawsStraightSpansAndBulgesAsTheLightOneDoes) {
  CMyDrawLoad sink;
  EXPECT_TRUE(Add(sink, Heavy({At(0, 0), At(2, 0, 1), At(4, 0), At(5, 0)})));
  const auto segments = OnlySegments(sink);
  ASSERT_EQ(segments.size(), 4u);
  EXPECT_THAT(segments[0].end, IsExactly(2, 0));
  EXPECT_THAT(segments[1].end, IsAt(3, -1));
  EXPECT_THAT(segments[3].end, IsExactly(5, 0));
}

TEST(AddPolyline, ClosesWhereTheEndsLieApart) {
  CMyDrawLoad sink;
  Add(sink, Heavy({At(0, 0), At(4, 0), At(4, 3, -1)}, Entity_ZR::kPolylineClosed));
  const auto segments = OnlySegments(sink);
  ASSERT_EQ(segments.size(), 4u);
  EXPECT_EQ(segments[2].type, 3);
  EXPECT_THAT(segments[3].end, IsAt(0, 0));
}

TEST(AddPolyline, DoesNotCloseWhereTheEndsCoincide) {
  CMyDrawLoad sink;
  Add(sink, Heavy({At(0, 0), At(4, 0), At(0, 0)}, Entity_ZR::kPolylineClosed));
  Add(sink, Heavy({At(0, 0), At(4, 0), At(0.00009, -0.00009)}, Entity_ZR::kPolylineClosed));
  for (const CFileCurve* curve : Curves(sink)) EXPECT_EQ(curve->segmentCount, 2);
}

TEST(AddPolyline, ClosesWhereTheEndsLieApartInOneDirectionOnly) {
  CMyDrawLoad sink;
  Add(sink, Heavy({At(0, 0), At(4, 0), At(0.0001, 0)}, Entity_ZR::kPolylineClosed));
  Add(sink, Heavy({At(0, 0), At(4, 0), At(0, -0.0001)}, Entity_ZR::kPolylineClosed));
  for (const CFileCurve* curve : Curves(sink)) EXPECT_EQ(curve->segmentCount, 3);
}

TEST(AddPolyline, DoesNotCloseASingleVertex) {
  CMyDrawLoad sink;
  EXPECT_TRUE(Add(sink, Heavy({At(1, 1)}, Entity_ZR::kPolylineClosed)));
  EXPECT_EQ(OnlySegments(sink).size(), 0u);
}

TEST(AddPolyline, LeavesItOpenWithoutTheClosedBit) {
  CMyDrawLoad sink;
  Add(sink, Heavy({At(0, 0), At(4, 0), At(4, 3)}, 128));
  EXPECT_EQ(OnlySegments(sink).size(), 2u);
}

TEST(AddPolyline, RefusesAPolylineWithoutVertices) {
  CMyDrawLoad sink;
  EXPECT_FALSE(Add(sink, Heavy({})));
  EXPECT_FALSE(Add(sink, Heavy({}, Entity_ZR::kPolylineSplineFit)));
  EXPECT_FALSE(sink.HasResults());
}

TEST(AddPolyline, TakesItsColourAndNoProcessingBlock) {
  CMyDrawLoad sink;
  OpenFrame(sink, {}, {{"cutPower", "70"}});
  ZR_Polyline polyline = Heavy({At(0, 0), At(1, 0)});
  polyline.color = 0xFF0000FF;
  polyline.attributes = Parameters({{"cutPower", "50"}});
  sink.AddPolyline(&polyline, 0);
  sink.EndGroup(0);
  EXPECT_EQ(Curves(sink)[0]->color, 0xFFu);
  EXPECT_EQ(Curves(sink)[0]->cutPower, 30.0);
}

TEST(AddPolyline, JoinsOnlyNeighboursThatSplineFittingMade) {
  CMyDrawLoad sink;
  ZR_Polyline polyline = Heavy({At(0, 0), At(1, 0), At(2, 1, 1), At(3, 0), At(4, 0), At(5, 1)},
                               Entity_ZR::kPolylineSplineFit | Entity_ZR::kPolylineClosed);
  for (const std::size_t fitted : {1u, 2u, 4u, 5u}) polyline.vertices[fitted]->vertexFlags = 8;
  polyline.vertices[2]->vertexFlags |= 32;
  polyline.vertices[0]->vertexFlags = 16;
  EXPECT_TRUE(sink.AddPolyline(&polyline, 0));
  const auto segments = OnlySegments(sink);
  ASSERT_EQ(segments.size(), 2u);
  EXPECT_EQ(segments[0].type, 0);
  EXPECT_THAT(segments[0].start, IsExactly(1, 0));
  EXPECT_THAT(segments[0].end, IsExactly(2, 1));
  EXPECT_EQ(segments[1].type, 0);
  EXPECT_THAT(segments[1].start, IsExactly(4, 0));
  EXPECT_THAT(segments[1].end, IsExactly(5, 1));
}

TEST(AddPolyline, PassesFittedVerticesThroughTheCoordinateChain) {
  CMyDrawLoad sink;
  sink.pageMatrix = {1, 0, 0, -1, 0, 50};
  OpenFrame(sink, {2, 0, 0, 2, 1, 0});
  ZR_Polyline polyline = Heavy({At(1, 1), At(2, 3)}, Entity_ZR::kPolylineSplineFit);
  polyline.matrix = {1, 0, 0, 1, 10, 0};
  for (const auto& vertex : polyline.vertices) vertex->vertexFlags = 8;
  sink.AddPolyline(&polyline, 0);
  sink.EndGroup(0);
  EXPECT_THAT(OnlySegments(sink)[0].start, IsExactly(23, 48));
  EXPECT_THAT(OnlySegments(sink)[0].end, IsExactly(25, 44));
}

TEST(AddPolyline, EntersTheListEvenWhenFittingMadeNothing) {
  CMyDrawLoad sink;
  ZR_Polyline polyline = Heavy({At(0, 0), At(1, 0)}, Entity_ZR::kPolylineSplineFit);
  polyline.color = 0xFF00AA00;
  EXPECT_TRUE(sink.AddPolyline(&polyline, 0));
  EXPECT_EQ(OnlySegments(sink).size(), 0u);
  EXPECT_EQ(Curves(sink)[0]->color, 0x00AA00u);
}

TEST(Polylines, AreRefusedWhenHiddenOrTheirLayerIsOff) {
  CMyDrawLoad sink;
  for (const bool layer : {false, true}) {
    ZR_LWPolyline light = Light({At(0, 0), At(1, 0)});
    ZR_Polyline heavy = Heavy({At(0, 0), At(1, 0)});
    (layer ? light.layerOn : light.visible) = 0;
    (layer ? heavy.layerOn : heavy.visible) = 0;
    EXPECT_FALSE(sink.AddLWPolyline(&light, 0));
    EXPECT_FALSE(sink.AddPolyline(&heavy, 0));
  }
  EXPECT_FALSE(sink.HasResults());
}
