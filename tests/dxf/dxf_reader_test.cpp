#include "dxf/dxf_reader.h"

#include <gtest/gtest.h>
#include <memory>
#include <string>

#include "dxf/tag_text.h"

namespace {

enum class Slot { kText, kInteger, kReal };

/// Reads one tag of the code with the value "7.5" and says which slot it went to.
Slot SlotOf(std::int32_t code) {
  TextReader source(std::to_string(code) + "\n7.5\n");
  std::int32_t read = 0;
  EXPECT_TRUE(source.reader.nextGroup(read));
  EXPECT_EQ(read, code);
  const bool text = source.reader.textValue == "7.5";
  const bool integer = source.reader.intValue == 7;
  const bool real = source.reader.realValue == 7.5;
  EXPECT_EQ(text + integer + real, 1) << code;
  if (text) return Slot::kText;
  return integer ? Slot::kInteger : Slot::kReal;
}

struct Range {
  std::int32_t first;
  std::int32_t last;
  Slot slot;
};

std::ostream& operator<<(std::ostream& out, const Range& range) {
  return out << range.first << ".." << range.last;
}

class GroupCodeRange : public testing::TestWithParam<Range> {};

TEST_P(GroupCodeRange, GoesToItsSlotFromTheFirstCodeToTheLast) {
  for (std::int32_t code = GetParam().first; code <= GetParam().last; ++code) {
    EXPECT_EQ(SlotOf(code), GetParam().slot) << code;
  }
}

INSTANTIATE_TEST_SUITE_P(DxfReader, GroupCodeRange,
                         testing::Values(Range{-5, 9, Slot::kText}, Range{10, 59, Slot::kReal},
                                         Range{60, 99, Slot::kInteger}, Range{100, 100, Slot::kText},
                                         Range{101, 101, Slot::kInteger}, Range{102, 102, Slot::kText},
                                         Range{103, 104, Slot::kInteger}, Range{105, 105, Slot::kText},
                                         Range{106, 109, Slot::kInteger}, Range{110, 149, Slot::kReal},
                                         Range{150, 209, Slot::kInteger}, Range{210, 239, Slot::kReal},
                                         Range{240, 299, Slot::kInteger}, Range{300, 369, Slot::kText},
                                         Range{370, 389, Slot::kInteger}, Range{390, 399, Slot::kText},
                                         Range{400, 409, Slot::kInteger}, Range{410, 419, Slot::kText},
                                         Range{420, 429, Slot::kInteger}, Range{430, 439, Slot::kText},
                                         Range{440, 459, Slot::kInteger}, Range{460, 469, Slot::kReal},
                                         Range{470, 480, Slot::kText}, Range{481, 998, Slot::kReal},
                                         Range{999, 1008, Slot::kText}, Range{1009, 1059, Slot::kReal},
                                         Range{1060, 1071, Slot::kInteger}, Range{1072, 1100, Slot::kText}));

/// Counts which fetch operation `nextGroup` chose: they differ where their slot does not.
class CountingReader : public dxfReader {
 public:
  using dxfReader::dxfReader;
  bool fetchShort() override { return ++shorts, dxfReader::fetchShort(); }
  bool fetchLong() override { return ++longs, dxfReader::fetchLong(); }
  bool fetchWide() override { return ++wides, dxfReader::fetchWide(); }
  bool fetchFlag() override { return ++flags, dxfReader::fetchFlag(); }

  int shorts = 0;
  int longs = 0;
  int wides = 0;
  int flags = 0;
};

/// The operations that read one tag of the code: short, long, wide, flag. A long or wide runs a short.
std::string OperationOf(std::int32_t code) {
  const std::string text = std::to_string(code) + "\n1\n";
  LineStream stream(text);
  DXF_Names names;
  CountingReader reader(stream, names);
  std::int32_t read = 0;
  reader.nextGroup(read);
  if (reader.longs == 1 && reader.shorts == 1) return "long";
  if (reader.wides == 1 && reader.shorts == 1) return "wide";
  if (reader.flags == 1) return "flag";
  return reader.shorts == 1 ? "short" : "other";
}

TEST(DxfReader, TellsShortLongWideAndFlagApartByRange) {
  for (const std::int32_t code :
       {60, 79, 80, 89, 101, 150, 159, 170, 179, 270, 289, 370, 389, 400, 409, 1060, 1070}) {
    EXPECT_EQ(OperationOf(code), "short") << code;
  }
  for (const std::int32_t code : {90, 99, 420, 429, 440, 459, 1071})
    EXPECT_EQ(OperationOf(code), "long") << code;
  for (const std::int32_t code : {160, 169}) EXPECT_EQ(OperationOf(code), "wide") << code;
  for (const std::int32_t code : {180, 209, 240, 269, 290, 299}) EXPECT_EQ(OperationOf(code), "flag") << code;
}

TEST(DxfReader, StartsWithoutAValue) {
  TextReader source("");
  EXPECT_EQ(source.reader.valueKind, 5);
  EXPECT_EQ(source.reader.realValue, 0.0);
  EXPECT_EQ(source.reader.intValue, 0);
  EXPECT_EQ(source.reader.wideValue, 0);
  EXPECT_FALSE(source.reader.skipComments);
  EXPECT_EQ(source.reader.decoder.versionClass, 7);
}

TEST(DxfReader, HasKindZeroAfterEveryValue) {
  for (const std::int32_t code : {1, 10, 62, 90, 160, 290}) {
    TextReader source(std::to_string(code) + "\n1\n");
    std::int32_t read = 0;
    ASSERT_TRUE(source.reader.nextGroup(read));
    EXPECT_EQ(source.reader.valueKind, 0) << code;
  }
}

TEST(DxfReader, KeepsASlotUntilAValueOfItsKindIsRead) {
  TextReader source("1\nabc\n10\n2.5\n62\n3\n");
  std::int32_t code = 0;
  while (source.reader.nextGroup(code)) {
  }
  EXPECT_EQ(source.reader.textValue, "abc");
  EXPECT_EQ(source.reader.realValue, 2.5);
  EXPECT_EQ(source.reader.intValue, 3);
}

TEST(DxfReader, TakesBlanksBeforeAGroupCode) {
  TextReader source("  10\n 1.5\n");
  std::int32_t code = 0;
  ASSERT_TRUE(source.reader.nextGroup(code));
  EXPECT_EQ(code, 10);
  EXPECT_EQ(source.reader.realValue, 1.5);
}

TEST(DxfReader, CountsALineOfLettersAsGroupZeroWithATextBehind) {
  TextReader source("abc\n12\n");
  std::int32_t code = 5;
  ASSERT_TRUE(source.reader.nextGroup(code));
  EXPECT_EQ(code, 0);
  EXPECT_EQ(source.reader.textValue, "12");
}

TEST(DxfReader, RemovesOneCarriageReturnAndNoBlanks) {
  TextReader source("1\r\n  a b \r\r\n");
  std::int32_t code = 0;
  ASSERT_TRUE(source.reader.nextGroup(code));
  EXPECT_EQ(code, 1);
  EXPECT_EQ(source.reader.textValue, "  a b \r");
}

TEST(DxfReader, LosesALastLineWithoutLineFeedAsATagButStoresIt) {
  TextReader source("1\nabc");
  std::int32_t code = 0;
  EXPECT_FALSE(source.reader.nextGroup(code));
  EXPECT_EQ(source.reader.textValue, "abc");
  EXPECT_FALSE(source.reader.nextGroup(code));
}

TEST(DxfReader, StoresNoNumberOfALastLineWithoutLineFeed) {
  TextReader source("62\n7");
  std::int32_t code = 0;
  EXPECT_FALSE(source.reader.nextGroup(code));
  EXPECT_EQ(source.reader.intValue, 0);
}

TEST(DxfReader, FailsAtOnceOnAnEmptyFile) {
  TextReader source("");
  std::int32_t code = 0;
  EXPECT_FALSE(source.reader.nextGroup(code));
}

TEST(DxfReader, FailsAfterACodeWithoutAValue) {
  TextReader source("8\n");
  std::int32_t code = 0;
  EXPECT_FALSE(source.reader.nextGroup(code));
}

TEST(DxfReader, ReadsSixtyFourBitGroupsIntoThirtyTwo) {
  TextReader source("160\n4294967299\n");
  std::int32_t code = 0;
  ASSERT_TRUE(source.reader.nextGroup(code));
  EXPECT_EQ(source.reader.intValue, 3);
  EXPECT_EQ(source.reader.wideValue, 0);
}

TEST(DxfReader, GivesZeroForATextInARealGroupAndReadsOn) {
  TextReader source("500\nwords\n8\nwalls\n");
  std::int32_t code = 0;
  ASSERT_TRUE(source.reader.nextGroup(code));
  EXPECT_EQ(source.reader.realValue, 0.0);
  ASSERT_TRUE(source.reader.nextGroup(code));
  EXPECT_EQ(source.reader.textValue, "walls");
}

TEST(DxfReader, ReturnsCommentsWhileNotToldToSkipThem) {
  TextReader source("999\nmade by hand\n");
  std::int32_t code = 0;
  ASSERT_TRUE(source.reader.nextGroup(code));
  EXPECT_EQ(code, 999);
  EXPECT_EQ(source.reader.textValue, "made by hand");
}

TEST(DxfReader, SwallowsARunOfCommentsInFull) {
  TextReader source("999\na\n999\nb\n999\nc\n62\n4\n");
  source.reader.skipComments = true;
  std::int32_t code = 0;
  ASSERT_TRUE(source.reader.nextGroup(code));
  EXPECT_EQ(code, 62);
  EXPECT_FALSE(source.reader.nextGroup(code));
}

TEST(DxfReader, ReadsHandlesAsHexadecimal) {
  struct Case {
    const char* text;
    std::uint32_t handle;
  };
  for (const auto& [text, handle] :
       {Case{"1A2B", 6699U}, Case{"xyz", 0U}, Case{"", 0U}, Case{" ff", 255U}, Case{"0x10", 16U},
        Case{"1G", 1U}, Case{"FFFFFFFF", 0xFFFFFFFFU}, Case{"100000000", 0U}}) {
    TextReader source("5\n" + std::string(text) + "\n");
    std::int32_t code = 0;
    ASSERT_TRUE(source.reader.nextGroup(code));
    EXPECT_EQ(source.reader.handleFromText(), handle) << text;
  }
}

TEST(DxfReader, ReservesNoMoreThanTheRestOfTheFileCouldHold) {
  TextReader source(std::string(400, '\n'));
  EXPECT_EQ(source.reader.reservable(1000000, 4), 100U);
  EXPECT_EQ(source.reader.reservable(7, 4), 7U);
  EXPECT_EQ(source.reader.reservable(-1, 4), 0U);
}

TEST(LineStream, ReadsANumberOfThreeCharacters) {
  LineStream stream("  0\n 10\r\n100\nrest\n");
  for (const std::int32_t expected : {0, 10, 100}) {
    std::int32_t number = -1;
    EXPECT_TRUE(stream.readShortNumber(number));
    EXPECT_EQ(number, expected);
  }
  std::string_view line;
  EXPECT_TRUE(stream.readLine(line));
  EXPECT_EQ(line, "rest");
}

TEST(LineStream, LeavesEveryOtherLineAsItStands) {
  for (const std::string text : {"10\nab\n", "1000\na\n", "1 0\na\n", "   \na\n", "1  \na\n", "-10\na\n",
                                 " +1\na\n", "\t10\na\n", " 10\rab\n", " 10\n", " 10", ""}) {
    LineStream stream(text);
    std::int32_t number = 7;
    EXPECT_FALSE(stream.readShortNumber(number)) << text;
    EXPECT_EQ(number, 7);
    EXPECT_EQ(stream.remaining(), text.size());
  }
}

TEST(LineStream, ReadsAShortDecimal) {
  LineStream stream("12.5\n-0.25\r\n7.\n.5\n-30\n1234567.12345678\nthe rest of the whole file\n");
  for (const double expected : {12.5, -0.25, 7.0, 0.5, -30.0, 1234567.12345678}) {
    double number = -1.0;
    EXPECT_TRUE(stream.readShortDecimal(number));
    EXPECT_EQ(number, expected);
  }
  std::string_view line;
  EXPECT_TRUE(stream.readLine(line));
  EXPECT_EQ(line, "the rest of the whole file");
}

TEST(LineStream, LeavesOtherNumbersAsTheyStand) {
  for (const std::string start : {".", "-.", "+1.5", " 1.5", "--1.5", "1.5e2", "1.5 ", "1.5\rx", "1.2.3",
                                  "nan", "12345678.5", "0x1.8", ""}) {
    const std::string text = start + "\nand more lines behind these\n";
    LineStream stream(text);
    double number = 7.0;
    EXPECT_FALSE(stream.readShortDecimal(number)) << start;
    EXPECT_EQ(number, 7.0);
    EXPECT_EQ(stream.remaining(), text.size());
  }
}

TEST(LineStream, LooksForNoDecimalBeyondTheEnd) {
  const std::string text = "-1234567.12345678\nand more";
  ASSERT_EQ(text.size(), 26U);
  for (std::size_t size = 0; size <= text.size(); ++size) {
    // A block of exactly these bytes, so that the sanitizer finds a look behind it.
    const auto bytes = std::make_unique<char[]>(size);
    text.copy(bytes.get(), size);
    LineStream stream({bytes.get(), size});
    double number = 0.0;
    EXPECT_EQ(stream.readShortDecimal(number), size >= 25) << size;
  }
}

TEST(LineStream, IsNotCleanOnceALineHadNoLineFeed) {
  LineStream stream("a\nb");
  std::string_view line;
  EXPECT_TRUE(stream.readLine(line));
  EXPECT_EQ(line, "a");
  EXPECT_TRUE(stream.clean());
  EXPECT_FALSE(stream.readLine(line));
  EXPECT_EQ(line, "b");
  EXPECT_FALSE(stream.clean());
  EXPECT_FALSE(stream.readLine(line));
  EXPECT_EQ(line, "b");
}

}  // namespace
