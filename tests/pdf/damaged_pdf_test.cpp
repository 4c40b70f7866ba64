#include <gtest/gtest.h>
#include <stdexcept>
#include <string>

#include "pdf/open_pdf.h"

// Damaged files must neither crash nor hang nor leak: what they yield is not asked for here.
namespace {

std::string SmallFile() {
  PdfBuilder file;
  const int map = file.AddStream("1 beginbfchar\n<0001> <0041>\nendbfchar\n");
  const int cidFont =
      file.Add("<< /Type /Font /Subtype /CIDFontType2 /W [ 1 [ 2 3 ] 4 5 6 ] /DW2 [ 1 2 ] >>");
  const int font = file.Add("<< /BaseFont /Arial /ToUnicode " + PdfBuilder::Reference(map) +
                            " /DescendantFonts [ " + PdfBuilder::Reference(cidFont) + " ] >>");
  const int image = file.AddStream("abcd", "/Subtype /Image /Width 2 /Height 2");
  const int form = file.AddStream("0 0 5 5 re f\n", "/Subtype /Form /Matrix [ 1 0 0 1 2 2 ]");
  const int function = file.Add("<< /FunctionType 2 /Domain [ 0 1 ] /C0 [ 0 ] /C1 [ 1 ] /N 1 >>");
  const int shading =
      file.Add("<< /ShadingType 2 /Coords [ 0 0 1 1 ] /Function " + PdfBuilder::Reference(function) + " >>");
  const int page = file.AddPage(
      "q 2 0 0 2 0 0 cm\n0 0 m 1 1 l 2 2 3 3 4 4 c h W n\n/Sh0 sh\nQ\nBT /F1 9 Tf 1 0 0 1 5 5 Tm <0001> Tj "
      "[(a)-3(b)] TJ ET\n/Im0 Do\n/Fm0 Do\n0 0 1 RG 1 w S\n",
      "/Resources << /Font << /F1 " + PdfBuilder::Reference(font) + " >> /XObject << /Im0 " +
          PdfBuilder::Reference(image) + " /Fm0 " + PdfBuilder::Reference(form) + " >> /Shading << /Sh0 " +
          PdfBuilder::Reference(shading) + " >> >>");
  return file.BuildPages({page});
}

void ReadWithoutAsking(const std::string& bytes) {
  try {
    pdf::PdfDocument document("damaged.pdf");
    std::vector<pdf::PDF_Page> pages;
    if (document.OpenBytes(bytes)) pdf::PageReader(document).ReadAll(document.catalog, pages);
  } catch (const std::exception&) {
    // The one way in which a damaged file may end: the C functions catch it.
  } catch (const char*) {
    // The texts of JPEG 2000 decoding.
  }
}

class Quiet {
 public:
  Quiet() { testing::internal::CaptureStdout(); }
  Quiet(const Quiet&) = delete;
  Quiet& operator=(const Quiet&) = delete;
  ~Quiet() { testing::internal::GetCapturedStdout(); }
};

TEST(DamagedPdf, TheWholeFileYieldsItsEntities) {
  const Quiet quiet;
  const std::vector<pdf::PDF_Page> pages = PagesOf(SmallFile());
  ASSERT_EQ(pages.size(), 1U);
  // The shading, two texts, the image, the form's rectangle, and the stroke.
  EXPECT_EQ(pages[0].entities.Size(), 6U);
}

TEST(DamagedPdf, EveryPrefixIsSurvived) {
  const Quiet quiet;
  const std::string whole = SmallFile();
  for (std::size_t size = 0; size < whole.size(); ++size) ReadWithoutAsking(whole.substr(0, size));
}

TEST(DamagedPdf, EveryPrefixWithTheTailOfTheFileIsSurvived) {
  const Quiet quiet;
  const std::string whole = SmallFile();
  const std::string tail = whole.substr(whole.find("xref\n0"));
  for (std::size_t size = 8; size < whole.size() - tail.size(); size += 3) {
    const std::string cut = whole.substr(0, size);
    std::string end = tail.substr(0, tail.find("startxref"));
    ReadWithoutAsking(cut + "\n" + end + "startxref\n" + std::to_string(size + 1) + "\n%%EOF\n");
  }
}

TEST(DamagedPdf, EveryFlippedByteIsSurvived) {
  const Quiet quiet;
  const std::string whole = SmallFile();
  for (const int mask : {0x01, 0x10, 0x80, 0xFF}) {
    for (std::size_t i = 0; i < whole.size(); ++i) {
      std::string damaged = whole;
      damaged[i] = static_cast<char>(damaged[i] ^ mask);
      ReadWithoutAsking(damaged);
    }
  }
}

TEST(DamagedPdf, EveryByteTakenOutIsSurvived) {
  const Quiet quiet;
  const std::string whole = SmallFile();
  for (std::size_t i = 0; i < whole.size(); ++i) {
    std::string damaged = whole;
    damaged.erase(i, 1);
    ReadWithoutAsking(damaged);
  }
}

TEST(DamagedPdf, EveryObjectThatNamesItselfIsSurvived) {
  const Quiet quiet;
  const std::string whole = SmallFile();
  for (int number = 1; number <= 12; ++number) {
    std::string damaged = whole;
    for (std::size_t at = damaged.find(" 0 R"); at != damaged.npos; at = damaged.find(" 0 R", at + 1)) {
      damaged[at - 1] = static_cast<char>('0' + number % 10);
    }
    ReadWithoutAsking(damaged);
  }
}

}  // namespace
