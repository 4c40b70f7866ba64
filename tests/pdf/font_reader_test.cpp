#include "pdf/font_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "pdf/open_pdf.h"
#include "support/limits.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;

pdf::PdfFont FontIn(PdfBuilder& file, const std::string& dictionary) {
  OpenPdf opened(file.BuildPages({}));
  pdf::ObjectSource source(opened.document);
  const pdf::PdfObject object(dictionary);
  pdf::PdfFont font;
  pdf::ReadFont(source, object.tokens, font);
  return font;
}

constexpr char kCMap[] = "1 beginbfchar\n<0001> <0041>\nendbfchar\n";

TEST(Font, IsSimSunByDefault) {
  PdfBuilder file;
  EXPECT_EQ(FontIn(file, "<< >>").name, "SimSun");
}

TEST(Font, NameAndEncodingComeWithoutTheirSlash) {
  PdfBuilder file;
  const pdf::PdfFont font = FontIn(file, "<< /BaseFont /ABCDEF+Arial-Bold /Encoding /WinAnsiEncoding >>");
  EXPECT_EQ(font.name, "ABCDEF+Arial-Bold");
  EXPECT_EQ(font.encoding, "WinAnsiEncoding");
}

TEST(Font, AnEncodingArrayIsSkipped) {
  PdfBuilder file;
  const pdf::PdfFont font = FontIn(file, "<< /Encoding [ /BaseFont /Wrong ] /BaseFont /Arial >>");
  EXPECT_EQ(font.encoding, "");
  EXPECT_EQ(font.name, "Arial");
}

TEST(Font, AnEncodingDictionaryIsWalkedLikeTheRest) {
  PdfBuilder file;
  EXPECT_EQ(FontIn(file, "<< /Encoding << /BaseFont /Inner >> >>").name, "Inner");
}

TEST(Font, ItsMapIsReadFromItsStream) {
  PdfBuilder file;
  const int map = file.AddStream(kCMap);
  const pdf::PdfFont font = FontIn(file, "<< /ToUnicode " + PdfBuilder::Reference(map) + " >>");
  ASSERT_NE(font.toUnicode.Find("0001"), nullptr);
  EXPECT_EQ(*font.toUnicode.Find("0001"), 0x41);
}

TEST(Font, ItsMapIsDecoded) {
  PdfBuilder file;
  std::string hex;
  for (const char c : std::string(kCMap)) {
    constexpr char kDigits[] = "0123456789ABCDEF";
    hex += kDigits[c / 16];
    hex += kDigits[c % 16];
  }
  const int map = file.AddStream(hex + ">", "/Filter /ASCIIHexDecode");
  EXPECT_FALSE(FontIn(file, "<< /ToUnicode " + PdfBuilder::Reference(map) + " >>").toUnicode.IsEmpty());
}

TEST(Font, ItsMapInRunLengthMayTakeTheNulAfterItsStream) {
  const std::string cmap = kCMap;
  for (const std::size_t more : {1U, 2U}) {
    PdfBuilder file;
    const std::string length(1, static_cast<char>(cmap.size() + more - 1));
    const int map = file.AddStream(length + cmap, "/Filter /RunLengthDecode");
    const std::string dictionary = "<< /ToUnicode " + PdfBuilder::Reference(map) + " >>";
    if (more == 1) {
      EXPECT_FALSE(FontIn(file, dictionary).toUnicode.IsEmpty());
    } else {
      EXPECT_THROW(FontIn(file, dictionary), std::out_of_range);
    }
  }
}

TEST(Font, AMapInAnObjectWithoutAStreamIsEmpty) {
  PdfBuilder file;
  const int map = file.Add("<< /Foo 1 >>");
  EXPECT_TRUE(FontIn(file, "<< /ToUnicode " + PdfBuilder::Reference(map) + " >>").toUnicode.IsEmpty());
}

TEST(Font, AMapShorterThanItsLengthEndsTheRead) {
  PdfBuilder file;
  const int map = file.AddStreamOfLength(kCMap, "9999");
  EXPECT_THROW(FontIn(file, "<< /ToUnicode " + PdfBuilder::Reference(map) + " >>"), std::out_of_range);
}

TEST(Font, AnArrayOfMapsIsSkipped) {
  PdfBuilder file;
  const int map = file.AddStream(kCMap);
  const pdf::PdfFont font =
      FontIn(file, "<< /ToUnicode [ " + PdfBuilder::Reference(map) + " ] /BaseFont /A >>");
  EXPECT_TRUE(font.toUnicode.IsEmpty());
  EXPECT_EQ(font.name, "A");
}

TEST(Font, KeysWithoutAValueEndTheRead) {
  PdfBuilder file;
  EXPECT_THROW(FontIn(file, "/BaseFont"), std::out_of_range);
  EXPECT_THROW(FontIn(file, "/ToUnicode"), std::out_of_range);
  EXPECT_THROW(FontIn(file, "/Encoding ["), std::out_of_range);
}

TEST(Font, AnEmptyNameEndsTheRead) {
  PdfBuilder file;
  EXPECT_THROW(FontIn(file, "/BaseFont\n\n\n\n\n/Arial"), std::out_of_range);
}

// Descendant fonts.

constexpr char kDescendant[] =
    "<< /Type /Font /Subtype /CIDFontType2 /BaseFont /Song /CIDSystemInfo << /Registry (Adobe) /Ordering "
    "(GB1) "
    "/Supplement 2 >> /DW 500 /DW2 [ 880 -1000 ] /W [ 1 [ 300 400 ] 10 20 600 ] /W2 [ 1 [ 2 3 4 ] ] "
    "/CIDToGIDMap /Identity >>";

void ExpectDescendant(const pdf::PdfCIDFont& font) {
  EXPECT_EQ(font.type, "/Font");
  EXPECT_EQ(font.subtype, "/CIDFontType2");
  EXPECT_EQ(font.baseFont, "/Song");
  EXPECT_EQ(font.registry, "(Adobe)");
  EXPECT_EQ(font.ordering, "(GB1)");
  EXPECT_EQ(font.supplement, 2);
  EXPECT_EQ(font.defaultWidth, 500);
  EXPECT_THAT(font.defaultVerticalMetrics, ElementsAre(880, -1000));
  EXPECT_THAT(font.widths, ElementsAre(pdf::PdfWidthRange{1, 1, 300}, pdf::PdfWidthRange{2, 2, 400},
                                       pdf::PdfWidthRange{10, 20, 600}));
  EXPECT_THAT(font.verticalWidths, ElementsAre("1", "[", "2", "3", "4", "]"));
  EXPECT_EQ(font.cidToGidMap, "/Identity");
}

TEST(DescendantFont, IsReadByReference) {
  PdfBuilder file;
  const int font = file.Add(kDescendant);
  ExpectDescendant(*FontIn(file, "<< /DescendantFonts [ " + PdfBuilder::Reference(font) + " ] >>").cidFont);
  ExpectDescendant(*FontIn(file, "<< /DescendantFonts " + PdfBuilder::Reference(font) + " >>").cidFont);
}

TEST(DescendantFont, IsReadThroughAnArrayInAnObjectOfItsOwn) {
  PdfBuilder file;
  const int font = file.Add(kDescendant);
  const int array = file.Add("[ " + PdfBuilder::Reference(font) + " ]");
  ExpectDescendant(*FontIn(file, "<< /DescendantFonts " + PdfBuilder::Reference(array) + " >>").cidFont);
}

TEST(DescendantFont, WrittenInlineEndsAtTheFirstBracket) {
  PdfBuilder file;
  const pdf::PdfFont font = FontIn(
      file, "<< /DescendantFonts [ << /Subtype /CIDFontType0 /DW 7 /DW2 [ 1 2 ] /BaseFont /Late >> ] >>");
  EXPECT_EQ(font.cidFont->subtype, "/CIDFontType0");
  EXPECT_EQ(font.cidFont->defaultWidth, 7);
  EXPECT_EQ(font.cidFont->baseFont, "");
}

TEST(DescendantFont, KeysBehindItAreStillRead) {
  PdfBuilder file;
  const int font = file.Add(kDescendant);
  const int map = file.AddStream(kCMap);
  EXPECT_FALSE(FontIn(file, "<< /DescendantFonts [ " + PdfBuilder::Reference(font) + " ] /ToUnicode " +
                                PdfBuilder::Reference(map) + " >>")
                   .toUnicode.IsEmpty());
}

TEST(DescendantFont, ThatLeadsToItselfIsLeft) {
  PdfBuilder file;
  const int array = file.Add("[ 1 0 R ]");
  const pdf::PdfFont font =
      FontIn(file, "<< /DescendantFonts " + PdfBuilder::Reference(array) + " /BaseFont /A >>");
  EXPECT_EQ(font.name, "A");
}

TEST(DescendantFont, WidthsMayStandInAnObjectOfTheirOwn) {
  PdfBuilder file;
  const int widths = file.Add("[ 5 6 700 ]");
  const int font =
      file.Add("<< /Type /Font /Subtype /CIDFontType2 /W " + PdfBuilder::Reference(widths) + " >>");
  EXPECT_THAT(FontIn(file, "<< /DescendantFonts [ " + PdfBuilder::Reference(font) + " ] >>").cidFont->widths,
              ElementsAre(pdf::PdfWidthRange{5, 6, 700}));
}

TEST(DescendantFont, IsReadOnAfterItsWidths) {
  PdfBuilder file;
  const int font = file.Add("<< /DW 700 /W [ 1 [ /DW 9 ] 4 5 600 ] /Subtype /CIDFontType2 >>");
  const pdf::PdfCIDFont read =
      *FontIn(file, "<< /DescendantFonts [ " + PdfBuilder::Reference(font) + " ] >>").cidFont;
  EXPECT_EQ(read.defaultWidth, 700);
  EXPECT_EQ(read.subtype, "/CIDFontType2");
}

TEST(FontDescriptor, IsReadKeyByKey) {
  PdfBuilder file;
  const int descriptor = file.Add(
      "<< /Type /FontDescriptor /FontName /Song /FontFamily (S) /FontStretch /Normal /FontWeight 400 /Flags "
      "4 "
      "/FontBBox [ 1 2 3 4.5 ] /ItalicAngle -12 /Ascent 5 /Descent -6 /Leading 7 /CapHeight 8 /XHeight 9 "
      "/StemV 10 "
      "/StemH 11 /AvgWidth 12 /MaxWidth 13 /MissingWidth 14 /CharSet (abc) /FontFile 99 0 R /FontFile3 99 0 "
      "R >>");
  OpenPdf opened(file.BuildPages({}));
  pdf::ObjectSource source(opened.document);
  const pdf::PdfFontDescriptor read = *pdf::ReadFontDescriptor(source, descriptor);
  EXPECT_EQ(read.type, "/FontDescriptor");
  EXPECT_EQ(read.fontName, "/Song");
  EXPECT_EQ(read.fontFamily, "(S)");
  EXPECT_EQ(read.fontStretch, "/Normal");
  EXPECT_EQ(read.fontWeight, 400);
  EXPECT_EQ(read.flags, 4);
  EXPECT_THAT(read.fontBox, ElementsAre(1.0, 2.0, 3.0, 4.5));
  EXPECT_EQ(read.italicAngle, -12);
  EXPECT_EQ(read.ascent, 5);
  EXPECT_EQ(read.descent, -6);
  EXPECT_EQ(read.leading, 7);
  EXPECT_EQ(read.capHeight, 8);
  EXPECT_EQ(read.xHeight, 9);
  EXPECT_EQ(read.stemV, 10);
  EXPECT_EQ(read.stemH, 11);
  EXPECT_EQ(read.averageWidth, 12);
  EXPECT_EQ(read.maximumWidth, 13);
  EXPECT_EQ(read.missingWidth, 14);
  EXPECT_EQ(read.characterSet, "(abc)");
}

TEST(DescendantFont, IsReadOnceForAllFontsThatNameIt) {
  PdfBuilder file;
  const int font = file.Add("<< /Subtype /CIDFontType2 /W2 [ 1 [ 2 3 4 ] ] >>");
  OpenPdf opened(file.BuildPages({}));
  pdf::ObjectSource source(opened.document);
  const std::string text = "/DescendantFonts\n[\n" + std::to_string(font) + "\n0\nR\n]";
  pdf::PdfFont one;
  pdf::PdfFont other;
  ReadFont(source, pdf::Split(text, '\n'), one);
  ReadFont(source, pdf::Split(text, '\n'), other);
  EXPECT_EQ(one.cidFont, other.cidFont);
  EXPECT_EQ(one.cidFont->subtype, "/CIDFontType2");
}

TEST(FontDescriptor, AFontProgramIsDroppedButMustHaveItsLength) {
  for (const bool whole : {true, false}) {
    PdfBuilder file;
    const int program = whole ? file.AddStream("program") : file.AddStreamOfLength("program", "5000");
    const int descriptor = file.Add("<< /FontFile2 " + PdfBuilder::Reference(program) + " /Flags 4 >>");
    OpenPdf opened(file.BuildPages({}));
    pdf::ObjectSource source(opened.document);
    if (whole) {
      EXPECT_EQ(pdf::ReadFontDescriptor(source, descriptor)->flags, 4);
    } else {
      EXPECT_THROW(pdf::ReadFontDescriptor(source, descriptor), std::out_of_range);
    }
  }
}

}  // namespace
