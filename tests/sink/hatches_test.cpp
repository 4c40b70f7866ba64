#include <gtest/gtest.h>
#include <numbers>
#include <string>

#include "entity/hatch.h"
#include "sink/sink_results.h"

namespace {

using Entity_ZR::HatchEdge;
using Entity_ZR::ZR_Arc;
using Entity_ZR::ZR_Ellipse;
using Entity_ZR::ZR_Hatch;
using Entity_ZR::ZR_Line;
using Entity_ZR::ZR_LWPolyline;
using Entity_ZR::ZR_Spline;

/// A sink that tells of the splines that it receives, and spoils them.
class SplineListener : public CMyDrawLoad {
 public:
  bool AddSpline(ZR_Spline* entity, PARSE::Context context) override {
    degrees.push_back(entity->degree);
    contexts.push_back(context);
    entity->degree = -1;
    return true;
  }

  std::vector<std::int32_t> degrees;
  std::vector<PARSE::Context> contexts;
};

ZR_Line Line(double length) {
  ZR_Line line;
  line.end = {length, 0, 0};
  return line;
}

ZR_Hatch HatchOf(std::vector<HatchEdge> edges) {
  ZR_Hatch hatch;
  hatch.edges = std::move(edges);
  return hatch;
}

}  // namespace

TEST(AddHatch, DrawsEachEdgeByItsKind) {
  ZR_Arc arc;
  arc.radius = 1;
  arc.endAngle = std::numbers::pi;
  ZR_Ellipse ellipse;
  ellipse.radiusX = 4;
  ellipse.radiusY = 2;
  ellipse.endAngle = std::numbers::pi;
  ZR_LWPolyline polyline;
  polyline.vertices = {{0, 0, 0, 0, 0}, {7, 0, 0, 0, 0}};
  CMyDrawLoad sink;
  ZR_Hatch hatch = HatchOf({{1, Line(3)}, {2, arc}, {3, ellipse}, {5, polyline}});
  EXPECT_TRUE(sink.AddHatch(&hatch, 0));
  const auto curves = Curves(sink);
  ASSERT_EQ(curves.size(), 4u);
  EXPECT_THAT(Segments(*curves[0]).back().end, IsExactly(3, 0));
  EXPECT_THAT(Segments(*curves[1]).back().end, IsAt(-1, 0));
  EXPECT_THAT(Segments(*curves[2]).back().end, IsAt(-4, 0));
  EXPECT_THAT(Segments(*curves[3]).back().end, IsExactly(7, 0));
}

TEST(AddHatch, GivesASplineEdgeToTheSplineOperationAsACopy) {
  ZR_Spline spline;
  spline.degree = 3;
  SplineListener sink;
  ZR_Hatch hatch = HatchOf({{4, spline}});
  EXPECT_TRUE(sink.AddHatch(&hatch, 99));
  EXPECT_THAT(sink.degrees, testing::ElementsAre(3));
  EXPECT_THAT(sink.contexts, testing::ElementsAre(0));
  EXPECT_EQ(boost::get<ZR_Spline>(hatch.edges[0].shape).degree, 3);
}

TEST(AddHatch, PassesOtherKindsOver) {
  CMyDrawLoad sink;
  ZR_Hatch hatch = HatchOf({{0, Line(1)}, {6, Line(2)}, {-1, Line(3)}, {1, Line(4)}});
  EXPECT_TRUE(sink.AddHatch(&hatch, 0));
  EXPECT_THAT(OnlySegments(sink).at(0).end, IsExactly(4, 0));
}

TEST(AddHatch, IsUsedWithoutEdges) {
  CMyDrawLoad sink;
  ZR_Hatch hatch;
  EXPECT_TRUE(sink.AddHatch(&hatch, 0));
  EXPECT_FALSE(sink.HasResults());
}

TEST(AddHatch, GoesByTheEdgesOwnFlagsMatrixAndColour) {
  ZR_Line hidden = Line(1);
  hidden.visible = 0;
  ZR_Line shown = Line(2);
  shown.matrix = {1, 0, 0, 1, 0, 50};
  shown.color = 0xFF0000AA;
  CMyDrawLoad sink;
  ZR_Hatch hatch = HatchOf({{1, hidden}, {1, shown}});
  hatch.matrix = {9, 0, 0, 9, 9, 9};
  hatch.color = 0xFF00BB00;
  EXPECT_TRUE(sink.AddHatch(&hatch, 0));
  EXPECT_THAT(OnlySegments(sink).at(0).end, IsExactly(2, 50));
  EXPECT_EQ(Curves(sink)[0]->color, 0xAAu);
}

TEST(AddHatch, DrawsItsEdgesInTheOpenFrame) {
  CMyDrawLoad sink;
  OpenFrame(sink, {2, 0, 0, 2, 0, 0}, {{"cutPower", "70"}});
  ZR_Hatch hatch = HatchOf({{1, Line(1)}});
  sink.AddHatch(&hatch, 0);
  sink.EndGroup(0);
  EXPECT_THAT(OnlySegments(sink).at(0).end, IsExactly(2, 0));
  EXPECT_EQ(Curves(sink)[0]->cutPower, 70.0);
}

TEST(AddHatch, IsRefusedWhenHiddenOrItsLayerIsOff) {
  CMyDrawLoad sink;
  ZR_Hatch hidden = HatchOf({{1, Line(1)}});
  hidden.visible = 0;
  EXPECT_FALSE(sink.AddHatch(&hidden, 0));
  ZR_Hatch off = HatchOf({{1, Line(1)}});
  off.layerOn = 0;
  EXPECT_FALSE(sink.AddHatch(&off, 0));
  EXPECT_FALSE(sink.HasResults());
}

TEST(AddHatch, ThrowsWhereTheKindDoesNotFitTheEdge) {
  CMyDrawLoad sink;
  ZR_Hatch hatch = HatchOf({{1, Line(1)}, {2, Line(2)}, {1, Line(3)}});
  try {
    sink.AddHatch(&hatch, 0);
    FAIL() << "nothing was thrown";
  } catch (const boost::bad_get& error) {
    EXPECT_STREQ(error.what(), "boost::bad_get: failed value get using boost::get");
  }
  EXPECT_EQ(Curves(sink).size(), 1u);
}
