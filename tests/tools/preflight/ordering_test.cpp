#include "preflight/ordering.h"

#include <gmock/gmock.h>

#include "drawings.h"
#include "geometry.h"

namespace {

std::vector<double> StartsX(const Job& job) {
  std::vector<double> starts;
  for (const Result& result : job.results) starts.push_back(StartOf(result)->x);
  return starts;
}

TEST(OrderingTest, RingsInRingsAreCutFromTheInmostOut) {
  Job job = JobOf({Circle({0, 0}, 30), Circle({0, 0}, 20), Circle({0, 0}, 10)});
  const Ordered ordered = OrderInsideFirst(job, 0.01);
  EXPECT_EQ(ordered.outlines, 2U);
  EXPECT_THAT(StartsX(job), testing::ElementsAre(10, 20, 30));
}

TEST(OrderingTest, AHoleOfAnotherColorComesBeforeItsOutlineToo) {
  Job job = JobOf({Square({0, 0}, 50), Colored(Circle({25, 25}, 5), 0xFF0000)});
  OrderInsideFirst(job, 0.01);
  EXPECT_THAT(StartsX(job), testing::ElementsAre(30, 0));
}

TEST(OrderingTest, ABitmapComesBeforeTheOutlineAroundIt) {
  Job job = JobOf({Square({0, 0}, 50), Picture({10, 10}, 20, 200)});
  OrderInsideFirst(job, 0.01);
  EXPECT_TRUE(std::holds_alternative<Bitmap>(job.results[0]));
}

TEST(OrderingTest, TheNearestEndComesNextAndOpenLinesMayBeTurned) {
  // Three lines side by side, all drawn upward, in an order that crosses the sheet.
  Job job =
      JobOf({Polyline({{0, 0}, {0, 100}}), Polyline({{20, 0}, {20, 100}}), Polyline({{10, 0}, {10, 100}})});
  const Ordered ordered = OrderInsideFirst(job, 0.01);
  EXPECT_THAT(StartsX(job), testing::ElementsAre(0, 10, 20));
  EXPECT_DOUBLE_EQ(ordered.travelAfter, 20.0);
  EXPECT_DOUBLE_EQ(TravelOf(job), 20.0);
  EXPECT_DOUBLE_EQ(StartOf(job.results[1])->y, 100.0);
}

TEST(OrderingTest, TwoOptUndoesWhatTheNearestEndLeftCrossed) {
  // Dots in a row at 0, 1, -2, 4, -8: from 0 on the nearest lie on alternating sides.
  std::vector<Result> dots;
  for (const double x : {0.0, 1.0, -2.0, 4.0, -8.0, 16.0, -32.0})
    dots.emplace_back(Circle({x - 0.1, 0}, 0.1));
  Job job = JobOf(dots);
  const Ordered ordered = OrderInsideFirst(job, 0.01);
  EXPECT_NEAR(ordered.travelAfter, 48.0, 1e-9);  // straight through from one end to the other
}

TEST(OrderingTest, LayersStayTogetherWhereNestingAllows) {
  std::vector<Result> results{Square({-10, -10}, 90)};
  for (int i = 0; i < 6; ++i)
    results.emplace_back(Colored(Circle({i * 10.0, 0}, 2), i % 2 == 0 ? 0xFF0000 : 0x0000FF));
  Job job = JobOf(results);
  OrderInsideFirst(job, 0.01);
  std::vector<std::uint32_t> colors;
  for (const Result& result : job.results) colors.push_back(std::get<Curve>(result).color);
  EXPECT_THAT(colors, testing::ElementsAre(0xFF0000, 0xFF0000, 0xFF0000, 0x0000FF, 0x0000FF, 0x0000FF, 0));
}

TEST(OrderingTest, AnOrderThatIsRightAndShorterStays) {
  const std::vector<Result> results{Circle({0, 0}, 1), Circle({10, 0}, 1), Circle({20, 0}, 1)};
  Job job = JobOf(results);
  const Ordered ordered = OrderInsideFirst(job, 0.01);
  EXPECT_EQ(ordered.outlines, 0U);
  EXPECT_THAT(StartsX(job), testing::ElementsAre(1, 11, 21));
}

TEST(OrderingTest, PiecesOfAnOutlineStayTogetherAfterWhatIsInside) {
  std::vector<Result> results = LooseSquare({0, 0}, 50);
  results.emplace_back(Circle({25, 25}, 5));
  Job job = JobOf(results);
  OrderInsideFirst(job, 0.01);
  EXPECT_TRUE(std::get<Curve>(job.results[0]).segments[0].cubic);
  EXPECT_EQ(job.results.size(), 5U);
}

TEST(OrderingTest, BothOfTwoEqualOutlinesComeAfterWhatLiesInside) {
  Job job = JobOf({Square({0, 0}, 50), Square({0, 0}, 50), Circle({25, 25}, 5)});
  OrderInsideFirst(job, 0.01);
  EXPECT_THAT(StartsX(job), testing::ElementsAre(30, 0, 0));
}

TEST(OrderingTest, EmptyCurvesComeLast) {
  Job job = JobOf({Curve{}, Circle({50, 0}, 1), Circle({0, 0}, 1)});
  OrderInsideFirst(job, 0.01);
  ASSERT_EQ(job.results.size(), 3U);
  EXPECT_EQ(CountOf(job, Code::kOrder), 0U);
}

}  // namespace
