#include "support/picture.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>
#include <zlib.h>

namespace {

using support::DecodePicture;
using support::Picture;

std::vector<int> PixelsOf(const Picture& picture) {
  return {picture.pixels.get(), picture.pixels.get() + picture.pixelBytes};
}

std::string BigEndian(std::size_t value) {
  std::string bytes;
  for (int shift = 24; shift >= 0; shift -= 8) bytes += static_cast<char>((value >> shift) & 0xFF);
  return bytes;
}

std::string Chunk(const std::string& name, const std::string& data) {
  const std::string body = name + data;
  const uLong sum = crc32(0, reinterpret_cast<const Bytef*>(body.data()), static_cast<uInt>(body.size()));
  return BigEndian(data.size()) + body + BigEndian(sum);
}

/// A PNG file of 8-bit samples; `colourType` 0 grey, 2 colour, 4 grey with alpha, 6 colour with alpha. Each
/// row of `rows` begins with its filter byte.
std::string Png(std::size_t width, std::size_t height, char colourType, const std::string& rows) {
  std::vector<Bytef> packed(compressBound(static_cast<uLong>(rows.size())));
  uLongf size = static_cast<uLongf>(packed.size());
  compress(packed.data(), &size, reinterpret_cast<const Bytef*>(rows.data()),
           static_cast<uLong>(rows.size()));
  const std::string header =
      BigEndian(width) + BigEndian(height) + '\x08' + colourType + std::string(3, '\0');
  return "\x89PNG\r\n\x1A\n" + Chunk("IHDR", header) +
         Chunk("IDAT", std::string(packed.begin(), packed.begin() + static_cast<std::ptrdiff_t>(size))) +
         Chunk("IEND", "");
}

TEST(DecodePicture, ReadsGreyRowsFromTheTop) {
  const Picture picture = DecodePicture(Png(2, 2, 0, std::string("\0\x01\x02\0\x03\x04", 6)));
  ASSERT_NE(picture.pixels, nullptr);
  EXPECT_EQ(picture.width, 2);
  EXPECT_EQ(picture.height, 2);
  EXPECT_EQ(picture.channels, 1);
  EXPECT_EQ(PixelsOf(picture), (std::vector<int>{1, 2, 3, 4}));
}

TEST(DecodePicture, KeepsTheNumberOfChannels) {
  const Picture greyAlpha = DecodePicture(Png(1, 1, 4, std::string("\0\x07\x08", 3)));
  EXPECT_EQ(greyAlpha.channels, 2);
  EXPECT_EQ(PixelsOf(greyAlpha), (std::vector<int>{7, 8}));
  const Picture colour = DecodePicture(Png(1, 1, 2, std::string("\0\x01\x02\x03", 4)));
  EXPECT_EQ(colour.channels, 3);
  EXPECT_EQ(PixelsOf(colour), (std::vector<int>{1, 2, 3}));
  const Picture colourAlpha = DecodePicture(Png(1, 1, 6, std::string("\0\x01\x02\x03\x04", 5)));
  EXPECT_EQ(colourAlpha.channels, 4);
  EXPECT_EQ(PixelsOf(colourAlpha), (std::vector<int>{1, 2, 3, 4}));
}

TEST(DecodePicture, TellsTheFormatByTheFirstBytes) {
  const Picture picture = DecodePicture("P5 3 1 255\n\x10\x20\x30");
  EXPECT_EQ(picture.width, 3);
  EXPECT_EQ(PixelsOf(picture), (std::vector<int>{16, 32, 48}));
}

TEST(DecodePicture, GivesNothingForWhatIsNoPicture) {
  for (const std::string& file : {std::string(), std::string("no picture"), std::string(100, '\0')}) {
    const Picture picture = DecodePicture(file);
    EXPECT_EQ(picture.pixels, nullptr);
    EXPECT_EQ(picture.pixelBytes, 0u);
    EXPECT_EQ(picture.width, 0);
    EXPECT_EQ(picture.height, 0);
    EXPECT_EQ(picture.channels, 0);
  }
}

TEST(DecodePicture, GivesNothingForAPngThatBreaksOff) {
  const std::string whole = Png(2, 2, 0, std::string("\0\x01\x02\0\x03\x04", 6));
  ASSERT_NE(DecodePicture(whole).pixels, nullptr);
  EXPECT_EQ(DecodePicture(whole.substr(0, 50)).pixels, nullptr);
}

TEST(DecodePicture, RefusesMorePixelsThanTheFileCouldHold) {
  EXPECT_EQ(DecodePicture("P5 10000 10000 255\n\x10").pixels, nullptr);
  EXPECT_EQ(DecodePicture("P5 65535 65535 255\n" + std::string(1000, 'x')).pixels, nullptr);
}

TEST(DecodePicture, RefusesPixelDataThatUnpackToMuchMoreThanThePicture) {
  EXPECT_EQ(DecodePicture(Png(1, 1, 0, std::string(std::size_t{80} << 20, '\0'))).pixels, nullptr);
}

TEST(DecodePicture, SurvivesADamagedPicFileOfThreeChannels) {
  // 4 by 2 pixels; one packet that carries red, green and blue in a compression that does not exist.
  std::string file = std::string("\x53\x80\xF6\x34") + std::string(84, ' ') + "PICT";
  file += std::string("\0\x04\0\x02", 4) + std::string(8, '\0') + std::string("\0\x08\x09\xE0", 4);
  EXPECT_EQ(DecodePicture(file).pixels, nullptr);
}

TEST(DecodePicture, ReadsAPicFileOfThreeChannels) {
  std::string file = std::string("\x53\x80\xF6\x34") + std::string(84, ' ') + "PICT";
  file += std::string("\0\x02\0\x01", 4) + std::string(8, '\0') + std::string("\0\x08\0\xE0", 4) + "abcdef";
  const Picture picture = DecodePicture(file);
  EXPECT_EQ(picture.channels, 3);
  EXPECT_EQ(PixelsOf(picture), (std::vector<int>{'a', 'b', 'c', 'd', 'e', 'f'}));
}

TEST(DecodePicture, RefusesAJpegOfManyScans) {
  // A whole grey picture of 8 by 8 pixels: one quantisation table, two Huffman tables of one code each.
  const std::string head = std::string("\xFF\xD8\xFF\xDB\0\x43\0", 7) + std::string(64, '\x01') +
                           std::string("\xFF\xC0\0\x0B\x08\0\x08\0\x08\x01\x01\x11\0", 13) +
                           std::string("\xFF\xC4\0\x14\0\x01", 6) + std::string(15, '\0') +
                           std::string(1, '\0') + std::string("\xFF\xC4\0\x14\x10\x01", 6) +
                           std::string(15, '\0') + std::string(1, '\0');
  const std::string scan = std::string("\xFF\xDA\0\x08\x01\x01\0\0\x3F\0", 10) + "\x3F";
  const auto withScans = [&](int count) {
    std::string file = head;
    for (int i = 0; i < count; ++i) file += scan;
    return file + "\xFF\xD9";
  };
  EXPECT_EQ(PixelsOf(DecodePicture(withScans(1))), std::vector<int>(64, 128));
  EXPECT_NE(DecodePicture(withScans(100)).pixels, nullptr);
  EXPECT_EQ(DecodePicture(withScans(101)).pixels, nullptr);
}

}  // namespace
