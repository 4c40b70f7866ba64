#include "entity/shared.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

namespace {

using Entity_ZR::SharedNumbers;
using Entity_ZR::SharedText;

TEST(Shared, IsEmptyUntilItGetsAValue) {
  const SharedText text;
  EXPECT_TRUE(text.empty());
  EXPECT_EQ(text, "");
  EXPECT_EQ(text.size(), 0u);
}

TEST(Shared, TakesAValueAndGivesItBack) {
  const SharedText text = std::string("abc");
  const std::string& bytes = text;
  EXPECT_EQ(bytes, "abc");
  const SharedNumbers numbers = std::vector<double>{1.0, 2.0};
  EXPECT_THAT(numbers, testing::ElementsAre(1.0, 2.0));
}

TEST(Shared, SharesItsValueWithItsCopies) {
  const SharedText text = "abc";
  const SharedText copy = text;
  EXPECT_EQ(&copy.Get(), &text.Get());
}

TEST(Shared, LeavesItsCopiesAsTheyAreWhereItGetsAnotherValue) {
  SharedText text = "abc";
  const SharedText copy = text;
  text = "d";
  EXPECT_EQ(text, "d");
  EXPECT_EQ(copy, "abc");
}

TEST(Shared, ComparesItsValues) {
  EXPECT_EQ(SharedText("abc"), SharedText("abc"));
  EXPECT_NE(SharedText("abc"), SharedText("abd"));
  EXPECT_NE(SharedText("abc"), SharedText());
  EXPECT_EQ(SharedText(""), SharedText());
}

}  // namespace
