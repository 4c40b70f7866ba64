#include "dxf/aci_colors.h"

#include <gtest/gtest.h>

namespace {

struct Entry {
  std::int32_t index;
  std::uint32_t red, green, blue;
};

TEST(AciColor, HasTheNamedColoursFirst) {
  for (const Entry& entry : {Entry{0, 0, 0, 0},
                             {1, 255, 0, 0},
                             {2, 255, 255, 0},
                             {3, 0, 255, 0},
                             {4, 0, 255, 255},
                             {5, 0, 0, 255},
                             {6, 255, 0, 255},
                             {7, 255, 255, 255},
                             {8, 128, 128, 128},
                             {9, 192, 192, 192}}) {
    EXPECT_EQ(AciColor(entry.index), PackColor(entry.red, entry.green, entry.blue)) << entry.index;
  }
}

TEST(AciColor, WalksTheHuesInStepsOfFifteenDegrees) {
  for (const Entry& entry : {Entry{10, 255, 0, 0},
                             {20, 255, 63, 0},
                             {30, 255, 127, 0},
                             {40, 255, 191, 0},
                             {50, 255, 255, 0},
                             {60, 191, 255, 0},
                             {90, 0, 255, 0},
                             {100, 0, 255, 63},
                             {130, 0, 255, 255},
                             {140, 0, 191, 255},
                             {170, 0, 0, 255},
                             {180, 63, 0, 255},
                             {210, 255, 0, 255},
                             {220, 255, 0, 191},
                             {240, 255, 0, 63}}) {
    EXPECT_EQ(AciColor(entry.index), PackColor(entry.red, entry.green, entry.blue)) << entry.index;
  }
}

TEST(AciColor, DarkensInFiveLevelsAndHasAPaleColourBesideEach) {
  for (const Entry& entry : {Entry{11, 255, 127, 127},
                             {12, 204, 0, 0},
                             {13, 204, 102, 102},
                             {14, 153, 0, 0},
                             {15, 153, 76, 76},
                             {16, 127, 0, 0},
                             {17, 127, 63, 63},
                             {18, 76, 0, 0},
                             {19, 76, 38, 38},
                             {249, 76, 38, 47}}) {
    EXPECT_EQ(AciColor(entry.index), PackColor(entry.red, entry.green, entry.blue)) << entry.index;
  }
}

TEST(AciColor, EndsWithSixGreys) {
  const std::uint32_t greys[] = {51, 91, 132, 173, 214, 255};
  for (std::int32_t i = 0; i < 6; ++i) {
    EXPECT_EQ(AciColor(250 + i), PackColor(greys[i], greys[i], greys[i])) << 250 + i;
  }
}

TEST(AciColor, TakesAnIndexOutsideTheTableAsWhite) {
  for (const std::int32_t index : {-2147483647 - 1, -1, 256, 2147483647}) {
    EXPECT_EQ(AciColor(index), PackColor(255, 255, 255)) << index;
  }
}

TEST(AciLayerColor, TakesTheColourOfALayerThatIsOffByItsAbsoluteValue) {
  EXPECT_EQ(AciLayerColor(3), PackColor(0, 255, 0));
  EXPECT_EQ(AciLayerColor(-3), PackColor(0, 255, 0));
  EXPECT_EQ(AciLayerColor(-255), PackColor(255, 255, 255));
  EXPECT_EQ(AciLayerColor(-12), PackColor(204, 0, 0));
  EXPECT_EQ(AciLayerColor(0), PackColor(0, 0, 0));
}

TEST(AciLayerColor, TakesAnyOtherColourAsWhite) {
  for (const std::int32_t index : {-2147483647 - 1, -256, 256, 300}) {
    EXPECT_EQ(AciLayerColor(index), PackColor(255, 255, 255)) << index;
  }
}

TEST(PackColor, PutsRedLowestAndIsOpaque) { EXPECT_EQ(PackColor(1, 2, 3), 0xFF030201U); }

}  // namespace
