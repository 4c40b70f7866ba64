#include <algorithm>
#include <gtest/gtest.h>
#include <string>

#include "dxf/codepages/double_byte.h"
#include "dxf/codepages/single_byte.h"

using codepages::CodePointOf;
using codepages::kCodePage936;
using codepages::kCodePage950;

namespace {

TEST(CodePages, HoldTheStatedNumberOfPairs) {
  EXPECT_EQ(kCodePage936.pairs.size(), 21791U);
  EXPECT_EQ(kCodePage950.pairs.size(), 13503U);
}

TEST(CodePages, SpanTheStatedCodes) {
  EXPECT_EQ(kCodePage936.pairs.front().code, 0x8140U);
  EXPECT_EQ(kCodePage936.pairs.back().code, 0xFE4FU);
  EXPECT_EQ(kCodePage950.pairs.front().code, 0xA140U);
  EXPECT_EQ(kCodePage950.pairs.back().code, 0xF9FEU);
}

class DoubleBytePage : public testing::TestWithParam<const codepages::DoubleByteTable*> {};

TEST_P(DoubleBytePage, IsInAscendingOrderWithoutUndefinedPoints) {
  const auto& pairs = GetParam()->pairs;
  for (std::size_t i = 0; i < pairs.size(); ++i) {
    EXPECT_NE(pairs[i].point, 0U) << i;
    if (i > 0) {
      EXPECT_LT(pairs[i - 1].code, pairs[i].code) << i;
    }
  }
}

TEST_P(DoubleBytePage, BracketsThePairsOfEveryLeadByte) {
  const auto& [leads, pairs] = *GetParam();
  EXPECT_EQ(leads[0], 0U);
  EXPECT_EQ(leads[127], pairs.size());
  for (std::uint32_t lead = 0x81; lead <= 0xFF; ++lead) {
    for (std::uint32_t i = leads[lead - 0x81]; i < leads[lead - 0x80]; ++i)
      EXPECT_EQ(pairs[i].code >> 8U, lead);
  }
}

INSTANTIATE_TEST_SUITE_P(CodePages, DoubleBytePage, testing::Values(&kCodePage936, &kCodePage950));

struct Sample {
  const codepages::DoubleByteTable* page;
  std::uint32_t code;
  std::uint32_t point;
};

// From the published mappings of the code pages.
TEST(CodePages, MapKnownCharacters) {
  const Sample samples[] = {
      {&kCodePage936, 0x8140, 0x4E02}, {&kCodePage936, 0xA1A1, 0x3000}, {&kCodePage936, 0xB0A1, 0x554A},
      {&kCodePage936, 0xD6D0, 0x4E2D}, {&kCodePage936, 0xCEC4, 0x6587}, {&kCodePage936, 0xA6C1, 0x03B1},
      {&kCodePage936, 0xF7FE, 0x9F44}, {&kCodePage936, 0xFE4F, 0xFA29}, {&kCodePage950, 0xA140, 0x3000},
      {&kCodePage950, 0xA440, 0x4E00}, {&kCodePage950, 0xA4A4, 0x4E2D}, {&kCodePage950, 0xA4E5, 0x6587},
      {&kCodePage950, 0xC940, 0x4E42}, {&kCodePage950, 0xF9D5, 0x9F98}, {&kCodePage950, 0xF9FE, 0x2593},
  };
  for (const auto& [page, code, point] : samples) {
    EXPECT_EQ(CodePointOf(*page, static_cast<std::uint8_t>(code >> 8U), static_cast<std::uint8_t>(code)),
              point)
        << std::hex << code;
  }
}

TEST(CodePages, HaveNoPointForCodesOutsideThePage) {
  EXPECT_EQ(CodePointOf(kCodePage936, 0x81, 0x7F), 0U);
  EXPECT_EQ(CodePointOf(kCodePage936, 0xFF, 0x40), 0U);
  EXPECT_EQ(CodePointOf(kCodePage936, 0x80, 0x40), 0U);
  EXPECT_EQ(CodePointOf(kCodePage936, 0x41, 0x41), 0U);
  EXPECT_EQ(CodePointOf(kCodePage950, 0x81, 0x40), 0U);
}

TEST(CodePages, LeaveTheRangeForPrivateUseOutOfPage950) {
  EXPECT_NE(CodePointOf(kCodePage950, 0xC6, 0x7E), 0U);
  EXPECT_EQ(CodePointOf(kCodePage950, 0xC6, 0xA1), 0U);
  EXPECT_EQ(CodePointOf(kCodePage950, 0xC7, 0x40), 0U);
  EXPECT_EQ(CodePointOf(kCodePage950, 0xC8, 0xFE), 0U);
  EXPECT_NE(CodePointOf(kCodePage950, 0xC9, 0x40), 0U);
}

struct SingleSample {
  const codepages::SingleByteTable* page;
  std::uint32_t byte;
  std::uint32_t point;
};

// From the published mappings; 0 where they leave a byte undefined.
TEST(CodePages, MapKnownSingleBytes) {
  using namespace codepages;
  const SingleSample samples[] = {
      {&kCodePage874, 0xA1, 0x0E01},  {&kCodePage874, 0xDB, 0},       {&kCodePage1250, 0x8A, 0x0160},
      {&kCodePage1250, 0xE8, 0x010D}, {&kCodePage1251, 0xC0, 0x0410}, {&kCodePage1251, 0xFF, 0x044F},
      {&kCodePage1251, 0x98, 0},      {&kCodePage1252, 0x80, 0x20AC}, {&kCodePage1252, 0xE9, 0x00E9},
      {&kCodePage1252, 0x81, 0},      {&kCodePage1253, 0xE1, 0x03B1}, {&kCodePage1253, 0xAA, 0},
      {&kCodePage1254, 0xFE, 0x015F}, {&kCodePage1255, 0xE0, 0x05D0}, {&kCodePage1256, 0xC7, 0x0627},
      {&kCodePage1257, 0xE0, 0x0105}, {&kCodePage1258, 0xD0, 0x0110}, {&kCodePage1258, 0xFE, 0x20AB},
  };
  for (const auto& [page, byte, point] : samples) EXPECT_EQ((*page)[byte - 0x80], point) << std::hex << byte;
}

TEST(CodePages, LeaveAsManySingleBytesUndefinedAsPublished) {
  using namespace codepages;
  const auto undefined = [](const SingleByteTable& page) { return std::count(page.begin(), page.end(), 0U); };
  EXPECT_EQ(undefined(kCodePage874), 31);
  EXPECT_EQ(undefined(kCodePage1250), 5);
  EXPECT_EQ(undefined(kCodePage1251), 1);
  EXPECT_EQ(undefined(kCodePage1252), 5);
  EXPECT_EQ(undefined(kCodePage1253), 17);
  EXPECT_EQ(undefined(kCodePage1254), 7);
  EXPECT_EQ(undefined(kCodePage1255), 23);
  EXPECT_EQ(undefined(kCodePage1256), 0);
  EXPECT_EQ(undefined(kCodePage1257), 12);
  EXPECT_EQ(undefined(kCodePage1258), 9);
}

}  // namespace
