#include <cmath>
#include <functional>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

#include "entity/hatch.h"
#include "entity/spline.h"
#include "sink/sink_results.h"

using Entity_ZR::Point3;
using Entity_ZR::ZR_Spline;

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

ZR_Spline SplineOf(std::int32_t degree, std::vector<Point3> points, std::vector<double> knots,
                   std::vector<double> weights = {}) {
  ZR_Spline spline;
  spline.degree = degree;
  spline.controlCount = static_cast<std::int32_t>(points.size());
  spline.knotCount = static_cast<std::int32_t>(knots.size());
  spline.controlPoints = std::move(points);
  spline.knots = std::move(knots);
  spline.weights = std::move(weights);
  return spline;
}

ZR_Spline Cubic() { return SplineOf(3, {{0, 0}, {1, 2}, {3, 2}, {4, 0}}, {0, 0, 0, 0, 1, 1, 1, 1}); }

/// A quarter of the circle of this radius about the origin.
ZR_Spline QuarterCircle(double radius) {
  return SplineOf(2, {{radius, 0}, {radius, radius}, {0, radius}}, {0, 0, 0, 1, 1, 1},
                  {1, std::sqrt(0.5), 1});
}

bool Add(CMyDrawLoad& sink, ZR_Spline spline) { return sink.AddSpline(&spline, 0); }

void ExpectCubic(const FileSegment& segment, Point3 p0, Point3 p1, Point3 p2, Point3 p3) {
  EXPECT_EQ(segment.type, 3);
  EXPECT_THAT(segment.start, IsAt(p0.x, p0.y));
  EXPECT_THAT(segment.control1, IsAt(p1.x, p1.y));
  EXPECT_THAT(segment.control2, IsAt(p2.x, p2.y));
  EXPECT_THAT(segment.end, IsAt(p3.x, p3.y));
}

TEST(AddSpline, RefusesAHiddenSpline) {
  CMyDrawLoad sink;
  ZR_Spline spline = Cubic();
  spline.visible = 0;
  EXPECT_FALSE(Add(sink, spline));
  spline.visible = 1;
  spline.layerOn = 0;
  EXPECT_FALSE(Add(sink, spline));
  EXPECT_FALSE(sink.HasResults());
}

TEST(AddSpline, KeepsTheShapeOfASinglePiece) {
  CMyDrawLoad sink;
  EXPECT_TRUE(Add(sink, Cubic()));
  const std::vector<FileSegment> segments = OnlySegments(sink);
  ASSERT_EQ(segments.size(), 1u);
  ExpectCubic(segments[0], {0, 0}, {1, 2}, {3, 2}, {4, 0});
}

TEST(AddSpline, MakesACurveOfEachPiece) {
  CMyDrawLoad sink;
  // Knots 1 and 2 inside: three pieces. At each knot the neighbours (6, 6), (12, 6), ... meet as below.
  EXPECT_TRUE(Add(sink, SplineOf(3, {{0, 0}, {0, 12}, {12, 12}, {24, 12}, {36, 12}, {36, 0}},
                                 {0, 0, 0, 0, 1, 2, 3, 3, 3, 3})));
  const std::vector<CFileCurve*> curves = Curves(sink);
  ASSERT_EQ(curves.size(), 3u);
  for (const CFileCurve* curve : curves) EXPECT_EQ(curve->segmentCount, 1);
  // Knot 1 inserted twice by hand: P1P2 at 1/2, P2P3 at 1/3, P3... stays; between those 1/2.
  ExpectCubic(Segments(*curves[0])[0], {0, 0}, {0, 12}, {6, 12}, {11, 12});
  // P2P3 at 1/3 and 2/3 are the controls of the middle piece, symmetric about x = 18.
  ExpectCubic(Segments(*curves[1])[0], {11, 12}, {16, 12}, {20, 12}, {25, 12});
  ExpectCubic(Segments(*curves[2])[0], {25, 12}, {30, 12}, {36, 12}, {36, 0});
}

TEST(AddSpline, CutsAClampedCubicAtItsInnerKnot) {
  CMyDrawLoad sink;
  EXPECT_TRUE(
      Add(sink, SplineOf(3, {{0, 0}, {0, 8}, {8, 8}, {16, 8}, {16, 0}}, {0, 0, 0, 0, 0.5, 1, 1, 1, 1})));
  const std::vector<CFileCurve*> curves = Curves(sink);
  ASSERT_EQ(curves.size(), 2u);
  ExpectCubic(Segments(*curves[0])[0], {0, 0}, {0, 8}, {4, 8}, {8, 8});
  ExpectCubic(Segments(*curves[1])[0], {8, 8}, {12, 8}, {16, 8}, {16, 0});
}

TEST(AddSpline, CutsFreeEnds) {
  CMyDrawLoad sink;
  EXPECT_TRUE(Add(sink, SplineOf(3, {{0, 0}, {6, 12}, {12, 12}, {18, 0}}, {0, 1, 2, 3, 4, 5, 6, 7})));
  const std::vector<FileSegment> segments = OnlySegments(sink);
  ASSERT_EQ(segments.size(), 1u);
  ExpectCubic(segments[0], {6, 10}, {8, 12}, {10, 12}, {12, 10});
}

TEST(AddSpline, UsesTheControlPointOfAQuadraticPieceTwice) {
  CMyDrawLoad sink;
  EXPECT_TRUE(Add(sink, SplineOf(2, {{0, 0}, {1, 2}, {3, 0}}, {0, 0, 0, 1, 1, 1})));
  const std::vector<FileSegment> segments = OnlySegments(sink);
  ASSERT_EQ(segments.size(), 1u);
  ExpectCubic(segments[0], {0, 0}, {1, 2}, {1, 2}, {3, 0});
}

TEST(AddSpline, DrawsOnlyTheFirstSpanOfDegreeOne) {
  CMyDrawLoad sink;
  EXPECT_TRUE(Add(sink, SplineOf(1, {{1, 2}, {3, 4}, {5, 6}, {7, 8}, {9, 9}}, {0, 0, 1, 2, 3, 4, 4})));
  const std::vector<FileSegment> segments = OnlySegments(sink);
  ASSERT_EQ(segments.size(), 1u);
  EXPECT_EQ(segments[0].type, 0);
  EXPECT_THAT(segments[0].start, IsExactly(1, 2));
  EXPECT_THAT(segments[0].end, IsExactly(3, 4));
}

TEST(AddSpline, ReadsNothingElseOfDegreeOne) {
  CMyDrawLoad sink;
  EXPECT_TRUE(Add(sink, SplineOf(1, {{1, 2}, {3, 4}, {kNaN, 6}}, {5, 4})));
  EXPECT_EQ(OnlySegments(sink).size(), 1u);
}

TEST(AddSpline, DrawsTheFirstSpanOfDegreeOneWhateverCountIsStated) {
  for (const std::int32_t stated : {0, 1, 3, 99, -5, std::numeric_limits<std::int32_t>::max()}) {
    CMyDrawLoad sink;
    ZR_Spline spline = SplineOf(1, {{1, 2}, {3, 4}}, {0, 0, 1, 1});
    spline.controlCount = stated;
    EXPECT_TRUE(Add(sink, spline)) << stated;
    const std::vector<FileSegment> segments = OnlySegments(sink);
    ASSERT_EQ(segments.size(), 1u) << stated;
    EXPECT_THAT(segments[0].start, IsExactly(1, 2)) << stated;
    EXPECT_THAT(segments[0].end, IsExactly(3, 4)) << stated;
  }
}

TEST(AddSpline, AppliesTheMatrixOfTheSpline) {
  CMyDrawLoad sink;
  ZR_Spline spline = Cubic();
  spline.matrix = {2, 0, 0, 3, 10, 20};
  EXPECT_TRUE(Add(sink, spline));
  ExpectCubic(OnlySegments(sink)[0], {10, 20}, {12, 26}, {16, 26}, {18, 20});
}

TEST(AddSpline, TakesNeitherParametersNorColourAlong) {
  CMyDrawLoad sink;
  ZR_Spline spline = Cubic();
  spline.attributes = Parameters({{"cutPower", "45"}});
  spline.color = 0xFF0000FF;
  EXPECT_TRUE(Add(sink, spline));
  ASSERT_EQ(Curves(sink).size(), 1u);
  EXPECT_EQ(Curves(sink)[0]->cutPower, 30.0);  // the default
  EXPECT_EQ(Curves(sink)[0]->color, 0u);
}

TEST(AddSpline, TakesTheProcessingBlockOfTheGroup) {
  CMyDrawLoad sink;
  OpenFrame(sink, {}, {{"cutPower", "45"}});
  EXPECT_TRUE(Add(sink, Cubic()));
  EXPECT_FALSE(sink.HasResults());
  sink.EndGroup(0);
  ASSERT_EQ(Curves(sink).size(), 1u);
  EXPECT_EQ(Curves(sink)[0]->cutPower, 45.0);
}

TEST(AddSpline, DrawsOneCurveOfLinesForASplineWithWeights) {
  CMyDrawLoad sink;
  EXPECT_TRUE(Add(sink, QuarterCircle(100)));
  const std::vector<FileSegment> segments = OnlySegments(sink);
  ASSERT_GT(segments.size(), 2u);
  EXPECT_THAT(segments.front().start, IsAt(100, 0));
  EXPECT_THAT(segments.back().end, IsAt(0, 100));
  for (std::size_t i = 0; i < segments.size(); ++i) {
    EXPECT_EQ(segments[i].type, 0);
    EXPECT_NEAR(std::hypot(segments[i].end.x, segments[i].end.y), 100.0, 1e-9);
    if (i > 0) {
      EXPECT_EQ(segments[i].start.x, segments[i - 1].end.x);
    }
  }
}

TEST(AddSpline, FlattensWhereAllWeightsAreOne) {
  CMyDrawLoad sink;
  ZR_Spline spline = Cubic();
  spline.weights = {1, 1, 1, 1};
  EXPECT_TRUE(Add(sink, spline));
  for (const FileSegment& segment : OnlySegments(sink)) EXPECT_EQ(segment.type, 0);
}

TEST(AddSpline, DoesNotCompareTheStatedKnotCountWithoutWeights) {
  for (const std::int32_t stated : {-7, 0, 3, 50000}) {
    CMyDrawLoad sink;
    ZR_Spline spline = Cubic();
    spline.knotCount = stated;
    EXPECT_TRUE(Add(sink, spline)) << stated;
  }
}

TEST(AddSpline, IgnoresWeightsBeyondTheControlPoints) {
  CMyDrawLoad sink;
  ZR_Spline spline = QuarterCircle(10);
  spline.weights.push_back(7);
  EXPECT_TRUE(Add(sink, spline));
}

struct Spoiled {
  std::string what;
  std::function<void(ZR_Spline&)> spoil;
};

const std::vector<Spoiled> kSpoiledInBothForms = {
    {"negative degree", [](ZR_Spline& s) { s.degree = -1; }},
    {"lowest degree", [](ZR_Spline& s) { s.degree = std::numeric_limits<std::int32_t>::min(); }},
    {"highest degree", [](ZR_Spline& s) { s.degree = std::numeric_limits<std::int32_t>::max(); }},
    {"too few control points stated", [](ZR_Spline& s) { s.controlCount -= 1; }},
    {"too many control points stated", [](ZR_Spline& s) { s.controlCount += 1; }},
    {"negative control count", [](ZR_Spline& s) { s.controlCount = -4; }},
    {"highest control count",
     [](ZR_Spline& s) { s.controlCount = std::numeric_limits<std::int32_t>::max(); }},
    {"no control points", [](ZR_Spline& s) { s.controlPoints.clear(), s.controlCount = 0; }},
    {"a knot missing", [](ZR_Spline& s) { s.knots.pop_back(); }},
    {"a knot too many", [](ZR_Spline& s) { s.knots.push_back(1); }},
    {"decreasing knots", [](ZR_Spline& s) { s.knots[0] = 0.5; }},
    {"too many equal knots", [](ZR_Spline& s) { std::fill(s.knots.begin(), s.knots.end(), 0.0); }},
    {"a knot that is not a number", [](ZR_Spline& s) { s.knots[0] = kNaN; }},
    {"an infinite knot", [](ZR_Spline& s) { s.knots.back() = kInfinity; }},
    {"a point that is not a number", [](ZR_Spline& s) { s.controlPoints[1].y = kNaN; }},
    {"an infinite point", [](ZR_Spline& s) { s.controlPoints[1].x = -kInfinity; }},
    {"50001 knots stated", [](ZR_Spline& s) { s.knotCount = 50001; }},
    {"ten million knots",
     [](ZR_Spline& s) {
       s.knots.assign(10'000'000, 0.0);
       s.knotCount = 10'000'000;
     }},
    {"ten million control points and knots",
     [](ZR_Spline& s) {
       s.controlPoints.resize(10'000'000);
       s.controlCount = 10'000'000;
       s.knots.assign(10'000'001 + static_cast<std::size_t>(s.degree), 0.0);
       s.knotCount = 10'000'001 + s.degree;
       if (!s.weights.empty()) s.weights.assign(10'000'000, 1.0);
     }},
};

void ExpectNothingDrawn(ZR_Spline spline, const Spoiled& spoiled) {
  CMyDrawLoad sink;
  spoiled.spoil(spline);
  EXPECT_FALSE(sink.AddSpline(&spline, 0)) << spoiled.what;
  EXPECT_FALSE(sink.HasResults()) << spoiled.what;
  EXPECT_TRUE(Add(sink, Cubic())) << spoiled.what;
  EXPECT_EQ(Curves(sink).size(), 1u) << spoiled.what;
}

TEST(AddSpline, LosesOnlyABadSpline) {
  for (const Spoiled& spoiled : kSpoiledInBothForms) ExpectNothingDrawn(Cubic(), spoiled);
}

TEST(AddSpline, LosesOnlyABadSplineWithWeights) {
  for (const Spoiled& spoiled : kSpoiledInBothForms) ExpectNothingDrawn(QuarterCircle(10), spoiled);
}

TEST(AddSpline, LosesOnlyASplineWithBadWeights) {
  const std::vector<Spoiled> cases = {
      {"a weight missing", [](ZR_Spline& s) { s.weights.pop_back(); }},
      {"a weight that is not a number", [](ZR_Spline& s) { s.weights[1] = kNaN; }},
      {"an infinite weight", [](ZR_Spline& s) { s.weights[1] = kInfinity; }},
      {"all weights zero",
       [](ZR_Spline& s) {
         s.weights = {0, 0, 0};
       }},
      {"another knot count stated", [](ZR_Spline& s) { s.knotCount = 5; }},
      {"degree beyond the limit",
       [](ZR_Spline& s) {
         s = SplineOf(33, std::vector<Point3>(34), std::vector<double>(68, 0.0),
                      std::vector<double>(34, 1.0));
         std::fill(s.knots.begin() + 34, s.knots.end(), 1.0);
       }},
  };
  for (const Spoiled& spoiled : cases) ExpectNothingDrawn(QuarterCircle(10), spoiled);
}

TEST(AddSpline, LosesASplineOfAnyOtherDegreeWithoutWeights) {
  const std::vector<Spoiled> cases = {
      {"degree 0",
       [](ZR_Spline& s) {
         s = SplineOf(0, {{1, 1}, {2, 2}}, {0, 1, 2});
       }},
      {"degree 4",
       [](ZR_Spline& s) {
         s = SplineOf(4, {{0, 0}, {1, 1}, {2, 0}, {3, 1}, {4, 0}}, {0, 0, 0, 0, 0, 1, 1, 1, 1, 1});
       }},
      {"degree 1 with one point",
       [](ZR_Spline& s) {
         s = SplineOf(1, {{0, 0}}, {0, 0, 1});
       }},
      {"degree 1 without points", [](ZR_Spline& s) { s = SplineOf(1, {}, {}); }},
      {"degree 1 with a point that is not a number",
       [](ZR_Spline& s) {
         s = SplineOf(1, {{0, 0}, {kNaN, 0}}, {});
       }},
      {"degree not below the control points",
       [](ZR_Spline& s) {
         s = SplineOf(3, {{0, 0}, {1, 1}, {2, 2}}, {0, 0, 0, 1, 1, 1, 1});
       }},
      {"an empty domain",
       [](ZR_Spline& s) {
         s = SplineOf(2, {{0, 0}, {1, 1}, {2, 2}}, {0, 1, 2, 2, 3, 4});
       }},
      {"knots whose distances are beyond all numbers",
       [](ZR_Spline& s) {
         s = SplineOf(2, {{0, 0}, {1, 1}, {2, 2}}, {-1.7e308, -1.6e308, -1.5e308, 1.5e308, 1.6e308, 1.7e308});
       }},
  };
  for (const Spoiled& spoiled : cases) ExpectNothingDrawn(Cubic(), spoiled);
}

TEST(AddSpline, IsCalledForASplineEdgeOfAHatch) {
  CMyDrawLoad sink;
  Entity_ZR::ZR_Hatch hatch;
  hatch.edges.push_back({Entity_ZR::kSplineEdge, SplineOf(3, {{0, 0}}, {})});
  hatch.edges.push_back({Entity_ZR::kSplineEdge, Cubic()});
  EXPECT_TRUE(sink.AddHatch(&hatch, 0));
  const std::vector<FileSegment> segments = OnlySegments(sink);
  ASSERT_EQ(segments.size(), 1u);
  ExpectCubic(segments[0], {0, 0}, {1, 2}, {3, 2}, {4, 0});
}

}  // namespace
