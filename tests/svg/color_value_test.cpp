#include "svg/color_value.h"

#include <gtest/gtest.h>
#include <string>

using Svg::ColorValue;
using Svg::ParseColor;

namespace {

const ColorValue kNone;

ColorValue Opaque(int red, int green, int blue) { return {red, green, blue, 255, true}; }

}  // namespace

TEST(ParseColor, GivesNoColorForEmptyText) {
  EXPECT_EQ(ParseColor("", "1"), kNone);
  EXPECT_EQ(ParseColor("   ", "1"), kNone);
  EXPECT_EQ(kNone, (ColorValue{0, 0, 0, 255, false}));
}

TEST(ParseColor, ReadsThreeSixNineAndTwelveHexadecimalDigits) {
  EXPECT_EQ(ParseColor("#1aF", ""), Opaque(17, 170, 255));
  EXPECT_EQ(ParseColor("#FFF", ""), Opaque(255, 255, 255));
  EXPECT_EQ(ParseColor("#ffffff", ""), Opaque(255, 255, 255));
  EXPECT_EQ(ParseColor("#102030", ""), Opaque(16, 32, 48));
  EXPECT_EQ(ParseColor("#10f20e30d", ""), Opaque(16, 32, 48));
  EXPECT_EQ(ParseColor("#10ff20ee30dd", ""), Opaque(16, 32, 48));
  EXPECT_EQ(ParseColor(" #102030 ", ""), Opaque(16, 32, 48));
}

TEST(ParseColor, GivesNoColorForOtherHexadecimalForms) {
  for (const char* const text :
       {"#", "#FF00", "#12345", "#1234567", "#12345678", "#10203040506070", "#10203g"}) {
    EXPECT_EQ(ParseColor(text, "1"), kNone) << text;
  }
  EXPECT_EQ(ParseColor("#112233445566778", "1"), kNone);
}

TEST(ParseColor, ReadsThreeNumbers) {
  EXPECT_EQ(ParseColor("rgb(1,2,3)", ""), Opaque(1, 2, 3));
  EXPECT_EQ(ParseColor("rgb(1 2.9 3)", ""), Opaque(1, 2, 3));
  EXPECT_EQ(ParseColor("rgb(1,2)", ""), kNone);
  EXPECT_EQ(ParseColor("rgb(1,2,3,4)", ""), kNone);
  EXPECT_EQ(ParseColor("rgb(5)", ""), kNone);
  EXPECT_EQ(ParseColor("rgb( )", ""), kNone);
}

TEST(ParseColor, ReadsPercents) {
  EXPECT_EQ(ParseColor("rgb(100%,0%,0%)", ""), Opaque(255, 0, 0));
  // 127.5 and 25.5 are truncated.
  EXPECT_EQ(ParseColor("rgb(50%, 10%, 20%)", ""), Opaque(127, 25, 51));
  EXPECT_EQ(ParseColor("rgb(100%, 0, 20)", ""), Opaque(255, 0, 51));
  EXPECT_EQ(ParseColor("rgb(100, 50%, 50%)", ""), kNone);
}

TEST(ParseColor, AllowsWhiteSpaceBeforeThePercentSign) {
  EXPECT_EQ(ParseColor("rgb(100 %,0 %,0 %)", ""), Opaque(255, 0, 0));
  EXPECT_EQ(ParseColor("rgb(0\t\n%, 100  % , 100 %\t)", ""), Opaque(0, 255, 255));
}

TEST(ParseColor, PacksTheLowByteOfNumbersOutsideTheRange) {
  EXPECT_EQ(ParseColor("rgb(256,-1,300.7)", ""), Opaque(256, -1, 300));
  EXPECT_EQ(ParseColor("rgb(256,-1,300.7)", "").Packed(), 0xFF2CFF00U);
}

TEST(ParseColor, PacksRedIntoTheLowestByte) {
  EXPECT_EQ((ColorValue{1, 2, 3, 4, true}.Packed()), 0x04030201U);
  EXPECT_EQ(kNone.Packed(), 0xFF000000U);
}

TEST(ParseColor, GivesNoColorForOtherTextsThatStartWithR) {
  for (const char* const text : {"rgba(1,2,3,1)", "rgb(1,2,3", "rosybrown", "rgb()", "r"}) {
    EXPECT_EQ(ParseColor(text, ""), kNone) << text;
  }
  EXPECT_EQ(ParseColor("red", ""), Opaque(255, 0, 0));
}

TEST(ParseColor, GivesNoColorForCurrentColorAndInherit) {
  EXPECT_EQ(ParseColor("currentColor", ""), kNone);
  EXPECT_EQ(ParseColor("inherit", ""), kNone);
  EXPECT_EQ(ParseColor("currentcolor", ""), Opaque(0, 0, 0));
  EXPECT_EQ(ParseColor("indigo", ""), Opaque(0, 0, 0));
  EXPECT_EQ(ParseColor("cyan", ""), Opaque(0, 255, 255));
}

TEST(ParseColor, KnowsNamesByTheSumOfTheirCharacters) {
  EXPECT_EQ(ParseColor("blue", ""), Opaque(0, 0, 255));
  EXPECT_EQ(ParseColor("Gray", ""), Opaque(160, 160, 164));
  EXPECT_EQ(ParseColor("black", ""), Opaque(0, 0, 0));
  EXPECT_EQ(ParseColor("GREEN", ""), Opaque(0, 255, 0));
  EXPECT_EQ(ParseColor("white", ""), Opaque(255, 255, 255));
  EXPECT_EQ(ParseColor("yellow", ""), Opaque(255, 255, 0));
  EXPECT_EQ(ParseColor("magenta", ""), Opaque(255, 0, 255));
  EXPECT_EQ(ParseColor("RED", ""), Opaque(255, 0, 0));
  // 122 + 97 + 96 = 315, as red has.
  EXPECT_EQ(ParseColor("ZA`", ""), Opaque(255, 0, 0));
}

TEST(ParseColor, KnowsTheSumsThatHaveNoNameOfTheirOwn) {
  // z is 122: each text is so many z and one character for the rest.
  const auto textOfSum = [](int sum) {
    std::string text(static_cast<std::size_t>((sum - 64) / 122), 'z');
    for (int rest = sum - static_cast<int>(text.size()) * 122; rest > 0; rest -= 33) {
      if (rest < 66) {
        text.push_back(static_cast<char>(rest));
        break;
      }
      text.push_back('!');
    }
    return text;
  };
  const std::pair<int, ColorValue> rows[] = {
      {701, Opaque(128, 0, 0)},     {810, Opaque(0, 0, 255)},    {813, Opaque(0, 128, 128)},
      {821, Opaque(128, 128, 128)}, {915, Opaque(0, 128, 0)},    {939, Opaque(192, 192, 192)},
      {1054, Opaque(128, 128, 0)},  {1119, Opaque(128, 0, 128)}, {702, Opaque(0, 0, 0)}};
  for (const auto& [sum, color] : rows) EXPECT_EQ(ParseColor(textOfSum(sum), ""), color) << sum;
}

TEST(ParseColor, LetsNamesOfTheSameSumCollide) {
  EXPECT_EQ(ParseColor("aqua", ""), Opaque(0, 0, 255));
  EXPECT_EQ(ParseColor("darkred", ""), Opaque(255, 0, 255));
}

TEST(ParseColor, GivesBlackForOtherNames) {
  for (const char* const name : {"orange", "silver", "navy", "transparent", "url(#a)", "none"}) {
    EXPECT_EQ(ParseColor(name, ""), Opaque(0, 0, 0)) << name;
  }
}

TEST(ParseColor, TakesBytesAsSignedCharacters) {
  // -61 - 87 + 3 · 122 + 97 = 315, as red has.
  EXPECT_EQ(ParseColor("\xC3\xA9zzza", ""), Opaque(255, 0, 0));
}

TEST(ParseColor, MakesAlphaFromTheOpacity) {
  EXPECT_EQ(ParseColor("red", "0.5").alpha, 127);
  EXPECT_EQ(ParseColor("red", "1").alpha, 255);
  EXPECT_EQ(ParseColor("red", "7").alpha, 255);
  EXPECT_EQ(ParseColor("red", "0").alpha, 0);
  EXPECT_EQ(ParseColor("red", "-1").alpha, 0);
  EXPECT_EQ(ParseColor("red", "").alpha, 255);
}

TEST(ParseColor, TakesAnOpacityThatIsNoPlainNumberForOne) {
  EXPECT_EQ(ParseColor("red", "50%").alpha, 255);
  EXPECT_EQ(ParseColor("red", "abc").alpha, 255);
}

TEST(ParseColor, KeepsTransparentOpaque) { EXPECT_EQ(ParseColor("transparent", "0").alpha, 255); }

TEST(ParseColor, IgnoresTheOpacityOfNoColor) { EXPECT_EQ(ParseColor("inherit", "0"), kNone); }
