#include "pdf/page_reader.h"

#include <algorithm>
#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "pdf/open_pdf.h"
#include "pdf/page_tree.h"
#include "pdf/streamed_pdf.h"
#include "support/account.h"

namespace {

using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

std::vector<std::int32_t> ListOf(const std::string& file) {
  OpenPdf opened(file);
  pdf::ObjectSource source(opened.document);
  return pdf::ListPages(source, opened.document.catalog);
}

TEST(PageTree, ListsPagesInOrder) {
  PdfBuilder file;
  const int first = file.AddPage("");
  const int second = file.AddPage("");
  EXPECT_THAT(ListOf(file.BuildPages({first, second})), ElementsAre(first, second));
}

TEST(PageTree, ListsEachNodeBehindItsKids) {
  PdfBuilder file;
  const int a = file.AddPage("");
  const int b = file.AddPage("");
  const int left = file.AddNode({a, b});
  const int c = file.AddPage("");
  const int d = file.AddPage("");
  const int right = file.AddNode({c, d});
  const std::string bytes = file.BuildPages({left, right});
  EXPECT_THAT(ListOf(bytes), ElementsAre(a, b, left, c, d, right));
  EXPECT_THAT(PagesOf(bytes), SizeIs(6));
}

TEST(PageTree, WhoseRootIsAPageIsEmpty) {
  PdfBuilder file;
  const int page = file.AddPage("");
  EXPECT_THAT(ListOf(file.Build(file.AddCatalog(page))), IsEmpty());
}

TEST(PageTree, OfACatalogWithoutPagesIsEmpty) {
  PdfBuilder file;
  EXPECT_THAT(ListOf(file.Build(file.Add("<< /Type /Catalog >>"))), IsEmpty());
}

TEST(PageTree, KidsInAnObjectOfTheirOwnAreNotFollowed) {
  PdfBuilder file;
  const int page = file.AddPage("");
  const int kids = file.Add("[ " + PdfBuilder::Reference(page) + " ]");
  const int node = file.Add("<< /Type /Pages /Kids " + PdfBuilder::Reference(kids) + " >>");
  EXPECT_THAT(ListOf(file.Build(file.AddCatalog(node))), IsEmpty());
}

TEST(PageTree, ANodeWithoutATypeIsStillWalked) {
  PdfBuilder file;
  const int page = file.AddPage("");
  const int node = file.Add("<< /Kids [ " + PdfBuilder::Reference(page) + " ] >>");
  EXPECT_THAT(ListOf(file.Build(file.AddCatalog(node))), ElementsAre(page));
}

TEST(PageTree, KidsWithoutAnEndEndTheRead) {
  PdfBuilder file;
  const int node = file.Add("<< /Type /Pages /Kids [ 1 0 R >>");
  EXPECT_THROW(ListOf(file.Build(file.AddCatalog(node))), std::out_of_range);
}

TEST(PageTree, ANodeAmongItsOwnKidsIsSkipped) {
  PdfBuilder file;
  const int page = file.AddPage("");
  const int node = page + 1;
  file.AddNode({node, page, node});
  EXPECT_THAT(ListOf(file.Build(file.AddCatalog(node))), ElementsAre(page));
}

TEST(PageTree, NodesThatNameEachOtherOverAndOverEndWithTheAccountAndKeepWhatWasListed) {
  PdfBuilder file;
  int node = file.Add("<< /Type /Page >>");
  for (int i = 0; i < 40; ++i) node = file.AddNode({node, node});
  const std::string bytes = file.Build(file.AddCatalog(node));
  support::Account account({.held = 1 << 20, .working = 1 << 20, .work = 1 << 24});
  const support::AccountScope scope(account);
  EXPECT_GT(ListOf(bytes).size(), 1000U);
  EXPECT_EQ(account.Cuts(), 1U);
}

TEST(PageTree, EndsBelowTheLimitOfItsDepth) {
  const auto isListedBelow = [](int nodes) {
    PdfBuilder file;
    const int page = file.AddPage("");
    int node = page;
    for (int i = 0; i < nodes; ++i) node = file.AddNode({node});
    const auto list = ListOf(file.Build(file.AddCatalog(node)));
    return std::find(list.begin(), list.end(), page) != list.end();
  };
  EXPECT_TRUE(isListedBelow(support::limits::kPdfPageTreeDepth - 1));
  EXPECT_FALSE(isListedBelow(support::limits::kPdfPageTreeDepth));
}

TEST(Page, HasItsOwnBox) {
  PdfBuilder file;
  const int page = file.Add("<< /Type /Page /MediaBox [ 1 2.5 300 -4 ] >>");
  EXPECT_THAT(PagesOf(file.BuildPages({page}))[0].mediaBox, ElementsAre(1.0, 2.5, 300.0, -4.0));
}

TEST(Page, InheritsNothing) {
  PdfBuilder file;
  const int font = file.Add("<< /Type /Font /BaseFont /Arial >>");
  const int stream = file.AddStream("/F1 9 Tf\n(a) Tj\n");
  const int page = file.Add("<< /Type /Page /Contents " + PdfBuilder::Reference(stream) + " >>");
  const int node = file.Add("<< /Type /Pages /MediaBox [ 0 0 9 9 ] /Kids [ " + PdfBuilder::Reference(page) +
                            " ] /Resources << /Font << /F1 " + PdfBuilder::Reference(font) + " >> >> >>");
  const std::vector<pdf::PDF_Page> pages = PagesOf(file.Build(file.AddCatalog(node)));
  ASSERT_THAT(pages, SizeIs(1));
  EXPECT_THAT(pages[0].mediaBox, ElementsAre(0.0, 0.0, 0.0, 0.0));
  EXPECT_EQ(EntityOf<pdf::PDF_PageText>(pages[0], 0).font->name, "SimSun");
}

TEST(Page, WithoutABoxDoesNotTakeThatOfThePageBefore) {
  PdfBuilder file;
  const int first = file.AddPage("");
  const int second = file.Add("<< /Type /Page >>");
  EXPECT_THAT(PagesOf(file.BuildPages({first, second}))[1].mediaBox, ElementsAre(0.0, 0.0, 0.0, 0.0));
}

TEST(Page, AnIndirectBoxIsNotFollowed) {
  PdfBuilder file;
  const int box = file.Add("[ 0 0 612 792 ]");
  const int page = file.Add("<< /Type /Page /MediaBox " + PdfBuilder::Reference(box) + " /Rotate 90 >>");
  // The numbers two to five places behind the key: "0", "R", "/Rotate", "90".
  EXPECT_THAT(PagesOf(file.BuildPages({page}))[0].mediaBox, ElementsAre(0.0, 0.0, 0.0, 90.0));
}

TEST(Page, ContentsMayBeAnArrayAndAreOneText) {
  PdfBuilder file;
  const int a = file.AddStream("(a");
  const int b = file.AddStream("b) T");
  const int c = file.AddStream("j\n");
  const int page = file.Add("<< /Type /Page /Contents [ " + PdfBuilder::Reference(a) + " " +
                            PdfBuilder::Reference(b) + " " + PdfBuilder::Reference(c) + " ] >>");
  EXPECT_THAT(TextsOf(PagesOf(file.BuildPages({page}))[0]), ElementsAre("ab"));
}

TEST(Page, ContentsKeysAddUp) {
  PdfBuilder file;
  const int a = file.AddStream("(a) Tj\n");
  const int b = file.AddStream("(b) Tj\n");
  const int page = file.Add("<< /Type /Page /Contents " + PdfBuilder::Reference(a) + " /Contents " +
                            PdfBuilder::Reference(b) + " >>");
  EXPECT_THAT(TextsOf(PagesOf(file.BuildPages({page}))[0]), ElementsAre("a", "b"));
}

TEST(Page, ALengthInAnObjectOfItsOwnIsFollowed) {
  PdfBuilder file;
  const int length = file.Add("7");
  const int stream = file.AddStreamOfLength("(a) Tj\n(b) Tj\n", PdfBuilder::Reference(length));
  const int page = file.Add("<< /Type /Page /Contents " + PdfBuilder::Reference(stream) + " >>");
  EXPECT_THAT(TextsOf(PagesOf(file.BuildPages({page}))[0]), ElementsAre("a"));
}

TEST(Page, ALengthBeyondTheDataEndsTheRead) {
  PdfBuilder file;
  const int stream = file.AddStreamOfLength("(a) Tj\n", "5000");
  const int page = file.Add("<< /Type /Page /Contents " + PdfBuilder::Reference(stream) + " >>");
  EXPECT_THROW(PagesOf(file.BuildPages({page})), std::out_of_range);
}

TEST(Page, ADecodedTextShorterThanTheLengthEndsTheRead) {
  PdfBuilder file;
  const int stream = file.AddStream("(a) Tj\n", "/Filter /Crypt");
  const int page = file.Add("<< /Type /Page /Contents " + PdfBuilder::Reference(stream) + " >>");
  EXPECT_THROW(PagesOf(file.BuildPages({page})), std::out_of_range);
}

TEST(Page, TextInRunLengthIsCutToItsEncodedLength) {
  // Nine bytes that stand for thirteen: "S", a line end, eight blanks, a line end, "S" and a line end.
  const std::string encoded = {1, 'S', '\n', '\xF9', ' ', 2, '\n', 'S', '\n'};
  PdfBuilder file;
  const int stream = file.AddStream(encoded, "/Filter /RunLengthDecode");
  const int page = file.Add("<< /Type /Page /Contents " + PdfBuilder::Reference(stream) + " >>");
  EXPECT_EQ(PagesOf(file.BuildPages({page}))[0].entities.Size(), 1U);
}

TEST(Page, TextInRunLengthMayTakeTheNulAfterItsStream) {
  // The stream asks for 17 bytes and has 16. The NUL is a line of its own, after the "S".
  PdfBuilder file;
  const int stream = file.AddStream(
      "\x10"
      "0 0 m 10 10 l S ",
      "/Filter /RunLengthDecode");
  const int page = file.Add("<< /Type /Page /Contents " + PdfBuilder::Reference(stream) + " >>");
  const std::vector<pdf::PDF_Page> pages = PagesOf(file.BuildPages({page, page}));
  EXPECT_EQ(pages[0].entities.Size(), 1U);
  EXPECT_EQ(pages[1].entities.Size(), 1U) << "the same stream again";
}

TEST(Page, TextInRunLengthThatAsksForTwoBytesMoreEndsTheRead) {
  PdfBuilder file;
  const int stream = file.AddStream(
      "\x11"
      "0 0 m 10 10 l S ",
      "/Filter /RunLengthDecode");
  const int page = file.Add("<< /Type /Page /Contents " + PdfBuilder::Reference(stream) + " >>");
  EXPECT_THROW(PagesOf(file.BuildPages({page})), std::out_of_range);
}

TEST(Page, ANegativeLengthEndsTheRead) {
  PdfBuilder file;
  const int stream = file.AddStreamOfLength("(a) Tj\n", "-1");
  const int page = file.Add("<< /Type /Page /Contents " + PdfBuilder::Reference(stream) + " >>");
  EXPECT_THROW(PagesOf(file.BuildPages({page})), std::out_of_range);
}

TEST(Page, ResourcesByReferenceAndInlineAreTheSame) {
  for (const bool indirect : {false, true}) {
    PdfBuilder file;
    const int font = file.Add("<< /Type /Font /BaseFont /Arial >>");
    const std::string dictionary = "<< /Font << /F1 " + PdfBuilder::Reference(font) + " >> >>";
    const std::string value = indirect ? PdfBuilder::Reference(file.Add(dictionary)) : dictionary;
    const int page = file.AddPage("/F1 9 Tf\n(a) Tj\n", "/Resources " + value);
    const std::vector<pdf::PDF_Page> pages = PagesOf(file.BuildPages({page}));
    EXPECT_EQ(EntityOf<pdf::PDF_PageText>(pages[0], 0).font->name, "Arial") << indirect;
  }
}

TEST(Page, ResourcesInAnObjectStreamHaveNoHeaderToLeaveOut) {
  StreamedPdf file;
  file.Object(1, "<< /Pages 2 0 R >>");
  file.Object(2, "<< /Type /Pages /Kids [ 3 0 R ] >>");
  file.Object(3, "<< /Type /Page /Resources 5 0 R /Contents 4 0 R >>");
  file.Stream(4, "/F1 9 Tf\n(a) Tj\n/F2 9 Tf\n(b) Tj\n");
  file.Streamed(5, "<< /Font << /F1 6 0 R /F2 7 0 R >> >>");
  file.Object(6, "<< /BaseFont /Arial >>");
  file.Object(7, "<< /BaseFont /Courier >>");
  const std::vector<pdf::PDF_Page> pages = PagesOf(file.Build(1));
  EXPECT_EQ(EntityOf<pdf::PDF_PageText>(pages[0], 0).font->name, "Arial");
  EXPECT_EQ(EntityOf<pdf::PDF_PageText>(pages[0], 1).font->name, "Courier");
}

TEST(Page, KeysBehindIndirectResourcesAreStillRead) {
  PdfBuilder file;
  const int resources = file.Add("<< /Font << >> >>");
  const int page =
      file.Add("<< /Type /Page /Resources " + PdfBuilder::Reference(resources) + " /MediaBox [ 0 0 5 6 ] >>");
  EXPECT_THAT(PagesOf(file.BuildPages({page}))[0].mediaBox, ElementsAre(0.0, 0.0, 5.0, 6.0));
}

/// A file of so many pages, which all name one stream.
std::string SharedStream(int pageCount, const std::string& data, const std::string& keys = "") {
  PdfBuilder file;
  const int stream = file.AddStream(data, keys);
  std::vector<int> pages(3);
  for (int& page : pages)
    page = file.Add("<< /Type /Page /Contents " + PdfBuilder::Reference(stream) + " >>");
  pages.resize(static_cast<std::size_t>(pageCount));
  return file.BuildPages(pages);
}

TEST(Page, AContentStreamOfManyPagesRunsOnEach) {
  for (const std::string& file :
       {SharedStream(3, "(a) Tj\n"), SharedStream(3, "-t+PI<,)a~>", "/Filter /ASCII85Decode")}) {
    const std::vector<pdf::PDF_Page> pages = PagesOf(file);
    ASSERT_THAT(pages, SizeIs(3));
    for (const pdf::PDF_Page& page : pages) EXPECT_THAT(TextsOf(page), ElementsAre("a"));
  }
}

TEST(Page, NotesOfASharedStreamAreWrittenForEachPage) {
  OpenPdf opened(SharedStream(3, "x", "/Filter /CCITTFaxDecode"));
  testing::internal::CaptureStdout();
  opened.Pages();
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "CCITTFaxDecode\nCCITTFaxDecode\nCCITTFaxDecode\n");
}

// How a page is laid out. A run of five line ends and blanks or more leaves an empty token.

/// A file with one page of these lines; object 1 shows "a", 2 shows "b", and 3 is a font.
std::string LaidOut(const std::string& page) {
  PdfBuilder file;
  file.AddStream("/F1 9 Tf\n(a) Tj\n");
  file.AddStream("(b) Tj\n");
  file.Add("<< /BaseFont /Arial >>");
  return file.BuildPages({file.Add(page)});
}

TEST(PageLayout, ByTwoBlanksReadsAsOnOneLine) {
  const std::vector<pdf::PDF_Page> pages =
      PagesOf(LaidOut("<<\n"
                      "  /Type /Page\n"
                      "  /MediaBox [\n"
                      "  0 0\n"
                      "  612 792\n"
                      "  ]\n"
                      "  /Resources\n"
                      "  <<\n"
                      "  /Font\n"
                      "  <<\n"
                      "  /F1 3 0 R\n"
                      "  >>\n"
                      "  >>\n"
                      "  /Contents [\n"
                      "  1 0 R\n"
                      "  2 0 R\n"
                      "  ]\n"
                      ">>"));
  EXPECT_THAT(pages[0].mediaBox, ElementsAre(0.0, 0.0, 612.0, 792.0));
  EXPECT_THAT(TextsOf(pages[0]), ElementsAre("a", "b"));
  EXPECT_EQ(EntityOf<pdf::PDF_PageText>(pages[0], 0).font->name, "Arial");
}

TEST(PageLayout, BracketsOnLinesOfTheirOwnReadAsOnOneLine) {
  const std::vector<pdf::PDF_Page> pages = PagesOf(LaidOut(
      "<<\n/Type\n/Page\n/MediaBox\n[\n0\n0\n612\n792\n]\n/Resources\n<<\n/Font\n<<\n/F1\n3\n0\nR\n>>\n>>\n"
      "/Contents\n[\n1\n0\nR\n2\n0\nR\n]\n>>"));
  EXPECT_THAT(pages[0].mediaBox, ElementsAre(0.0, 0.0, 612.0, 792.0));
  EXPECT_THAT(TextsOf(pages[0]), ElementsAre("a", "b"));
  EXPECT_EQ(EntityOf<pdf::PDF_PageText>(pages[0], 0).font->name, "Arial");
}

TEST(PageLayout, AnIndentedBoxMovesByItsEmptyToken) {
  // "[", the line end after it and four blanks leave one: "", "0", "0", "612".
  const std::vector<pdf::PDF_Page> pages =
      PagesOf(LaidOut("<< /Type /Page /MediaBox [\n    0 0 612 792 ] >>"));
  EXPECT_THAT(pages[0].mediaBox, ElementsAre(0.0, 0.0, 0.0, 612.0));
}

TEST(PageLayout, IndentedContentsAreOutOfStepAndEndAtTheFirstBracket) {
  // "", "1", "0", "R", "", "2", "0", "R": every first of three is "", "R" and "0", each object 0, which is
  // the file's first one.
  const std::vector<pdf::PDF_Page> pages =
      PagesOf(LaidOut("<< /Type /Page /Contents [\n    1 0 R\n    2 0 R\n] /MediaBox [ 0 0 5 6 ] >>"));
  EXPECT_THAT(TextsOf(pages[0]), ElementsAre("a", "a", "a"));
  EXPECT_THAT(pages[0].mediaBox, ElementsAre(0.0, 0.0, 5.0, 6.0));
}

TEST(PageLayout, ContentsWithAnotherTokenEndAtTheFirstBracket) {
  // "1", "0", "R", "x", "2", "0", "R": "1", "x" and "R".
  const std::vector<pdf::PDF_Page> pages =
      PagesOf(LaidOut("<< /Type /Page /Contents [ 1 0 R x 2 0 R ] /MediaBox [ 0 0 5 6 ] >>"));
  EXPECT_THAT(TextsOf(pages[0]), ElementsAre("a", "a", "a"));
  EXPECT_THAT(pages[0].mediaBox, ElementsAre(0.0, 0.0, 5.0, 6.0));
}

TEST(PageLayout, ResourcesAfterAnEmptyTokenAreNotRead) {
  const std::vector<pdf::PDF_Page> pages =
      PagesOf(LaidOut("<< /Type /Page /Resources\n    << /Font << /F1 3 0 R >> >> /Contents 1 0 R >>"));
  EXPECT_EQ(EntityOf<pdf::PDF_PageText>(pages[0], 0).font->name, "SimSun");
}

TEST(PageLayout, FontsAfterAnEmptyTokenAreNotRead) {
  const std::vector<pdf::PDF_Page> pages =
      PagesOf(LaidOut("<< /Type /Page /Resources << /Font\n    << /F1 3 0 R >> >> /Contents 1 0 R >>"));
  EXPECT_EQ(EntityOf<pdf::PDF_PageText>(pages[0], 0).font->name, "SimSun");
}

TEST(PageLayout, IndentedKidsAreOutOfStepAndEndAtTheFirstBracket) {
  PdfBuilder file;
  const int page = file.AddPage("");
  const std::string kid = PdfBuilder::Reference(page);
  const int node = file.Add("<< /Type /Pages /Kids [ " + kid + "\n    " + kid + " ] /Foo [ " + kid + " ] >>");
  // The page, then "" and "R".
  EXPECT_THAT(ListOf(file.Build(file.AddCatalog(node))), ElementsAre(page, 0, 0));
}

// Functions that lead to themselves.

/// The entities of a page that is drawn after its shading is read. The shading names function 1.
std::size_t EntitiesDespite(const std::vector<std::string>& functions) {
  PdfBuilder file;
  for (const std::string& function : functions) file.Add(function);
  const int shading = file.Add("<< /ShadingType 2 /Coords [ 0 0 1 1 ] /Function 1 0 R >>");
  const int page = file.AddPage(
      "0 0 m\n1 1 l\nS\n", "/Resources << /Shading << /Sh0 " + PdfBuilder::Reference(shading) + " >> >>");
  return PagesOf(file.BuildPages({page}))[0].entities.Size();
}

std::string Stitched(const std::string& references) {
  return "<< /FunctionType 3 /Functions [ " + references + "] >>";
}

std::string References(int first, int last) {
  std::string references;
  for (int number = first; number <= last; ++number) references += PdfBuilder::Reference(number) + " ";
  return references;
}

std::string Repeated(const std::string& text, int times) {
  std::string repeated;
  for (int i = 0; i < times; ++i) repeated += text;
  return repeated;
}

TEST(PageFunctions, ThatNameThemselvesManyTimesLeaveThePageDrawn) {
  EXPECT_EQ(EntitiesDespite({Stitched(Repeated("1 0 R ", 10))}), 1U);
  EXPECT_EQ(EntitiesDespite({Stitched(Repeated("1 0 R ", 200'000))}), 1U);
}

TEST(PageFunctions, ThatNameEachOtherManyTimesLeaveThePageDrawn) {
  const std::string both = Stitched(Repeated("1 0 R 2 0 R ", 1000));
  EXPECT_EQ(EntitiesDespite({both, both}), 1U);
  EXPECT_EQ(EntitiesDespite(std::vector<std::string>(40, Stitched(References(1, 40)))), 1U);
}

TEST(PageFunctions, ThatNameThemselvesByUnknownNumbersLeaveThePageDrawn) {
  // Each unknown number is the file's first object, which is the function.
  EXPECT_EQ(EntitiesDespite({Stitched(References(1000, 40'000))}), 1U);
}

TEST(PageFunctions, WithManyPartsOfManyPartsLeaveThePageDrawn) {
  std::vector<std::string> functions;
  for (int part = 2; part <= 10; ++part)
    functions.push_back(Stitched(Repeated(PdfBuilder::Reference(part) + " ", 100)));
  functions.push_back("<< /FunctionType 2 /N 1 >>");
  EXPECT_EQ(EntitiesDespite(functions), 1U);
}

TEST(PageFunctions, ThatAreOutOfStepLeaveThePageDrawn) {
  EXPECT_EQ(EntitiesDespite({Stitched("1 0 R 2 ")}), 1U);
  EXPECT_EQ(EntitiesDespite({Stitched("<< /FunctionType 2 /Domain [ 0 1 ] /N 1 >> 2 0 R ")}), 1U);
  EXPECT_EQ(EntitiesDespite({"<< /FunctionType 3 /Encode [ 0 1 0 ] >>"}), 1U);
}

}  // namespace
