#include "curve/knots.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>
#include <string>
#include <vector>

#include "curve/curves.h"

using namespace curve;
using testing::ElementsAre;

namespace {

constexpr double kInfinity = std::numeric_limits<double>::infinity();
constexpr double kNaN = std::numeric_limits<double>::quiet_NaN();

std::vector<double> KnotsOf(std::uint32_t controlPointCount, std::uint32_t degree, KnotMode mode) {
  CurvePointer made;
  if (CreateCurve(controlPointCount, 1, degree, mode, made, nullptr) != kSuccess) return {};
  return {made->Knots(), made->Knots() + made->knotCount};
}

CurvePointer Clamped(std::uint32_t controlPointCount, std::uint32_t degree) {
  CurvePointer made;
  CreateCurve(controlPointCount, 1, degree, KnotMode::kClamped, made, nullptr);
  return made;
}

TEST(GenerateKnots, OpenedAreEvenFromZeroToOne) {
  EXPECT_THAT(KnotsOf(3, 1, KnotMode::kOpened), ElementsAre(0.0, 0.25, 0.5, 0.75, 1.0));
}

TEST(GenerateKnots, ClampedRepeatTheEndsOrderTimes) {
  EXPECT_THAT(KnotsOf(4, 3, KnotMode::kClamped), ElementsAre(0, 0, 0, 0, 1, 1, 1, 1));
}

TEST(GenerateKnots, ClampedSpreadTheInnerKnotsEvenly) {
  // Nine knots between the ends make eight steps.
  EXPECT_THAT(KnotsOf(9, 1, KnotMode::kClamped),
              ElementsAre(0, 0, 0.125, 0.25, 0.375, 0.5, 0.625, 0.75, 0.875, 1, 1));
}

TEST(GenerateKnots, BezierComeInGroupsOfOrder) {
  EXPECT_THAT(KnotsOf(6, 2, KnotMode::kBezier), ElementsAre(0, 0, 0, 0.5, 0.5, 0.5, 1, 1, 1));
}

TEST(GenerateKnots, DegreeZeroHasOneMoreKnotThanPoints) {
  EXPECT_THAT(KnotsOf(1, 0, KnotMode::kClamped), ElementsAre(0, 1));
  EXPECT_THAT(KnotsOf(1, 0, KnotMode::kOpened), ElementsAre(0, 1));
  EXPECT_THAT(KnotsOf(1, 0, KnotMode::kBezier), ElementsAre(0, 1));
}

TEST(SetKnots, CopiesAListThatPasses) {
  const CurvePointer made = Clamped(3, 1);
  const std::vector<double> values = {-1, -1, 2, 7, 7};
  EXPECT_EQ(SetKnots(*made, values.data(), nullptr), kSuccess);
  EXPECT_EQ(std::vector<double>(made->Knots(), made->Knots() + 5), values);
}

struct BadKnots {
  std::uint32_t controlPointCount;
  std::uint32_t degree;
  std::vector<double> values;
  std::int32_t code;
  std::string message;
};

class SetKnotsRefuses : public testing::TestWithParam<BadKnots> {};

TEST_P(SetKnotsRefuses, WithCodeAndMessageAndKeepsTheKnots) {
  const BadKnots& bad = GetParam();
  const CurvePointer made = Clamped(bad.controlPointCount, bad.degree);
  const std::vector<double> before(made->Knots(), made->Knots() + made->knotCount);
  ASSERT_EQ(bad.values.size(), before.size());
  Status status;
  EXPECT_EQ(SetKnots(*made, bad.values.data(), &status), bad.code);
  EXPECT_EQ(status.message, bad.message);
  EXPECT_EQ(std::vector<double>(made->Knots(), made->Knots() + made->knotCount), before);
}

INSTANTIATE_TEST_SUITE_P(
    EachCheck, SetKnotsRefuses,
    testing::Values(BadKnots{2, 0, {0, 0.5, 0.4}, -6, "decreasing knot vector at index: 2"},
                    BadKnots{2, 1, {0, 0, 0, 1}, -5, "mult(0.000000) (3) > order (2)"},
                    BadKnots{3, 1, {0, 1.5, 1.5, 1.5, 2}, -5, "mult(1.500000) (3) > order (2)"},
                    BadKnots{2, 1, {0, 1, 1, 1}, -5, "mult(1.000000) (3) > order (2)"},
                    BadKnots{2, 1, {0, 1e-11, 2e-11, 1}, -5, "mult(0.000000) (3) > order (2)"},
                    BadKnots{2, 1, {0, -1e-9, 1, 2}, -6, "decreasing knot vector at index: 1"},
                    BadKnots{2, 1, {0, 1, 2, 1.5}, -6, "decreasing knot vector at index: 3"},
                    // The first fault decides.
                    BadKnots{2, 1, {1, 0, 0, 0}, -6, "decreasing knot vector at index: 1"},
                    // Values that are not finite have no order.
                    BadKnots{2, 1, {kNaN, 0, 1, 2}, -6, "decreasing knot vector at index: 0"},
                    BadKnots{2, 1, {0, kNaN, 1, 2}, -6, "decreasing knot vector at index: 1"},
                    BadKnots{2, 1, {-kInfinity, 0, 1, 2}, -6, "decreasing knot vector at index: 0"},
                    BadKnots{2, 1, {0, 1, 2, kInfinity}, -6, "decreasing knot vector at index: 3"}));

TEST(SetKnots, LetsAKnotFallWithinTheTolerance) {
  const CurvePointer made = Clamped(2, 1);
  const std::vector<double> values = {0, -1e-11, 1, 1};
  EXPECT_EQ(SetKnots(*made, values.data(), nullptr), kSuccess);
}

TEST(SetKnots, RefusesACurveThatGrewPastTheLimit) {
  CurvePointer made;
  ASSERT_EQ(AllocateCurve(50000, 1, 1, made, nullptr), kSuccess);
  const std::vector<double> values(50002, 0.0);
  Status status;
  EXPECT_EQ(SetKnots(*made, values.data(), &status), -7);
  EXPECT_STREQ(status.message, "unsupported number of knots: 50002 > 50000");
}

// Degree 2, domain 2 to 5, the knot 3 twice.
CurvePointer UnevenCurve() { return MakeCurve({2, 1, {0, 0, 0, 0, 0, 0}, {0, 1, 2, 3, 3, 4, 5, 6, 7}}); }

struct Found {
  double u;
  double knot;
  std::uint32_t index;
  std::uint32_t multiplicity;
};

class FindKnotFinds : public testing::TestWithParam<Found> {};

TEST_P(FindKnotFinds, KnotIndexAndMultiplicity) {
  const CurvePointer made = UnevenCurve();
  ASSERT_NE(made, nullptr);
  KnotPosition position = {};
  ASSERT_EQ(FindKnot(*made, GetParam().u, position, nullptr), kSuccess);
  EXPECT_EQ(position.knot, GetParam().knot);
  EXPECT_EQ(position.index, GetParam().index);
  EXPECT_EQ(position.multiplicity, GetParam().multiplicity);
}

INSTANTIATE_TEST_SUITE_P(EachPlace, FindKnotFinds,
                         testing::Values(Found{2.0, 2.0, 2, 1}, Found{2.5, 2.5, 2, 0}, Found{3.0, 3.0, 4, 2},
                                         Found{4.999, 4.999, 5, 0}, Found{5.0, 5.0, 6, 1},
                                         // Within the tolerance of a knot it is that knot ...
                                         Found{3.0 - 5e-11, 3.0, 4, 2}, Found{3.0 + 5e-11, 3.0, 4, 2},
                                         // ... beyond it is not.
                                         Found{3.0 - 2e-10, 3.0 - 2e-10, 2, 0},
                                         // The ends of the domain likewise.
                                         Found{2.0 - 5e-11, 2.0, 2, 1}, Found{5.0 + 5e-11, 5.0, 6, 1}));

TEST(FindKnot, CountsKnotsThatDifferByLessThanTheToleranceAsOne) {
  const CurvePointer made = MakeCurve({2, 1, {0, 0, 0, 0, 0}, {0, 0, 0, 1, 1 + 1e-11, 2, 2, 2}});
  ASSERT_NE(made, nullptr);
  KnotPosition position = {};
  ASSERT_EQ(FindKnot(*made, 1.0, position, nullptr), kSuccess);
  EXPECT_EQ(position.multiplicity, 2u);
  EXPECT_EQ(position.index, 4u);
}

TEST(FindKnot, RefusesAValueBelowTheDomain) {
  KnotPosition position = {};
  Status status;
  EXPECT_EQ(FindKnot(*UnevenCurve(), 1.5, position, &status), -4);
  EXPECT_STREQ(status.message, "knot (1.500000) < min(domain) (2.000000)");
}

TEST(FindKnot, RefusesAValueAboveTheDomain) {
  KnotPosition position = {};
  Status status;
  EXPECT_EQ(FindKnot(*UnevenCurve(), 5.25, position, &status), -4);
  EXPECT_STREQ(status.message, "knot (5.250000) > max(domain) (5.000000)");
}

TEST(FindKnot, RefusesWhatIsNotANumber) {
  KnotPosition position = {};
  EXPECT_EQ(FindKnot(*UnevenCurve(), kNaN, position, nullptr), -4);
  EXPECT_EQ(FindKnot(*UnevenCurve(), kInfinity, position, nullptr), -4);
  EXPECT_EQ(FindKnot(*UnevenCurve(), -kInfinity, position, nullptr), -4);
}

TEST(FindKnot, AgreesWithAScanOfTheKnots) {
  RandomCurves curves(11);
  for (int round = 0; round < 300; ++round) {
    const CurveData data = curves.Next();
    const CurvePointer made = MakeCurve(data);
    if (made == nullptr || made->DomainStart() == made->DomainEnd()) continue;
    const double u =
        curves.Below(2) == 0
            ? curves.Between(made->DomainStart(), made->DomainEnd())
            : made->Knots()[made->degree + curves.Below(made->controlPointCount - made->degree + 1)];
    std::uint32_t index = 0;
    std::uint32_t multiplicity = 0;
    for (std::uint32_t i = 0; i < made->knotCount && data.knots[i] <= u; ++i) {
      index = i;
      if (data.knots[i] == u) ++multiplicity;
    }
    KnotPosition position = {};
    ASSERT_EQ(FindKnot(*made, u, position, nullptr), kSuccess);
    EXPECT_EQ(position.index, index);
    EXPECT_EQ(position.multiplicity, multiplicity);
  }
}

}  // namespace
