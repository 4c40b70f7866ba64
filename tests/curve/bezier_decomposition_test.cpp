#include "curve/bezier_decomposition.h"

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <vector>

#include "curve/curves.h"
#include "curve/de_boor.h"
#include "curve/knot_insertion.h"

using namespace curve;
using testing::DoubleNear;
using testing::ElementsAre;
using testing::Pointwise;

namespace {

CurveData Pieces(const CurveData& data) {
  CurvePointer result;
  if (ToBeziers(*MakeCurve(data), result, nullptr) != kSuccess) return {};
  return DataOf(*result);
}

TEST(ToBeziers, KeepsASinglePiece) {
  const CurveData data = {3, 2, {0, 0, 1, 2, 3, 2, 4, 0}, {0, 0, 0, 0, 1, 1, 1, 1}};
  EXPECT_EQ(Pieces(data).points, data.points);
  EXPECT_EQ(Pieces(data).knots, data.knots);
}

TEST(ToBeziers, CutsAClampedCubicAtItsInnerKnot) {
  // (0, 8), (8, 8), (16, 8) bear on the knot: half way between them, and half way between those.
  const CurveData result = Pieces({3, 2, {0, 0, 0, 8, 8, 8, 16, 8, 16, 0}, {0, 0, 0, 0, 0.5, 1, 1, 1, 1}});
  EXPECT_THAT(result.points, ElementsAre(0, 0, 0, 8, 4, 8, 8, 8, 8, 8, 12, 8, 16, 8, 16, 0));
  EXPECT_THAT(result.knots, ElementsAre(0, 0, 0, 0, 0.5, 0.5, 0.5, 0.5, 1, 1, 1, 1));
}

TEST(ToBeziers, CutsTheFreeEndsOfAUniformCubic) {
  // (P0 + 4 P1 + P2) / 6, (2 P1 + P2) / 3, (P1 + 2 P2) / 3, (P1 + 4 P2 + P3) / 6.
  const CurveData result = Pieces({3, 2, {0, 0, 6, 12, 12, 12, 18, 0}, {0, 1, 2, 3, 4, 5, 6, 7}});
  const std::vector<double> expected = {6, 10, 8, 12, 10, 12, 12, 10};
  EXPECT_THAT(result.points, Pointwise(DoubleNear(1e-14), expected));
  EXPECT_THAT(result.knots, ElementsAre(3, 3, 3, 3, 4, 4, 4, 4));
}

TEST(ToBeziers, CutsPointsBeforeAndBehindAFullyMultipleEnd) {
  const CurveData result = Pieces({1, 1, {100, 4, 8, 200}, {0, 1, 1, 2, 2, 3}});
  EXPECT_THAT(result.points, ElementsAre(4, 8));
  EXPECT_THAT(result.knots, ElementsAre(1, 1, 2, 2));
}

TEST(ToBeziers, KeepsTheGapAtAnInnerKnotOfFullMultiplicity) {
  const CurveData data = {2, 1, {0, 1, 2, 10, 11, 12}, {0, 0, 0, 1, 1, 1, 2, 2, 2}};
  EXPECT_EQ(Pieces(data).points, data.points);
  EXPECT_EQ(Pieces(data).knots, data.knots);
}

TEST(ToBeziers, RepeatsThePointOfAKnotThatOccursDegreeTimes) {
  const CurveData result = Pieces({2, 1, {0, 1, 2, 11, 12}, {0, 0, 0, 1, 1, 2, 2, 2}});
  EXPECT_THAT(result.points, ElementsAre(0, 1, 2, 2, 11, 12));
  EXPECT_THAT(result.knots, ElementsAre(0, 0, 0, 1, 1, 1, 2, 2, 2));
}

TEST(ToBeziers, DegreeZeroHasOnePointAPiece) {
  const CurveData result = Pieces({0, 1, {5, 6}, {0, 1, 2}});
  EXPECT_THAT(result.points, ElementsAre(5, 6));
  EXPECT_THAT(result.knots, ElementsAre(0, 1, 2));
}

TEST(ToBeziers, DegreeOneHasTwoPointsAPiece) {
  const CurveData result = Pieces({1, 1, {5, 6, 9}, {0, 0, 1, 2, 2}});
  EXPECT_THAT(result.points, ElementsAre(5, 6, 6, 9));
  EXPECT_THAT(result.knots, ElementsAre(0, 0, 1, 1, 2, 2));
}

TEST(ToBeziers, DegreeTwoMeetsHalfWay) {
  EXPECT_THAT(Pieces({2, 1, {0, 8, 24, 32}, {0, 0, 0, 1, 2, 2, 2}}).points,
              ElementsAre(0, 8, 16, 16, 24, 32));
}

TEST(ToBeziers, DegreeFour) {
  // 8, 16, 0, 8; half way: 12, 8, 4; again: 10, 6; again: 8.
  EXPECT_THAT(Pieces({4, 1, {0, 8, 16, 0, 8, 0}, {0, 0, 0, 0, 0, 1, 2, 2, 2, 2, 2}}).points,
              ElementsAre(0, 8, 12, 10, 8, 8, 6, 4, 8, 0));
}

TEST(ToBeziers, DegreeFive) {
  // 16, 0, 32, 0, 16; half way: 8, 16, 16, 8; again: 12, 16, 12; again: 14, 14; again: 14.
  EXPECT_THAT(Pieces({5, 1, {0, 16, 0, 32, 0, 16, 0}, {0, 0, 0, 0, 0, 0, 1, 2, 2, 2, 2, 2, 2}}).points,
              ElementsAre(0, 16, 8, 12, 14, 14, 14, 14, 12, 8, 16, 0));
}

TEST(ToBeziers, CountsKnotsWithinTheToleranceAsOne) {
  const CurveData result = Pieces({2, 1, {0, 1, 2, 11, 12}, {0, 0, 0, 1, 1 + 1e-11, 2, 2, 2}});
  EXPECT_THAT(result.points, ElementsAre(0, 1, 2, 2, 11, 12));
  EXPECT_EQ(result.knots.size(), 9u);
}

TEST(ToBeziers, FailsWhereTheDomainIsASingleKnot) {
  CurvePointer result;
  Status status;
  EXPECT_EQ(ToBeziers(*MakeCurve({1, 1, {0, 1}, {0, 1, 1, 2}}), result, &status), -3);
  EXPECT_STREQ(status.message, "degree (1) >= num(control_points) (0)");
  EXPECT_EQ(result, nullptr);
}

TEST(ToBeziers, GrowsPastTheLimitForCurvesFromOutside) {
  CurvePointer curve;
  ASSERT_EQ(CreateCurve(49996, 2, 3, KnotMode::kClamped, curve, nullptr), kSuccess);
  for (std::uint32_t i = 0; i < curve->ControlFloatCount(); ++i) curve->ControlPoints()[i] = i % 7;
  CurvePointer result;
  ASSERT_EQ(ToBeziers(*curve, result, nullptr), kSuccess);
  EXPECT_EQ(result->controlPointCount, (49996u - 3) * 4);
  EXPECT_EQ(result->knotCount, (49996u - 3 + 1) * 4);
}

/// The decomposition as it is told: both ends of the domain are split and what lies beyond is cut, then the
/// curve is split at each knot in turn.
CurvePointer StepByStep(CurvePointer work) {
  const auto degree = static_cast<std::int32_t>(work->degree);
  std::uint32_t index = 0;
  if (!KnotsEqual(work->DomainStart(), work->Knots()[0])) {
    Split(*work, work->DomainStart(), work, index, nullptr);
    Resize(*work, degree - static_cast<std::int32_t>(index), false, work, nullptr);
  }
  if (work != nullptr && !KnotsEqual(work->DomainEnd(), work->Knots()[work->knotCount - 1])) {
    Split(*work, work->DomainEnd(), work, index, nullptr);
    // What stays ends with the knot: index + 1 knots, and so index - degree points.
    const std::uint32_t kept = index - work->degree;
    Resize(*work, static_cast<std::int32_t>(kept) - static_cast<std::int32_t>(work->controlPointCount), true,
           work, nullptr);
  }
  for (std::uint32_t knot = 0; work != nullptr && knot < work->knotCount; knot += work->Order()) {
    Split(*work, work->Knots()[knot], work, index, nullptr);
  }
  return work;
}

TEST(ToBeziers, EqualsTheSplitAtEachKnotInTurn) {
  RandomCurves curves(14);
  int compared = 0;
  for (int round = 0; round < 500; ++round) {
    const CurveData data = curves.Next();
    CurvePointer curve = MakeCurve(data);
    if (curve == nullptr) continue;
    CurvePointer result;
    const StatusCode code = ToBeziers(*curve, result, nullptr);
    const CurvePointer expected = StepByStep(std::move(curve));
    ASSERT_EQ(code == kSuccess, expected != nullptr);
    if (expected == nullptr) continue;
    EXPECT_EQ(DataOf(*result).knots, DataOf(*expected).knots);
    EXPECT_THAT(DataOf(*result).points, Pointwise(DoubleNear(1e-9), DataOf(*expected).points));
    ++compared;
  }
  EXPECT_GT(compared, 300);
}

/// 1e-9 of the size of the random curves' coordinates.
constexpr double kRelative = 1e-9 * 100;

TEST(ToBeziers, PiecesPassThroughThePointsOfTheCurve) {
  RandomCurves curves(15);
  int compared = 0;
  for (int round = 0; round < 500; ++round) {
    const CurveData data = curves.Next();
    const CurvePointer curve = MakeCurve(data);
    if (curve == nullptr) continue;
    const CurveData pieces = Pieces(data);
    const std::size_t order = data.degree + 1;
    for (std::size_t first = 0; first < pieces.PointCount(); first += order) {
      const double left = pieces.knots[first];
      const double right = pieces.knots[first + order];
      for (const double t : {0.01, 0.3, 0.5, 0.77, 0.99}) {
        const double u = left + t * (right - left);
        NetPointer net;
        ASSERT_EQ(Evaluate(*curve, u, net, nullptr), kSuccess);
        const auto point =
            PointOfPiece(&pieces.points[first * data.dimension], data.degree, data.dimension, t);
        for (std::size_t d = 0; d < data.dimension; ++d) {
          EXPECT_NEAR(point[d], net->Result()[d], kRelative);
          EXPECT_NEAR(point[d], PointByBasis(data, u)[d], kRelative);
        }
        ++compared;
      }
    }
  }
  EXPECT_GT(compared, 5000);
}

TEST(ToBeziers, RepeatsTheLastPointOfAPieceAsTheFirstOfTheNext) {
  RandomCurves curves(16);
  for (int round = 0; round < 200; ++round) {
    const CurveData data = curves.Next();
    const CurvePointer curve = MakeCurve(data);
    if (curve == nullptr) continue;
    const CurveData pieces = Pieces(data);
    const std::size_t order = data.degree + 1;
    for (std::size_t first = order; first < pieces.PointCount(); first += order) {
      KnotPosition position = {};
      ASSERT_EQ(FindKnot(*curve, pieces.knots[first], position, nullptr), kSuccess);
      if (position.multiplicity == order) continue;
      for (std::size_t d = 0; d < data.dimension; ++d) {
        EXPECT_EQ(pieces.points[first * data.dimension + d], pieces.points[(first - 1) * data.dimension + d]);
      }
    }
  }
}

}  // namespace
