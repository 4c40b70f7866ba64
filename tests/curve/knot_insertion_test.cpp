#include "curve/knot_insertion.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <vector>

#include "curve/curves.h"
#include "curve/de_boor.h"

using namespace curve;
using testing::ElementsAre;

namespace {

const CurveData kQuadratic = {2, 1, {0, 8, 24, 32}, {0, 0, 0, 1, 2, 2, 2}};

CurveData Inserted(const CurveData& data, double u, std::uint32_t count) {
  CurvePointer result;
  if (InsertKnot(*MakeCurve(data), u, count, result, nullptr) != kSuccess) return {};
  return DataOf(*result);
}

TEST(InsertKnot, OnceBlendsTheNeighbours) {
  // At 0.5 in the span 0 to 1: a = 0.5 and 0.25 on the points 0, 8, 24.
  const CurveData result = Inserted(kQuadratic, 0.5, 1);
  EXPECT_THAT(result.knots, ElementsAre(0, 0, 0, 0.5, 1, 2, 2, 2));
  EXPECT_THAT(result.points, ElementsAre(0, 4, 12, 24, 32));
}

TEST(InsertKnot, DegreeTimesPutsTheCurveThroughAControlPoint) {
  // The apex: half way from 4 to 12.
  const CurveData result = Inserted(kQuadratic, 0.5, 2);
  EXPECT_THAT(result.knots, ElementsAre(0, 0, 0, 0.5, 0.5, 1, 2, 2, 2));
  EXPECT_THAT(result.points, ElementsAre(0, 4, 8, 12, 24, 32));
}

TEST(InsertKnot, OrderTimesRepeatsThePointOfTheCurve) {
  const CurveData result = Inserted(kQuadratic, 0.5, 3);
  EXPECT_THAT(result.knots, ElementsAre(0, 0, 0, 0.5, 0.5, 0.5, 1, 2, 2, 2));
  EXPECT_THAT(result.points, ElementsAre(0, 4, 8, 8, 12, 24, 32));
}

TEST(InsertKnot, NoTimesCopies) {
  const CurveData result = Inserted(kQuadratic, 0.5, 0);
  EXPECT_EQ(result.points, kQuadratic.points);
  EXPECT_EQ(result.knots, kQuadratic.knots);
}

TEST(InsertKnot, BesideAnEqualKnotWritesThatKnot) {
  const CurveData result = Inserted(kQuadratic, 1.0 + 5e-11, 1);
  EXPECT_THAT(result.knots, ElementsAre(0, 0, 0, 1, 1, 2, 2, 2));
  EXPECT_THAT(result.points, ElementsAre(0, 8, 16, 24, 32));
}

TEST(InsertKnot, PastTheOrderFails) {
  CurvePointer result;
  Status status;
  EXPECT_EQ(InsertKnot(*MakeCurve(kQuadratic), 1.0, 3, result, &status), -5);
  EXPECT_STREQ(status.message, "multiplicity(1.000000) (1) + 3 > order (3)");
  EXPECT_EQ(result, nullptr);
}

TEST(InsertKnot, FarPastTheOrderFailsWithoutOverflow) {
  CurvePointer result;
  Status status;
  EXPECT_EQ(InsertKnot(*MakeCurve(kQuadratic), 1.0, 4294967295u, result, &status), -5);
  EXPECT_STREQ(status.message, "multiplicity(1.000000) (1) + 4294967295 > order (3)");
}

TEST(InsertKnot, OutsideTheDomainFails) {
  CurvePointer result;
  Status status;
  EXPECT_EQ(InsertKnot(*MakeCurve(kQuadratic), -1.0, 1, result, &status), -4);
  EXPECT_STREQ(status.message, "knot (-1.000000) < min(domain) (0.000000)");
  EXPECT_EQ(result, nullptr);
}

TEST(InsertKnot, MayReplaceItsOwnCurve) {
  CurvePointer curve = MakeCurve(kQuadratic);
  ASSERT_EQ(InsertKnot(*curve, 0.5, 1, curve, nullptr), kSuccess);
  EXPECT_EQ(curve->controlPointCount, 5u);
  Status status;
  EXPECT_EQ(InsertKnot(*curve, 0.5, 3, curve, &status), -5);
  EXPECT_STREQ(status.message, "multiplicity(0.500000) (1) + 3 > order (3)");
  EXPECT_EQ(curve, nullptr);
}

TEST(InsertKnot, GrowsPastTheLimitForCurvesFromOutside) {
  CurvePointer curve;
  ASSERT_EQ(CreateCurve(49998, 1, 1, KnotMode::kClamped, curve, nullptr), kSuccess);
  std::fill_n(curve->ControlPoints(), curve->ControlFloatCount(), 0.0);
  ASSERT_EQ(InsertKnot(*curve, 0.7, 1, curve, nullptr), kSuccess);
  EXPECT_EQ(curve->knotCount, 50001u);
}

TEST(InsertKnot, DoesNotMoveTheCurve) {
  RandomCurves curves(13);
  int compared = 0;
  for (int round = 0; round < 500; ++round) {
    const CurveData data = curves.Next();
    const CurvePointer curve = MakeCurve(data);
    if (curve == nullptr) continue;
    const double knot = curves.Between(curve->DomainStart(), curve->DomainEnd());
    CurvePointer result;
    const std::uint32_t count = curves.Below(data.degree + 2);
    if (InsertKnot(*curve, knot, count, result, nullptr) != kSuccess) continue;
    ASSERT_EQ(result->knotCount, curve->knotCount + count);
    for (int i = 0; i < 10; ++i) {
      const double u = curves.Between(curve->DomainStart(), curve->DomainEnd());
      if (u >= curve->DomainEnd()) continue;
      NetPointer net;
      ASSERT_EQ(Evaluate(*result, u, net, nullptr), kSuccess);
      const std::vector<double> expected = PointByBasis(data, u);
      for (std::size_t d = 0; d < data.dimension; ++d) EXPECT_NEAR(net->Result()[d], expected[d], 1e-7);
      ++compared;
    }
  }
  EXPECT_GT(compared, 3000);
}

TEST(Split, BringsAKnotToOrder) {
  CurvePointer result;
  std::uint32_t index = 0;
  ASSERT_EQ(Split(*MakeCurve(kQuadratic), 1.0, result, index, nullptr), kSuccess);
  const CurveData data = DataOf(*result);
  EXPECT_THAT(data.knots, ElementsAre(0, 0, 0, 1, 1, 1, 2, 2, 2));
  EXPECT_THAT(data.points, ElementsAre(0, 8, 16, 16, 24, 32));
  EXPECT_EQ(index, 5u);
}

TEST(Split, BetweenKnotsInsertsOrderTimes) {
  CurvePointer result;
  std::uint32_t index = 0;
  ASSERT_EQ(Split(*MakeCurve(kQuadratic), 0.5, result, index, nullptr), kSuccess);
  EXPECT_THAT(DataOf(*result).knots, ElementsAre(0, 0, 0, 0.5, 0.5, 0.5, 1, 2, 2, 2));
  EXPECT_EQ(index, 5u);
}

TEST(Split, AtAKnotOfFullMultiplicityCopies) {
  const CurveData data = {1, 1, {0, 4, 6, 9}, {0, 0, 1, 1, 2, 2}};
  CurvePointer result;
  std::uint32_t index = 0;
  ASSERT_EQ(Split(*MakeCurve(data), 1.0, result, index, nullptr), kSuccess);
  EXPECT_EQ(DataOf(*result).points, data.points);
  EXPECT_EQ(DataOf(*result).knots, data.knots);
  EXPECT_EQ(index, 3u);
}

TEST(Split, AtAKnotOneShortOfOrderRepeatsItsPoint) {
  const CurveData data = {1, 1, {0, 4, 9}, {0, 0, 1, 2, 2}};
  CurvePointer result;
  std::uint32_t index = 0;
  ASSERT_EQ(Split(*MakeCurve(data), 1.0, result, index, nullptr), kSuccess);
  EXPECT_THAT(DataOf(*result).points, ElementsAre(0, 4, 4, 9));
  EXPECT_THAT(DataOf(*result).knots, ElementsAre(0, 0, 1, 1, 2, 2));
  EXPECT_EQ(index, 3u);
}

TEST(Split, OutsideTheDomainFails) {
  CurvePointer result;
  std::uint32_t index = 0;
  EXPECT_EQ(Split(*MakeCurve(kQuadratic), 2.5, result, index, nullptr), -4);
  EXPECT_EQ(result, nullptr);
}

const CurveData kLinear = {1, 2, {0, 1, 2, 3, 4, 5, 6, 7}, {0, 0, 1, 2, 3, 3}};

CurveData Resized(const CurveData& data, std::int32_t count, bool atBack) {
  CurvePointer result;
  if (Resize(*MakeCurve(data), count, atBack, result, nullptr) != kSuccess) return {};
  return DataOf(*result);
}

TEST(Resize, ByNothingCopies) {
  EXPECT_EQ(Resized(kLinear, 0, false).points, kLinear.points);
  EXPECT_EQ(Resized(kLinear, 0, true).knots, kLinear.knots);
}

TEST(Resize, CutsTheFront) {
  EXPECT_THAT(Resized(kLinear, -2, false).points, ElementsAre(4, 5, 6, 7));
  EXPECT_THAT(Resized(kLinear, -2, false).knots, ElementsAre(1, 2, 3, 3));
}

TEST(Resize, CutsTheBack) {
  EXPECT_THAT(Resized(kLinear, -1, true).points, ElementsAre(0, 1, 2, 3, 4, 5));
  EXPECT_THAT(Resized(kLinear, -1, true).knots, ElementsAre(0, 0, 1, 2, 3));
}

TEST(Resize, AddsAtTheFront) {
  EXPECT_THAT(Resized(kLinear, 1, false).points, ElementsAre(0, 0, 0, 1, 2, 3, 4, 5, 6, 7));
  EXPECT_THAT(Resized(kLinear, 1, false).knots, ElementsAre(0, 0, 0, 1, 2, 3, 3));
}

TEST(Resize, AddsAtTheBack) {
  EXPECT_THAT(Resized(kLinear, 2, true).points, ElementsAre(0, 1, 2, 3, 4, 5, 6, 7, 0, 0, 0, 0));
  EXPECT_THAT(Resized(kLinear, 2, true).knots, ElementsAre(0, 0, 1, 2, 3, 3, 3, 3));
}

TEST(Resize, MustLeaveMorePointsThanTheDegree) {
  CurvePointer result;
  Status status;
  EXPECT_EQ(Resize(*MakeCurve(kLinear), -3, false, result, &status), -3);
  EXPECT_STREQ(status.message, "degree (1) >= num(control_points) (1)");
  EXPECT_EQ(Resize(*MakeCurve(kLinear), -2147483647, true, result, &status), -3);
  EXPECT_STREQ(status.message, "degree (1) >= num(control_points) (0)");
  EXPECT_EQ(result, nullptr);
}

}  // namespace
