#include "svg/length.h"

#include <gtest/gtest.h>

using Svg::ResolveLength;
using Svg::SplitUnit;
using Svg::UnitFactor;

TEST(SplitUnit, GivesTheLettersAtTheEnd) {
  EXPECT_EQ(SplitUnit("10mm"), "mm");
  EXPECT_EQ(SplitUnit("10 mm"), "mm");
  EXPECT_EQ(SplitUnit("50%"), "%");
  EXPECT_EQ(SplitUnit("10"), "");
  EXPECT_EQ(SplitUnit("10."), "");
  EXPECT_EQ(SplitUnit("abc"), "abc");
  EXPECT_EQ(SplitUnit(""), "");
}

TEST(UnitFactor, GivesMillimetres) {
  EXPECT_EQ(UnitFactor("1px"), 0.35277777777777775);
  EXPECT_EQ(UnitFactor("1pixel"), 0.35277777777777775);
  EXPECT_EQ(UnitFactor("1in"), 25.4);
  EXPECT_EQ(UnitFactor("1em"), 5.644444444444444);
  EXPECT_EQ(UnitFactor("1mm"), 1.0);
  EXPECT_EQ(UnitFactor("1cm"), 10.0);
}

TEST(UnitFactor, TakesOtherUnitsAndNoneForUserUnits) {
  for (const char* const text : {"1pt", "1pc", "1MM", "1%", "1", ""}) {
    EXPECT_EQ(UnitFactor(text), 0.35277777777777775) << text;
  }
}

TEST(ResolveLength, GivesTheBareNumberAsItStands) {
  EXPECT_EQ(ResolveLength("12.5", 1000), 12.5);
  EXPECT_EQ(ResolveLength("", 1000), 0.0);
}

TEST(ResolveLength, GivesAShareOfThePage) {
  EXPECT_EQ(ResolveLength("50%", 80.0), 50.0 * 0.01 * 80.0);
  EXPECT_EQ(ResolveLength("50 %", 80.0), 50.0 * 0.01 * 80.0);
}

TEST(ResolveLength, GivesMillimetresForUnits) {
  EXPECT_EQ(ResolveLength("2in", 0), 50.8);
  EXPECT_EQ(ResolveLength("3mm", 0), 3.0);
  EXPECT_EQ(ResolveLength("3px", 0), 3 * 0.35277777777777775);
  EXPECT_EQ(ResolveLength("3pt", 0), 3 * 0.35277777777777775);
  EXPECT_EQ(ResolveLength("3mm%", 80), 3 * 0.35277777777777775);
}
