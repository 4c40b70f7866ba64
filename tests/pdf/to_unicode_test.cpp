#include "pdf/to_unicode.h"

#include <gtest/gtest.h>

namespace {

using pdf::PdfToUnicode;
using pdf::ReadCMap;

PdfToUnicode MapOf(std::string_view cmap) {
  PdfToUnicode map;
  ReadCMap(cmap, map);
  return map;
}

TEST(CMap, MapsSingleCodes) {
  const PdfToUnicode map = MapOf("2 beginbfchar\n<0041> <0061>\n<0042> <0062>\nendbfchar");
  ASSERT_NE(map.Find("0041"), nullptr);
  EXPECT_EQ(*map.Find("0041"), 0x61);
  EXPECT_EQ(*map.Find("0042"), 0x62);
}

TEST(CMap, ReadsSeveralListsAndTheLaterEntryWins) {
  const PdfToUnicode map =
      MapOf("beginbfchar <0041> <0061> <0042> <0062> endbfchar beginbfchar <0041> <0078> endbfchar");
  EXPECT_EQ(*map.Find("0041"), 0x78);
  EXPECT_EQ(*map.Find("0042"), 0x62);
}

TEST(CMap, ReadsStringsThatTouch) {
  EXPECT_EQ(*MapOf("beginbfchar\n<0041><0061>\nendbfchar").Find("0041"), 0x61);
}

TEST(CMap, RangesMapNothing) {
  EXPECT_TRUE(MapOf("1 beginbfrange\n<0041> <0043> <0061>\nendbfrange").IsEmpty());
}

TEST(CMap, CutsLongValuesToTheirFirstUnit) {
  EXPECT_EQ(*MapOf("beginbfchar\n<0001> <00660066>\nendbfchar").Find("0001"), 0x66);
}

TEST(CMap, ShortCodesAreNeverFound) {
  const PdfToUnicode map = MapOf("beginbfchar\n<41> <0061>\nendbfchar");
  EXPECT_EQ(map.Find("0041"), nullptr);
  EXPECT_EQ(map.Find("41"), nullptr);
}

TEST(CMap, ShortValuesAreReadUpToTheirBracket) {
  EXPECT_EQ(*MapOf("beginbfchar\n<0001> <41>\nendbfchar").Find("0001"), 0x41);
}

TEST(CMap, AnEmptyValueTakesTheEntryAway) {
  const PdfToUnicode map = MapOf("beginbfchar\n<0001> <0041>\n<0001> <\nendbfchar");
  EXPECT_EQ(map.Find("0001"), nullptr);
}

TEST(CMap, AListWithoutAnEndEndsTheRead) {
  EXPECT_THROW(MapOf("beginbfchar\n<0001> <0041>\n"), std::out_of_range);
  EXPECT_THROW(MapOf("beginbfchar\n<0001>"), std::out_of_range);
}

TEST(CMap, AnEmptyTokenWithinAListEndsTheRead) {
  // Five line ends in a row leave one empty token.
  EXPECT_THROW(MapOf("beginbfchar\n\n\n\n\n<0001> <0041>\nendbfchar"), std::out_of_range);
}

}  // namespace
