#include <gtest/gtest.h>
#include <stdexcept>
#include <string>
#include <vector>

#include "pdf/filters/ascii85.h"
#include "pdf/filters/ascii_hex.h"
#include "pdf/filters/bitmap_rows.h"
#include "pdf/filters/flate.h"
#include "pdf/filters/lzw.h"
#include "pdf/filters/run_length.h"
#include "pdf/pdf_maker.h"
#include "support/account.h"

using namespace std::string_literals;
using pdf::DecodeAscii85;
using pdf::DecodeAsciiHex;
using pdf::DecodeRunLength;
using pdf::FlateResult;
using pdf::Inflate;
using pdf::PdfLzwDecoder;

namespace {

/// Codes of the given widths, the highest bit first.
class CodeWriter {
 public:
  CodeWriter& Add(unsigned code, unsigned width) {
    for (unsigned bit = width; bit-- > 0;) {
      if (used % 8 == 0) bytes.push_back('\0');
      if ((code >> bit & 1U) != 0) bytes.back() = static_cast<char>(bytes.back() | (0x80 >> (used % 8)));
      ++used;
    }
    return *this;
  }

  std::string bytes;

 private:
  unsigned used = 0;
};

std::string LzwOf(const std::vector<unsigned>& codes) {
  CodeWriter writer;
  for (const unsigned code : codes) writer.Add(code, 9);
  return writer.bytes;
}

std::string DecodeLzw(const std::string& bytes) { return PdfLzwDecoder(bytes).Decode(); }

}  // namespace

TEST(AsciiHex, GivesABytePerPairAndANul) { EXPECT_EQ(DecodeAsciiHex("41 42>"), "AB\0"s); }

TEST(AsciiHex, SkipsEverythingThatIsNoDigitTheEndMarkerIncluded) {
  EXPECT_EQ(DecodeAsciiHex("4>g1\n4 b6C"), "AKl\0"s);
}

TEST(AsciiHex, DropsADigitWithoutPartner) {
  EXPECT_EQ(DecodeAsciiHex("414"), "A\0"s);
  EXPECT_EQ(DecodeAsciiHex("4"), "\0"s);
  EXPECT_EQ(DecodeAsciiHex(""), "\0"s);
}

TEST(Ascii85, DecodesFullGroupsUpToTheTilde) {
  // "Man " is 24·85^4 + 73·85^3 + 80·85^2 + 78·85 + 61.
  const auto output = DecodeAscii85("9jqo^ 9j\nqo^~9jqo^");
  EXPECT_EQ(output.bytes, "Man Man ");
  EXPECT_EQ(output.count, 8U);
}

TEST(Ascii85, KnowsNoZ) {
  EXPECT_EQ(DecodeAscii85("z").bytes, "");
  EXPECT_EQ(DecodeAscii85("z").count, 0U);
  EXPECT_EQ(DecodeAscii85("9jzqo^").bytes, "Man ");
}

TEST(Ascii85, RepeatsTheDigitsBeforeForAValueWithTheTopBit) {
  // "s8W-!" is 0xFFFFFFFF.
  EXPECT_EQ(DecodeAscii85("s8W-!").bytes, "\0\0\0\0"s);
  EXPECT_EQ(DecodeAscii85("9jqo^s8W-!").bytes, "Man Man ");
  EXPECT_EQ(DecodeAscii85("9jqo^s8W-!").count, 8U);
}

TEST(Ascii85, WritesAllDigitsOfASmallFullGroup) {
  EXPECT_EQ(DecodeAscii85("9jqo^!!!!!").bytes, "Man \0\0\0\0"s);
}

TEST(Ascii85, WrapsValuesAboveThirtyTwoBits) {
  // "uuuuu" is 85^5 - 1 = 2^32 + 0x08780EC4.
  EXPECT_EQ(DecodeAscii85("uuuuu").bytes, "\x08\x78\x0E\xC4");
}

TEST(Ascii85, AppendsFourBytesForTwoValuesLeftAndCountsTwo) {
  // (24·85 + 73)·614125 + 621435 = 0x4D61FDA8.
  const auto output = DecodeAscii85("9j");
  EXPECT_EQ(output.bytes, "Ma\xFD\xA8");
  EXPECT_EQ(output.count, 2U);
}

TEST(Ascii85, CountsThreeForThreeValuesLeft) {
  // 179685·7225 + 7310 = 0x4D61708B.
  const auto output = DecodeAscii85("9jq");
  EXPECT_EQ(output.bytes, "Map\x8B");
  EXPECT_EQ(output.count, 3U);
}

TEST(Ascii85, CountsFourForFourValuesLeft) {
  // (179685·85 + 78 + 1)·85 = 0x4D616E38.
  const auto output = DecodeAscii85("9jqo");
  EXPECT_EQ(output.bytes, "Man8");
  EXPECT_EQ(output.count, 4U);
}

TEST(Ascii85, DropsASingleValueLeft) {
  EXPECT_EQ(DecodeAscii85("9jqo^9").bytes, "Man ");
  EXPECT_EQ(DecodeAscii85("9jqo^9").count, 4U);
}

TEST(Ascii85, KeepsHigherDigitsBeforeASmallValueLeft) {
  // 621435 is 0x97B7B, five digits; the three before them are those of 0x4D616E20.
  EXPECT_EQ(DecodeAscii85("9jqo^!!").bytes, "Man \x4D\x69\x7B\x7B");
}

TEST(Ascii85, KeepsAllDigitsBeforeAValueLeftWithTheTopBit) {
  // (80·85 + 0)·614125 + 621435 = 4 176 671 435 = 0xF8F2F2CB.
  EXPECT_EQ(DecodeAscii85("9jqo^q!").bytes, "Man Man ");
  EXPECT_EQ(DecodeAscii85("9jqo^q!").count, 6U);
}

TEST(Lzw, DecodesStringsOfTheTableAndOneThatIsNotYetInIt) {
  // A, B, 258 = AB, and 260, which is made by this very code: AB + A.
  EXPECT_EQ(DecodeLzw(LzwOf({256, 65, 66, 258, 260, 257})), "ABABABA");
}

TEST(Lzw, StartsAgainBehindAClearingCode) {
  EXPECT_EQ(DecodeLzw(LzwOf({256, 65, 66, 258, 256, 67, 68, 258, 257})), "ABABCDCD");
}

TEST(Lzw, EndsBehindAClearingCode) { EXPECT_EQ(DecodeLzw(LzwOf({256, 65, 256, 257})), "A"); }

TEST(Lzw, ClearsOnceMoreForAClearCodeRightAfterOne) {
  EXPECT_EQ(DecodeLzw(LzwOf({256, 256, 65, 66, 258, 257})), "ABAB");
  EXPECT_EQ(DecodeLzw(LzwOf({256, 65, 66, 256, 256, 256, 67, 68, 258, 257})), "ABCDCD");
}

TEST(Lzw, GivesNothingForACodeBeyondTheTableWithNoStringBeforeIt) {
  EXPECT_EQ(DecodeLzw(LzwOf({400, 257})), "");
  EXPECT_EQ(DecodeLzw(LzwOf({256, 400, 65, 257})), "A");
}

TEST(Lzw, NeedsNoClearingCodeAtTheStart) {
  // Without one the first code makes an entry of its own: 258 = A, 259 = AB.
  EXPECT_EQ(DecodeLzw(LzwOf({65, 66, 258, 259, 257})), "ABAAB");
}

TEST(Lzw, TakesAnyCodeAboveTheTableForThePreviousStringAndItsFirstByte) {
  EXPECT_EQ(DecodeLzw(LzwOf({256, 65, 400, 257})), "AAA");
}

TEST(Lzw, IgnoresWhatFollowsTheEnd) { EXPECT_EQ(DecodeLzw(LzwOf({256, 65, 257, 66, 66})), "A"); }

TEST(Lzw, WidensItsCodesOneCodeEarly) {
  // The n-th code behind the clearing one makes entry 256 + n, so the width grows behind the codes 254, 766
  // and 1790, and stays at 12 when the table is full.
  CodeWriter writer;
  writer.Add(256, 9);
  std::string expected;
  for (unsigned n = 1; n <= 5000; ++n) {
    const unsigned width = n <= 254 ? 9 : n <= 766 ? 10 : n <= 1790 ? 11 : 12;
    writer.Add(n * 7 % 251, width);
    expected.push_back(static_cast<char>(n * 7 % 251));
  }
  writer.Add(257, 12);
  EXPECT_EQ(DecodeLzw(writer.bytes), expected);
}

TEST(Lzw, FailsWhereTheDataEndBeforeTheEndCode) {
  EXPECT_THROW(DecodeLzw(LzwOf({256, 65})), std::out_of_range);
  EXPECT_THROW(DecodeLzw(""), std::out_of_range);
}

TEST(RunLength, CopiesAndRepeats) {
  // 1: two bytes as they stand; 0xFE is -2: three times the next. The last byte is not looked at.
  EXPECT_EQ(DecodeRunLength("\x01"
                            "AB\xFE"
                            "C\x80"),
            "ABCCC");
}

TEST(RunLength, Repeats129TimesFor128) { EXPECT_EQ(DecodeRunLength("\x80Z\x80"), std::string(129, 'Z')); }

TEST(RunLength, HasNoOutputForLessThanTwoBytes) {
  EXPECT_EQ(DecodeRunLength(""), "");
  EXPECT_EQ(DecodeRunLength("\x01"), "");
}

TEST(RunLength, FailsWhereACopyReachesBehindTheData) {
  EXPECT_THROW(DecodeRunLength("\x05"
                               "AB"),
               std::out_of_range);
}

TEST(Flate, AppendsWhatWasCompressed) {
  std::string output = "x";
  EXPECT_EQ(Inflate(PdfMaker::Deflate("hello"), output), FlateResult::kComplete);
  EXPECT_EQ(output, "xhello");
}

TEST(Flate, InflatesMoreThanTheFirstRoom) {
  std::string text;
  for (int i = 0; i < 60000; ++i) text += std::to_string(i);
  std::string output;
  EXPECT_EQ(Inflate(PdfMaker::Deflate(text), output), FlateResult::kComplete);
  EXPECT_EQ(output, text);
}

TEST(Flate, IgnoresBytesBehindTheEnd) {
  std::string output;
  EXPECT_EQ(Inflate(PdfMaker::Deflate("hello") + "\nendstream", output), FlateResult::kComplete);
  EXPECT_EQ(output, "hello");
}

TEST(Flate, TakesDataThatBreakOffOrAreEmptyForCorrupt) {
  const std::string whole = PdfMaker::Deflate("hello hello hello");
  for (std::size_t size = 0; size < whole.size(); ++size) {
    std::string output = "x";
    EXPECT_EQ(Inflate(whole.substr(0, size), output), FlateResult::kCorrupt) << size;
    EXPECT_EQ(output, "x");
  }
}

TEST(Flate, TakesAWrongChecksumForCorrupt) {
  std::string bytes = PdfMaker::Deflate("hello");
  bytes.back() = static_cast<char>(bytes.back() ^ 1);
  std::string output;
  EXPECT_EQ(Inflate(bytes, output), FlateResult::kCorrupt);
  EXPECT_EQ(output, "");
}

TEST(Flate, ThrowsWhereTheOutputIsBeyondTheAccount) {
  const std::string bytes = PdfMaker::Deflate(std::string(1 << 20, 'a'));
  support::Account account({.held = 1 << 20, .working = 1 << 20, .work = 1 << 30});
  const support::AccountScope scope(account);
  std::string output;
  EXPECT_THROW(Inflate(bytes, output), support::MemoryUsedUp);
}

TEST(BitmapRows, BeginEachRowAtAWholeByte) {
  std::vector<std::uint8_t> plane;
  // 1010 0000 0100 0000 | 0000 0000 1000 0000
  pdf::AppendBitmapRows("\xA0\x40\x00\x80"s, 10, 2, 255, 0, plane);
  EXPECT_EQ(plane, (std::vector<std::uint8_t>{255, 0, 255, 0, 0, 0, 0, 0, 0,   255,  //
                                              0,   0, 0,   0, 0, 0, 0, 0, 255, 0}));
}

TEST(BitmapRows, HaveNoGapWhereTheWidthIsAMultipleOfEight) {
  std::vector<std::uint8_t> plane;
  pdf::AppendBitmapRows("\x80\x01"s, 8, 2, 0, 255, plane);
  EXPECT_EQ(plane, (std::vector<std::uint8_t>{0, 255, 255, 255, 255, 255, 255, 255,  //
                                              255, 255, 255, 255, 255, 255, 255, 0}));
}

TEST(BitmapRows, FailWhereTheBitmapIsTooShort) {
  std::vector<std::uint8_t> plane;
  EXPECT_THROW(pdf::AppendBitmapRows("abc", 10, 2, 0, 255, plane), std::out_of_range);
  pdf::AppendBitmapRows("", 0, 2, 0, 255, plane);
  pdf::AppendBitmapRows("", 9, 0, 0, 255, plane);
  EXPECT_TRUE(plane.empty());
}
