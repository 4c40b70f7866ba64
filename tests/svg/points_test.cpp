#include "svg/points.h"

#include <gmock/gmock.h>

using Svg::ParsePoints;
using Svg::Point;
using testing::ElementsAre;
using testing::IsEmpty;

TEST(Points, ReadsPairsWithACommaInside) {
  EXPECT_THAT(ParsePoints("1,2 3,4"), ElementsAre(Point{1, 2}, Point{3, 4}));
  EXPECT_THAT(ParsePoints("  1,2   3,4 "), ElementsAre(Point{1, 2}, Point{3, 4}));
}

TEST(Points, ReadsPairsOfPiecesWithoutCommas) {
  EXPECT_THAT(ParsePoints("1 2 3 4"), ElementsAre(Point{1, 2}, Point{3, 4}));
}

TEST(Points, TakesOnePointOfAPieceWithManyCommas) {
  EXPECT_THAT(ParsePoints("1,2,3,4"), ElementsAre(Point{1, 2}));
}

TEST(Points, CutsWhiteSpaceInFrontOfAPiece) {
  EXPECT_THAT(ParsePoints("\r\n\t1,\n2 \n 3,4"), ElementsAre(Point{1, 2}, Point{3, 4}));
}

TEST(Points, SplitsAtBlanksAlone) {
  // The line feed does not divide: what stands behind it belongs to the second number and is not read.
  EXPECT_THAT(ParsePoints("1,2\n3,4 5,6"), ElementsAre(Point{1, 2}, Point{5, 6}));
}

TEST(Points, DropsAPointWithAnEmptyHalf) {
  EXPECT_THAT(ParsePoints("1, 3,4 ,6"), ElementsAre(Point{3, 4}));
  EXPECT_THAT(ParsePoints("1,\n 3,4"), ElementsAre(Point{3, 4}));
}

TEST(Points, KeepsPointsFoundBeforeAPieceWithoutComma) {
  // The pairs start over from the first piece: ("1,2", "3,4") and ("5", "6").
  EXPECT_THAT(ParsePoints("1,2 3,4 5 6"), ElementsAre(Point{1, 2}, Point{3, 4}, Point{1, 3}, Point{5, 6}));
}

TEST(Points, DropsALastPieceWithoutPartner) {
  EXPECT_THAT(ParsePoints("1 2 3"), ElementsAre(Point{1, 2}));
  EXPECT_THAT(ParsePoints("1"), IsEmpty());
}

TEST(Points, LetsAPieceOfLineFeedsTakeItsPlaceInAPair) {
  // Pairs: ("1", "\n") dropped, ("2", "3") kept.
  EXPECT_THAT(ParsePoints("1 \n 2 3"), ElementsAre(Point{2, 3}));
}

TEST(Points, PassesOverAPieceOfLineFeedsBeforeThat) {
  EXPECT_THAT(ParsePoints("1,2 \n\t 3,4"), ElementsAre(Point{1, 2}, Point{3, 4}));
}

TEST(Points, GivesNoneForNoText) {
  EXPECT_THAT(ParsePoints(""), IsEmpty());
  EXPECT_THAT(ParsePoints(" \n "), IsEmpty());
}
