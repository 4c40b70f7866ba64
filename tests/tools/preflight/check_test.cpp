#include "preflight/check.h"

#include <cmath>
#include <gmock/gmock.h>
#include <limits>
#include <numbers>

#include "drawings.h"
#include "geometry.h"
#include "preflight/bezier.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

TEST(CheckTest, ASingleSquareHasNoFindings) {
  const Report report = CheckJob(JobOf({Square({0, 0}, 10)}), {});
  EXPECT_THAT(report.findings, IsEmpty());
  EXPECT_EQ(report.closedContours, 1U);
  EXPECT_EQ(report.openContours, 0U);
  EXPECT_FALSE(report.IsOfWeight());
}

// ---- duplicates
// --------------------------------------------------------------------------------------------

TEST(CheckTest, TwoSquaresThatShareAnEdgeDrawItTwice) {
  const Job job = JobOf({Square({0, 0}, 10), Square({10, 0}, 10)});
  const Findings found = FindingsOf(job, Code::kDuplicate);
  ASSERT_EQ(found.count, 1U);
  EXPECT_DOUBLE_EQ(found.length, 10.0);
  EXPECT_TRUE(found.isOfWeight);
  // The left edge of the second square, which runs down: its fourth segment, from (10, 10).
  EXPECT_EQ(found.places[0].result, 1U);
  EXPECT_EQ(found.places[0].segment, 3U);
  EXPECT_EQ(found.places[0].at, (Point{10, 10}));
}

TEST(CheckTest, ReversedDuplicatesAreFound) {
  EXPECT_EQ(CountOf(JobOf({Circle({0, 0}, 5), Reversed(Circle({0, 0}, 5))}), Code::kDuplicate), 4U);
  EXPECT_EQ(CountOf(JobOf({Polyline({{0, 0}, {9, 4}}), Polyline({{9, 4}, {0, 0}})}), Code::kDuplicate), 1U);
}

TEST(CheckTest, CubicsEqualButForRoundingAreDuplicates) {
  const double third = 1.0 / 3.0;
  const Segment first = Cubic({0, 0}, {third, 8}, {8, 8}, {8, 0});
  const Segment second = Cubic({0, 0}, {0.1 + 0.2 + (third - 0.3), 8}, {8, 8.000000001}, {8, 0});
  ASSERT_FALSE(first == second);
  EXPECT_EQ(CountOf(JobOf({CurveOf({first}), CurveOf({second})}), Code::kDuplicate), 1U);
}

TEST(CheckTest, DuplicatesLieWithinTheToleranceAndNoFarther) {
  const auto copies = [](double apart) {
    return JobOf({Polyline({{0, 0}, {50, 20}}), Polyline({{0, apart}, {50, 20 + apart}})});
  };
  EXPECT_EQ(CountOf(copies(0.0099), Code::kDuplicate), 1U);
  EXPECT_EQ(CountOf(copies(0.0101), Code::kDuplicate), 0U);
  CheckOptions wide;
  wide.tolerance = 0.5;
  EXPECT_EQ(CheckJob(copies(0.4), wide).Of(Code::kDuplicate)->count, 1U);
}

TEST(CheckTest, ATrianglesSidesOnEitherDiagonalAreNotDuplicates) {
  // Both diagonals of a square have the same middle and the same extent.
  EXPECT_THAT(
      FindingsOf(JobOf({Polyline({{0, 0}, {9, 9}}), Polyline({{0, 9}, {9, 0}})}), Code::kDuplicate).count,
      0U);
}

TEST(CheckTest, ALineDrawnAsAStraightCubicIsADuplicateOfTheLine) {
  EXPECT_EQ(CountOf(JobOf({Polyline({{0, 0}, {9, 0}}), CurveOf({Cubic({9, 0}, {6, 0}, {3, 0}, {0, 0})})}),
                    Code::kDuplicate),
            1U);
}

TEST(CheckTest, TheSameLineInAnotherColorIsToldApartAndOfNoWeight) {
  const Job job = JobOf({Polyline({{0, 0}, {9, 0}}), Colored(Polyline({{0, 0}, {9, 0}}), 0xFF0000)});
  EXPECT_THAT(CodesOf(job), ElementsAre(Code::kOtherLayer, Code::kOpen));
  EXPECT_FALSE(CheckJob(job, {}).IsOfWeight());
}

TEST(CheckTest, ACopyWithinEachOfTwoColorsIsADuplicate) {
  const Curve line = Polyline({{0, 0}, {9, 0}});
  const Job job = JobOf({line, Colored(line, 0xFF0000), line, Colored(line, 0xFF0000)});
  EXPECT_EQ(CountOf(job, Code::kDuplicate), 2U);
  EXPECT_EQ(CountOf(job, Code::kOtherLayer), 1U);
}

TEST(CheckTest, NeighborsAlongAFineCurveAreNoDuplicates) {
  std::vector<Segment> fine;
  for (int i = 0; i < 1000; ++i) fine.push_back(Line({i * 0.005, 0}, {(i + 1) * 0.005, 0}));
  EXPECT_EQ(CountOf(JobOf({CurveOf(fine)}), Code::kDuplicate), 0U);
}

// ---- overlaps
// ----------------------------------------------------------------------------------------------

TEST(CheckTest, LinesThatOverlapInPartAreFoundWithTheSharedLength) {
  // Along (3, 4) / 5: from 0 to 50, and from 40 to 70.
  const Job job = JobOf({Polyline({{0, 0}, {30, 40}}), Polyline({{42, 56}, {24, 32}})});
  const Findings found = FindingsOf(job, Code::kOverlap);
  ASSERT_EQ(found.count, 1U);
  EXPECT_NEAR(found.length, 10.0, 1e-9);
  EXPECT_EQ(found.places[0].result, 1U);
}

TEST(CheckTest, ALineOnALongerOneOverlapsWithItsWholeLength) {
  const Findings found =
      FindingsOf(JobOf({Polyline({{2, 0}, {5, 0}}), Polyline({{0, 0}, {9, 0}})}), Code::kOverlap);
  ASSERT_EQ(found.count, 1U);
  EXPECT_NEAR(found.length, 3.0, 1e-9);
  EXPECT_EQ(found.places[0].result, 0U);
}

TEST(CheckTest, OverlapsOfHorizontalLinesAreFoundAcrossTheSeamOfAngles) {
  // A hair above and below the horizontal: angles near 0 and near half a turn.
  const Job job = JobOf({Polyline({{0, 0}, {100, 0.001}}), Polyline({{150, -0.001}, {50, 0.0005}})});
  const Findings found = FindingsOf(job, Code::kOverlap);
  ASSERT_EQ(found.count, 1U);
  EXPECT_NEAR(found.length, 50.0, 0.01);
}

TEST(CheckTest, APartThatTwoLinesShareWithAThirdCountsOnce) {
  const Job job =
      JobOf({Polyline({{0, 0}, {60, 0}}), Polyline({{40, 0}, {100, 0}}), Polyline({{50, 0}, {105, 0}})});
  // The second line shares 40 to 60; the third 50 to 60 and 50 to 100 with the others: 50 in all.
  const Findings found = FindingsOf(job, Code::kOverlap);
  ASSERT_EQ(found.count, 2U);
  EXPECT_NEAR(found.length, 20.0 + 50.0, 1e-9);
}

TEST(CheckTest, LinesThatMeetCrossOrRunSideBySideDoNotOverlap) {
  EXPECT_EQ(CountOf(JobOf({Polyline({{0, 0}, {50, 0}}), Polyline({{50, 0}, {90, 0}})}), Code::kOverlap), 0U);
  EXPECT_EQ(CountOf(JobOf({Polyline({{0, 0}, {50, 0}}), Polyline({{0, 0}, {50, 0.2}})}), Code::kOverlap), 0U);
  EXPECT_EQ(CountOf(JobOf({Polyline({{0, 0}, {50, 0}}), Polyline({{10, 0.02}, {40, 0.02}})}), Code::kOverlap),
            0U);
  EXPECT_EQ(CountOf(JobOf({Polyline({{0, 0}, {50, 0}}), Polyline({{25, -9}, {25, 9}})}), Code::kOverlap), 0U);
}

// ---- contours
// ----------------------------------------------------------------------------------------------

TEST(CheckTest, ASpiralIsOneOpenContourOfNoWeight) {
  std::vector<Segment> spiral;
  const auto at = [](int i) { return Point{i * 0.1 * std::cos(i * 0.1), i * 0.1 * std::sin(i * 0.1)}; };
  for (int i = 0; i < 300; ++i) spiral.push_back(Line(at(i), at(i + 1)));
  const Job job = JobOf({CurveOf(spiral)});
  EXPECT_THAT(CodesOf(job), ElementsAre(Code::kOpen));
  const Findings found = FindingsOf(job, Code::kOpen);
  EXPECT_EQ(found.count, 1U);
  EXPECT_FALSE(found.isOfWeight);
  EXPECT_NEAR(found.places[0].length, 30.0, 1e-9);  // from the middle to the outer end, at radius 30
}

TEST(CheckTest, AContourThatNearlyClosesIsOpenAndOfWeight) {
  const Job job = JobOf({Polyline({{0, 0}, {10, 0}, {10, 10}, {0, 10}, {0, 0.3}})});
  const Findings found = FindingsOf(job, Code::kOpen);
  ASSERT_EQ(found.count, 1U);
  EXPECT_TRUE(found.isOfWeight);
  EXPECT_NEAR(found.places[0].length, 0.3, 1e-12);
  EXPECT_EQ(found.places[0].at, (Point{0, 0}));
  EXPECT_EQ(found.places[0].other, (Point{0, 0.3}));
}

TEST(CheckTest, LoosePiecesThatCloseAreOneContour) {
  const Report report = CheckJob(JobOf(LooseSquare({0, 0}, 10)), {});
  EXPECT_EQ(report.closedContours, 1U);
  EXPECT_EQ(report.openContours, 0U);
  ASSERT_NE(report.Of(Code::kPieces), nullptr);
  EXPECT_EQ(report.Of(Code::kPieces)->count, 1U);
  EXPECT_EQ(report.Of(Code::kOpen), nullptr);
}

TEST(CheckTest, PiecesInAnyOrderAndDirectionClose) {
  const Job job = JobOf({Polyline({{0, 0}, {10, 0}}), Polyline({{0, 10}, {10, 10}}),
                         Polyline({{0, 10}, {0, 0}}), Polyline({{10, 10}, {10, 0}})});
  EXPECT_EQ(CheckJob(job, {}).closedContours, 1U);
}

TEST(CheckTest, PiecesOfDifferentColorsDoNotJoin) {
  std::vector<Result> pieces = LooseSquare({0, 0}, 10);
  std::get<Curve>(pieces[2]).color = 0xFF0000;
  const Report report = CheckJob(JobOf(pieces), {});
  EXPECT_EQ(report.closedContours, 0U);
  EXPECT_EQ(report.openContours, 2U);
}

TEST(CheckTest, TheFrequenciesThatTheLibraryGivesUnaskedJoin) {
  std::vector<Result> pieces = LooseSquare({0, 0}, 10);
  std::get<Curve>(pieces[1]).settings.frequency = 1.0;
  EXPECT_EQ(CheckJob(JobOf(pieces), {}).closedContours, 1U);
  std::get<Curve>(pieces[1]).settings.frequency = 20.0;
  EXPECT_EQ(CheckJob(JobOf(pieces), {}).closedContours, 0U);
}

TEST(CheckTest, ADuplicateOfAPieceDoesNotCloseItThereAndBack) {
  const Job job = JobOf({Polyline({{0, 0}, {10, 0}}), Polyline({{10, 0}, {0, 0}})});
  const Report report = CheckJob(job, {});
  EXPECT_EQ(report.closedContours, 0U);
  EXPECT_EQ(report.openContours, 1U);
}

TEST(CheckTest, AFigureEightIsAClosedContourAndNothingElse) {
  const Job job = JobOf({Polyline({{0, 0}, {10, 10}, {10, 0}, {0, 10}, {0, 0}})});
  const Report report = CheckJob(job, {});
  EXPECT_EQ(report.closedContours, 1U);
  EXPECT_THAT(report.findings, IsEmpty());
}

TEST(CheckTest, TwoLooseTrianglesThatTouchAtACornerAreTwoContours) {
  std::vector<Result> pieces;
  for (const Curve& triangle :
       {Polyline({{0, 0}, {10, 10}, {10, -10}, {0, 0}}), Polyline({{0, 0}, {-10, 10}, {-10, -10}, {0, 0}})}) {
    for (const Segment& side : triangle.segments) pieces.emplace_back(CurveOf({side}));
  }
  const Report report = CheckJob(JobOf(pieces), {});
  EXPECT_EQ(report.closedContours, 2U);
  EXPECT_EQ(report.openContours, 0U);
}

// ---- order
// -------------------------------------------------------------------------------------------------

TEST(CheckTest, ARingInARingInARingCutFromOutsideHasTwoOutlinesTooEarly) {
  const Job job = JobOf({Circle({0, 0}, 30), Circle({0, 0}, 20), Circle({0, 0}, 10)});
  const Findings found = FindingsOf(job, Code::kOrder);
  EXPECT_EQ(found.count, 2U);
  EXPECT_TRUE(found.isOfWeight);
  EXPECT_EQ(found.places[0].result, 0U);
  EXPECT_EQ(found.places[1].result, 1U);
}

TEST(CheckTest, ARingInARingInARingCutFromInsideIsInOrder) {
  EXPECT_THAT(CodesOf(JobOf({Circle({0, 0}, 10), Circle({0, 0}, 20), Circle({0, 0}, 30)})), IsEmpty());
}

TEST(CheckTest, TheSameOutlineInAnotherColorIsNotInsideItself) {
  EXPECT_EQ(CountOf(JobOf({Square({0, 0}, 50), Colored(Square({0, 0}, 50), 0xFF0000)}), Code::kOrder), 0U);
  const Job job = JobOf({Square({0, 0}, 50), Circle({25, 25}, 5), Colored(Square({0, 0}, 50), 0xFF0000)});
  EXPECT_EQ(CountOf(job, Code::kOrder), 1U);
}

TEST(CheckTest, AHoleWithinTwoOutlinesThatCrossLiesInsideBoth) {
  const Job job = JobOf({Square({0, 0}, 50), Square({30, 30}, 60), Circle({40, 40}, 5)});
  EXPECT_EQ(CountOf(job, Code::kOrder), 2U);
}

TEST(CheckTest, WhatLiesBesideIsNotInside) {
  // The small square lies in the notch of the L: within its box, not within it.
  const Curve angle = Polyline({{0, 0}, {20, 0}, {20, 5}, {5, 5}, {5, 20}, {0, 20}, {0, 0}});
  EXPECT_EQ(CountOf(JobOf({angle, Square({10, 10}, 5)}), Code::kOrder), 0U);
  EXPECT_EQ(CountOf(JobOf({angle, Square({1, 1}, 2)}), Code::kOrder), 1U);
}

TEST(CheckTest, SquaresThatShareAnEdgeLieBesideEachOther) {
  EXPECT_EQ(CountOf(JobOf({Square({0, 0}, 10), Square({10, 0}, 5)}), Code::kOrder), 0U);
}

TEST(CheckTest, AHoleInEitherLoopOfAFigureEightLiesInsideIt) {
  const Curve eight = Polyline({{0, 0}, {40, 40}, {40, 0}, {0, 40}, {0, 0}});
  EXPECT_EQ(CountOf(JobOf({eight, Circle({35, 20}, 2)}), Code::kOrder), 1U);
  EXPECT_EQ(CountOf(JobOf({eight, Circle({5, 20}, 2)}), Code::kOrder), 1U);
  EXPECT_EQ(CountOf(JobOf({eight, Circle({20, 35}, 2)}), Code::kOrder), 0U);
}

TEST(CheckTest, AnOutlineInLoosePiecesIsCutWithItsLastPiece) {
  std::vector<Result> results = LooseSquare({0, 0}, 50);
  results.insert(results.begin() + 2, Circle({25, 25}, 5));
  EXPECT_EQ(CountOf(JobOf(results), Code::kOrder), 0U);
  results.emplace_back(Circle({10, 10}, 5));
  EXPECT_EQ(CountOf(JobOf(results), Code::kOrder), 1U);
}

TEST(CheckTest, ABitmapEngravedAfterTheOutlineAroundItIsTooLate) {
  EXPECT_EQ(CountOf(JobOf({Square({0, 0}, 50), Picture({10, 10}, 20, 200)}), Code::kOrder), 1U);
  EXPECT_EQ(CountOf(JobOf({Picture({10, 10}, 20, 200), Square({0, 0}, 50)}), Code::kOrder), 0U);
}

TEST(CheckTest, AnEngravedOutlineDropsNothing) {
  Curve engraved = Square({0, 0}, 50);
  engraved.settings.processType = 1;
  EXPECT_EQ(CountOf(JobOf({engraved, Circle({25, 25}, 5)}), Code::kOrder), 0U);
}

TEST(CheckTest, AnOutlineOfManySegmentsKnowsItsInside) {
  std::vector<Segment> gear;
  const auto at = [](int i) {
    const double angle = i * std::numbers::pi / 500;
    const double radius = i % 2 == 0 ? 100 : 90;
    return Point{radius * std::cos(angle), radius * std::sin(angle)};
  };
  for (int i = 0; i < 1000; ++i) gear.push_back(Line(at(i), at((i + 1) % 1000)));
  std::vector<Result> results{CurveOf(gear)};
  for (int x = -9; x <= 9; ++x) {
    for (int y = -9; y <= 9; ++y) results.emplace_back(Circle({x * 10.0, y * 10.0}, 1));
  }
  // However many of the lattice lie inside, the outline is one.
  EXPECT_EQ(CountOf(JobOf(results), Code::kOrder), 1U);
  std::rotate(results.begin(), results.begin() + 1, results.end());
  EXPECT_EQ(CountOf(JobOf(results), Code::kOrder), 0U);
}

// ---- the rest
// ----------------------------------------------------------------------------------------------

TEST(CheckTest, SegmentsShorterThanTheToleranceAreToldAndOfNoWeight) {
  const Job job = JobOf({Polyline({{0, 0}, {10, 0}, {10.004, 0}, {10.004, 8}}), Polyline({{5, 5}, {5, 5}})});
  const Findings found = FindingsOf(job, Code::kShort);
  EXPECT_EQ(found.count, 2U);
  EXPECT_NEAR(found.length, 0.004, 1e-9);
  EXPECT_FALSE(found.isOfWeight);
}

TEST(CheckTest, ACurveThatGoesBackAlongItselfTurnsBack) {
  const Findings found = FindingsOf(JobOf({Polyline({{0, 0}, {10, 0}, {4, 0}})}), Code::kTurnBack);
  ASSERT_EQ(found.count, 1U);
  EXPECT_NEAR(found.length, 6.0, 1e-12);
  EXPECT_EQ(found.places[0].at, (Point{10, 0}));
  EXPECT_EQ(CountOf(JobOf({CurveOf({Cubic({0, 0}, {4, 0}, {4, 0}, {0, 0})})}), Code::kTurnBack), 1U);
  const Segment arch = Cubic({0, 0}, {0, 8}, {8, 8}, {8, 0});
  EXPECT_EQ(CountOf(JobOf({CurveOf({arch, Reversed(arch)})}), Code::kTurnBack), 1U);
}

TEST(CheckTest, ASharpCornerDoesNotTurnBack) {
  EXPECT_EQ(CountOf(JobOf({Polyline({{0, 0}, {10, 0}, {0, 0.5}})}), Code::kTurnBack), 0U);
  EXPECT_EQ(CountOf(JobOf({Square({0, 0}, 10)}), Code::kTurnBack), 0U);
}

TEST(CheckTest, ResultsThatReachOutOfTheBedAreOutside) {
  CheckOptions options;
  options.bed = Point{100, 50};
  const Job job =
      JobOf({Square({0, 0}, 50), Square({60, 0}, 50), Square({-1, 0}, 10), Picture({95, 10}, 10, 100)});
  const Report report = CheckJob(job, options);
  ASSERT_NE(report.Of(Code::kOutside), nullptr);
  EXPECT_EQ(report.Of(Code::kOutside)->count, 3U);
  EXPECT_EQ(CountOf(job, Code::kOutside), 0U);  // no bed was named
}

TEST(CheckTest, BitmapsWithTooFewOrTooManyDotsAreFound) {
  // 25.4 mm: as many dots an inch as pixels.
  const auto findings = [](std::uint32_t pixels) {
    return CountOf(JobOf({Picture({0, 0}, 25.4, pixels)}), Code::kDpi);
  };
  EXPECT_EQ(findings(99), 1U);
  EXPECT_EQ(findings(100), 0U);
  EXPECT_EQ(findings(1000), 0U);
  EXPECT_EQ(findings(1001), 1U);
}

TEST(CheckTest, SettingsThatNoMachineTakesAreFound) {
  const auto findings = [](double Settings::*field, double value) {
    Curve curve = Square({0, 0}, 10);
    curve.settings.*field = value;
    return CountOf(JobOf({curve}), Code::kSettings);
  };
  EXPECT_EQ(findings(&Settings::cutPower, 100), 0U);
  EXPECT_EQ(findings(&Settings::cutPower, 101), 1U);
  EXPECT_EQ(findings(&Settings::engMaxPower, -1), 1U);
  EXPECT_EQ(findings(&Settings::cutSpeed, 0), 1U);
  EXPECT_EQ(findings(&Settings::engraveSpeed, -3), 1U);
  EXPECT_EQ(findings(&Settings::engStep, std::numeric_limits<double>::infinity()), 1U);
  EXPECT_EQ(findings(&Settings::cutPower, std::nan("")), 1U);
}

TEST(CheckTest, WhatIsIgnoredIsNeitherToldNorOfWeight) {
  CheckOptions options;
  options.ignored = {Code::kDuplicate};
  const Report report = CheckJob(JobOf({Square({0, 0}, 10), Square({0, 0}, 10)}), options);
  EXPECT_THAT(report.findings, IsEmpty());
  EXPECT_FALSE(report.IsOfWeight());
}

TEST(CheckTest, EveryCodeHasItsName) {
  for (int i = 0; i <= static_cast<int>(Code::kNotFinite); ++i) {
    const Code code = static_cast<Code>(i);
    EXPECT_EQ(FactsOf(code).code, code);
    EXPECT_EQ(CodeNamed(FactsOf(code).name), code);
  }
  EXPECT_EQ(CodeNamed("nothing"), std::nullopt);
}

}  // namespace
