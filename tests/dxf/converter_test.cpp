#include <gtest/gtest.h>

#include "dxf/dxf_converter.h"

namespace {

const DXF_Converter kPlain;

TEST(PlainConverter, DecodesAnEscapeToUtf8) {
  EXPECT_EQ(kPlain.toUtf8("\\U+4E2D"), "\xE4\xB8\xAD");
  EXPECT_EQ(kPlain.toUtf8("a\\U+00B0b\\U+2205c"),
            "a\xC2\xB0"
            "b\xE2\x88\x85"
            "c");
  EXPECT_EQ(kPlain.toUtf8("\\U+0041"), "A");
}

TEST(PlainConverter, LeavesAnEscapeThatTheEndCutsOff) {
  EXPECT_EQ(kPlain.toUtf8("\\U+4E2"), "\\U+4E2");
  EXPECT_EQ(kPlain.toUtf8("abc\\U+"), "abc\\U+");
}

TEST(PlainConverter, ConsumesABadEscape) {
  EXPECT_EQ(kPlain.toUtf8("a\\U+GGGGb"), "ab");
  EXPECT_EQ(kPlain.toUtf8("a\\U+0000b"), "ab");
}

TEST(PlainConverter, ReadsTheFourCharactersAsAStreamDoes) {
  EXPECT_EQ(kPlain.toUtf8("\\U+  41"), "A");
  EXPECT_EQ(kPlain.toUtf8("\\U+0x41"), "A");
  EXPECT_EQ(kPlain.toUtf8("\\U+41zz"), "A");
}

TEST(PlainConverter, LeavesASmallU) { EXPECT_EQ(kPlain.toUtf8("\\u+4E2D"), "\\u+4E2D"); }

TEST(PlainConverter, LeavesBytesOfEveryCharacterSet) {
  EXPECT_EQ(kPlain.toUtf8("\xD6\xD0\xCE\xC4"), "\xD6\xD0\xCE\xC4");
  EXPECT_EQ(kPlain.toUtf8("\xE1 \\P"), "\xE1 \\P");
}

TEST(PlainConverter, StepsOverTheBytesBehindALeadByteUnseen) {
  // 0x80 to 0xDF hide one byte, 0xE0 to 0xEF two, 0xF0 to 0xF7 three, 0xF8 and above none.
  EXPECT_EQ(kPlain.toUtf8("\x80\\U+0041"), "\x80\\U+0041");
  EXPECT_EQ(kPlain.toUtf8("\xDF\\U+0041"), "\xDF\\U+0041");
  EXPECT_EQ(kPlain.toUtf8("\xDF-\\U+0041"), "\xDF-A");
  EXPECT_EQ(kPlain.toUtf8("\xE0-\\U+0041"), "\xE0-\\U+0041");
  EXPECT_EQ(kPlain.toUtf8("\xEF--\\U+0041"), "\xEF--A");
  EXPECT_EQ(kPlain.toUtf8("\xF0--\\U+0041"), "\xF0--\\U+0041");
  EXPECT_EQ(kPlain.toUtf8("\xF7---\\U+0041"), "\xF7---A");
  EXPECT_EQ(kPlain.toUtf8("\xF8\\U+0041"),
            "\xF8"
            "A");
}

TEST(PlainConverter, DecodesSurrogatesOneByOne) {
  EXPECT_EQ(kPlain.toUtf8("\\U+D83D\\U+DE00"), "\xED\xA0\xBD\xED\xB8\x80");
}

TEST(PlainConverter, ReturnsUtf8AsItIs) { EXPECT_EQ(kPlain.fromUtf8("\\U+0041\xE4"), "\\U+0041\xE4"); }

TEST(PlainConverter, HasNoTable) {
  EXPECT_EQ(kPlain.table, nullptr);
  EXPECT_EQ(kPlain.cpLength, 0);
}

const DXF_ConvTable kCyrillic(codepages::kCodePage1251);

TEST(TableConverter, HasTheTableOfItsPage) {
  EXPECT_EQ(kCyrillic.table, codepages::kCodePage1251.data());
  EXPECT_EQ(kCyrillic.cpLength, 128);
}

TEST(TableConverter, DecodesBytesThroughItsTable) {
  EXPECT_EQ(kCyrillic.toUtf8("a\xC0\xFF"), "a\xD0\x90\xD1\x8F");
  EXPECT_EQ(kCyrillic.toUtf8("\xC0\\U+0041"),
            "\xD0\x90"
            "A");
}

TEST(TableConverter, DropsUndefinedBytes) {
  EXPECT_EQ(kCyrillic.toUtf8("a\x98"
                             "b"),
            "ab");
}

TEST(TableConverter, EncodesThroughItsTable) {
  EXPECT_EQ(kCyrillic.fromUtf8("a\xD0\x90\xD1\x8F"), "a\xC0\xFF");
  EXPECT_EQ(kCyrillic.fromUtf8("\xE2\x82\xAC"), "\x88");
}

TEST(TableConverter, EscapesWhatItsTableDoesNotHave) {
  EXPECT_EQ(kCyrillic.fromUtf8("\xE4\xB8\xAD"), "\\U+4E2D");
  EXPECT_EQ(kCyrillic.fromUtf8("\xC3\xA9"), "\\U+00E9");
  EXPECT_EQ(kCyrillic.fromUtf8("\xF0\x9F\x98\x80"), "\\U+1F600");
}

TEST(TableConverter, CountsMissingBytesOfASequenceAsZero) {
  EXPECT_EQ(kCyrillic.fromUtf8("\xE4\xB8"), "\\U+4E00");
}

const DXF_ConvDBCSTable kChinese(codepages::kCodePage936);

TEST(DoubleByteConverter, HasTheTablesOfItsPage) {
  EXPECT_EQ(kChinese.cpLength, 21791);
  EXPECT_EQ(kChinese.doubleTable, codepages::kCodePage936.pairs.data());
  EXPECT_EQ(kChinese.leadTable, codepages::kCodePage936.leadTable.data());
}

TEST(DoubleByteConverter, DecodesPairs) { EXPECT_EQ(kChinese.toUtf8("a\xD6\xD0z"), "a\xE4\xB8\xADz"); }

TEST(DoubleByteConverter, DecodesTheEuroByteAndEscapes) {
  EXPECT_EQ(kChinese.toUtf8("\x80"), "\xE2\x82\xAC");
  EXPECT_EQ(kChinese.toUtf8("\xD6\xD0\\U+0041"),
            "\xE4\xB8\xAD"
            "A");
}

TEST(DoubleByteConverter, GivesAQuestionMarkForAPairThatItDoesNotHave) {
  EXPECT_EQ(kChinese.toUtf8("\x81\x7Fz"), "?z");
  EXPECT_EQ(kChinese.toUtf8("\xFF\x40z"), "?z");
  EXPECT_EQ(kChinese.toUtf8("z\xD6"), "z?");
}

TEST(DoubleByteConverter, EncodesPairsAndEscapesTheRest) {
  EXPECT_EQ(kChinese.fromUtf8("a\xE4\xB8\xAD"), "a\xD6\xD0");
  EXPECT_EQ(kChinese.fromUtf8("\xF0\x9F\x98\x80"), "\\U+1F600");
}

}  // namespace
