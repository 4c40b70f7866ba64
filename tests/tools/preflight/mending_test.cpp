#include "preflight/mending.h"

#include <gmock/gmock.h>

#include "drawings.h"
#include "geometry.h"
#include "preflight/bezier.h"
#include "preflight/dropping.h"
#include "preflight/joining.h"
#include "preflight/simplifying.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

const Curve& CurveAt(const Job& job, std::size_t index) { return std::get<Curve>(job.results.at(index)); }

// ---- dropping
// ----------------------------------------------------------------------------------------------

TEST(MendingTest, TheSharedEdgeOfTwoSquaresIsCutOnce) {
  Job job = JobOf({Square({0, 0}, 10), Square({10, 0}, 10)});
  const Dropped dropped = DropDuplicates(job, 0.01);
  EXPECT_EQ(dropped.segments, 1U);
  EXPECT_DOUBLE_EQ(dropped.length, 10.0);
  ASSERT_EQ(job.results.size(), 2U);
  EXPECT_EQ(CurveAt(job, 0).segments, Square({0, 0}, 10).segments);
  EXPECT_THAT(CurveAt(job, 1).segments,
              ElementsAre(Line({10, 0}, {20, 0}), Line({20, 0}, {20, 10}), Line({20, 10}, {10, 10})));
}

TEST(MendingTest, AClosedCurveWithOneGapStaysOneCurveBegunAfterTheGap) {
  Job job = JobOf({Polyline({{10, 0}, {10, 10}}), Square({0, 0}, 10)});
  DropDuplicates(job, 0.01);
  ASSERT_EQ(job.results.size(), 2U);
  EXPECT_THAT(CurveAt(job, 1).segments,
              ElementsAre(Line({10, 10}, {0, 10}), Line({0, 10}, {0, 0}), Line({0, 0}, {10, 0})));
}

TEST(MendingTest, AnOpenCurveWithAGapBecomesTwo) {
  Job job = JobOf({Polyline({{10, 0}, {20, 0}}), Polyline({{0, 5}, {10, 0}, {20, 0}, {30, 5}})});
  DropDuplicates(job, 0.01);
  ASSERT_EQ(job.results.size(), 3U);
  EXPECT_THAT(CurveAt(job, 1).segments, ElementsAre(Line({0, 5}, {10, 0})));
  EXPECT_THAT(CurveAt(job, 2).segments, ElementsAre(Line({20, 0}, {30, 5})));
  EXPECT_DOUBLE_EQ(CurveAt(job, 2).bounds.minX, 20.0);
}

TEST(MendingTest, ACurveThatRepeatsAnotherGoesWhole) {
  Job job = JobOf({Circle({0, 0}, 5), Reversed(Circle({0, 0}, 5)), Square({20, 0}, 5)});
  EXPECT_EQ(DropDuplicates(job, 0.01).segments, 4U);
  EXPECT_EQ(job.results.size(), 2U);
}

TEST(MendingTest, LinesOnLongerOnesGoAndThoseThatOverlapInPartStay) {
  Job job = JobOf({Polyline({{2, 0}, {5, 0}}), Polyline({{0, 0}, {9, 0}}), Polyline({{8, 0}, {12, 0}})});
  const Dropped dropped = DropDuplicates(job, 0.01);
  EXPECT_EQ(dropped.segments, 1U);
  EXPECT_EQ(dropped.partsLeft, 1U);
  ASSERT_EQ(job.results.size(), 2U);
  EXPECT_EQ(CurveAt(job, 0).segments[0], Line({0, 0}, {9, 0}));
}

TEST(MendingTest, TheSameLineInAnotherColorStays) {
  Job job = JobOf({Polyline({{0, 0}, {9, 0}}), Colored(Polyline({{0, 0}, {9, 0}}), 0xFF0000)});
  EXPECT_EQ(DropDuplicates(job, 0.01).segments, 0U);
  EXPECT_EQ(job.results.size(), 2U);
}

// ---- joining
// -----------------------------------------------------------------------------------------------

TEST(MendingTest, LoosePiecesBecomeOneClosedCurveInThePlaceOfTheFirst) {
  std::vector<Result> results{Circle({50, 50}, 3)};
  for (Result& piece : LooseSquare({0, 0}, 10)) results.push_back(piece);
  Job job = JobOf(results);
  const Joined joined = JoinCurves(job, 0.01);
  EXPECT_EQ(joined.pieces, 4U);
  EXPECT_EQ(joined.contours, 1U);
  EXPECT_EQ(joined.closed, 1U);
  EXPECT_EQ(joined.moved, 0.0);
  ASSERT_EQ(job.results.size(), 2U);
  EXPECT_EQ(CurveAt(job, 1).segments, Square({0, 0}, 10).segments);
}

TEST(MendingTest, PiecesThatRunTheOtherWayAreTurned) {
  Job job = JobOf({Polyline({{0, 0}, {10, 0}}), CurveOf({Cubic({20, 0}, {18, 4}, {12, 4}, {10, 0})})});
  JoinCurves(job, 0.01);
  ASSERT_EQ(job.results.size(), 1U);
  EXPECT_THAT(CurveAt(job, 0).segments,
              ElementsAre(Line({0, 0}, {10, 0}), Cubic({10, 0}, {12, 4}, {18, 4}, {20, 0})));
}

TEST(MendingTest, APieceBeforeTheFirstGoesInFrontOfIt) {
  Job job = JobOf({Polyline({{10, 0}, {20, 0}}), Polyline({{10, 0}, {0, 5}})});
  JoinCurves(job, 0.01);
  ASSERT_EQ(job.results.size(), 1U);
  EXPECT_THAT(CurveAt(job, 0).segments, ElementsAre(Line({0, 5}, {10, 0}), Line({10, 0}, {20, 0})));
}

TEST(MendingTest, EndsThatNearlyMeetAreBroughtTogether) {
  Job job = JobOf({Polyline({{0, 0}, {10, 0}}), CurveOf({Cubic({10, 0.2}, {12, 4}, {18, 4}, {20, 0})})});
  const Joined joined = JoinCurves(job, 0.5);
  EXPECT_DOUBLE_EQ(joined.moved, 0.2);
  ASSERT_EQ(job.results.size(), 1U);
  EXPECT_EQ(CurveAt(job, 0).segments[1].start, (Point{10, 0}));
  EXPECT_EQ(CurveAt(job, 0).segments[1].control1, (Point{12, 3.8}));  // moves along
}

TEST(MendingTest, EndsBeyondTheToleranceStayApart) {
  Job job = JobOf({Polyline({{0, 0}, {10, 0}}), Polyline({{10, 0.2}, {20, 0}})});
  EXPECT_EQ(JoinCurves(job, 0.1).pieces, 0U);
  EXPECT_EQ(job.results.size(), 2U);
}

TEST(MendingTest, ACurveWhoseEndsNearlyMeetIsClosed) {
  Job job = JobOf({Polyline({{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0.3}})});
  EXPECT_EQ(JoinCurves(job, 0.5).closed, 1U);
  EXPECT_EQ(CurveAt(job, 0).segments.back().end, (Point{0, 0}));
}

TEST(MendingTest, OfSeveralEndsTheNearestIsJoined) {
  Job job =
      JobOf({Polyline({{0, 0}, {10, 0}}), Polyline({{10.3, 0}, {20, 9}}), Polyline({{10.1, 0}, {20, 0}})});
  JoinCurves(job, 0.5);
  ASSERT_EQ(job.results.size(), 2U);
  EXPECT_EQ(CurveAt(job, 0).segments.back().end, (Point{20, 0}));
}

TEST(MendingTest, ShortPiecesJoinUnderAWideTolerance) {
  std::vector<Result> pieces;
  for (int i = 0; i < 40; ++i) pieces.emplace_back(Polyline({{i * 0.25, 0}, {(i + 1) * 0.25, 0}}));
  Job job = JobOf(pieces);
  JoinCurves(job, 1.0);
  ASSERT_EQ(job.results.size(), 1U);
  EXPECT_EQ(CurveAt(job, 0).segments.size(), 40U);
  EXPECT_EQ(CurveAt(job, 0).segments.back().end, (Point{10, 0}));
}

TEST(MendingTest, DuplicatesAreNotJoinedThereAndBack) {
  Job job = JobOf({Polyline({{0, 0}, {10, 0}}), Polyline({{0, 0}, {10, 0}})});
  EXPECT_EQ(JoinCurves(job, 0.01).pieces, 0U);
}

// ---- simplifying
// -------------------------------------------------------------------------------------------

TEST(MendingTest, PointsNearALineAreLeftOut) {
  Job job = JobOf({Polyline({{0, 0}, {2, 0.05}, {5, -0.05}, {10, 0}, {10, 10}})});
  const Simplified simplified = Simplify(job, 0.1);
  EXPECT_EQ(simplified.before, 4U);
  EXPECT_EQ(simplified.after, 2U);
  EXPECT_THAT(CurveAt(job, 0).segments, ElementsAre(Line({0, 0}, {10, 0}), Line({10, 0}, {10, 10})));
}

TEST(MendingTest, PointsFartherOffStay) {
  Job job = JobOf({Polyline({{0, 0}, {5, 0.11}, {10, 0}})});
  EXPECT_EQ(Simplify(job, 0.1).after, 2U);
}

TEST(MendingTest, ASpikeStays) {
  Job job = JobOf({Polyline({{0, 0}, {20, 0}, {10, 0}})});
  EXPECT_EQ(Simplify(job, 0.1).after, 2U);
}

TEST(MendingTest, CurvedCubicsStayAndStraightOnesBecomeLines) {
  const Segment arch = Cubic({9, 0}, {9, 8}, {17, 8}, {17, 0});
  Job job = JobOf({CurveOf({Cubic({0, 0}, {3, 0}, {6, 0}, {9, 0}), arch})});
  Simplify(job, 0.1);
  EXPECT_THAT(CurveAt(job, 0).segments, ElementsAre(Line({0, 0}, {9, 0}), arch));
}

TEST(MendingTest, AClosedCurveSmallerThanTheToleranceStays) {
  Job job = JobOf({Square({0, 0}, 0.05)});
  EXPECT_EQ(Simplify(job, 0.1).after, 4U);
}

// ---- all together
// ------------------------------------------------------------------------------------------

TEST(MendingTest, NothingIsDoneUnasked) {
  Job job = JobOf({Square({0, 0}, 10), Square({0, 0}, 10)});
  EXPECT_THAT(Mend(job, {}), IsEmpty());
  EXPECT_EQ(job.results.size(), 2U);
}

TEST(MendingTest, PartialOverlapsThatStayAreTold) {
  Job job = JobOf({Polyline({{0, 0}, {9, 0}}), Polyline({{8, 0}, {12, 0}})});
  MendOptions options;
  options.dropDuplicates = true;
  EXPECT_THAT(Mend(job, options), ElementsAre("dropped 0 duplicates, left 1 partial overlap"));
}

TEST(MendingTest, EachStepSaysWhatItDid) {
  std::vector<Result> results = LooseSquare({0, 0}, 100);
  results.push_back(results[0]);
  results.emplace_back(Circle({50, 50}, 10));
  Job job = JobOf(results);
  MendOptions options;
  options.dropDuplicates = options.insideFirst = true;
  options.join = 0.01;
  const std::vector<std::string> done = Mend(job, options);
  ASSERT_EQ(done.size(), 3U);
  EXPECT_EQ(done[0], "dropped 1 duplicate (100 mm)");
  EXPECT_EQ(done[1], "joined 4 pieces into 1 contour, closed 1");
  // From the square's start and end at (0, 0) to the circle's at (60, 50), or back: 78.1 mm.
  EXPECT_EQ(done[2], "put 1 outline after what lies inside, travel 78.1 mm instead of 78.1 mm");
  ASSERT_EQ(job.results.size(), 2U);
  EXPECT_TRUE(CurveAt(job, 0).segments[0].cubic);
}

}  // namespace
