#include "curve/status.h"

#include <gtest/gtest.h>
#include <limits>
#include <string>

using namespace curve;

TEST(Status, BeginsAsSuccessWithoutAMessage) {
  const Status status;
  EXPECT_EQ(status.code, 0);
  EXPECT_STREQ(status.message, "");
}

TEST(Status, TakesTheCodeAndTheMessageOfAFailure) {
  Status status;
  EXPECT_EQ(Fail(&status, kOutsideDomain, "knot (%f) < min(domain) (%f)", -0.5, 0.0), -4);
  EXPECT_EQ(status.code, -4);
  EXPECT_STREQ(status.message, "knot (-0.500000) < min(domain) (0.000000)");
}

TEST(Status, IsEmptiedBySuccess) {
  Status status;
  Fail(&status, kUnsupportedDimension, "unsupported dimension: 0");
  EXPECT_EQ(Succeed(&status), 0);
  EXPECT_EQ(status.code, 0);
  EXPECT_STREQ(status.message, "");
}

TEST(Status, MayBeNull) {
  EXPECT_EQ(Succeed(nullptr), 0);
  EXPECT_EQ(Fail(nullptr, kOutOfMemory, "out of memory"), -1);
}

TEST(Status, SaysOutOfMemory) {
  Status status;
  EXPECT_EQ(FailOutOfMemory(&status), -1);
  EXPECT_STREQ(status.message, "out of memory");
}

TEST(Status, HoldsTheLongestNumbersInFull) {
  Status status;
  const double lowest = std::numeric_limits<double>::lowest();
  Fail(&status, kOutsideDomain, "knot (%f) < min(domain) (%f)", lowest, lowest);
  const std::string message = status.message;
  // 309 digits, six decimals, sign and point: 317 characters each, and 24 characters of text.
  EXPECT_EQ(message.size(), 2 * 317 + 24);
  EXPECT_EQ(message.back(), ')');
}
