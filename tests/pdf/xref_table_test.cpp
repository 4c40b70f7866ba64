#include "pdf/xref_table.h"

#include <gtest/gtest.h>
#include <string>

using pdf::ParseXrefTable;
using pdf::PdfNotes;
using pdf::PdfXrefSection;

namespace {

/// A table after reading, with what went to standard output.
struct Table {
  explicit Table(std::string_view text) {
    PdfNotes notes;
    testing::internal::CaptureStdout();
    result = ParseXrefTable(text, notes, section);
    output = testing::internal::GetCapturedStdout();
  }
  bool Has(std::uint32_t number) const { return section.entries.count(number) == 1; }
  const pdf::PdfXrefEntry& At(std::uint32_t number) const { return section.entries.at(number); }

  PdfXrefSection section;
  bool result = false;
  std::string output;
};

}  // namespace

TEST(ParseXrefTable, TakesOffsetGenerationAndFreeFlag) {
  const Table table("xref\n0 2\n0000000000 65535 f \n0000000123 00007 n \n");
  EXPECT_TRUE(table.result);
  EXPECT_TRUE(table.At(0).free);
  EXPECT_EQ(table.At(0).offset, 0);
  EXPECT_EQ(table.At(0).generation, 65535);
  EXPECT_FALSE(table.At(1).free);
  EXPECT_EQ(table.At(1).offset, 123);
  EXPECT_EQ(table.At(1).generation, 7);
  EXPECT_EQ(table.section.entries.size(), 2U);
  EXPECT_EQ(table.output, "");
}

TEST(ParseXrefTable, GoesOnAtTheNumberOfTheNextSubsection) {
  const Table table("xref\n3 1\n0000000030 00000 n \n8 2\n0000000080 00000 n \n0000000090 00000 n \n");
  EXPECT_EQ(table.At(3).offset, 30);
  EXPECT_EQ(table.At(8).offset, 80);
  EXPECT_EQ(table.At(9).offset, 90);
}

TEST(ParseXrefTable, RefusesATextThatDoesNotBeginWithXref) {
  EXPECT_FALSE(Table("\nxref\n0 1\n0000000000 65535 f \n").result);
  EXPECT_FALSE(Table(" xref\n0 1\n0000000000 65535 f \n").result);
  EXPECT_TRUE(Table("\nxref\n0 1\n0000000000 65535 f \n").section.entries.empty());
  EXPECT_FALSE(Table("").result);
}

TEST(ParseXrefTable, BreaksLinesBehindEachXref) {
  EXPECT_EQ(Table("xref0 1\n0000000012 00000 n \n").At(0).offset, 12);
  EXPECT_EQ(Table("xref\n5 1xref7 1\n0000000012 00000 n \n").At(7).offset, 12);
  EXPECT_FALSE(Table("xref\n5 1xref\n0000000012 00000 n \n").Has(5));
}

TEST(ParseXrefTable, TakesAnEntryThatEndsRightBehindItsLetter) {
  EXPECT_EQ(Table("xref\n0 1\n0000000012 00000 n\n").At(0).offset, 12);
  EXPECT_EQ(Table("xref\n0 1\n0000000012 00000 n").At(0).offset, 12);
}

TEST(ParseXrefTable, TakesCarriageReturnsAsLineEnds) {
  EXPECT_EQ(Table("xref\r4 1\r0000000012 00000 n\r\n").At(4).offset, 12);
}

TEST(ParseXrefTable, IgnoresLinesThatAreNeitherHeadNorEntry) {
  for (const char* line :
       {"0000000012 00000 x ", "000000012 00000 n ", "0000000012 0000 n ", "0000000012 00000 n  ",
        "0000000012  00000 n", "0000000012 00000  n", "000000001a 00000 n ", "12", "a 1", "1  2",
        "0000000012 00000 nn", "0000000012 1234567890"}) {
    EXPECT_TRUE(Table("xref\n" + std::string(line) + "\n").section.entries.empty()) << line;
  }
}

// A number of a head may be empty, so that "12 " is a head of count 0: the next entry is one too many.
TEST(ParseXrefTable, TakesANumberAndABlankForAHead) {
  const Table table("xref\n0 5\n12 \n0000000012 00000 n \n");
  EXPECT_EQ(table.At(12).offset, 12);
  EXPECT_EQ(table.output, "交叉引用表读取出错\n");
}

TEST(ParseXrefTable, NotesTheFirstEntryBeyondTheCountAndKeepsAll) {
  const Table table("xref\n0 1\n0000000010 00000 n \n0000000020 00000 n \n0000000030 00000 n \n");
  EXPECT_EQ(table.At(1).offset, 20);
  EXPECT_EQ(table.At(2).offset, 30);
  EXPECT_EQ(table.output, "交叉引用表读取出错\n");
}

TEST(ParseXrefTable, NotesEntriesWithoutAHead) {
  const Table table("xref\n0000000010 00000 n \n");
  EXPECT_EQ(table.At(0).offset, 10);
  EXPECT_EQ(table.output, "交叉引用表读取出错\n");
}

TEST(ParseXrefTable, OverwritesWhatOlderSectionsLeft) {
  PdfXrefSection section;
  section.entries[1].offset = 5;
  section.entries[1].inObjectStream = true;
  section.entries[2].offset = 6;
  PdfNotes notes;
  ParseXrefTable("xref\n1 1\n0000000010 00003 f \n", notes, section);
  EXPECT_EQ(section.entries[1].offset, 10);
  EXPECT_TRUE(section.entries[1].free);
  EXPECT_FALSE(section.entries[1].inObjectStream);
  EXPECT_EQ(section.entries[2].offset, 6);
}

TEST(ParseXrefTable, CostsOneEntryForAHugeNumber) {
  const Table table("xref\n999999999 1\n0000000010 00000 n \n");
  EXPECT_EQ(table.section.entries.size(), 1U);
  EXPECT_EQ(table.At(999999999).offset, 10);
}

TEST(ParseXrefTable, DoesNotTakeAHeadOfTenDigits) {
  EXPECT_TRUE(Table("xref\n1234567890 1\n0000000010 00000 n \n").Has(0));
}
