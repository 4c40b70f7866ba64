#include "curve/bspline.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <vector>

using curve::BSpline;
using curve::DeBoorNet;
using testing::Each;
using testing::ElementsAre;

namespace {

/// The text of the runtime error that `action` throws.
template <typename Action>
std::string MessageOf(Action action) {
  try {
    action();
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "nothing was thrown";
}

TEST(BSpline, BeginsWithClampedKnotsAndControlPointsAtZero) {
  const BSpline spline(5, 2, 3);
  EXPECT_EQ(spline.Degree(), 3u);
  EXPECT_EQ(spline.Order(), 4u);
  EXPECT_EQ(spline.Dimension(), 2u);
  EXPECT_EQ(spline.ControlPointCount(), 5u);
  EXPECT_EQ(spline.KnotCount(), 9u);
  EXPECT_THAT(spline.Knots(), ElementsAre(0, 0, 0, 0, 0.5, 1, 1, 1, 1));
  EXPECT_EQ(spline.ControlPoints().size(), 10u);
  EXPECT_THAT(spline.ControlPoints(), Each(0.0));
}

TEST(BSpline, ThrowsWhatCreationSays) {
  EXPECT_EQ(MessageOf([] { BSpline(3, 2, 3); }), "degree (3) >= num(control_points) (3)");
  EXPECT_EQ(MessageOf([] { BSpline(4, 0, 3); }), "unsupported dimension: 0");
  EXPECT_EQ(MessageOf([] { BSpline(49999, 2, 3); }), "unsupported number of knots: 50003 > 50000");
}

TEST(BSpline, OfDegreeZeroIsItsPoint) {
  BSpline spline(1, 2, 0);
  spline.SetControlPoints(std::vector<double>{3, 4});
  EXPECT_EQ(spline.KnotCount(), 2u);
  EXPECT_THAT(spline.Eval(0.5).Result(), ElementsAre(3, 4));
}

TEST(BSpline, TakesControlPointsAndKnots) {
  BSpline spline(2, 2, 1);
  spline.SetControlPoints(std::vector<double>{1, 2, 3, 4});
  spline.SetKnots(std::vector<double>{5, 5, 7, 7});
  EXPECT_THAT(spline.ControlPoints(), ElementsAre(1, 2, 3, 4));
  EXPECT_THAT(spline.Knots(), ElementsAre(5, 5, 7, 7));
  EXPECT_THAT(spline.Eval(6).Result(), ElementsAre(2, 3));
}

TEST(BSpline, NamesBothSizesOfAWrongListOfControlPoints) {
  EXPECT_EQ(MessageOf([] { BSpline(4, 2, 3).SetControlPoints(std::vector<double>(7)); }),
            "Expected size: 8, Actual size: 7");
}

TEST(BSpline, NamesBothSizesOfAWrongListOfKnots) {
  EXPECT_EQ(MessageOf([] { BSpline(4, 2, 3).SetKnots(std::vector<double>(10)); }),
            "Expected size: 8, Actual size: 10");
}

TEST(BSpline, ThrowsWhatTheKnotsSay) {
  EXPECT_EQ(MessageOf([] {
              BSpline(2, 1, 1).SetKnots(std::vector<double>{0, 0, 0, 1});
            }),
            "mult(0.000000) (3) > order (2)");
  EXPECT_EQ(MessageOf([] {
              BSpline(2, 1, 0).SetKnots(std::vector<double>{0, 0.5, 0.4});
            }),
            "decreasing knot vector at index: 2");
}

TEST(BSpline, ThrowsWhereItIsEvaluatedOutsideItsDomain) {
  EXPECT_EQ(MessageOf([] { BSpline(4, 2, 3).Eval(1.5); }), "knot (1.500000) > max(domain) (1.000000)");
  EXPECT_EQ(MessageOf([] { BSpline(4, 2, 3).Eval(-0.25); }), "knot (-0.250000) < min(domain) (0.000000)");
}

TEST(BSpline, EndsInItsLastControlPoint) {
  BSpline spline(4, 1, 3);
  spline.SetControlPoints(std::vector<double>{1, 2, 3, 9});
  EXPECT_THAT(spline.Eval(1.0).Result(), ElementsAre(9));
}

TEST(BSpline, ShowsTheNetOfAnEvaluation) {
  BSpline spline(3, 1, 2);
  spline.SetControlPoints(std::vector<double>{0, 8, 24});
  const DeBoorNet net = spline.Eval(0.25);
  EXPECT_EQ(net.Knot(), 0.25);
  EXPECT_EQ(net.Index(), 2u);
  EXPECT_EQ(net.Multiplicity(), 0u);
  EXPECT_EQ(net.Insertions(), 2u);
  EXPECT_EQ(net.Dimension(), 1u);
  EXPECT_EQ(net.PointCount(), 1u);
  EXPECT_THAT(std::vector<double>(net.Points().begin(), net.Points().end()),
              ElementsAre(0, 8, 24, 2, 12, 4.5));
  EXPECT_THAT(net.Result(), ElementsAre(4.5));
}

TEST(BSpline, GivesBothPointsAtADiscontinuity) {
  BSpline spline(4, 1, 1);
  spline.SetControlPoints(std::vector<double>{0, 4, 6, 9});
  spline.SetKnots(std::vector<double>{0, 0, 1, 1, 2, 2});
  EXPECT_EQ(spline.Eval(1.0).PointCount(), 2u);
  EXPECT_THAT(spline.Eval(1.0).Result(), ElementsAre(4, 6));
}

TEST(BSpline, FallsIntoBezierPieces) {
  BSpline spline(4, 1, 2);
  spline.SetControlPoints(std::vector<double>{0, 8, 24, 32});
  const BSpline pieces = spline.ToBeziers();
  EXPECT_THAT(pieces.ControlPoints(), ElementsAre(0, 8, 16, 16, 24, 32));
  EXPECT_THAT(pieces.Knots(), ElementsAre(0, 0, 0, 0.5, 0.5, 0.5, 1, 1, 1));
}

TEST(BSpline, ThrowsWhereNoPieceIsLeft) {
  BSpline spline(2, 1, 1);
  spline.SetKnots(std::vector<double>{0, 1, 1, 2});
  EXPECT_EQ(MessageOf([&] { spline.ToBeziers(); }), "degree (1) >= num(control_points) (0)");
}

TEST(BSpline, CopiesStandOnTheirOwn) {
  BSpline spline(2, 1, 1);
  spline.SetControlPoints(std::vector<double>{1, 2});
  BSpline copy(spline);
  spline.SetControlPoints(std::vector<double>{5, 6});
  EXPECT_THAT(copy.ControlPoints(), ElementsAre(1, 2));
  copy = spline;
  spline.SetControlPoints(std::vector<double>{7, 8});
  EXPECT_THAT(copy.ControlPoints(), ElementsAre(5, 6));
}

TEST(BSpline, MovesItsBlock) {
  BSpline spline(2, 1, 1);
  spline.SetControlPoints(std::vector<double>{1, 2});
  const double* block = spline.ControlPointsView().data();
  const BSpline moved(std::move(spline));
  EXPECT_EQ(moved.ControlPointsView().data(), block);
}

}  // namespace
