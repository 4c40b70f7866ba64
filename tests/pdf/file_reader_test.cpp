#include "pdf/file_reader.h"

#include <gtest/gtest.h>
#include <string>

#include "support/account.h"

using pdf::PdfFileReader;
using pdf::PdfTokens;

namespace {

/// Reads `file` from its start through `terminator`.
struct Reading {
  explicit Reading(std::string_view file, std::string_view terminator = "endobj") : reader(file) {
    reader.ReadUntil(terminator);
  }
  PdfFileReader reader;
};

}  // namespace

TEST(ReadUntil, ReadsThroughTheTerminatorAndGoesOnBehindIt) {
  PdfFileReader reader("1 0 obj 5 endobj 2 0 obj 6 endobj");
  reader.ReadUntil("endobj");
  EXPECT_EQ(reader.text, "1 0 obj 5 endobj");
  reader.ReadUntil("endobj");
  EXPECT_EQ(reader.text, " 2 0 obj 6 endobj");
  EXPECT_FALSE(reader.hasStream);
}

TEST(ReadUntil, DoesNotTryTheByteThatBrokeAMatchAsAFirstOne) {
  EXPECT_EQ(Reading("a eendobj b endobj").reader.text, "a eendobj b endobj");
  EXPECT_EQ(Reading("a %%%EOF b %%EOF", "%%EOF").reader.text, "a %%%EOF b %%EOF");
  EXPECT_EQ(Reading("a endendobj b endobj").reader.text, "a endendobj b endobj");
}

TEST(ReadUntil, TriesTheByteBehindTheOneThatBrokeAMatch) {
  EXPECT_EQ(Reading("a exendobj b").reader.text, "a exendobj");
}

TEST(ReadUntil, CutsTheTextOneByteBehindTheWordStream) {
  const Reading reading("<<>>stream\r\nDATA\nendstream\nendobj");
  EXPECT_EQ(reading.reader.text, "<<>>stream\r");
  EXPECT_EQ(reading.reader.stream, "DATA\nendstream\nendobj");
  EXPECT_TRUE(reading.reader.hasStream);
}

TEST(ReadUntil, DropsLineEndsAtTheStartOfTheData) {
  EXPECT_EQ(Reading("stream\n\n\r\nAB endobj").reader.stream, "AB endobj");
}

TEST(ReadUntil, LeavesAByteDirectlyBehindTheWordStreamToTheText) {
  const Reading reading("streamABC endobj");
  EXPECT_EQ(reading.reader.text, "streamA");
  EXPECT_EQ(reading.reader.stream, "BC endobj");
}

TEST(ReadUntil, EndsBinaryDataAtTheTerminator) {
  EXPECT_EQ(Reading("stream\nAB endobj CD endstream endobj").reader.stream, "AB endobj");
}

TEST(ReadUntil, ReadsToTheEndOfAFileWithoutTerminator) {
  EXPECT_EQ(Reading("1 0 obj 5 endo").reader.text, "1 0 obj 5 endo");
  EXPECT_EQ(Reading("1 0 obj 5 e").reader.text, "1 0 obj 5 e");
  EXPECT_EQ(Reading("ab stream").reader.text, "ab stream");
}

TEST(ReadUntil, GivesEmptyTextAtAndBehindTheEnd) {
  PdfFileReader reader("stream\nA endobj");
  reader.ReadUntil("endobj");
  reader.ReadUntil("endobj");
  EXPECT_EQ(reader.text, "");
  EXPECT_EQ(reader.stream, "");
  reader.Seek(1000);
  reader.ReadUntil("endobj");
  EXPECT_EQ(reader.text, "");
}

TEST(ReadUntil, ClearsTheStreamButNotTheFlagWhereThereIsNone) {
  PdfFileReader reader("stream\nA endobj 5 endobj");
  reader.ReadUntil("endobj");
  reader.ReadUntil("endobj");
  EXPECT_EQ(reader.stream, "");
  EXPECT_TRUE(reader.hasStream);
}

TEST(Seek, LeavesThePositionForANegativePlace) {
  PdfFileReader reader("abc endobj");
  reader.Seek(1);
  reader.Seek(-1);
  reader.ReadUntil("endobj");
  EXPECT_EQ(reader.text, "bc endobj");
}

TEST(ReadTail, GivesTheRestFromTheFirstStartxrefOf256Bytes) {
  const std::string file = "startxref 1 " + std::string(100, '-') + "startxref\r2\rstartxref\r3";
  EXPECT_EQ(PdfFileReader(file).ReadTail(12), "startxref\n2\nstartxref\n3");
}

TEST(ReadTail, LooksAtNoMoreThan256Bytes) {
  EXPECT_EQ(PdfFileReader(std::string(247, '-') + "startxref5").ReadTail(0), "startxref");
  EXPECT_EQ(PdfFileReader(std::string(248, '-') + "startxref5").ReadTail(0), "");
}

TEST(ReadTail, GivesNothingAtTheEnd) { EXPECT_EQ(PdfFileReader("startxref 5").ReadTail(11), ""); }

TEST(ReadObject, GivesTheNormalisedTokens) {
  PdfFileReader reader("xx1 0 obj <</A 5>> endobj");
  EXPECT_EQ(reader.ReadObject(2)->tokens, (PdfTokens{"1", "0", "obj", "<<", "/A", "5", ">>", "endobj"}));
}

TEST(ReadObject, LeavesTheSameBehindTheSecondTimeAsTheFirst) {
  PdfFileReader reader("1 0 obj stream\nAAA endobj 2 0 obj stream\nBBB endobj rest");
  const auto first = reader.ReadObject(0);
  reader.ReadObject(26);
  EXPECT_EQ(reader.stream, "BBB endobj");
  EXPECT_EQ(reader.ReadObject(0), first);
  EXPECT_EQ(reader.stream, "AAA endobj");
  EXPECT_EQ(reader.text, "1 0 obj stream\n");
  // A negative offset does not move: the read goes on behind the object.
  EXPECT_EQ(reader.ReadObject(-5)->tokens, (PdfTokens{"", "2", "0", "obj", "stream"}));
}

TEST(ReadObject, ReadsFromThePositionForANegativeOffset) {
  PdfFileReader reader("1 endobj 2 endobj 3 endobj");
  reader.ReadObject(0);
  EXPECT_EQ(reader.ReadObject(-1)->text, "\n2\nendobj");
  EXPECT_EQ(reader.ReadObject(-1)->text, "\n3\nendobj");
}
