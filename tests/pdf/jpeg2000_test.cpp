#include "pdf/filters/jpeg2000.h"

#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <vector>

#include "pdf/jpeg2000_maker.h"
#include "pdf/stream_data.h"
#include "support/account.h"

namespace {

using Plane = std::vector<std::uint8_t>;

Jpeg2000Maker ThreeComponents() {
  Jpeg2000Maker maker;
  maker.planes = {{1, 2, 3, 4}, {10, 20, 30, 40}, {100, 150, 200, 250}};
  return maker;
}

bool DecodeJpeg2000(std::string_view bytes, Plane& plane) { return pdf::DecodeJpeg2000(bytes, plane); }

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

void AppendNumber(std::string& bytes, std::uint32_t number, std::size_t size) {
  for (std::size_t i = size; i-- > 0;) bytes += static_cast<char>(number >> (8 * i));
}

/// A picture of black, since none of its packets holds anything.
struct BlackPicture {
  std::uint32_t side = 64;
  std::uint32_t tile = 64;
  std::uint32_t components = 3;
  std::uint32_t layers = 1;
  char blockSide = 4;          ///< base 2 logarithm, less 2
  std::string precincts = {};  ///< of the only resolution; as large as can be where empty
  std::size_t packets = 3;     ///< of the first tile

  std::string Make() const {
    std::string bytes = "\xFF\x4F\xFF\x51";
    AppendNumber(bytes, 38 + 3 * components, 2);
    AppendNumber(bytes, 0, 2);
    for (const std::uint32_t number : {side, side, 0U, 0U, tile, tile, 0U, 0U})
      AppendNumber(bytes, number, 4);
    AppendNumber(bytes, components, 2);
    for (std::uint32_t i = 0; i < components; ++i) AppendNumber(bytes, 0x070101, 3);
    bytes += "\xFF\x52";
    AppendNumber(bytes, 12 + static_cast<std::uint32_t>(precincts.size()), 2);
    AppendNumber(bytes, precincts.empty() ? 0 : 1, 1);
    AppendNumber(bytes, 0, 1);
    AppendNumber(bytes, layers, 2);
    bytes += {0, 0, blockSide, blockSide, 0, 1};
    bytes += precincts;
    bytes += {'\xFF', '\x5C', 0, 4, 0x40, 0x40};
    bytes += {'\xFF', '\x90', 0, 10, 0, 0};
    AppendNumber(bytes, 14 + static_cast<std::uint32_t>(packets), 4);
    bytes += {0, 1, '\xFF', '\x93'};
    bytes.append(packets, '\0');
    return bytes + "\xFF\xD9";
  }
};

/// What comes of the picture: "nothing" and no pixels where it is left out.
std::string OutcomeOf(const std::string& bytes) {
  Plane plane;
  const std::string error = ErrorOf(bytes);
  if (error != "nothing") return error;
  return DecodeJpeg2000(bytes, plane) ? std::to_string(plane.size()) + " bytes" : error;
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

TEST(Jpeg2000, DropsPicturesOfMoreTilesThanItsTablesMayTake) {
  BlackPicture picture;
  EXPECT_EQ(OutcomeOf(picture.Make()), "12288 bytes");
  picture.side = 255;
  picture.tile = 1;
  EXPECT_EQ(OutcomeOf(picture.Make()), "nothing");
  picture.components = 16384;
  EXPECT_EQ(OutcomeOf(picture.Make()), "nothing");
}

TEST(Jpeg2000, DropsPicturesOfMorePacketsThanTheirBytesCouldHold) {
  BlackPicture picture{.side = 160, .tile = 160, .precincts = std::string(1, '\0'), .packets = 3 * 160 * 160};
  EXPECT_EQ(OutcomeOf(picture.Make()), "76800 bytes");
  picture.packets = 3;
  EXPECT_EQ(OutcomeOf(picture.Make()), "nothing");
  picture = {.layers = 65535, .packets = 3 * 65535};
  EXPECT_EQ(OutcomeOf(picture.Make()), "12288 bytes");
  picture.packets = 3;
  EXPECT_EQ(OutcomeOf(picture.Make()), "nothing");
}

TEST(Jpeg2000, TakesAMarkerWhoseLengthDoesNotFitForDataOfThePicture) {
  std::string bytes = BlackPicture{}.Make();
  bytes += "\xFF\x52";
  AppendNumber(bytes, 20, 2);
  bytes.append(18, '\xFF');
  EXPECT_EQ(OutcomeOf(bytes), "12288 bytes");
}

TEST(Jpeg2000, DropsPicturesOfMoreBlocksThanItsTablesMayTake) {
  BlackPicture picture{.side = 4096, .tile = 4096};
  picture.packets = 20'000;  // so many bytes may stand for so many pixels
  EXPECT_EQ(OutcomeOf(picture.Make()), "50331648 bytes");
  picture.blockSide = 0;
  EXPECT_EQ(OutcomeOf(picture.Make()), "nothing");
}

TEST(Jpeg2000, FindsClaimsInTheFileFormatAndBehindOtherMarkers) {
  Jpeg2000Maker maker = ThreeComponents();
  maker.format = OPJ_CODEC_JP2;
  std::string bytes = maker.Make();
  const std::size_t name = bytes.find("jp2c");
  ASSERT_NE(name, bytes.npos);
  bytes.resize(name + 4);
  bytes += BlackPicture{.side = 255, .tile = 1}.Make().insert(2, "\xFF\x30");
  SetNumber(bytes, name - 4, static_cast<std::uint32_t>(bytes.size() - name + 4));
  EXPECT_EQ(OutcomeOf(bytes), "nothing");
}

TEST(Jpeg2000, DropsPicturesWhosePaletteWouldMakeTooManySamples) {
  Jpeg2000Maker maker;
  maker.format = OPJ_CODEC_JP2;
  maker.width = 1024;
  maker.height = 1024;
  maker.planes.assign(1, std::vector<std::int32_t>(std::size_t{1} << 20));
  std::string bytes = maker.Make();
  // A palette of one colour and 255 channels behind the picture's colour space, at the end of "jp2h".
  std::string boxes;
  AppendNumber(boxes, 8 + 3 + 2 * 255, 4);
  boxes += "pclr";
  AppendNumber(boxes, 1, 2);
  AppendNumber(boxes, 255, 1);
  boxes += std::string(255, '\x07') + std::string(255, '\0');
  AppendNumber(boxes, 8 + 4 * 255, 4);
  boxes += "cmap";
  for (std::uint32_t channel = 0; channel < 255; ++channel) AppendNumber(boxes, 0x0100 + channel, 4);
  const std::size_t header = bytes.find("jp2h");
  const std::size_t codestream = bytes.find("jp2c");
  ASSERT_LT(header, codestream);
  ASSERT_LT(codestream, bytes.size());
  SetNumber(bytes, header - 4, static_cast<std::uint32_t>(codestream - header + boxes.size()));
  bytes.insert(codestream - 4, boxes);
  EXPECT_EQ(OutcomeOf(bytes), "nothing");
}

TEST(Jpeg2000, PaysForPicturesThatAreNotDelivered) {
  BlackPicture picture;
  picture.components = 4;
  const std::string bytes = picture.Make();
  support::Account account;
  const support::AccountScope scope(account);
  Plane plane;
  EXPECT_FALSE(DecodeJpeg2000(bytes, plane));
  EXPECT_GE(account.Spent(), 4 * 64 * 64);
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
  DecodeStream(data, notes);
  EXPECT_EQ(data.imagePlane, kThreeComponents);
  EXPECT_EQ(data.components, 3);
  EXPECT_EQ(data.width, 7);
  EXPECT_EQ(data.height, 5);
}
