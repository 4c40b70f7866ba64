#include "curve/de_boor.h"

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <vector>

#include "curve/curves.h"

using namespace curve;
using testing::ElementsAre;

namespace {

NetPointer NetAt(const CurveData& data, double u) {
  const CurvePointer made = MakeCurve(data);
  NetPointer net;
  if (made != nullptr) Evaluate(*made, u, net, nullptr);
  return net;
}

std::vector<double> ResultOf(const NetPointer& net) {
  if (net == nullptr) return {};
  return {net->Result(), net->Result() + net->pointCount * net->dimension};
}

// One Bezier piece of each degree: at the middle the points weigh like the binomial coefficients.
TEST(Evaluate, DegreeZeroGivesTheControlPoint) {
  EXPECT_THAT(ResultOf(NetAt({0, 2, {3, 4}, {0, 1}}, 0.5)), ElementsAre(3, 4));
  EXPECT_THAT(ResultOf(NetAt({0, 2, {3, 4}, {0, 1}}, 0.0)), ElementsAre(3, 4));
  EXPECT_THAT(ResultOf(NetAt({0, 2, {3, 4}, {0, 1}}, 1.0)), ElementsAre(3, 4));
}

TEST(Evaluate, DegreeOneGivesThePointBetween) {
  EXPECT_THAT(ResultOf(NetAt({1, 2, {0, 0, 8, 4}, {0, 0, 1, 1}}, 0.25)), ElementsAre(2, 1));
}

TEST(Evaluate, DegreeTwoWeighsOneTwoOne) {
  EXPECT_THAT(ResultOf(NetAt({2, 1, {4, 8, 12}, {0, 0, 0, 1, 1, 1}}, 0.5)),
              ElementsAre((4 + 2 * 8 + 12) / 4.0));
}

TEST(Evaluate, DegreeThreeWeighsOneThreeThreeOne) {
  EXPECT_THAT(ResultOf(NetAt({3, 1, {8, 16, 0, 24}, {0, 0, 0, 0, 1, 1, 1, 1}}, 0.5)),
              ElementsAre((8 + 3 * 16 + 3 * 0 + 24) / 8.0));
}

TEST(Evaluate, DegreeFourWeighsOneFourSixFourOne) {
  EXPECT_THAT(ResultOf(NetAt({4, 1, {16, 0, 32, 8, 16}, {0, 0, 0, 0, 0, 1, 1, 1, 1, 1}}, 0.5)),
              ElementsAre((16 + 4 * 0 + 6 * 32 + 4 * 8 + 16) / 16.0));
}

TEST(Evaluate, DegreeFiveWeighsOneFiveTenTenFiveOne) {
  EXPECT_THAT(ResultOf(NetAt({5, 1, {32, 0, 16, 64, 0, 32}, {0, 0, 0, 0, 0, 0, 1, 1, 1, 1, 1, 1}}, 0.5)),
              ElementsAre((32 + 10 * 16 + 10 * 64 + 32) / 32.0));
}

TEST(Evaluate, RationalQuarterCircleStaysOnTheCircle) {
  // (x·w, y·w, w) of (1, 0), (1, 1), (0, 1) with weights 1, sqrt(1/2), 1.
  const double w = std::sqrt(0.5);
  const CurveData arc = {2, 3, {1, 0, 1, w, w, w, 0, 1, 1}, {0, 0, 0, 1, 1, 1}};
  for (const double u : {0.0, 0.125, 0.5, 0.8, 1.0}) {
    const std::vector<double> point = ResultOf(NetAt(arc, u));
    ASSERT_EQ(point.size(), 3u);
    EXPECT_NEAR(std::hypot(point[0] / point[2], point[1] / point[2]), 1.0, 1e-15);
  }
  const std::vector<double> middle = ResultOf(NetAt(arc, 0.5));
  EXPECT_NEAR(middle[0] / middle[2], w, 1e-15);
  EXPECT_NEAR(middle[1] / middle[2], w, 1e-15);
}

TEST(Evaluate, UniformCubicWeighsOneFourOneAtItsKnots) {
  const CurveData data = {3, 1, {6, 12, 18, 0}, {0, 1, 2, 3, 4, 5, 6, 7}};
  EXPECT_THAT(ResultOf(NetAt(data, 3.0)), ElementsAre((6 + 4 * 12 + 18) / 6.0));
  EXPECT_THAT(ResultOf(NetAt(data, 4.0)), ElementsAre((12 + 4 * 18 + 0) / 6.0));
}

TEST(Evaluate, ClampedCurveStartsAndEndsInItsControlPoints) {
  const CurveData data = {3, 2, {1, 2, 5, 6, 7, 8, 9, 0, 3, 4}, {0, 0, 0, 0, 0.5, 1, 1, 1, 1}};
  EXPECT_THAT(ResultOf(NetAt(data, 0.0)), ElementsAre(1, 2));
  EXPECT_THAT(ResultOf(NetAt(data, 1.0)), ElementsAre(3, 4));
}

TEST(Evaluate, OutsideTheDomainFails) {
  const CurvePointer made = MakeCurve({1, 1, {0, 1}, {0, 0, 1, 1}});
  NetPointer net;
  Status status;
  EXPECT_EQ(Evaluate(*made, 1.5, net, &status), -4);
  EXPECT_STREQ(status.message, "knot (1.500000) > max(domain) (1.000000)");
  EXPECT_EQ(net, nullptr);
}

TEST(DeBoorNet, KeepsAllLevels) {
  // Degree 2 at a quarter: 0, 8, 24, then 2 and 12, then 4.5.
  const NetPointer net = NetAt({2, 1, {0, 8, 24}, {0, 0, 0, 1, 1, 1}}, 0.25);
  ASSERT_NE(net, nullptr);
  EXPECT_EQ(net->knot, 0.25);
  EXPECT_EQ(net->index, 2u);
  EXPECT_EQ(net->multiplicity, 0u);
  EXPECT_EQ(net->insertions, 2u);
  EXPECT_EQ(net->dimension, 1u);
  EXPECT_EQ(net->pointCount, 1u);
  ASSERT_EQ(net->StoredPointCount(), 6u);
  EXPECT_THAT(std::vector<double>(net->Points(), net->Points() + 6), ElementsAre(0, 8, 24, 2, 12, 4.5));
  EXPECT_EQ(net->Level(1)[0], 2);
  EXPECT_EQ(net->Level(2)[0], 4.5);
}

TEST(DeBoorNet, HasFewerLevelsAtAKnot) {
  // The knot 1 once: one level above the two control points that bear on it.
  const NetPointer net = NetAt({2, 1, {0, 8, 24, 32}, {0, 0, 0, 1, 2, 2, 2}}, 1.0);
  ASSERT_NE(net, nullptr);
  EXPECT_EQ(net->index, 3u);
  EXPECT_EQ(net->multiplicity, 1u);
  EXPECT_EQ(net->insertions, 1u);
  EXPECT_THAT(std::vector<double>(net->Points(), net->Points() + 3), ElementsAre(8, 24, 16));
}

TEST(DeBoorNet, IsASingleControlPointWhereAKnotOccursDegreeTimes) {
  const NetPointer net = NetAt({2, 1, {0, 8, 24, 32, 40}, {0, 0, 0, 1, 1, 2, 2, 2}}, 1.0);
  ASSERT_NE(net, nullptr);
  EXPECT_EQ(net->multiplicity, 2u);
  EXPECT_EQ(net->insertions, 0u);
  EXPECT_EQ(net->pointCount, 1u);
  EXPECT_THAT(ResultOf(net), ElementsAre(24));
}

TEST(DeBoorNet, HasBothSidesOfADiscontinuity) {
  const NetPointer net = NetAt({1, 2, {0, 0, 4, 4, 6, 2, 9, 9}, {0, 0, 1, 1, 2, 2}}, 1.0);
  ASSERT_NE(net, nullptr);
  EXPECT_EQ(net->multiplicity, 2u);
  EXPECT_EQ(net->insertions, 0u);
  EXPECT_EQ(net->pointCount, 2u);
  EXPECT_EQ(net->StoredPointCount(), 2u);
  EXPECT_THAT(ResultOf(net), ElementsAre(4, 4, 6, 2));
}

TEST(DeBoorNet, SnapsToAKnotWithinTheTolerance) {
  const NetPointer net = NetAt({1, 1, {0, 4, 8}, {0, 0, 1, 2, 2}}, 1.0 + 5e-11);
  ASSERT_NE(net, nullptr);
  EXPECT_EQ(net->knot, 1.0);
  EXPECT_THAT(ResultOf(net), ElementsAre(4));
}

TEST(DeBoorNet, HasOnePointAtTheEndsOfTheDomainEvenWithPointsBeyond) {
  // Degree 1, domain 1 to 2, both ends twice, with a control point in front and one behind.
  const CurveData data = {1, 1, {100, 4, 8, 200}, {0, 1, 1, 2, 2, 3}};
  const NetPointer start = NetAt(data, 1.0);
  const NetPointer end = NetAt(data, 2.0);
  EXPECT_THAT(ResultOf(start), ElementsAre(4));
  EXPECT_THAT(ResultOf(end), ElementsAre(8));
}

TEST(Evaluate, AgreesWithTheSumOfTheBasisFunctions) {
  RandomCurves curves(12);
  int compared = 0;
  for (int round = 0; round < 500; ++round) {
    const CurveData data = curves.Next();
    const CurvePointer made = MakeCurve(data);
    if (made == nullptr) continue;
    for (int i = 0; i < 10; ++i) {
      const double u = curves.Between(made->DomainStart(), made->DomainEnd());
      if (u >= made->DomainEnd()) continue;
      NetPointer net;
      ASSERT_EQ(Evaluate(*made, u, net, nullptr), kSuccess);
      const std::vector<double> expected = PointByBasis(data, u);
      for (std::size_t d = 0; d < data.dimension; ++d) EXPECT_NEAR(net->Result()[d], expected[d], 1e-9);
      ++compared;
    }
  }
  EXPECT_GT(compared, 3000);
}

}  // namespace
