#include "pdf/xref_stream.h"

#include <gtest/gtest.h>
#include <stdexcept>
#include <string>

using pdf::ParseXrefStream;
using pdf::PdfFileReader;
using pdf::PdfXrefLayout;
using pdf::PdfXrefSection;

namespace {

/// A cross-reference stream after reading; the file behind it is `file`.
struct Rows {
  Rows(const std::string& decoded, const PdfXrefLayout& layout, std::string_view file = "") : reader(file) {
    testing::internal::CaptureStdout();
    result = ParseXrefStream(reader, decoded, layout, section);
    output = testing::internal::GetCapturedStdout();
  }
  const pdf::PdfXrefEntry& At(std::uint32_t number) const { return section.entries.at(number); }

  PdfFileReader reader;
  PdfXrefSection section;
  bool result = false;
  std::string output;
};

std::string Bytes(std::initializer_list<int> values) {
  std::string bytes;
  for (const int value : values) bytes.push_back(static_cast<char>(value));
  return bytes;
}

const std::string kRow = Bytes({2, 1, 0, 16, 0});

}  // namespace

TEST(ParseXrefStream, AddsEachRowToTheOneAbove) {
  // Rows of the differences: (1, 0x0110, 0), then + (0, 0x0020, 1), + (255, 0xFFF0, 2) modulo 256 for each
  // byte.
  const Rows rows(Bytes({2, 1, 1, 0x10, 0, 2, 0, 0, 0x20, 1, 2, 255, 0xFF, 0xF0, 2}), {{1, 2, 1}, {3, 3}});
  EXPECT_TRUE(rows.result);
  EXPECT_EQ(rows.At(3).offset, 0x0110);
  EXPECT_FALSE(rows.At(3).free);
  EXPECT_EQ(rows.At(4).offset, 0x0130);
  EXPECT_EQ(rows.At(5).offset, 0x0020);
  EXPECT_TRUE(rows.At(5).free) << "type 1 + 255 is 0";
  EXPECT_EQ(rows.output, "");
}

TEST(ParseXrefStream, ReadsObjects0To9ForASizeOf10) {
  std::string decoded;
  for (int i = 0; i < 10; ++i) decoded += Bytes({2, i == 0 ? 1 : 0, 0, 1, 0});
  const Rows rows(decoded, {{1, 2, 1}, {0, 10}});
  EXPECT_EQ(rows.section.entries.size(), 10U);
  EXPECT_EQ(rows.At(0).offset, 1);
  EXPECT_EQ(rows.At(9).offset, 10);
}

TEST(ParseXrefStream, TakesARowWithAnotherTagForTheLastRowsBytesBeforePrediction) {
  // The second row's own bytes lie behind those of the first one, (0, 5), which are added to it once more.
  const Rows rows(Bytes({2, 0, 5, 0, 0, 7, 2, 0, 1}), {{1, 1, 0}, {0, 3}});
  EXPECT_EQ(rows.At(0).offset, 5);
  EXPECT_EQ(rows.At(1).offset, 10);
  EXPECT_EQ(rows.At(2).offset, 11);
}

TEST(ParseXrefStream, TakesTheFirstRowWhateverItsTag) {
  EXPECT_EQ(Rows(Bytes({0, 1, 0, 16, 0}), {{1, 2, 1}, {0, 1}}).At(0).offset, 16);
}

TEST(ParseXrefStream, GivesFreeEntriesForATypeWidthOfZero) {
  const Rows rows(Bytes({2, 0, 9, 2, 0, 1}), {{0, 2, 0}, {0, 2}});
  EXPECT_TRUE(rows.At(0).free);
  EXPECT_EQ(rows.At(0).offset, 9);
  EXPECT_TRUE(rows.At(1).free);
  EXPECT_EQ(rows.At(1).offset, 10);
}

TEST(ParseXrefStream, NotesARowCountThatIsNotThatOfTheIndex) {
  const Rows rows(kRow, {{1, 2, 1}, {0, 2}});
  EXPECT_FALSE(rows.result);
  EXPECT_TRUE(rows.section.entries.empty());
  EXPECT_EQ(rows.output, "Xref parser err!!!\n");
}

TEST(ParseXrefStream, DoesNotCountAPartialLastRow) {
  const Rows rows(kRow + "\x02\x01", {{1, 2, 1}, {0, 1}});
  EXPECT_TRUE(rows.result);
  EXPECT_EQ(rows.section.entries.size(), 1U);
}

TEST(ParseXrefStream, GoesThroughThePairsOfTheIndex) {
  const Rows rows(Bytes({2, 1, 5, 2, 0, 1, 2, 0, 1}), {{1, 1, 0}, {4, 1, 0, 0, 20, 2}});
  EXPECT_EQ(rows.At(4).offset, 5);
  EXPECT_EQ(rows.At(20).offset, 6);
  EXPECT_EQ(rows.At(21).offset, 7);
}

TEST(ParseXrefStream, MakesNoEntryForUnknownTypesButGoesOnToTheNextNumber) {
  const Rows rows(Bytes({2, 3, 5, 2, 254, 1}), {{1, 1, 0}, {0, 2}});
  EXPECT_EQ(rows.section.entries.count(0), 0U);
  EXPECT_EQ(rows.At(1).offset, 6);
}

TEST(ParseXrefStream, CutsOffsetsAsAtoiDoes) {
  // 2^32 + 5 in five bytes.
  EXPECT_EQ(Rows(Bytes({2, 1, 1, 0, 0, 0, 5}), {{1, 5, 0}, {0, 1}}).At(0).offset, 5);
  EXPECT_EQ(Rows(Bytes({2, 1, 255, 255, 255, 255, 255, 255, 255, 255}), {{1, 8, 0}, {0, 1}}).At(0).offset,
            -1);
}

TEST(ParseXrefStream, KeepsTheGenerationOfAnOlderEntryForStreamedObjects) {
  PdfFileReader reader("");
  PdfXrefSection section;
  section.entries[0].generation = 3;
  section.entries[0].free = true;
  ParseXrefStream(reader, Bytes({2, 2, 9, 0}), {{1, 1, 1}, {0, 1}}, section);
  EXPECT_TRUE(section.entries[0].inObjectStream);
  EXPECT_FALSE(section.entries[0].free);
  EXPECT_EQ(section.entries[0].generation, 3);
}

TEST(ParseXrefStream, SurvivesAbsurdWidthsAndCounts) {
  EXPECT_FALSE(Rows(kRow, {{2147483647, 2147483647, 2147483647}, {0, 1}}).result);
  EXPECT_TRUE(Rows(kRow, {{2147483647, 2147483647, 2147483647}, {}}).result);
  EXPECT_TRUE(Rows(kRow, {{-5, -1, -2}, {0, 5}}).result) << "every byte is a row";
  EXPECT_FALSE(Rows(kRow, {{1, 2, 1}, {0, 2147483647, 0, 2147483647}}).result);
  EXPECT_TRUE(Rows(kRow, {{1, 2, 1}, {0, -1, 7, 2}}).result);
}

TEST(ParseXrefStream, ExpandsEachObjectStreamInTheOrderOfAppearance) {
  // Object 1 is the object stream, at offset 0; objects 2 and 3 lie in it.
  const std::string file = "1 0 obj<</N 2/First 8/Length 11>>stream\n2 0 3 1 5 6 \nendobj";
  const Rows rows(Bytes({2, 1, 0, 0, 2, 1, 1, 0, 2, 0, 0, 1}), {{1, 1, 1}, {1, 3}}, file);
  EXPECT_EQ(rows.section.streamedTexts.at(2), "5");
  EXPECT_EQ(rows.section.streamedTexts.at(3), " 6");
}

namespace {

/// Expands the object stream that `object` is.
struct Expansion {
  explicit Expansion(std::string_view object) : reader(object) { ExpandObjectStream(reader, section, 1); }
  PdfFileReader reader;
  PdfXrefSection section;
};

}  // namespace

TEST(ExpandObjectStream, CutsTheTextsAtTheOffsetsOfThePairs) {
  const Expansion expansion(
      "1 0 obj<</N 3 /First 14 /Length 27>>stream\n11 0 12 4 13 8 <<>>[[]]<</A>>endobj");
  EXPECT_EQ(expansion.section.streamedTexts.size(), 3U);
  EXPECT_EQ(expansion.section.streamedTexts.at(11), " <<>");
}

TEST(ExpandObjectStream, GivesTheLastObjectTheRest) {
  const Expansion expansion("1 0 obj<</N 2 /First 10 /Length 20>>stream\n11 0 12 4 aaaabbbbbbzzendobj");
  EXPECT_EQ(expansion.section.streamedTexts.at(11), "aaaa");
  EXPECT_EQ(expansion.section.streamedTexts.at(12), "bbbbbb");
}

TEST(ExpandObjectStream, TakesTheRestWhereTheNextOffsetIsSmaller) {
  const Expansion expansion("1 0 obj<</N 2 /First 10 /Length 16>>stream\n11 4 12 1 abcdef endobj");
  EXPECT_EQ(expansion.section.streamedTexts.at(11), "ef");
  EXPECT_EQ(expansion.section.streamedTexts.at(12), "bcdef");
}

TEST(ExpandObjectStream, FailsWhereThePairsOrOffsetsLieOutside) {
  EXPECT_THROW(Expansion("1 0 obj<</N 2 /First 5 /Length 10>>stream\n11 0 aaaaaendobj"), std::out_of_range);
  EXPECT_THROW(Expansion("1 0 obj<</N 1 /First 5 /Length 7>>stream\n11 9 aa endobj"), std::out_of_range);
  EXPECT_THROW(Expansion("1 0 obj<</N 1 /First 6 /Length 8>>stream\n11 -1 aa endobj"), std::out_of_range);
  EXPECT_THROW(Expansion("1 0 obj<</N 1 /First 5 /Length 700>>stream\n11 0 aa endobj"), std::out_of_range);
}

TEST(ExpandObjectStream, TakesAllForAFirstBehindTheEnd) {
  const Expansion expansion("1 0 obj<</N 1 /First 500 /Length 5>>stream\n11 0 endobj");
  EXPECT_EQ(expansion.section.streamedTexts.at(11), "");
}

TEST(ExpandObjectStream, FailsAsAPictureThatCannotBeRead) {
  EXPECT_THROW(Expansion("1 0 obj<</N 1 /First 5 /Length 5 /Filter/JPXDecode>>stream\n11 0 endobj"),
               std::runtime_error);
}

TEST(ExpandObjectStream, DoesNotFollowALengthByReference) {
  // "9 0 R" gives a length of 9.
  const Expansion expansion("1 0 obj<</N 1 /First 5 /Length 9 0 R>>stream\n11 0 abcdefgh endobj");
  EXPECT_EQ(expansion.section.streamedTexts.at(11), "abcd");
}
