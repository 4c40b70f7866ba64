#include <algorithm>
#include <cmath>
#include <cstring>
#include <gtest/gtest.h>
#include <limits>

#include "entity/image.h"
#include "entity/insert.h"
#include "sink/grey_bitmap.h"
#include "sink/my_draw_load.h"
#include "support/account.h"

namespace {

using Entity_ZR::ZR_Image;
using Entity_ZR::ZR_Insert;

using Bytes = std::vector<unsigned char>;

/// The grey of one pixel as the formula has it.
unsigned char FormulaGrey(unsigned blue, unsigned green, unsigned red) {
  const double grey = 0.587 * green + 0.299 * red + 0.114 * blue;
  return static_cast<unsigned char>(std::clamp(grey, 0.0, 255.0));
}

/// The block of a packed bitmap, copied.
Bytes Pack(std::int32_t width, std::int32_t height, std::int32_t channels, const Bytes& pixels) {
  const platform::GlobalHandle handle = PackGreyBitmap(width, height, channels, pixels);
  if (handle == nullptr) return {};
  const auto* block = static_cast<const unsigned char*>(platform::GlobalLock(handle));
  Bytes copy(block, block + GreyBitmapBytes(width, height));
  platform::GlobalUnlock(handle);
  platform::GlobalFree(handle);
  return copy;
}

Bytes PackedPixels(std::int32_t width, std::int32_t height, std::int32_t channels, const Bytes& pixels) {
  const Bytes block = Pack(width, height, channels, pixels);
  EXPECT_GE(block.size(), 1064u);
  return block.size() < 1064 ? Bytes() : Bytes(block.begin() + 1064, block.end());
}

template <typename Number>
Number At(const Bytes& block, std::size_t offset) {
  Number number;
  std::memcpy(&number, block.data() + offset, sizeof(number));
  return number;
}

TEST(PackGreyBitmap, WritesTheHeader) {
  const Bytes block = Pack(5, 3, 1, Bytes(15, 100));
  ASSERT_EQ(block.size(), 1064u + 8 * 3);
  EXPECT_EQ(At<std::uint32_t>(block, 0), 40u);
  EXPECT_EQ(At<std::int32_t>(block, 4), 5);
  EXPECT_EQ(At<std::int32_t>(block, 8), 3);
  EXPECT_EQ(At<std::uint16_t>(block, 12), 1);
  EXPECT_EQ(At<std::uint16_t>(block, 14), 8);
  EXPECT_EQ(At<std::uint32_t>(block, 16), 0u);
  EXPECT_EQ(At<std::uint32_t>(block, 20), 24u);
  EXPECT_EQ(At<std::uint32_t>(block, 24), 2835u);
  EXPECT_EQ(At<std::uint32_t>(block, 28), 2835u);
  EXPECT_EQ(At<std::uint32_t>(block, 32), 256u);
  EXPECT_EQ(At<std::uint32_t>(block, 36), 256u);
}

TEST(PackGreyBitmap, WritesAPaletteOfGreys) {
  const Bytes block = Pack(1, 1, 1, {0});
  for (unsigned i = 0; i < 256; ++i) {
    EXPECT_EQ(At<std::uint32_t>(block, 40 + 4 * i), i | i << 8 | i << 16) << i;
  }
}

TEST(PackGreyBitmap, PadsRowsWithWhite) {
  const Bytes block = Pack(3, 1, 1, {0, 0, 0});
  EXPECT_EQ(block.size(), 1068u);
  EXPECT_EQ(At<std::uint32_t>(block, 20), 4u);
  EXPECT_EQ(Bytes(block.begin() + 1064, block.end()), (Bytes{0, 0, 0, 0xFF}));
}

TEST(PackGreyBitmap, RoundsTheStrideUpToFourBytes) {
  EXPECT_EQ(Pack(4, 2, 1, Bytes(8, 0)).size(), 1064u + 8);
  EXPECT_EQ(Pack(5, 2, 1, Bytes(10, 0)).size(), 1064u + 16);
}

TEST(PackGreyBitmap, KeepsTheOrderOfTheRows) {
  EXPECT_EQ(PackedPixels(2, 2, 3, {0, 0, 0, 0, 255, 0, 255, 0, 0, 0, 0, 255}),
            (Bytes{0, 149, 0xFF, 0xFF, 29, 76, 0xFF, 0xFF}));
}

// 0.587 · 100 + 0.299 · 200 + 0.114 · 50 = 58.7 + 59.8 + 5.7 = 124.2.
TEST(PackGreyBitmap, TakesBlueFirstAndRedLast) {
  EXPECT_EQ(PackedPixels(1, 1, 3, {50, 100, 200})[0], 124);
  EXPECT_EQ(PackedPixels(1, 1, 4, {50, 100, 200, 255})[0], 124);
}

TEST(PackGreyBitmap, IsWhiteWhereAlphaIsZero) {
  EXPECT_EQ(PackedPixels(1, 1, 4, {50, 100, 200, 0})[0], 255);
  EXPECT_EQ(PackedPixels(1, 1, 2, {50, 0})[0], 255);
}

TEST(PackGreyBitmap, TakesNoNoticeOfOtherAlphas) {
  EXPECT_EQ(PackedPixels(1, 1, 4, {50, 100, 200, 1})[0], 124);
  EXPECT_EQ(PackedPixels(1, 1, 2, {100, 1})[0], FormulaGrey(100, 100, 100));
}

TEST(PackGreyBitmap, WeightsGreyPixelsToo) {
  Bytes levels(256);
  Bytes withAlpha;
  Bytes expected(256);
  for (unsigned i = 0; i < 256; ++i) {
    levels[i] = static_cast<unsigned char>(i);
    withAlpha.insert(withAlpha.end(), {levels[i], 7});
    expected[i] = FormulaGrey(i, i, i);
  }
  EXPECT_EQ(PackedPixels(256, 1, 1, levels), expected);
  EXPECT_EQ(PackedPixels(256, 1, 2, withAlpha), expected);
}

TEST(PackGreyBitmap, GivesEveryColourTheGreyOfTheFormula) {
  Bytes colours(3 * 65536);
  for (unsigned green = 0; green < 256; ++green) {
    Bytes expected(65536);
    for (unsigned rest = 0; rest < 65536; ++rest) {
      const unsigned blue = rest & 0xFF;
      const unsigned red = rest >> 8;
      colours[3 * rest] = static_cast<unsigned char>(blue);
      colours[3 * rest + 1] = static_cast<unsigned char>(green);
      colours[3 * rest + 2] = static_cast<unsigned char>(red);
      expected[rest] = FormulaGrey(blue, green, red);
    }
    ASSERT_EQ(PackedPixels(256, 256, 3, colours), expected) << green;
  }
}

TEST(PackGreyBitmap, IsBlackForOtherNumbersOfChannels) {
  EXPECT_EQ(PackedPixels(4, 1, 0, {9}), Bytes(4, 0));
  EXPECT_EQ(PackedPixels(4, 1, -3, {9}), Bytes(4, 0));
  EXPECT_EQ(PackedPixels(4, 1, 5, Bytes(20, 200)), Bytes(4, 0));
}

TEST(PackGreyBitmap, LeavesPixelsWithoutBytesWhite) {
  EXPECT_EQ(PackedPixels(4, 2, 1, Bytes(5, 0)), (Bytes{0, 0, 0, 0, 0, 0xFF, 0xFF, 0xFF}));
  EXPECT_EQ(PackedPixels(4, 1, 3, Bytes(8, 0)), (Bytes{0, 0, 0xFF, 0xFF}));
  EXPECT_EQ(PackedPixels(4, 1, 5, Bytes(14, 0)), (Bytes{0, 0, 0xFF, 0xFF}));
  EXPECT_EQ(PackedPixels(4, 1, 4, {}), Bytes(4, 0xFF));
}

TEST(PackGreyBitmap, TakesNoNoticeOfBytesBehindTheLastPixel) {
  EXPECT_EQ(PackedPixels(2, 1, 1, Bytes(100, 0)), (Bytes{0, 0, 0xFF, 0xFF}));
}

TEST(PackGreyBitmap, IsAHeaderAloneWithoutWidthOrHeight) {
  const Bytes noWidth = Pack(0, 7, 1, Bytes(7, 0));
  EXPECT_EQ(noWidth.size(), 1064u);
  EXPECT_EQ(At<std::int32_t>(noWidth, 4), 0);
  EXPECT_EQ(At<std::int32_t>(noWidth, 8), 7);
  EXPECT_EQ(At<std::uint32_t>(noWidth, 20), 0u);
  EXPECT_EQ(Pack(7, 0, 4, {}).size(), 1064u);
}

TEST(PackGreyBitmap, RefusesSizesThatCannotBe) {
  constexpr std::int32_t largest = std::numeric_limits<std::int32_t>::max();
  constexpr std::int32_t smallest = std::numeric_limits<std::int32_t>::min();
  EXPECT_EQ(PackGreyBitmap(-1, 1, 1, {}), nullptr);
  EXPECT_EQ(PackGreyBitmap(1, -1, 1, {}), nullptr);
  EXPECT_EQ(PackGreyBitmap(smallest, smallest, 1, {}), nullptr);
  EXPECT_EQ(PackGreyBitmap(largest, largest, 1, {}), nullptr);
  EXPECT_EQ(PackGreyBitmap(65536, 65536, 4, {}), nullptr);
}

/// An image of black pixels, one byte each.
ZR_Image BlackImage(std::int32_t width, std::int32_t height) {
  ZR_Image image;
  const auto count = static_cast<std::size_t>(width) * static_cast<std::size_t>(height);
  image.pixels = std::shared_ptr<const unsigned char>(new unsigned char[count + 1](),
                                                      std::default_delete<const unsigned char[]>());
  image.pixelBytes = count;
  image.width = width;
  image.height = height;
  image.channels = 1;
  return image;
}

/// The only result of `sink`, as a bitmap.
const CFileDib* OnlyDib(CMyDrawLoad& sink) {
  const CFileDraw* result = sink.FirstResult();
  if (result == nullptr || result->kind != kFileDib || sink.NextResult() != nullptr) return nullptr;
  return static_cast<const CFileDib*>(result);
}

void ExpectMatrix(const CFileDib* dib, const Matrix2D& expected) {
  ASSERT_NE(dib, nullptr);
  EXPECT_EQ((Matrix2D{dib->a, dib->b, dib->c, dib->d, dib->e, dib->f}), expected)
      << dib->a << ' ' << dib->b << ' ' << dib->c << ' ' << dib->d << ' ' << dib->e << ' ' << dib->f;
}

void OpenFrame(CMyDrawLoad& sink, const Matrix2D& matrix, std::vector<Entity_ZR::Attribute> attributes = {}) {
  ZR_Insert insert;
  insert.matrix = matrix;
  insert.attributes = std::move(attributes);
  sink.AddInsert(&insert, 0);
}

TEST(AddImage, MakesOneBitmapWithItsPixels) {
  CMyDrawLoad sink;
  ZR_Image image = BlackImage(3, 2);
  EXPECT_TRUE(sink.AddImage(&image, 0));
  const CFileDib* dib = OnlyDib(sink);
  ASSERT_NE(dib, nullptr);
  const auto* block = static_cast<const unsigned char*>(platform::GlobalLock(dib->bitmap));
  EXPECT_EQ(Bytes(block + 1064, block + 1072), (Bytes{0, 0, 0, 0xFF, 0, 0, 0, 0xFF}));
}

TEST(AddImage, RefusesWhatIsHidden) {
  CMyDrawLoad sink;
  ZR_Image image = BlackImage(1, 1);
  image.visible = 0;
  EXPECT_FALSE(sink.AddImage(&image, 0));
  image.visible = 1;
  image.layerOn = 0;
  EXPECT_FALSE(sink.AddImage(&image, 0));
  EXPECT_FALSE(sink.HasResults());
}

TEST(AddImage, RefusesAMissingPixelBuffer) {
  CMyDrawLoad sink;
  ZR_Image image = BlackImage(1, 1);
  image.pixels = nullptr;
  EXPECT_FALSE(sink.AddImage(&image, 0));
  EXPECT_FALSE(sink.HasResults());
}

TEST(AddImage, RefusesSizesThatCannotBe) {
  CMyDrawLoad sink;
  ZR_Image image = BlackImage(1, 1);
  image.width = -1;
  EXPECT_FALSE(sink.AddImage(&image, 0));
  image.width = image.height = std::numeric_limits<std::int32_t>::max();
  EXPECT_FALSE(sink.AddImage(&image, 0));
  EXPECT_FALSE(sink.HasResults());
}

TEST(AddImage, TakesAMillimetreAPixelWithoutADisplaySize) {
  CMyDrawLoad sink;
  ZR_Image image = BlackImage(4, 2);
  image.position = {10.0, 20.0};
  sink.AddImage(&image, 0);
  ExpectMatrix(OnlyDib(sink), {1.0, 0.0, 0.0, 1.0, 10.0, 20.0});
}

TEST(AddImage, TakesAMillimetreAPixelWhereOneDisplaySizeIsMissing) {
  CMyDrawLoad sink;
  ZR_Image image = BlackImage(4, 2);
  image.displayWidth = 8.0;
  image.displayHeight = -0.9e-8;
  sink.AddImage(&image, 0);
  ExpectMatrix(OnlyDib(sink), {1.0, 0.0, 0.0, 1.0, 0.0, 0.0});
}

TEST(AddImage, ScalesToTheDisplaySize) {
  CMyDrawLoad sink;
  ZR_Image image = BlackImage(4, 2);
  image.position = {10.0, 20.0};
  image.displayWidth = 2.0;
  image.displayHeight = 6.0;
  sink.AddImage(&image, 0);
  ExpectMatrix(OnlyDib(sink), {0.5, 0.0, 0.0, 3.0, 10.0, 20.0});
}

// A quarter turn to the left after the scale: (x, y) to (-y, x).
TEST(AddImage, AppliesTheEntitysMatrix) {
  CMyDrawLoad sink;
  ZR_Image image = BlackImage(4, 2);
  image.position = {10.0, 20.0};
  image.displayWidth = 2.0;
  image.displayHeight = 6.0;
  image.matrix = {0.0, 1.0, -1.0, 0.0, 100.0, 200.0};
  sink.AddImage(&image, 0);
  ExpectMatrix(OnlyDib(sink), {0.0, 0.5, -3.0, 0.0, 80.0, 210.0});
}

TEST(AddImage, TakesAZeroedMatrixAsTheIdentity) {
  CMyDrawLoad sink;
  ZR_Image image = BlackImage(4, 2);
  image.position = {10.0, 20.0};
  image.matrix = {0.0, 0.0, 0.0, 0.0, 0.0, 0.0};
  sink.AddImage(&image, 0);
  ExpectMatrix(OnlyDib(sink), {1.0, 0.0, 0.0, 1.0, 10.0, 20.0});
}

TEST(AddImage, TakesAMatrixThatIsZeroButForItsTranslation) {
  CMyDrawLoad sink;
  ZR_Image image = BlackImage(4, 2);
  image.matrix = {0.0, 0.0, 0.0, 0.0, 7.0, 0.0};
  sink.AddImage(&image, 0);
  ExpectMatrix(OnlyDib(sink), {0.0, 0.0, 0.0, 0.0, 7.0, 0.0});
}

TEST(AddImage, FollowsAFrameThatOnlyTranslates) {
  CMyDrawLoad sink;
  OpenFrame(sink, {1.0, 0.0, 0.0, 1.0, 5.0, 6.0});
  ZR_Image image = BlackImage(4, 2);
  image.position = {10.0, 20.0};
  sink.AddImage(&image, 0);
  EXPECT_FALSE(sink.HasResults());
  sink.EndGroup(0);
  ExpectMatrix(OnlyDib(sink), {1.0, 0.0, 0.0, 1.0, 15.0, 26.0});
}

TEST(AddImage, FollowsTheInnermostFrameOnly) {
  CMyDrawLoad sink;
  OpenFrame(sink, {3.0, 0.0, 0.0, 3.0, 0.0, 0.0});
  OpenFrame(sink, {2.0, 0.0, 0.0, 2.0, 1.0, 1.0});
  ZR_Image image = BlackImage(4, 2);
  image.position = {10.0, 20.0};
  sink.AddImage(&image, 0);
  sink.EndGroup(0);
  sink.EndGroup(0);
  ExpectMatrix(OnlyDib(sink), {2.0, 0.0, 0.0, 2.0, 21.0, 41.0});
}

TEST(AddImage, FollowsThePageOfAnSvgFile) {
  CMyDrawLoad sink;
  sink.fileType = PARSE::kSvgFile;
  sink.pageMatrix = {1.0, 0.0, 0.0, -1.0, 0.0, 100.0};
  ZR_Image image = BlackImage(4, 2);
  image.position = {10.0, 20.0};
  sink.AddImage(&image, 0);
  ExpectMatrix(OnlyDib(sink), {1.0, 0.0, 0.0, -1.0, 10.0, 80.0});
}

TEST(AddImage, StaysOffThePageOfOtherFiles) {
  for (const std::int32_t fileType : {PARSE::kDxfFile, PARSE::kPdfFile}) {
    CMyDrawLoad sink;
    sink.fileType = fileType;
    sink.pageMatrix = {1.0, 0.0, 0.0, 1.0, 0.0, -100.0};
    ZR_Image image = BlackImage(4, 2);
    image.position = {10.0, 20.0};
    sink.AddImage(&image, 0);
    ExpectMatrix(OnlyDib(sink), {1.0, 0.0, 0.0, 1.0, 10.0, 20.0});
  }
}

// 10 / 0 is infinite and 0 / 0 no number, and both spread from there.
TEST(AddImage, KeepsAnImageWithoutPixelsAsItComputes) {
  CMyDrawLoad sink;
  ZR_Image image = BlackImage(0, 2);
  image.displayWidth = 10.0;
  image.displayHeight = 10.0;
  EXPECT_TRUE(sink.AddImage(&image, 0));
  image.displayWidth = 0.0;
  EXPECT_TRUE(sink.AddImage(&image, 0));
  EXPECT_EQ(sink.resultCount, 2u);
  for (const CFileDraw* result = sink.FirstResult(); result != nullptr; result = sink.NextResult()) {
    const auto* dib = static_cast<const CFileDib*>(result);
    EXPECT_FALSE(std::isfinite(dib->a));
    EXPECT_NE(dib->bitmap, nullptr);
  }
}

const std::vector<Entity_ZR::Attribute> kParameters = {
    {7, {{"cutPower", "30"}, {"imageType", "4"}, {"Reverse", "1"}, {"engDensity", "254"}}}};

TEST(AddImage, AppliesItsOwnParameters) {
  CMyDrawLoad sink;
  OpenFrame(sink, {}, {{7, {{"cutSpeed", "99"}}}});
  ZR_Image image = BlackImage(1, 1);
  image.attributes = kParameters;
  sink.AddImage(&image, 0);
  sink.EndGroup(0);
  const CFileDib* dib = OnlyDib(sink);
  ASSERT_NE(dib, nullptr);
  EXPECT_EQ(dib->cutPower, 30.0);
  EXPECT_EQ(dib->imageType, 4);
  EXPECT_EQ(dib->Reverse, 1);
  EXPECT_EQ(dib->engStep, 25.4 / 254);
  EXPECT_EQ(dib->frequency, 1.0);
  EXPECT_EQ(dib->cutSpeed, CFileDib().cutSpeed);
}

TEST(AddImage, TakesTheParametersOfItsFrame) {
  CMyDrawLoad sink;
  OpenFrame(sink, {}, {{7, {{"cutSpeed", "99"}, {"frequency", "2000"}}}});
  ZR_Image image = BlackImage(1, 1);
  sink.AddImage(&image, 0);
  sink.EndGroup(0);
  const CFileDib* dib = OnlyDib(sink);
  ASSERT_NE(dib, nullptr);
  EXPECT_EQ(dib->cutSpeed, 99.0);
  EXPECT_EQ(dib->frequency, 2000.0);
}

TEST(AddImage, KeepsTheDefaultsAtTheTopLevel) {
  CMyDrawLoad sink;
  ZR_Image image = BlackImage(1, 1);
  sink.AddImage(&image, 0);
  const CFileDib* dib = OnlyDib(sink);
  ASSERT_NE(dib, nullptr);
  EXPECT_EQ(dib->frequency, CFileDib().frequency);
  EXPECT_EQ(dib->cutPower, CFileDib().cutPower);
}

TEST(AddImage, CountsAttributesOfAnyTagAsAttributes) {
  CMyDrawLoad sink;
  OpenFrame(sink, {}, {{7, {{"cutSpeed", "99"}}}});
  ZR_Image image = BlackImage(1, 1);
  image.attributes = {{5, {{"cutSpeed", "1"}}}};
  sink.AddImage(&image, 0);
  sink.EndGroup(0);
  const CFileDib* dib = OnlyDib(sink);
  ASSERT_NE(dib, nullptr);
  EXPECT_EQ(dib->cutSpeed, CFileDib().cutSpeed);
  EXPECT_EQ(dib->frequency, 1.0);
}

TEST(AddImage, DropsABitmapThatDoesNotFitAndDrawsWhatFollows) {
  support::Account account({.held = 1'000'000, .working = 1'000'000, .work = 100'000'000});
  const support::AccountScope scope(account);
  CMyDrawLoad sink;
  ZR_Image image = BlackImage(1, 1);
  image.width = image.height = 1000;  // a million bytes and the head
  EXPECT_FALSE(sink.AddImage(&image, 0));
  EXPECT_EQ(account.Cuts(), 1u);
  image.width = image.height = 900;
  EXPECT_TRUE(sink.AddImage(&image, 0));
  EXPECT_FALSE(sink.AddImage(&image, 0));
  ZR_Image small = BlackImage(1, 1);
  EXPECT_TRUE(sink.AddImage(&small, 0));
  EXPECT_EQ(sink.resultCount, 2u);
}

TEST(AddImage, CountsItsPackedPixelsAsResults) {
  support::Account account;
  const support::AccountScope scope(account);
  CMyDrawLoad sink;
  ZR_Image image = BlackImage(1, 1);
  image.width = 4000;
  image.height = 1000;
  const std::uint64_t before = account.Held(support::MemoryUse::kResults);
  EXPECT_TRUE(sink.AddImage(&image, 0));
  EXPECT_GE(account.Held(support::MemoryUse::kResults) - before, 4'000'000u);
  EXPECT_LT(account.Held(support::MemoryUse::kWorking), 100'000u);
}

TEST(PackGreyBitmap, RefusesMoreBytesThanItsHeaderCanState) {
  EXPECT_EQ(PackGreyBitmap(65536, 65536, 1, {}), nullptr);
  EXPECT_EQ(PackGreyBitmap(0x7FFFFFFF, 0x7FFFFFFF, 1, {}), nullptr);
}

}  // namespace
