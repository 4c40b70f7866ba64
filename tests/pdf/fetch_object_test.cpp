#include <gtest/gtest.h>
#include <string>

#include "pdf/xref_section.h"

using pdf::FetchObject;
using pdf::PdfFileReader;
using pdf::PdfTokens;
using pdf::PdfXrefEntry;
using pdf::PdfXrefSection;

namespace {

constexpr std::string_view kFile = "1 0 obj stream\nAAA endobj 2 0 obj 5 endobj";

PdfXrefEntry FileEntry(std::int32_t offset) {
  PdfXrefEntry entry;
  entry.offset = offset;
  return entry;
}

PdfXrefEntry StreamedEntry() {
  PdfXrefEntry entry;
  entry.inObjectStream = true;
  return entry;
}

}  // namespace

TEST(FetchObject, ReadsTheFileAtTheEntrysOffset) {
  PdfFileReader reader(kFile);
  PdfXrefSection section;
  section.entries[7] = FileEntry(26);
  EXPECT_EQ(FetchObject(reader, section, 7)->tokens, (PdfTokens{"2", "0", "obj", "5", "endobj"}));
}

TEST(FetchObject, ReadsFreeObjectsToo) {
  PdfFileReader reader(kFile);
  PdfXrefSection section;
  section.entries[7] = FileEntry(26);
  section.entries[7].free = true;
  EXPECT_EQ(FetchObject(reader, section, 7)->tokens.at(3), "5");
}

TEST(FetchObject, ReadsTheFirstObjectOfTheFileForAnUnknownNumber) {
  PdfFileReader reader(kFile);
  PdfXrefSection section;
  EXPECT_EQ(FetchObject(reader, section, 99)->tokens, (PdfTokens{"1", "0", "obj", "stream"}));
  EXPECT_EQ(FetchObject(reader, section, -1)->tokens.size(), 4U);
}

TEST(FetchObject, LeavesTheStreamOfTheReadBeforeForAStreamedObject) {
  PdfFileReader reader(kFile);
  PdfXrefSection section;
  section.entries[3] = StreamedEntry();
  section.streamedTexts[3] = "<</A 1>>";
  section.entries[1] = FileEntry(0);
  FetchObject(reader, section, 1);
  EXPECT_EQ(FetchObject(reader, section, 3)->text, "\n<<\n/A\n1\n>>\n");
  EXPECT_EQ(reader.stream, "AAA endobj");
}

TEST(FetchObject, GivesEmptyTextForAStreamedObjectThatNoStreamHolds) {
  PdfFileReader reader(kFile);
  PdfXrefSection section;
  section.entries[3] = StreamedEntry();
  EXPECT_EQ(FetchObject(reader, section, 3)->text, "");
}

TEST(FetchObject, TakesTheNumberWithoutSign) {
  PdfFileReader reader(kFile);
  PdfXrefSection section;
  section.entries[4294967295U] = FileEntry(26);
  EXPECT_EQ(FetchObject(reader, section, -1)->tokens.at(0), "2");
}
