#include "pdf/filters/jpeg2000.h"

#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <vector>

#include "pdf/jpeg2000_maker.h"
#include "pdf/stream_data.h"

using pdf::DecodeJpeg2000;

namespace {

using Plane = std::vector<std::uint8_t>;

Jpeg2000Maker ThreeComponents() {
  Jpeg2000Maker maker;
  maker.planes = {{1, 2, 3, 4}, {10, 20, 30, 40}, {100, 150, 200, 250}};
  return maker;
}

const Plane kThreeComponents{1, 10, 100, 2, 20, 150, 3, 30, 200, 4, 40, 250};

/// What is thrown for `bytes`.
std::string ErrorOf(const std::string& bytes) {
  Plane plane;
  try {
    DecodeJpeg2000(bytes, plane);
  } catch (const std::runtime_error& error) {
    return error.what();
  }
  return "nothing";
}

/// Sets the four bytes at `place`, the highest first.
void SetNumber(std::string& bytes, std::size_t place, std::uint32_t number) {
  for (std::size_t i = 0; i < 4; ++i) bytes[place + i] = static_cast<char>(number >> (24 - 8 * i));
}

}  // namespace

TEST(Jpeg2000, DeliversThreeComponentsPixelByPixel) {
  Plane plane{9};
  ASSERT_TRUE(DecodeJpeg2000(ThreeComponents().Make(), plane));
  Plane expected{9};
  expected.insert(expected.end(), kThreeComponents.begin(), kThreeComponents.end());
  EXPECT_EQ(plane, expected);
}

TEST(Jpeg2000, ReadsTheFileFormatToo) {
  Jpeg2000Maker maker = ThreeComponents();
  maker.format = OPJ_CODEC_JP2;
  Plane plane;
  ASSERT_TRUE(DecodeJpeg2000(maker.Make(), plane));
  EXPECT_EQ(plane, kThreeComponents);
}

TEST(Jpeg2000, ShiftsDeepComponentsDownAndLeavesShallowOnes) {
  Jpeg2000Maker maker;
  maker.bits = 12;
  maker.planes = {{0x123, 0xFFF, 0, 0x00F}, {0x010, 0, 0, 0}, {0x100, 0, 0, 0}};
  Plane plane;
  ASSERT_TRUE(DecodeJpeg2000(maker.Make(), plane));
  EXPECT_EQ(plane, (Plane{0x12, 0x01, 0x10, 0xFF, 0, 0, 0, 0, 0, 0, 0, 0}));
  maker.bits = 4;
  maker.planes = {{1, 15, 0, 0}, {2, 0, 0, 0}, {3, 0, 0, 0}};
  plane.clear();
  ASSERT_TRUE(DecodeJpeg2000(maker.Make(), plane));
  EXPECT_EQ(plane, (Plane{1, 2, 3, 15, 0, 0, 0, 0, 0, 0, 0, 0}));
}

TEST(Jpeg2000, DeliversNothingForOtherNumbersOfComponents) {
  Jpeg2000Maker maker;
  const std::vector<std::int32_t> values{1, 2, 3, 4};
  for (const std::size_t count : {1U, 2U, 4U}) {
    maker.planes.assign(count, values);
    Plane plane;
    EXPECT_FALSE(DecodeJpeg2000(maker.Make(), plane)) << count;
    EXPECT_TRUE(plane.empty());
  }
}

TEST(Jpeg2000, DeliversNothingForComponentsOfDifferentSteps) {
  Jpeg2000Maker maker = ThreeComponents();
  maker.secondStep = 2;
  maker.planes[1] = {10};
  Plane plane;
  EXPECT_FALSE(DecodeJpeg2000(maker.Make(), plane));
  EXPECT_TRUE(plane.empty());
}

TEST(Jpeg2000, FailsForAnUnknownFormat) {
  EXPECT_EQ(ErrorOf("no picture"), "error: unknowm format");
  EXPECT_EQ(ErrorOf(""), "error: unknowm format");
}

TEST(Jpeg2000, FailsForDataThatBreakOff) {
  const std::string whole = ThreeComponents().Make();
  for (std::size_t size = 4; size + 2 < whole.size(); ++size) {
    EXPECT_EQ(ErrorOf(whole.substr(0, size)), "error: cannot load image data") << size;
  }
}

TEST(Jpeg2000, FailsForMoreThan64Components) {
  Jpeg2000Maker maker;
  maker.planes.assign(65, {1, 2, 3, 4});
  EXPECT_EQ(ErrorOf(maker.Make()), "error: too many components");
  maker.planes.resize(64);
  EXPECT_EQ(ErrorOf(maker.Make()), "nothing");
}

TEST(Jpeg2000, DropsPicturesThatClaimAnAbsurdSize) {
  // The codestream begins with two markers and the sizes: of the picture at 8, of a tile at 24.
  std::string bytes = ThreeComponents().Make();
  for (const std::size_t place : {8U, 12U, 24U, 28U}) SetNumber(bytes, place, 60000);
  EXPECT_EQ(ErrorOf(bytes), "nothing");
}

TEST(Jpeg2000, FailsForAWidthOfMinusOne) {
  std::string bytes = ThreeComponents().Make();
  for (const std::size_t place : {8U, 24U}) SetNumber(bytes, place, 0xFFFFFFFF);
  EXPECT_EQ(ErrorOf(bytes), "output dimensions returned");
}

TEST(DecodeStream, LeavesTheSizeOfAJpxImageToTheDictionary) {
  const std::string bytes = ThreeComponents().Make();
  pdf::PdfStreamData data;
  data.filters = {"/JPXDecode"};
  data.input = bytes;
  data.length = static_cast<std::uint32_t>(bytes.size());
  data.isImage = true;
  data.width = 7;
  data.height = 5;
  pdf::PdfNotes notes;
  pdf::PdfWorkBudget budget(0);
  DecodeStream(data, notes, budget);
  EXPECT_EQ(data.imagePlane, kThreeComponents);
  EXPECT_EQ(data.components, 3);
  EXPECT_EQ(data.width, 7);
  EXPECT_EQ(data.height, 5);
}
