#include "pdf/page_path.h"

#include <cmath>
#include <gtest/gtest.h>
#include <limits>

namespace {

using pdf::PdfPathData;

PdfPathData Unpacked(const PdfPathData& segments) {
  support::Arena memory;
  PdfPathData unpacked;
  pdf::PdfPackedPath(segments, memory).ForEach([&](const pdf::PdfPathSegment& s) { unpacked.push_back(s); });
  return unpacked;
}

/// Bytes that the packed path takes in its arena.
std::size_t PackedBytes(const PdfPathData& segments) {
  support::Arena memory;
  const auto* start = static_cast<const char*>(memory.Allocate(8));
  const pdf::PdfPackedPath path(segments, memory);
  return static_cast<std::size_t>(static_cast<const char*>(memory.Allocate(8)) - start) - 8;
}

TEST(PackedPath, GivesEverySegmentBack) {
  const PdfPathData path = {{pdf::kPdfMove, {0.1, 2}},
                            {pdf::kPdfLine, {0.1, 3.7}},
                            {pdf::kPdfCurve, {5, 6}, {7.3, 3.7}, {7.3, 2}},
                            {pdf::kPdfMove, {9, 9}},
                            {pdf::kPdfLine, {0.1, 2}}};
  EXPECT_EQ(Unpacked(path), path);
  EXPECT_TRUE(Unpacked({}).empty());
}

TEST(PackedPath, KeepsEveryBitOfANumber) {
  const double nan = std::nan("7");
  const double inf = std::numeric_limits<double>::infinity();
  const PdfPathData back = Unpacked({{pdf::kPdfMove, {0.0, nan}},
                                     {pdf::kPdfLine, {-0.0, nan}},
                                     {pdf::kPdfLine, {inf, -inf}},
                                     {pdf::kPdfLine, {1e300, -1e39}},
                                     {pdf::kPdfLine, {5e-324, 16777217}}});
  EXPECT_FALSE(std::signbit(back[0].end.x));
  EXPECT_TRUE(std::signbit(back[1].end.x));
  EXPECT_TRUE(std::isnan(back[0].end.y) && std::isnan(back[1].end.y));
  EXPECT_EQ(back[2].end, (pdf::PdfPoint{inf, -inf}));
  EXPECT_EQ(back[3].end, (pdf::PdfPoint{1e300, -1e39}));
  EXPECT_EQ(back[4].end, (pdf::PdfPoint{5e-324, 16777217}));
}

TEST(PackedPath, TakesFourNumbersForARectangle) {
  // Five bytes of codes and four numbers that no 32-bit float holds: 37, in steps of eight.
  const PdfPathData rectangle = {{pdf::kPdfMove, {0.1, 0.2}},
                                 {pdf::kPdfLine, {0.3, 0.2}},
                                 {pdf::kPdfLine, {0.3, 0.4}},
                                 {pdf::kPdfLine, {0.1, 0.4}},
                                 {pdf::kPdfLine, {0.1, 0.2}}};
  EXPECT_EQ(Unpacked(rectangle), rectangle);
  EXPECT_EQ(PackedBytes(rectangle), 40U);
}

TEST(PackedPath, TakesHalfTheRoomForNumbersThatAFloatHolds) {
  // Two bytes of codes and four numbers of four bytes.
  EXPECT_EQ(PackedBytes({{pdf::kPdfMove, {1, 2}}, {pdf::kPdfLine, {3.5, 4.25}}}), 24U);
}

}  // namespace
