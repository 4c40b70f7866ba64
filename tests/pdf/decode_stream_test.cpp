#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <vector>

#include "pdf/pdf_maker.h"
#include "pdf/stream_data.h"
#include "support/account.h"
#include "support/limits.h"

using namespace std::string_literals;
using pdf::PdfStreamData;

namespace {

using Plane = std::vector<std::uint8_t>;
using Names = std::vector<std::string>;

struct ImageSize {
  std::int32_t width;
  std::int32_t height;
};

/// A stream after decoding, with what went to standard output. `bytes` must outlive it.
struct Decoded {
  Decoded(const Names& filters, std::string_view bytes) {
    data.filters = filters;
    data.input = bytes;
    data.length = static_cast<std::uint32_t>(bytes.size());
    Run();
  }

  Decoded(const Names& filters, std::string_view bytes, ImageSize size, const std::string& colourSpace = "") {
    data.filters = filters;
    data.input = bytes;
    data.length = static_cast<std::uint32_t>(bytes.size());
    data.isImage = true;
    data.width = size.width;
    data.height = size.height;
    data.colourSpace = colourSpace;
    Run();
  }

  void Run() {
    pdf::PdfNotes notes;
    testing::internal::CaptureStdout();
    try {
      DecodeStream(data, notes);
    } catch (...) {
      testing::internal::GetCapturedStdout();
      throw;
    }
    output = testing::internal::GetCapturedStdout();
  }

  PdfStreamData data;
  std::string output;
};

}  // namespace

TEST(DecodeStream, TakesTheFirstLengthBytesWithoutFilter) {
  PdfStreamData data;
  data.input = "abcdef";
  data.length = 4;
  data.decoded = "x";
  pdf::PdfNotes notes;
  DecodeStream(data, notes);
  EXPECT_EQ(data.decoded, "xabcd");
  EXPECT_EQ(data.length, 4U);
}

TEST(DecodeStream, FailsForALengthBeyondTheData) {
  PdfStreamData data;
  data.input = "abc";
  data.length = 4;
  data.filters = {"/Unknown"};
  pdf::PdfNotes notes;
  EXPECT_THROW(DecodeStream(data, notes), std::out_of_range);
}

TEST(DecodeStream, CountsTheComponentsOfAnUnfilteredImage) {
  const Decoded image({}, "abcdefghijklm", {2, 3});
  EXPECT_EQ(image.data.components, 2);
  EXPECT_EQ(image.data.plainPlane, "abcdefghijklm");
  EXPECT_TRUE(image.data.imagePlane.empty());
  EXPECT_EQ(image.data.decoded, "");
}

TEST(DecodeStream, GivesNoComponentsToAnImageWithoutSize) {
  EXPECT_EQ(Decoded({}, "abc", {0, 3}).data.components, 0);
  EXPECT_EQ(Decoded({}, "abc", {3, 0}).data.components, 0);
  EXPECT_EQ(Decoded({"/FlateDecode"}, PdfMaker::Deflate("abc"), {0, 3}).data.components, 0);
}

TEST(DecodeStream, LeavesTheBytesOfTwoFiltersAsTheyAre) {
  const Decoded stream({"/ASCIIHexDecode", "/FlateDecode"}, "4142");
  EXPECT_EQ(stream.data.decoded, "4142");
  EXPECT_EQ(stream.data.length, 4U);
  EXPECT_EQ(stream.output, "");
}

TEST(DecodeStream, MakesAnImageWithTwoFiltersWhite) {
  const Decoded image({"/ASCII85Decode", "/DCTDecode"}, "abc", {3, 2});
  EXPECT_EQ(image.data.components, 1);
  EXPECT_EQ(image.data.length, 6U);
  EXPECT_EQ(image.data.length, 6U);
  EXPECT_TRUE(image.data.imagePlane.empty()) << "pixels without bytes are white";
  EXPECT_EQ(image.output, "");
}

TEST(DecodeStream, GivesNothingForUnknownFiltersAndAbbreviations) {
  for (const char* name : {"/DCT", "/Fl", "/AHx", "FlateDecode", "/Crypt", "["}) {
    const Decoded stream({name}, "4142");
    EXPECT_EQ(stream.data.decoded, "") << name;
    EXPECT_EQ(stream.data.length, 4U);
    EXPECT_EQ(stream.output, "");
    EXPECT_TRUE(Decoded({name}, "4142", {2, 2}).data.imagePlane.empty());
  }
}

TEST(DecodeStream, LeavesTheLengthBehindAsciiHex) {
  const Decoded stream({"/ASCIIHexDecode"}, "4142");
  EXPECT_EQ(stream.data.decoded, "AB\0"s);
  EXPECT_EQ(stream.data.length, 4U);
}

TEST(DecodeStream, SetsTheLengthBehindAscii85) {
  const Decoded stream({"/ASCII85Decode"}, "9jqo^9j");
  EXPECT_EQ(stream.data.decoded, "Man Ma\xFD\xA8");
  EXPECT_EQ(stream.data.length, 6U);
}

TEST(DecodeStream, GivesNoPlaneForTextFilters) {
  EXPECT_TRUE(Decoded({"/ASCIIHexDecode"}, "4142", {1, 1}).data.imagePlane.empty());
  EXPECT_TRUE(Decoded({"/ASCII85Decode"}, "9jqo^", {2, 2}).data.imagePlane.empty());
}

TEST(DecodeStream, SetsTheLengthBehindFlate) {
  const Decoded stream({"/FlateDecode"}, PdfMaker::Deflate(std::string(1000, 'a')));
  EXPECT_EQ(stream.data.decoded, std::string(1000, 'a'));
  EXPECT_EQ(stream.data.length, 1000U);
}

TEST(DecodeStream, TriesCorruptFlateDataThreeTimesAndLeavesTheLength) {
  const Decoded stream({"/FlateDecode"}, "abcdef");
  EXPECT_EQ(stream.data.decoded, "");
  EXPECT_EQ(stream.data.length, 6U);
  EXPECT_EQ(stream.output, "input error!\ninput error!\ninput error!\n");
}

TEST(DecodeStream, GivesAFlateImageOneOrThreeBytesAPixelAsTheyStand) {
  const Decoded grey({"/FlateDecode"}, PdfMaker::Deflate("abcd"), {2, 2});
  EXPECT_EQ(grey.data.components, 1);
  EXPECT_EQ(grey.data.imagePlane, (Plane{'a', 'b', 'c', 'd'}));
  const Decoded colour({"/FlateDecode"}, PdfMaker::Deflate("abcdef"), {2, 1});
  EXPECT_EQ(colour.data.components, 3);
  EXPECT_EQ(colour.data.imagePlane, (Plane{'a', 'b', 'c', 'd', 'e', 'f'}));
  EXPECT_EQ(colour.data.length, 6U);
}

TEST(DecodeStream, CutsASurplusOfAFlateImage) {
  const Decoded image({"/FlateDecode"}, PdfMaker::Deflate("abcde"), {2, 2});
  EXPECT_EQ(image.data.components, 1);
  EXPECT_EQ(image.data.imagePlane, (Plane{'a', 'b', 'c', 'd'}));
}

TEST(DecodeStream, TurnsTheBytesOfACmykPixel) {
  const Decoded image({"/FlateDecode"}, PdfMaker::Deflate("abcdefgh"), {1, 2}, "/DeviceCMYK");
  EXPECT_EQ(image.data.components, 4);
  EXPECT_EQ(image.data.imagePlane, (Plane{'b', 'c', 'd', 'a', 'f', 'g', 'h', 'e'}));
}

TEST(DecodeStream, LeavesThePlaneEmptyForOtherNumbersOfComponents) {
  const Decoded four({"/FlateDecode"}, PdfMaker::Deflate("abcdefgh"), {1, 2}, "[");
  EXPECT_EQ(four.data.components, 4);
  EXPECT_TRUE(four.data.imagePlane.empty());
  const Decoded two({"/FlateDecode"}, PdfMaker::Deflate("abcd"), {1, 2}, "/DeviceCMYK");
  EXPECT_EQ(two.data.components, 2);
  EXPECT_TRUE(two.data.imagePlane.empty());
  EXPECT_EQ(Decoded({"/FlateDecode"}, PdfMaker::Deflate("a"), {2, 2}).data.components, 0);
}

TEST(DecodeStream, KeepsPredictorBytes) {
  EXPECT_EQ(Decoded({"/FlateDecode"}, PdfMaker::Deflate("\x02"
                                                        "ab\x02"
                                                        "cd"))
                .data.decoded,
            "\x02"
            "ab\x02"
            "cd");
}

TEST(DecodeStream, DecodesLzwToBytesAndLeavesTheLength) {
  // 256, 65, 66, 257 in nine bits each: 100000000 001000001 001000010 100000001.
  const Decoded stream({"/LZWDecode"}, "\x80\x10\x48\x50\x10");
  EXPECT_EQ(stream.data.decoded, "AB");
  EXPECT_EQ(stream.data.length, 5U);
}

TEST(DecodeStream, TakesRunLengthAndLzwImagesForBitmapsOfOppositeSense) {
  const Decoded lzw({"/LZWDecode"}, "\x80\x10\x48\x50\x10", {3, 2});
  // "A" is 010..., "B" is 010...
  EXPECT_EQ(lzw.data.imagePlane, (Plane{0, 255, 0, 0, 255, 0}));
  EXPECT_EQ(lzw.data.components, 1);
  EXPECT_EQ(lzw.data.decoded, "");
  const Decoded runs({"/RunLengthDecode"},
                     "\x01"
                     "AB\x80",
                     {3, 2});
  EXPECT_EQ(runs.data.imagePlane, (Plane{255, 0, 255, 255, 0, 255}));
  EXPECT_EQ(runs.data.components, 1);
}

TEST(DecodeStream, FailsForBitmapsWithTooFewRows) {
  EXPECT_THROW(Decoded({"/RunLengthDecode"},
                       "\x01"
                       "AB\x80",
                       {3, 3}),
               std::out_of_range);
  EXPECT_THROW(Decoded({"/LZWDecode"}, "\x80\x10\x48\x50\x10", {9, 2}), std::out_of_range);
}

TEST(DecodeStream, FailsForLzwAndRunLengthDataThatBreakOff) {
  EXPECT_THROW(Decoded({"/LZWDecode"}, "\x80\x10"), std::out_of_range);
  EXPECT_THROW(Decoded({"/RunLengthDecode"},
                       "\x05"
                       "AB"),
               std::out_of_range);
}

TEST(DecodeStream, DecodesRunLengthToBytes) {
  const Decoded stream({"/RunLengthDecode"},
                       "\x01"
                       "AB\x80");
  EXPECT_EQ(stream.data.decoded, "AB");
  EXPECT_EQ(stream.data.length, 4U);
}

TEST(DecodeStream, FillsFaxAndJbig2AndJpegImagesWithWhite) {
  const std::pair<const char*, const char*> filters[] = {
      {"/CCITTFaxDecode", "CCITTFaxDecode\n"}, {"/JBIG2Decode", "JBIG2Decode\n"}, {"/DCTDecode", ""}};
  for (const auto& [name, note] : filters) {
    const Decoded image({name}, "abc", {3, 2});
    EXPECT_EQ(image.data.length, 6U) << name;
    EXPECT_TRUE(image.data.imagePlane.empty()) << "pixels without bytes are white";
    EXPECT_EQ(image.data.components, 1);
    EXPECT_EQ(image.data.length, 6U);
    EXPECT_EQ(image.output, note);
    EXPECT_EQ(Decoded({name}, "abc").data.decoded, "");
  }
}

TEST(DecodeStream, DropsImagesOfAbsurdSize) {
  for (const ImageSize size : {ImageSize{-1, 5}, ImageSize{5, -1}, ImageSize{-3, -3},
                               ImageSize{2147483647, 2147483647}, ImageSize{1 << 16, (1 << 15) + 1}}) {
    for (const Names& filters : {Names{}, Names{"/DCTDecode"}, Names{"/FlateDecode"}, Names{"/A", "/B"}}) {
      const Decoded image(filters, "abc", size);
      EXPECT_TRUE(image.data.imagePlane.empty());
      EXPECT_TRUE(image.data.plainPlane.empty());
    }
    EXPECT_FALSE(pdf::IsAllowedImageSize(size.width, size.height));
  }
  EXPECT_TRUE(pdf::IsAllowedImageSize(1 << 16, 1 << 15));
  EXPECT_TRUE(pdf::IsAllowedImageSize(0, 2147483647));
}

TEST(DecodeStream, ThrowsWhereTheOutputIsBeyondTheAccount) {
  const std::string bytes = PdfMaker::Deflate(std::string(1 << 20, 'a'));
  PdfStreamData data;
  data.filters = {"/FlateDecode"};
  data.input = bytes;
  data.length = static_cast<std::uint32_t>(bytes.size());
  pdf::PdfNotes notes;
  support::Account account({.held = 1 << 20, .working = 1 << 20, .work = 1 << 30});
  const support::AccountScope scope(account);
  EXPECT_THROW(DecodeStream(data, notes), support::MemoryUsedUp);
}

TEST(DecodeFilter, AppendsTheOutputToTheInputBetweenFiltersAndNotesIt) {
  PdfStreamData data;
  data.filters = {"/ASCIIHexDecode", "/RunLengthDecode"};
  data.input =
      "\x01"
      "41\x80";
  data.length = 4;
  pdf::PdfNotes notes;
  testing::internal::CaptureStdout();
  DecodeFilter(data, notes);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "级联过滤器\n");
  // The second filter finds the first one's input before its output.
  EXPECT_EQ(data.decoded, "A\0"s + "41");
}

TEST(DecodeFilter, EndsAtAnUnknownName) {
  PdfStreamData data;
  data.filters = {"/Unknown", "/ASCIIHexDecode"};
  data.input = "41";
  data.length = 2;
  pdf::PdfNotes notes;
  DecodeFilter(data, notes);
  EXPECT_EQ(data.decoded, "");
}
