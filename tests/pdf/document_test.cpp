#include "pdf/document.h"

#include <cstdio>
#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <memory>
#include <stdexcept>
#include <string>
#include <vector>

#include "pdf/pdf_maker.h"

using pdf::FetchObject;
using pdf::PdfDocument;
using pdf::PdfTokens;

namespace {

/// A document after opening, with what went to standard output.
struct Opened {
  explicit Opened(std::string fileBytes) : bytes(std::move(fileBytes)), document("file.pdf") {
    testing::internal::CaptureStdout();
    try {
      result = document.OpenBytes(bytes);
    } catch (...) {
      testing::internal::GetCapturedStdout();
      throw;
    }
    output = testing::internal::GetCapturedStdout();
  }

  /// The tokens of an object as one text with blanks.
  std::string Object(int number) {
    const auto object = FetchObject(*document.reader, document.section, number);
    std::string text;
    for (const std::string_view token : object->tokens)
      text += (text.empty() ? "" : " ") + std::string(token);
    return text;
  }
  bool Has(std::uint32_t number) const { return document.section.entries.count(number) == 1; }

  std::string bytes;
  PdfDocument document;
  bool result = false;
  std::string output;
};

PdfMaker OneObject(const std::string& header = "%PDF-1.4") {
  PdfMaker maker(header);
  maker.Object(1, "<</Type/Catalog>>");
  return maker;
}

std::string SmallFile(const std::string& header = "%PDF-1.4") {
  PdfMaker maker = OneObject(header);
  maker.Table("/Root 1 0 R");
  return maker.file;
}

using Fields = std::vector<unsigned>;

/// Rows of one, four and one byte, each as the difference to the one above.
std::string PredictedRows(const std::vector<Fields>& rows) {
  std::string bytes;
  std::string above(6, '\0');
  for (const Fields& fields : rows) {
    std::string row{static_cast<char>(fields[0])};
    for (const unsigned shift : {24U, 16U, 8U, 0U}) row.push_back(static_cast<char>(fields[1] >> shift));
    row.push_back(static_cast<char>(fields[2]));
    bytes.push_back('\x02');
    for (std::size_t i = 0; i < row.size(); ++i) bytes.push_back(static_cast<char>(row[i] - above[i]));
    above = row;
  }
  return bytes;
}

/// A file with objects 1 (catalog) and 2 in object stream 3, and 4, a cross-reference stream for 0 to 4.
std::string StreamedFile(const std::string& moreKeys) {
  PdfMaker maker("%PDF-1.5");
  const std::string objects = PdfMaker::Deflate("1 0 2 8 <</A 1>><</B 2>>");
  maker.Stream(3, "/Type/ObjStm/N 2/First 8/Filter/FlateDecode", objects);
  const std::size_t start = maker.file.size();
  const std::string rows = PredictedRows({{0, 0, 255},
                                          {2, 3, 0},
                                          {2, 3, 1},
                                          {1, static_cast<unsigned>(maker.offsets[3]), 0},
                                          {1, static_cast<unsigned>(start), 0}});
  maker.Stream(4, "/Type/XRef/W[1 4 1]/Root 1 0 R/Filter/FlateDecode" + moreKeys, PdfMaker::Deflate(rows));
  maker.End(start);
  return maker.file;
}

}  // namespace

TEST(PdfDocument, OpensAFileAndSaysWhatItIs) {
  const std::filesystem::path path = std::filesystem::temp_directory_path() / ("drawload_document_test.pdf");
  const std::string bytes = SmallFile();
  std::ofstream(path, std::ios::binary) << bytes;
  PdfDocument document(path.string());
  testing::internal::CaptureStdout();
  EXPECT_TRUE(document.Open());
  EXPECT_EQ(testing::internal::GetCapturedStdout(),
            path.string() + "\nVersion:1.4\nFileSize:" + std::to_string(bytes.size()) + "\n");
  EXPECT_EQ(document.catalog, 1);
  EXPECT_EQ(document.version, 1.4);
  EXPECT_EQ(document.fileSize, static_cast<int>(bytes.size()));
  std::filesystem::remove(path);
}

TEST(PdfDocument, WritesThePathEvenOfAFileThatIsNotThere) {
  PdfDocument document("/nonexistent/file.pdf");
  testing::internal::CaptureStdout();
  EXPECT_FALSE(document.Open());
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "/nonexistent/file.pdf\n");
}

TEST(PdfDocument, AcceptsVersionsOfOneWithAnyCharacterForTheDot) {
  EXPECT_EQ(Opened(SmallFile("%PDF-1.0")).document.version, 1.0);
  EXPECT_EQ(Opened(SmallFile("%PDF-1.9")).document.version, 1.9);
  EXPECT_EQ(Opened(SmallFile("%PDF-1x4")).document.version, 1.0);
  EXPECT_EQ(Opened(SmallFile("%PDF-1x4")).output.substr(0, 10), "Version:1\n");
  EXPECT_TRUE(Opened(SmallFile("%PDF-1.4 and more")).result);
}

TEST(PdfDocument, RefusesOtherHeadersWithoutANote) {
  for (const char* header :
       {"%PDF-2.0", "%PDF-1.x", " %PDF-1.4", "%pdf-1.4", "%PDF-1\n4", "%PDF-1\r4", "%PDF-14 "}) {
    const Opened opened(SmallFile(header));
    EXPECT_FALSE(opened.result) << header;
    EXPECT_EQ(opened.output, "");
  }
}

TEST(PdfDocument, FailsForAFileShorterThanItsHeader) {
  EXPECT_THROW(Opened("%PDF-1."), std::out_of_range);
  EXPECT_THROW(Opened(""), std::out_of_range);
}

TEST(PdfDocument, RefusesAFileShorterThanTheTail) {
  const std::string end = "\nstartxref\n0\n%%EOF\n";
  EXPECT_FALSE(Opened("%PDF-1.4" + std::string(255 - 8 - end.size(), ' ') + end).result);
  EXPECT_TRUE(Opened("%PDF-1.4" + std::string(256 - 8 - end.size(), ' ') + end).result);
}

TEST(PdfDocument, RefusesAFileWithoutStartxrefInItsTail) {
  EXPECT_FALSE(Opened(SmallFile() + std::string(256, ' ')).result);
  EXPECT_FALSE(Opened("%PDF-1.4" + std::string(300, ' ') + "startxref").result);
}

TEST(PdfDocument, ReadsATable) {
  Opened opened(SmallFile());
  EXPECT_TRUE(opened.result);
  EXPECT_EQ(opened.document.catalog, 1);
  EXPECT_EQ(opened.Object(1), "1 0 obj << /Type /Catalog >> endobj");
}

TEST(PdfDocument, HasNoCatalogWhereTheTrailerNamesNone) {
  PdfMaker maker = OneObject();
  maker.Table("/Size 2");
  EXPECT_EQ(Opened(maker.file).document.catalog, 0);
}

TEST(PdfDocument, LetsTheNewestSectionWinAndKeepsOlderObjects) {
  PdfMaker maker("%PDF-1.4");
  maker.Object(1, "(first)");
  maker.Object(2, "(second)");
  const std::size_t older = maker.Table("/Root 1 0 R");
  maker.Object(2, "(changed)");
  maker.Object(7, "(added)");
  maker.Table("/Prev " + std::to_string(older) + "/Root 7 0 R");
  Opened opened(maker.file);
  EXPECT_EQ(opened.document.catalog, 7);
  EXPECT_EQ(opened.Object(1), "1 0 obj (first) endobj");
  EXPECT_EQ(opened.Object(2), "2 0 obj (changed) endobj");
  EXPECT_EQ(opened.Object(7), "7 0 obj (added) endobj");
}

TEST(PdfDocument, ReadsTheKeyRightAfterTheWidths) {
  // /Root follows the "]" of /W, and nothing else names the catalog.
  EXPECT_EQ(Opened(StreamedFile("")).document.catalog, 1);
}

TEST(PdfDocument, DoesNotKnowXRefStm) {
  PdfMaker maker = OneObject();
  maker.Table("/Root 1 0 R/XRefStm 15");
  Opened opened(maker.file);
  EXPECT_TRUE(opened.result);
  EXPECT_EQ(opened.Object(1), "1 0 obj << /Type /Catalog >> endobj");
}

TEST(PdfDocument, EndsLoopsOfPrev) {
  PdfMaker maker = OneObject();
  const std::string here = std::to_string(maker.file.size());
  maker.Table("/Root 1 0 R/Prev " + here);
  EXPECT_EQ(Opened(maker.file).document.catalog, 1);
}

TEST(PdfDocument, EndsLongChainsOfPrevAtALimit) {
  PdfMaker maker("%PDF-1.4");
  std::string previous;
  constexpr int kSections = support::limits::kPdfXrefDepth + 5;
  for (int number = 1; number <= kSections; ++number) {
    maker.Object(number, "(" + std::to_string(number) + ")");
    previous = "/Prev " + std::to_string(maker.Table("/Root 1 0 R" + previous));
  }
  Opened opened(maker.file);
  EXPECT_TRUE(opened.Has(kSections));
  EXPECT_TRUE(opened.Has(6));
  EXPECT_FALSE(opened.Has(5));
}

TEST(PdfDocument, EndsBranchesOfPrevAtALimit) {
  // Each section names the one before it four times; all paths together would be 4^40.
  PdfMaker maker("%PDF-1.4");
  std::string previous;
  for (int number = 1; number <= 40; ++number) {
    maker.Object(number, "()");
    const std::string start = std::to_string(maker.Table("/Root 1 0 R" + previous));
    previous = "/Prev " + start + "/Prev " + start + "/Prev " + start + "/Prev " + start;
  }
  EXPECT_TRUE(Opened(maker.file).Has(40));
}

TEST(PdfDocument, GoesOnBehindAPrevThatPointsToRubbish) {
  for (const char* place : {"3", "-1", "99999999", "2147483647", "x"}) {
    PdfMaker maker = OneObject();
    maker.Table("/Root 1 0 R/Prev " + std::string(place));
    EXPECT_EQ(Opened(maker.file).Object(1), "1 0 obj << /Type /Catalog >> endobj") << place;
  }
}

TEST(PdfDocument, LeavesTheSectionAsItWasForATableThatDoesNotBeginWithXref) {
  PdfMaker maker = OneObject();
  const std::size_t start = maker.Table("/Root 1 0 R");
  std::string file = maker.file;
  file.replace(start, 4, "xxef");
  const Opened opened(file);
  EXPECT_TRUE(opened.result);
  EXPECT_EQ(opened.document.catalog, 1);
  EXPECT_TRUE(opened.document.section.entries.empty());
}

TEST(PdfDocument, TakesAStartxrefBehindTheEndForAnEmptySection) {
  const Opened opened("%PDF-1.4" + std::string(300, ' ') + "startxref\n99999\n%%EOF");
  EXPECT_TRUE(opened.result);
  EXPECT_EQ(opened.document.catalog, 0);
}

TEST(PdfDocument, ReadsACrossReferenceStreamAndItsObjectStreams) {
  Opened opened(StreamedFile("/Size 5"));
  EXPECT_TRUE(opened.result);
  EXPECT_EQ(opened.document.catalog, 1);
  EXPECT_EQ(opened.Object(1), "<< /A 1 >>");
  EXPECT_EQ(opened.Object(2), "<< /B 2 >>");
  EXPECT_EQ(opened.Object(3).substr(0, 7), "3 0 obj");
  EXPECT_FALSE(opened.document.section.entries.contains(0)) << "an entry without a place is none";
}

TEST(PdfDocument, ReadsAnIndexAndPrefersItToTheSize) {
  Opened opened(StreamedFile("/Size 99/Index[0 2 2 3]"));
  EXPECT_EQ(opened.Object(2), "<< /B 2 >>");
}

TEST(PdfDocument, IgnoresAnIndexByReference) {
  Opened opened(StreamedFile("/Size 5/Index 9 0 R"));
  EXPECT_EQ(opened.Object(2), "<< /B 2 >>");
}

TEST(PdfDocument, NotesACrossReferenceStreamWithoutSizeAndIndex) {
  const Opened opened(StreamedFile(""));
  EXPECT_EQ(opened.output.substr(opened.output.find('X')), "Xref parser err!!!\n");
  EXPECT_EQ(opened.document.catalog, 1);
}

TEST(PdfDocument, DoesNotLookIntoAnArrayOfFilters) {
  // The last /Filter is what counts as a second name, and two filters leave the bytes as they are.
  const Opened opened(StreamedFile("/Size 5/Filter[/FlateDecode]"));
  EXPECT_EQ(opened.output.substr(opened.output.find('X')), "Xref parser err!!!\n");
}

TEST(PdfDocument, ReadsTheOlderSectionsOfACrossReferenceStream) {
  PdfMaker maker("%PDF-1.5");
  maker.Object(9, "(older)");
  const std::size_t older = maker.Table("/Root 9 0 R");
  const std::size_t start = maker.file.size();
  const std::string rows = PredictedRows({{1, static_cast<unsigned>(start), 0}});
  maker.Stream(4, "/W[1 4 1]/Index[4 1]/Root 4 0 R/Prev " + std::to_string(older), rows);
  maker.End(start);
  Opened opened(maker.file);
  EXPECT_EQ(opened.document.catalog, 4);
  EXPECT_EQ(opened.Object(9), "9 0 obj (older) endobj");
  EXPECT_TRUE(opened.Has(4));
}

TEST(PdfDocument, FailsForACrossReferenceStreamThatClaimsMoreBytesThanThereAre) {
  PdfMaker maker = OneObject();
  const std::size_t start = maker.file.size();
  maker.Object(2, "<</Size 1/W[1 1 1]/Length 100000>>stream\nabc\nendstream");
  maker.End(start);
  EXPECT_THROW(Opened(maker.file), std::out_of_range);
}

TEST(PdfDocument, FailsForKeysWithoutValues) {
  const std::string start = OneObject().file + "startxref ";
  for (const char* keys :
       {"trailer/Root", "trailer/Prev", "/W[1 2", "/Index[0 1", "/Length", "/Filter", "/Size"}) {
    // The number has three digits and a blank behind it.
    const std::string place = std::to_string(start.size() + 4);
    ASSERT_EQ(place.size(), 3U);
    EXPECT_THROW(Opened(start + place + " " + keys), std::out_of_range) << keys;
  }
}

TEST(PdfDocument, TakesTheFirstStartxrefOfItsTail) {
  PdfMaker maker = OneObject();
  maker.Table("/Root 1 0 R");
  EXPECT_EQ(Opened(maker.file + "startxref\n3\n%%EOF").document.catalog, 1);
}
