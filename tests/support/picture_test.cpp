#include "support/picture.h"

#include <gtest/gtest.h>
#include <string>
#include <vector>
#include <zlib.h>

#include "support/account.h"
#include "support/broken_png.h"

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

/// A PNG file of samples of `depth` bits; `colourType` 0 grey, 2 colour, 4 grey with alpha, 6 colour with
/// alpha. Each row of `rows` begins with its filter byte.
std::string Png(std::size_t width, std::size_t height, char colourType, const std::string& rows,
                char depth = 8) {
  std::vector<Bytef> packed(compressBound(static_cast<uLong>(rows.size())));
  uLongf size = static_cast<uLongf>(packed.size());
  compress(packed.data(), &size, reinterpret_cast<const Bytef*>(rows.data()),
           static_cast<uLong>(rows.size()));
  const std::string header = BigEndian(width) + BigEndian(height) + depth + colourType + std::string(3, '\0');
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

TEST(DecodePicture, ReadsAPngWhoseFirstDataChunkIsEmpty) {
  std::string file = Png(1, 1, 0, std::string("\0\x05", 2));
  file.insert(file.find("IDAT") - 4, Chunk("IDAT", ""));
  EXPECT_EQ(PixelsOf(DecodePicture(file)), (std::vector<int>{5}));
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

TEST(DecodePicture, RefusesAPngThatUnpacksToHundredsOfTimesItsPixels) {
  EXPECT_NE(DecodePicture(Png(1, 1, 0, std::string(10'000, '\0'))).pixels, nullptr);
  EXPECT_EQ(DecodePicture(Png(1, 1, 0, std::string(1'000'000, '\0'))).pixels, nullptr);
}

TEST(DecodePicture, TellsItsWorkEvenWhereNothingComesOfIt) {
  EXPECT_EQ(DecodePicture("P5 3 2 255\nabcdef").work, 6u);
  EXPECT_EQ(DecodePicture(BrokenPng()).pixels, nullptr);
  EXPECT_EQ(DecodePicture(BrokenPng()).work, kBrokenPngPixels);
  EXPECT_EQ(DecodePicture("P5 10000 10000 255\n\x10").work, 0u);
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

/// A grey JPEG file of one component that says it has `width` by `height` pixels, up to its first scan: one
/// quantisation table, two Huffman tables of one code each, which stands for an empty block.
std::string JpegHead(std::size_t width, std::size_t height) {
  return std::string("\xFF\xD8\xFF\xDB\0\x43\0", 7) + std::string(64, '\x01') +
         std::string("\xFF\xC0\0\x0B\x08", 5) + BigEndian(height).substr(2) + BigEndian(width).substr(2) +
         std::string("\x01\x01\x11\0", 4) + std::string("\xFF\xC4\0\x14\0\x01", 6) + std::string(16, '\0') +
         std::string("\xFF\xC4\0\x14\x10\x01", 6) + std::string(16, '\0');
}

const std::string kJpegScan = std::string("\xFF\xDA\0\x08\x01\x01\0\0\x3F\0", 10) + "\x3F";

TEST(DecodePicture, RefusesAJpegOfManyScans) {
  const auto withScans = [&](int count) {
    std::string file = JpegHead(8, 8);
    for (int i = 0; i < count; ++i) file += kJpegScan;
    return file + "\xFF\xD9";
  };
  EXPECT_EQ(PixelsOf(DecodePicture(withScans(1))), std::vector<int>(64, 128));
  EXPECT_NE(DecodePicture(withScans(100)).pixels, nullptr);
  EXPECT_EQ(DecodePicture(withScans(101)).pixels, nullptr);
}

TEST(DecodePicture, ReadsAJpegOfManyTables) {
  const std::string table = std::string("\xFF\xC4\0\x14\0\x01", 6) + std::string(16, '\0');
  std::string file = JpegHead(8, 8);
  for (int i = 0; i < 1000; ++i) file += table;
  EXPECT_EQ(PixelsOf(DecodePicture(file + kJpegScan + "\xFF\xD9")), std::vector<int>(64, 128));
}

/// The start of a segment whose Huffman table claims 257 codes, one more than the decoder has room for.
const std::string kBrokenTables = std::string("\xFF\xC4\x04\x13\0", 5) + std::string(15, '\x10') + '\x11';

/// Whether `file` was refused before the decoder saw its pixels.
bool IsRefused(const std::string& file) {
  const Picture picture = DecodePicture(file);
  return picture.pixels == nullptr && picture.work == 0;
}

TEST(DecodePicture, ReadsAJpegToItsEndMarkWhateverFollows) {
  const std::string whole = JpegHead(8, 8) + kJpegScan + "\xFF\xD9";
  std::string noise;
  for (std::uint32_t state = 1; noise.size() < 3'000'000; state = state * 1664525 + 1013904223) {
    noise += static_cast<char>(state >> 24);
  }
  std::string scans;
  for (int i = 0; i < 1000; ++i) scans += "\xFF\xDA";
  for (const std::string& rest : {noise, scans, kBrokenTables, whole + kBrokenTables}) {
    const Picture picture = DecodePicture(whole + rest);
    EXPECT_EQ(PixelsOf(picture), std::vector<int>(64, 128));
    EXPECT_EQ(picture.work, 64u);
  }
}

TEST(DecodePicture, CountsOnlyTheRealScansOfAJpeg) {
  std::string comment = std::string("\xFF\xFE\x03\xEA", 4);  // 1,000 bytes and two for their number
  for (int i = 0; i < 500; ++i) comment += "\xFF\xDA";
  const Picture picture = DecodePicture(JpegHead(8, 8) + comment + kJpegScan + "\xFF\xD9");
  EXPECT_EQ(PixelsOf(picture), std::vector<int>(64, 128));
  EXPECT_EQ(picture.work, 64u);
}

TEST(DecodePicture, FindsJpegTablesAfterAllThatTheDataOfAScanMayHold) {
  const std::string restartEveryBlock("\xFF\xDD\0\x04\0\x01", 6);
  const std::string start = JpegHead(8, 16).insert(2, restartEveryBlock) + kJpegScan;
  const std::string end = "\xFF\xD9";
  const std::string restart = "\xFF\xD0\x3F";
  const std::string stuffed = std::string("\xFF\0", 2);
  ASSERT_EQ(DecodePicture(start + restart + end).height, 16);
  for (const std::string& data : {restart, "\xFF" + restart, stuffed + restart, restart + stuffed}) {
    EXPECT_TRUE(IsRefused(start + data + kBrokenTables + end));
    EXPECT_TRUE(IsRefused(start + data + "\xFF\xFF" + kBrokenTables + end));
    EXPECT_TRUE(IsRefused(start + data + kJpegScan + kBrokenTables + end));
  }
}

/// A PNG file of white one-bit pixels.
std::string WhiteSheet(std::size_t width, std::size_t height) {
  const std::string row = '\0' + std::string((width + 7) / 8, '\xFF');
  std::string rows;
  for (std::size_t y = 0; y < height; ++y) rows += row;
  return Png(width, height, 0, rows, 1);
}

TEST(DecodePicture, ReadsAOneBitSheetOfA0At300DotsPerInch) {
  const std::string file = WhiteSheet(9933, 14043);
  support::Account account(support::Allowance::Of(0));
  const support::AccountScope scope(account);
  const Picture picture = DecodePicture(file);
  EXPECT_EQ(picture.width, 9933);
  EXPECT_EQ(picture.height, 14043);
  ASSERT_EQ(picture.pixelBytes, 139'489'119u);
  EXPECT_EQ(picture.pixels.get()[139'489'118], 255);
}

TEST(DecodePicture, GivesNothingForAPictureThatDoesNotFit) {
  const std::string file = WhiteSheet(9933, 14043);
  support::Account account({.held = 100'000'000, .working = 100'000'000, .work = 10'000'000'000});
  const support::AccountScope scope(account);
  EXPECT_EQ(DecodePicture(file).pixels, nullptr);
  EXPECT_EQ(account.Held(), 0u);
}

TEST(DecodePicture, DoesNotBeginAPictureBeyondTheWorkThatIsLeft) {
  support::Account account({.held = 1 << 30, .working = 1 << 30, .work = 200'000'000});
  const support::AccountScope scope(account);
  EXPECT_THROW(DecodePicture(BrokenPng()), support::WorkUsedUp);
}

TEST(DecodePicture, GivesNothingForAJpegThatBreaksOff) {
  ASSERT_NE(DecodePicture(JpegHead(8, 8) + kJpegScan + "\xFF\xD9").pixels, nullptr);
  EXPECT_EQ(DecodePicture(JpegHead(8, 8) + kJpegScan).pixels, nullptr);
  EXPECT_EQ(DecodePicture(JpegHead(8, 8)).pixels, nullptr);
}

// An intact file has at least one bit for each block of 64 pixels.
TEST(DecodePicture, RefusesAJpegOfMorePixelsThanItsBytesCouldHold) {
  const std::string scan = kJpegScan.substr(0, 10) + std::string(4096, '\0') + "\xFF\xD9";
  EXPECT_EQ(DecodePicture(JpegHead(2000, 2000) + scan).pixels, nullptr);
  EXPECT_EQ(DecodePicture(JpegHead(1400, 1400) + scan).width, 1400);
}

TEST(DecodePicture, RefusesJpegTablesOfMoreThan256Codes) {
  const std::string whole = JpegHead(8, 8) + kJpegScan + "\xFF\xD9";
  const auto withTables = [&](const std::string& segment) {
    return whole.substr(0, 2) + segment + whole.substr(2);
  };
  EXPECT_TRUE(IsRefused(withTables(kBrokenTables)));
  EXPECT_TRUE(IsRefused("\xFF\xFF" + withTables(kBrokenTables)));
  EXPECT_TRUE(IsRefused(withTables("\xFF" + kBrokenTables)));
  EXPECT_TRUE(IsRefused(JpegHead(8, 8) + kBrokenTables));
  EXPECT_TRUE(IsRefused(JpegHead(8, 8) + kJpegScan + kBrokenTables));
  EXPECT_TRUE(IsRefused(JpegHead(8, 8) + kJpegScan + kBrokenTables.substr(0, 20) + "\xFF"));
  EXPECT_EQ(DecodePicture(withTables("\xFF\xE1" + std::string("\0\x17", 2) + kBrokenTables)).width, 8)
      << "what looks like tables inside another segment does no harm";
}

TEST(DecodePicture, RefusesPngAndJpegPicturesWithoutPixels) {
  EXPECT_EQ(DecodePicture(Png(0, 0, 0, std::string())).pixels, nullptr);
  EXPECT_EQ(DecodePicture(Png(0, 2, 0, std::string(2, '\0'))).pixels, nullptr);
  EXPECT_EQ(DecodePicture(Png(2, 0, 0, std::string())).pixels, nullptr);
  EXPECT_EQ(DecodePicture(JpegHead(0, 8) + kJpegScan).pixels, nullptr);
  EXPECT_EQ(DecodePicture(JpegHead(8, 0) + kJpegScan).pixels, nullptr);
}

TEST(DecodePicture, GivesAPictureOfNoWidthOrNoHeight) {
  const Picture narrow = DecodePicture("P5 0 1 255\n");
  EXPECT_NE(narrow.pixels, nullptr);
  EXPECT_EQ(narrow.pixelBytes, 0u);
  EXPECT_EQ(narrow.width, 0);
  EXPECT_EQ(narrow.height, 1);
  EXPECT_EQ(narrow.channels, 1);
  const Picture flat = DecodePicture("P6 3 0 255\n");
  EXPECT_NE(flat.pixels, nullptr);
  EXPECT_EQ(flat.width, 3);
  EXPECT_EQ(flat.height, 0);
  EXPECT_EQ(flat.channels, 3);
  EXPECT_NE(DecodePicture("P5 0 0 255\n").pixels, nullptr);
}

TEST(DecodePicture, CountsTheRowsOfAPictureOfNoWidthAsWork) {
  EXPECT_EQ(DecodePicture("P5 0 5000 255\n").work, 5000u);
  EXPECT_EQ(DecodePicture("P5 5000 0 255\n").work, 5000u);
}

TEST(DecodePicture, RefusesSizesThatCannotBe) {
  const std::string rows(1000, '\0');
  for (const std::size_t size : {std::size_t{0x7FFFFFFF}, std::size_t{0x80000000}, std::size_t{0xFFFFFFFF}}) {
    EXPECT_EQ(DecodePicture(Png(size, size, 0, rows)).pixels, nullptr);
    EXPECT_EQ(DecodePicture(Png(size, 1, 0, rows)).pixels, nullptr);
    EXPECT_EQ(DecodePicture(Png(1, size, 6, rows)).pixels, nullptr);
  }
  EXPECT_EQ(DecodePicture(JpegHead(65535, 65535) + kJpegScan).pixels, nullptr);
}

TEST(DecodePicture, GivesNothingForAPngWithFewerPixelsThanItSays) {
  EXPECT_EQ(DecodePicture(Png(4, 4, 0, std::string("\0\x01\x02\x03\x04", 5))).pixels, nullptr);
}

/// A bitmap file of two pixels in one row, blue first.
std::string Bmp() {
  return std::string("BM\x3E\0\0\0\0\0\0\0\x36\0\0\0\x28\0\0\0\x02\0\0\0\x01\0\0\0\x01\0\x18\0", 30) +
         std::string(24, '\0') + std::string("\x03\x02\x01\x06\x05\x04\0\0", 8);
}

/// A GIF file of one black pixel.
std::string Gif() {
  return std::string("GIF89a\x01\0\x01\0\x80\0\0\0\0\0\xFF\xFF\xFF", 19) +
         std::string(",\0\0\0\0\x01\0\x01\0\0\x02\x02\x44\x01\0;", 16);
}

TEST(DecodePicture, ReadsABmpFile) {
  const Picture picture = DecodePicture(Bmp());
  EXPECT_EQ(picture.channels, 3);
  EXPECT_EQ(PixelsOf(picture), (std::vector<int>{1, 2, 3, 4, 5, 6}));
}

TEST(DecodePicture, ReadsAGifFile) {
  EXPECT_EQ(PixelsOf(DecodePicture(Gif())), (std::vector<int>{0, 0, 0, 255}));
}

/// Whole files of some formats.
std::vector<std::string> WholeFiles() {
  return {
      Png(2, 2, 6, std::string("\0\x01\x02\x03\x04\x05\x06\x07\x08\0\x01\x02\x03\x04\x05\x06\x07\x08", 18)),
      JpegHead(8, 8) + kJpegScan + "\xFF\xD9", Bmp(), Gif(), "P6 1 1 255\nabc"};
}

void ExpectWhole(const Picture& picture) {
  const auto expected = static_cast<std::size_t>(picture.width) * static_cast<std::size_t>(picture.height) *
                        static_cast<std::size_t>(picture.channels);
  EXPECT_EQ(picture.pixelBytes, expected);
  if (picture.pixels == nullptr) {
    EXPECT_EQ(picture.width, 0);
    EXPECT_EQ(picture.height, 0);
    EXPECT_EQ(picture.channels, 0);
  }
}

TEST(DecodePicture, SurvivesAnEndAtEveryByte) {
  for (const std::string& file : WholeFiles()) {
    for (std::size_t size = 0; size < file.size(); ++size) ExpectWhole(DecodePicture(file.substr(0, size)));
  }
}

TEST(DecodePicture, SurvivesDamageAtEveryByte) {
  for (const std::string& file : WholeFiles()) {
    for (std::size_t at = 0; at < file.size(); ++at) {
      for (const int flip : {0x01, 0x80, 0xFF}) {
        std::string damaged = file;
        damaged[at] = static_cast<char>(damaged[at] ^ flip);
        ExpectWhole(DecodePicture(damaged));
      }
    }
  }
}

}  // namespace
