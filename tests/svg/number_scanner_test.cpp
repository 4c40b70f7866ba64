#include "svg/number_scanner.h"

#include <cmath>
#include <cstdlib>
#include <gmock/gmock.h>
#include <random>
#include <string>

using Svg::ScanNumber;
using Svg::ScanNumberList;
using Svg::ScanPercentList;
using Svg::TextCursor;
using testing::ElementsAre;
using testing::IsEmpty;

namespace {

struct Scan {
  double value;
  std::string rest;
};

Scan ScanOne(std::string_view text) {
  TextCursor cursor(text);
  const double value = ScanNumber(cursor);
  return {value, std::string(cursor.next, cursor.end)};
}

std::vector<double> ListOf(std::string_view text) {
  TextCursor cursor(text);
  std::vector<double> numbers;
  ScanNumberList(cursor, numbers);
  return numbers;
}

}  // namespace

TEST(ScanNumber, TakesSignDigitsPointAndExponent) {
  EXPECT_EQ(ScanOne("12").value, 12.0);
  EXPECT_EQ(ScanOne("+12.5").value, 12.5);
  EXPECT_EQ(ScanOne("-.25").value, -0.25);
  EXPECT_EQ(ScanOne("5.").value, 5.0);
  EXPECT_EQ(ScanOne("1e2").value, 100.0);
  EXPECT_EQ(ScanOne("1E+2").value, 100.0);
  EXPECT_EQ(ScanOne("25e-1").value, 2.5);
}

TEST(ScanNumber, StopsBehindTheNumber) {
  EXPECT_EQ(ScanOne("1.5.5").rest, ".5");
  EXPECT_EQ(ScanOne("10-5").rest, "-5");
  EXPECT_EQ(ScanOne("7px").rest, "px");
  EXPECT_EQ(ScanOne("1e2e3").rest, "e3");
  EXPECT_EQ(ScanOne("0x10").rest, "x10");
}

TEST(ScanNumber, TakesAnExponentWithoutDigitsWithNoEffect) {
  EXPECT_EQ(ScanOne("3e").value, 3.0);
  EXPECT_EQ(ScanOne("3em").rest, "m");
  EXPECT_EQ(ScanOne("3e-").value, 3.0);
  EXPECT_EQ(ScanOne("3e- 4").rest, " 4");
}

TEST(ScanNumber, PassesOverASignOrPointAlone) {
  for (const char* const text : {"+x", "-x", ".x"}) {
    EXPECT_EQ(ScanOne(text).value, 0.0) << text;
    EXPECT_EQ(ScanOne(text).rest, "x") << text;
  }
  EXPECT_EQ(ScanOne("+-5").rest, "-5");
}

TEST(ScanNumber, GivesZeroAndStaysWhereNoNumberStarts) {
  for (const char* const text : {"abc", "inf", "nan", " 5", "e5"}) {
    EXPECT_EQ(ScanOne(text).value, 0.0) << text;
    EXPECT_EQ(ScanOne(text).rest, text);
  }
}

TEST(ScanNumber, KeepsTheSignOfZero) {
  EXPECT_TRUE(std::signbit(ScanOne("-0").value));
  EXPECT_FALSE(std::signbit(ScanOne("-").value));
}

TEST(ScanNumber, TakesAtMost255Characters) {
  const std::string digits = "0." + std::string(252, '0') + "123";
  const Scan scan = ScanOne(digits);
  EXPECT_EQ(scan.rest, "23");
  EXPECT_EQ(scan.value, 1e-253);
}

TEST(ScanNumber, StartsTheNextNumberBehind255Characters) {
  EXPECT_THAT(ListOf(std::string(254, '0') + "12"), ElementsAre(1.0, 2.0));
}

TEST(ScanNumber, GivesWhatTheCLibraryGives) {
  for (const char* const text :
       {"9007199254740993", "18446744073709551615", "18446744073709551616", "123456789012345678901234567890",
        "1e22", "1e23", "1e308", "1e309", "-1e309", "1e-320", "1e-400", "4.9e-324", "2.2250738585072011e-308",
        "0.000000000000000000000000000001", "179769313486231580793e289", "1e999999999999", "0e999999999999",
        "8.5e-22", "8.5e-23"}) {
    EXPECT_EQ(ScanOne(text).value, std::strtod(text, nullptr)) << text;
  }
}

TEST(ScanNumber, GivesWhatTheCLibraryGivesForRandomNumbers) {
  std::mt19937 random(20240229);
  for (int i = 0; i < 20000; ++i) {
    char text[64];
    const int decimals = static_cast<int>(random() % 18);
    const double value = (static_cast<double>(random()) - 2147483648.0) / 1048576.0;
    if (i % 2 == 0) {
      std::snprintf(text, sizeof text, "%.*f", decimals, value);
    } else {
      std::snprintf(text, sizeof text, "%.*e", decimals,
                    value * std::pow(10.0, static_cast<int>(random() % 60) - 30));
    }
    ASSERT_EQ(ScanOne(text).value, std::strtod(text, nullptr)) << text;
  }
}

TEST(ScanNumber, ReadsTheSameNumberWhateverFollowsIt) {
  const std::string_view continuing = "0123456789.eE";
  for (const char* const number :
       {"1", "-12", "+123", "12345678", "123456789", ".5", "5.", "-0.25", "1234.567", "12345.678",
        "-1234567.", ".1234567", ".12345678", "-0", "0.0", "1e2", "12.5e-1", "1234567e1"}) {
    for (int c = 0; c < 256; ++c) {
      if (continuing.find(static_cast<char>(c)) != std::string_view::npos) continue;
      const std::string behind = std::string(1, static_cast<char>(c)) + "98765432109876543210";
      const Scan scan = ScanOne(number + behind);
      const double expected = std::strtod(number, nullptr);
      ASSERT_EQ(scan.value, expected) << number << " before character " << c;
      ASSERT_EQ(std::signbit(scan.value), std::signbit(expected)) << number << " before character " << c;
      ASSERT_EQ(scan.rest, behind) << number << " before character " << c;
    }
  }
}

TEST(ScanNumber, EndsAtASecondPointWhateverFollowsIt) {
  const Scan scan = ScanOne("12.5.25 and more behind it");
  EXPECT_EQ(scan.value, 12.5);
  EXPECT_EQ(scan.rest, ".25 and more behind it");
}

TEST(ScanNumber, PassesOverASignOrPointAloneBeforeALongText) {
  for (const char* const text : {"+x and more behind it", "-x and more behind it", ".x and more behind it"}) {
    EXPECT_EQ(ScanOne(text).value, 0.0) << text;
    EXPECT_EQ(ScanOne(text).rest, "x and more behind it") << text;
  }
}

TEST(ScanNumberList, SeparatesByWhiteSpaceAndSingleCommas) {
  EXPECT_THAT(ListOf(" 1,2 , 3\t4\n5\v6\f7\r8"), ElementsAre(1, 2, 3, 4, 5, 6, 7, 8));
  EXPECT_THAT(ListOf("1,,2"), ElementsAre(1));
  EXPECT_THAT(ListOf(",1"), IsEmpty());
}

TEST(ScanNumberList, StartsANumberAtASignOrPointRightAway) {
  EXPECT_THAT(ListOf("1-2+3.5.5"), ElementsAre(1, -2, 3.5, 0.5));
}

TEST(ScanNumberList, EndsAtAnyOtherCharacter) {
  EXPECT_THAT(ListOf("1 2 x 3"), ElementsAre(1, 2));
  EXPECT_THAT(ListOf("00 1"), ElementsAre(0, 1));
}

TEST(ScanPercentList, TellsWhetherAnyPercentSignStood) {
  std::vector<double> numbers;
  TextCursor percents("10%, 20,30%)");
  EXPECT_TRUE(ScanPercentList(percents, numbers));
  EXPECT_THAT(numbers, ElementsAre(10, 20, 30));
  EXPECT_TRUE(percents.StandsAt(')'));
  numbers.clear();
  TextCursor plain("10,20");
  EXPECT_FALSE(ScanPercentList(plain, numbers));
  EXPECT_THAT(numbers, ElementsAre(10, 20));
}

TEST(ScanPercentList, AllowsWhiteSpaceOnEitherSideOfThePercentSign) {
  std::vector<double> numbers;
  TextCursor percents("10 % , 20\t%30 %)");
  EXPECT_TRUE(ScanPercentList(percents, numbers));
  EXPECT_THAT(numbers, ElementsAre(10, 20, 30));
  EXPECT_TRUE(percents.StandsAt(')'));
}

TEST(ScanPercentList, EndsAtASecondPercentSign) {
  std::vector<double> numbers;
  TextCursor percents("10 % % 20");
  EXPECT_TRUE(ScanPercentList(percents, numbers));
  EXPECT_THAT(numbers, ElementsAre(10));
  EXPECT_TRUE(percents.StandsAt('%'));
}
