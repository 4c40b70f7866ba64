// Drawings that nobody means: each is checked and mended to the end.
#include <cmath>
#include <gmock/gmock.h>
#include <limits>
#include <numbers>

#include "drawings.h"
#include "geometry.h"
#include "preflight/check.h"
#include "preflight/mending.h"

namespace {

MendOptions Everything() {
  MendOptions options;
  options.dropDuplicates = options.insideFirst = true;
  options.join = options.simplify = 0.05;
  return options;
}

TEST(BadInputTest, AMillionCopiesOfOneLineAreAMillionLessOneDuplicates) {
  Job job = JobOf(std::vector<Result>(1'000'000, Polyline({{0, 0}, {30, 4}})));
  EXPECT_EQ(CountOf(job, Code::kDuplicate), 999'999U);
  EXPECT_LE(FindingsOf(job, Code::kDuplicate).places.size(), kMostPlaces);
  Mend(job, Everything());
  EXPECT_EQ(job.results.size(), 1U);
}

TEST(BadInputTest, AMillionDotsOnOnePlaceAreTold) {
  Job job = JobOf(std::vector<Result>(1'000'000, Polyline({{5, 5}, {5, 5}})));
  EXPECT_EQ(CountOf(job, Code::kShort), 1'000'000U);
  Mend(job, Everything());
  EXPECT_EQ(job.results.size(), 1'000'000U);
}

TEST(BadInputTest, AHundredThousandLinesThatMeetInOnePoint) {
  std::vector<Result> star;
  for (int i = 0; i < 100'000; ++i) {
    const double angle = i * 2 * std::numbers::pi / 100'000;
    star.emplace_back(Polyline({{0, 0}, {5000 * std::cos(angle), 5000 * std::sin(angle)}}));
  }
  Job job = JobOf(star);
  // Two and two make a line through the middle.
  EXPECT_EQ(CheckJob(job, {}).openContours, 50'000U);
  Mend(job, Everything());
  EXPECT_EQ(job.results.size(), 50'000U);
}

TEST(BadInputTest, CoordinatesOfTenToThe300AreFarAndNothingElse) {
  Job job = JobOf({Polyline({{1e300, 0}, {-1e300, 1e300}}), Polyline({{1e300, 0}, {-1e300, 1e300}}),
                   Square({0, 0}, 10), CurveOf({Cubic({0, 0}, {1e300, 1e300}, {-1e300, 5}, {3, 3})})});
  EXPECT_EQ(CountOf(job, Code::kFar), 3U);
  EXPECT_EQ(CountOf(job, Code::kDuplicate), 0U);
  EXPECT_EQ(CheckJob(job, {}).closedContours, 1U);
  Mend(job, Everything());
  EXPECT_EQ(job.results.size(), 4U);
}

TEST(BadInputTest, ResultsThatAreNotFiniteAreTold) {
  Job job = JobOf({Square({0, 0}, 10)});
  job.dropped = 3;
  EXPECT_EQ(CountOf(job, Code::kNotFinite), 3U);
}

TEST(BadInputTest, SettingsThatAreNoNumbersDoNotMixUpTheLayers) {
  Curve odd = Polyline({{0, 0}, {9, 0}});
  odd.settings.cutSpeed = std::nan("");
  EXPECT_EQ(CountOf(JobOf({odd, odd, Polyline({{0, 0}, {9, 0}})}), Code::kDuplicate), 1U);
}

TEST(BadInputTest, EmptyCurvesAndBitmapsWithoutExtent) {
  Bitmap flat = Picture({0, 0}, 10, 10);
  flat.c = flat.d = 0.0;
  Job job = JobOf({Curve{}, flat, Bitmap{}});
  EXPECT_EQ(CheckJob(job, {}).openContours, 0U);
  Mend(job, Everything());
  EXPECT_EQ(job.results.size(), 3U);
}

TEST(BadInputTest, NothingAtAll) {
  Job job = JobOf({});
  EXPECT_THAT(CodesOf(job), testing::IsEmpty());
  Mend(job, Everything());
}

TEST(BadInputTest, AHundredThousandRingsInEachOther) {
  std::vector<Result> rings;
  for (int i = 0; i < 100'000; ++i) rings.emplace_back(Circle({0, 0}, 3000 - i * 0.02));
  EXPECT_EQ(CountOf(JobOf(rings), Code::kOrder), 99'999U);
}

TEST(BadInputTest, AHundredThousandLinesOnOneLineThatOverlapInPart) {
  std::vector<Result> lines;
  for (int i = 0; i < 100'000; ++i)
    lines.emplace_back(Polyline({{i * 0.5, i * 0.5}, {i * 0.5 + 900, i * 0.5 + 900}}));
  EXPECT_EQ(CountOf(JobOf(lines), Code::kOverlap), 99'999U);
}

TEST(BadInputTest, TheSmallestAndTheLargestToleranceEnd) {
  std::vector<Result> dots;
  for (int i = 0; i < 20'000; ++i) dots.emplace_back(Circle({i % 141 * 0.01, i / 141 * 0.01}, 0.001));
  for (const double tolerance : {0.0, 10.0}) {
    CheckOptions options;
    options.tolerance = tolerance;
    CheckJob(JobOf(dots), options);
    Job job = JobOf(dots);
    MendOptions mend = Everything();
    mend.tolerance = tolerance;
    mend.join = mend.simplify = tolerance;
    Mend(job, mend);
    EXPECT_LE(job.results.size(), dots.size());
  }
}

}  // namespace
