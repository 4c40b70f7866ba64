#include "bitmapcore/set_dib_info.h"

#include <gtest/gtest.h>

#include "drawload/file_dib.h"

namespace {

TEST(SetDibInfo, AttachesThePlacementInTheOrderOfTheFields) {
  CFileDib dib;
  EXPECT_TRUE(_dib_SetDibInfo(&dib, 1.0, 2.0, 3.0, 4.0, 5.0, 6.0));
  EXPECT_EQ(dib.a, 1.0);
  EXPECT_EQ(dib.c, 2.0);
  EXPECT_EQ(dib.b, 3.0);
  EXPECT_EQ(dib.d, 4.0);
  EXPECT_EQ(dib.e, 5.0);
  EXPECT_EQ(dib.f, 6.0);
}

TEST(SetDibInfo, RefusesAMissingBitmap) {
  EXPECT_FALSE(_dib_SetDibInfo(nullptr, 1.0, 0.0, 0.0, 1.0, 0.0, 0.0));
}

}  // namespace
