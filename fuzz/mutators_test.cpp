#include <algorithm>
#include <cstdio>
#include <fstream>
#include <gtest/gtest.h>
#include <string>
#include <tinyxml2.h>
#include <unistd.h>

#include "fuzz/mutators/dxf_mutator.h"
#include "fuzz/mutators/pdf_mutator.h"
#include "fuzz/mutators/svg_mutator.h"
#include "pdf/pdf_builder.h"
#include "pdf/pdf_rw.h"
#include "recording/recording_sink.h"

namespace {

/// Draws without a fuzzer: bytes change into a word.
fuzz::Chance ChanceOf(unsigned seed) {
  return {std::minstd_rand(seed), [](const std::string& bytes) { return bytes + "word"; }};
}

TEST(DxfMutator, KeepsCodesAndValuesInStep) {
  const std::string drawing = "0\nSECTION\n2\nENTITIES\n0\nLINE\n10\n1.5\n0\nENDSEC\n0\nEOF\n";
  int changed = 0;
  for (unsigned seed = 0; seed < 200; ++seed) {
    fuzz::Chance chance = ChanceOf(seed);
    const std::string mutated = fuzz::MutateDxf(drawing, chance);
    EXPECT_EQ(std::count(mutated.begin(), mutated.end(), '\n') % 2, 0) << mutated;
    changed += mutated != drawing;
  }
  EXPECT_GT(changed, 150);
}

TEST(SvgMutator, KeepsTheFileWellFormed) {
  const std::string drawing = "<svg><g id='a'><rect x='1'/></g><text>t &amp; u</text></svg>";
  int changed = 0;
  for (unsigned seed = 0; seed < 200; ++seed) {
    fuzz::Chance chance = ChanceOf(seed);
    const std::string mutated = fuzz::MutateSvg(drawing, chance);
    tinyxml2::XMLDocument document;
    const auto error = document.Parse(mutated.c_str());
    EXPECT_TRUE(error == tinyxml2::XML_SUCCESS || error == tinyxml2::XML_ERROR_EMPTY_DOCUMENT) << mutated;
    changed += mutated.find("word") != std::string::npos;
  }
  EXPECT_GT(changed, 20);
}

TEST(SvgMutator, LeavesWhatIsNotXmlToTheFuzzer) {
  fuzz::Chance chance = ChanceOf(1);
  EXPECT_EQ(fuzz::MutateSvg("<svg", chance), "");
}

/// How many paths the PDF reader finds.
std::size_t PathsIn(const std::string& file) {
  const std::string path = testing::TempDir() + "drawload_mutator_" + std::to_string(getpid()) + ".pdf";
  std::ofstream(path, std::ios::binary) << file;
  RecordingSink sink;
  PDF_RW reader;
  reader.sink = &sink;
  reader.Read(path, 0);
  std::remove(path.c_str());
  return sink.All<Entity_ZR::ZR_Path>().size();
}

void ReplaceFirst(std::string& text, const std::string& from, const std::string& to) {
  text.replace(text.find(from), from.size(), to);
}

TEST(PdfRepair, FindsObjectsThatMoved) {
  PdfBuilder builder;
  std::string file = builder.BuildPages({builder.AddPage("0 0 m\n9 9 l\nS\n")});
  file.insert(file.find("1 0 obj"), std::string(100, ' '));
  EXPECT_EQ(PathsIn(file), 0U);
  EXPECT_EQ(PathsIn(fuzz::RepairPdf(file)), 1U);
}

TEST(PdfRepair, SetsTheLengthOfStreamsThatGrew) {
  PdfBuilder builder;
  std::string file = builder.BuildPages({builder.AddPage("0 0 m\n9 9 l\nS\n")});
  ReplaceFirst(file, "9 9 l\nS\n", "9 9 l\nS\n5 5 m\n7 7 l\nS\n");
  EXPECT_EQ(PathsIn(fuzz::RepairPdf(file)), 2U);
}

TEST(PdfRepair, MakesACrossReferenceStreamWhereThereIsOne) {
  const std::string content = "0 0 m\n9 9 l\nS\n";
  const std::string file = "%PDF-1.5\n4 0 obj\n<< /Length 1 >>\nstream\n" + content +
                           "\nendstream\nendobj\n" +
                           "5 0 obj\n<< /Type /ObjStm /N 3 /First 16 /Length 1 >>\nstream\n1 0 2 26 3 61   "
                           "<</Type/Catalog/Pages 2 0 R>>  <</Type/Pages/Kids[3 0 R]/Count 1>>    "
                           "<</Type/Page/MediaBox[0 0 9 9]/Contents 4 0 R>> \nendstream\nendobj\n" +
                           "6 0 obj\n<< /Type /XRef /Root 1 0 R >>\nendobj\nstartxref\n0\n%%EOF\n";
  const std::string repaired = fuzz::RepairPdf(file);
  EXPECT_NE(repaired.find("/XRef"), std::string::npos);
  EXPECT_EQ(PathsIn(repaired), 1U);
}

TEST(PdfMutator, KeepsMostFilesReadable) {
  PdfBuilder builder;
  const std::string file = builder.BuildPages({builder.AddPage("0 0 m\n9 9 l\nS\n")});
  int readable = 0;
  for (unsigned seed = 0; seed < 100; ++seed) {
    fuzz::Chance chance = ChanceOf(seed);
    readable += PathsIn(fuzz::MutatePdf(file, chance)) > 0;
  }
  EXPECT_GT(readable, 50);
}

}  // namespace
