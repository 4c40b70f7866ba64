#include "support/text_to_number.h"

#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <limits>
#include <random>
#include <string>

#include "support/float_to_integer.h"

using support::AtoF;
using support::AtoI;
using support::HexToU32;
using support::TruncateToByte;
using support::TruncateToI16;
using support::TruncateToI32;

TEST(AtoI, ReadsANumberBehindWhiteSpaceAndStopsAtTheFirstForeignCharacter) {
  EXPECT_EQ(AtoI(" \t\n\v\f\r12abc"), 12);
  EXPECT_EQ(AtoI("-7 8"), -7);
  EXPECT_EQ(AtoI("+5"), 5);
}

TEST(AtoI, GivesZeroWhereThereIsNoNumber) {
  EXPECT_EQ(AtoI(""), 0);
  EXPECT_EQ(AtoI("abc"), 0);
  EXPECT_EQ(AtoI("- 3"), 0);
  EXPECT_EQ(AtoI("+-3"), 0);
}

TEST(AtoI, ClampsToSixtyFourBitsAndCutsToThirtyTwo) {
  EXPECT_EQ(AtoI("4294967297"), 1);
  EXPECT_EQ(AtoI("99999999999999999999"), -1);
  EXPECT_EQ(AtoI("-99999999999999999999"), 0);
  EXPECT_EQ(AtoI("-2147483648"), std::numeric_limits<std::int32_t>::min());
}

TEST(AtoF, ReadsFractionsAndExponents) {
  EXPECT_EQ(AtoF("  1.5e2xyz"), 150.0);
  EXPECT_EQ(AtoF("-.25"), -0.25);
  EXPECT_EQ(AtoF("+3."), 3.0);
  EXPECT_EQ(AtoF("1e"), 1.0);
  EXPECT_EQ(AtoF("1e+"), 1.0);
}

TEST(AtoF, GivesZeroWhereThereIsNoNumber) {
  EXPECT_EQ(AtoF(""), 0.0);
  EXPECT_EQ(AtoF("."), 0.0);
  EXPECT_EQ(AtoF("+-1"), 0.0);
  EXPECT_EQ(AtoF("--1"), 0.0);
  EXPECT_EQ(AtoF("e5"), 0.0);
}

TEST(AtoF, KeepsTheSignOfZero) { EXPECT_TRUE(std::signbit(AtoF("-0"))); }

TEST(AtoF, ReadsWhatTheCLibraryReadsBeyondPlainNumbers) {
  EXPECT_EQ(AtoF("0x10"), 16.0);
  EXPECT_EQ(AtoF("-0x1p3"), -8.0);
  EXPECT_EQ(AtoF("0x"), 0.0);
  EXPECT_TRUE(std::isinf(AtoF("inf")));
  EXPECT_TRUE(std::isinf(AtoF("-Infinity")));
  EXPECT_TRUE(std::isnan(AtoF("nan")));
  EXPECT_TRUE(std::isinf(AtoF("1e999")));
  EXPECT_EQ(AtoF("1e-999"), 0.0);
}

TEST(AtoF, AgreesWithTheCLibraryOnRandomTexts) {
  std::mt19937 random(7);
  const std::string letters = "0123456789012345678901234567890123456789.+-eExXpPinfa \t";
  for (int round = 0; round < 200000; ++round) {
    std::string text(random() % 12, ' ');
    for (char& c : text) c = letters[random() % letters.size()];
    const double expected = std::atof(text.c_str());
    const double read = AtoF(text);
    if (std::isnan(expected)) {
      EXPECT_TRUE(std::isnan(read)) << text;
    } else {
      EXPECT_EQ(read, expected) << text;
    }
    EXPECT_EQ(AtoI(text), std::atoi(text.c_str())) << text;
  }
}

TEST(HexToU32, ReadsWhatAStreamReads) {
  EXPECT_EQ(HexToU32("1A2B"), 6699u);
  EXPECT_EQ(HexToU32("  0x1f!"), 31u);
  EXPECT_EQ(HexToU32("-1"), 0xFFFFFFFFu);
  EXPECT_EQ(HexToU32("FFFFFFFF"), 0xFFFFFFFFu);
}

TEST(HexToU32, GivesZeroWithoutADigitOrBeyondThirtyTwoBits) {
  EXPECT_EQ(HexToU32(""), 0u);
  EXPECT_EQ(HexToU32("GG"), 0u);
  EXPECT_EQ(HexToU32("100000000"), 0u);
}

TEST(Truncation, CutsTowardZeroAndThenToTheWidth) {
  EXPECT_EQ(TruncateToI32(-2.9), -2);
  EXPECT_EQ(TruncateToI16(65537.5), 1);
  EXPECT_EQ(TruncateToByte(-1.0), 255);
}

TEST(Truncation, GivesTheSmallestIntegerForWhatDoesNotFit) {
  constexpr std::int32_t smallest = std::numeric_limits<std::int32_t>::min();
  EXPECT_EQ(TruncateToI32(2147483648.0), smallest);
  EXPECT_EQ(TruncateToI32(-2147483648.5), smallest);
  EXPECT_EQ(TruncateToI32(2147483647.9), 2147483647);
  EXPECT_EQ(TruncateToI32(std::nan("")), smallest);
  EXPECT_EQ(TruncateToI32(INFINITY), smallest);
  EXPECT_EQ(TruncateToI16(1e300), 0);
}
