#include "pdf/resource_reader.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "pdf/open_pdf.h"
#include "pdf/streamed_pdf.h"

namespace {

using testing::IsEmpty;
using testing::SizeIs;

/// Resources of a dictionary text, read with the objects of a file.
struct ReadResources {
  ReadResources(PdfBuilder& file, const std::string& dictionary)
      : opened(file.BuildPages({})), source(opened.document), object(dictionary) {
    std::size_t index = 0;
    while (object.tokens.at(index) != "<<") ++index;
    testing::internal::CaptureStdout();
    pdf::ResourceReader(source).Read(object.tokens, index, resources);
    notes = testing::internal::GetCapturedStdout();
    end = index;
  }

  OpenPdf opened;
  pdf::ObjectSource source;
  pdf::PdfObject object;
  pdf::PageResources resources;
  std::string notes;
  std::size_t end = 0;
};

TEST(Resources, StatesAndPropertiesAreNotedWithTheirNumbers) {
  PdfBuilder file;
  const ReadResources read(
      file, "<< /ExtGState << /GS0 12 0 R /GS1 13 0 R >> /Properties << /MC0 7 0 R >> /XObject << >> >>");
  EXPECT_EQ(read.notes, "ExtGState:/GS0 12\nExtGState:/GS1 13\nProperties:/MC0 7\n");
}

TEST(Resources, AnInlineStateIsSteppedOverAsAWhole) {
  PdfBuilder file;
  const ReadResources read(file, "<< /ExtGState << /GS0 << /D [ [ 1 ] 0 ] /X << /Y 5 >> >> /GS1 4 0 R >> >>");
  EXPECT_EQ(read.notes, "ExtGState:/GS0 0\nExtGState:/GS1 4\n");
}

TEST(Resources, EmptyTokensBetweenNamesAreSkipped) {
  PdfBuilder file;
  const ReadResources read(file, "<< /ExtGState <<\n\n\n\n\n\n/GS0 4 0 R >> >>");
  EXPECT_EQ(read.notes, "ExtGState:/GS0 4\n");
}

TEST(Resources, ReadingEndsAtTheMatchingBracket) {
  PdfBuilder file;
  const ReadResources read(file, "<< /Foo << /Bar << >> >> >> /ExtGState << /GS0 4 0 R >>");
  EXPECT_EQ(read.notes, "");
  EXPECT_EQ(read.object.tokens[read.end + 1], "/ExtGState");
}

TEST(Resources, WithoutTheirBracketEndTheRead) {
  PdfBuilder file;
  EXPECT_THROW(ReadResources(file, "<< /ExtGState << /GS0 4 0 R >>"), std::out_of_range);
  testing::internal::GetCapturedStdout();
}

TEST(Resources, ADictionaryByReferenceIsNotFollowed) {
  PdfBuilder file;
  const int fonts = file.Add("<< /F1 1 0 R >>");
  const ReadResources read(file, "<< /Font " + PdfBuilder::Reference(fonts) + " >>");
  EXPECT_THAT(read.resources.fonts, IsEmpty());
}

TEST(Resources, PatternTokensAreWalkedAsResourceKeys) {
  PdfBuilder file;
  const ReadResources read(file, "<< /Pattern << /P0 << /ExtGState << /GS0 4 0 R >> >> >> >>");
  EXPECT_EQ(read.notes, "ExtGState:/GS0 4\n");
}

TEST(Resources, ProcedureSetsAreDropped) {
  PdfBuilder file;
  const ReadResources read(file, "<< /ProcSet [ /PDF /ExtGState << /GS0 4 0 R >> ] >>");
  EXPECT_EQ(read.notes, "");
}

TEST(Resources, ColourSpacesGiveTheFirstValuesOfTheirFunction) {
  PdfBuilder file;
  const int space = file.Add("[ /Separation /Black /DeviceGray << /C0 [ 1 0 ] /C1 [ 0 1 ] /C0 [ 7 ] >> ]");
  const ReadResources read(
      file, "<< /ColorSpace << /CS0 " + PdfBuilder::Reference(space) +
                " /CS1 /DeviceRGB /CS2 [ /Separation /X /DeviceGray << /C1 [ 0.5 ] >> ] >> >>");
  const auto& spaces = read.resources.colorSpaces;
  ASSERT_THAT(spaces, SizeIs(3));
  EXPECT_EQ(spaces.at("/CS0")->c0, 1.0);
  EXPECT_EQ(spaces.at("/CS0")->c1, 0.0);
  EXPECT_EQ(spaces.at("/CS1")->c0, 0.0);
  EXPECT_EQ(spaces.at("/CS1")->c1, 1.0);
  EXPECT_EQ(spaces.at("/CS2")->c0, 0.0);
  EXPECT_EQ(spaces.at("/CS2")->c1, 0.5);
}

TEST(Resources, FontsAreReadByReferenceAndInline) {
  PdfBuilder file;
  const int font = file.Add("<< /Type /Font /BaseFont /Arial >>");
  const ReadResources read(file, "<< /Font << /F1 " + PdfBuilder::Reference(font) +
                                     " /F2 << /BaseFont /Courier >> /F3 " + PdfBuilder::Reference(font) +
                                     " >> >>");
  ASSERT_THAT(read.resources.fonts, SizeIs(3));
  EXPECT_EQ(read.resources.fonts.at("/F1")->name, "Arial");
  EXPECT_EQ(read.resources.fonts.at("/F2")->name, "Courier");
  EXPECT_EQ(read.resources.fonts.at("/F3"), read.resources.fonts.at("/F1"));
}

TEST(Resources, ShadingsAreStoredUnderTheirNames) {
  PdfBuilder file;
  const int shading = file.Add("<< /ShadingType 1 >>");
  const ReadResources read(file, "<< /Shading << /Sh0 " + PdfBuilder::Reference(shading) + " >> >>");
  ASSERT_THAT(read.resources.shadings, SizeIs(1));
  EXPECT_EQ(read.resources.shadings.at("/Sh0")->type, 1);
}

TEST(Resources, AnXObjectThatCannotBeReadEndsItsDictionaryOnly) {
  PdfBuilder file;
  const int form = file.AddStream("S\n", "/Subtype /Form");
  // A table whose entry points behind the end of the file gives an object without tokens.
  std::string bytes = file.BuildPages({});
  const std::size_t entry = bytes.find(" 00000 n") - 10;
  bytes.replace(entry, 10, "0999999999");
  OpenPdf opened(bytes);
  pdf::ObjectSource source(opened.document);
  const pdf::PdfObject object("<< /XObject << /A " + PdfBuilder::Reference(form) +
                              " /B 2 0 R >> /ExtGState << /G 3 0 R >> >>");
  pdf::PageResources resources;
  std::size_t index = 1;
  testing::internal::CaptureStdout();
  pdf::ResourceReader(source).Read(object.tokens, index, resources);
  EXPECT_EQ(testing::internal::GetCapturedStdout(), "ExtGState:/G 3\n");
  EXPECT_THAT(resources.xobjects, IsEmpty());
}

TEST(SharedReads, LeaveTheReaderAsASecondReadingWould) {
  PdfBuilder file;
  const int first = file.AddStream("first");
  const int second = file.AddStream("second");
  OpenPdf opened(file.BuildPages({}));
  pdf::ObjectSource source(opened.document);
  pdf::SharedReads<std::string> reads;
  const auto read = [&](int number) {
    return reads.Get(source.Reader(), number, [&] {
      return std::make_shared<std::string>(source.FetchStream(number).stream.substr(0, 5));
    });
  };
  read(first);
  read(second);
  EXPECT_EQ(*read(first), "first");
  EXPECT_EQ(source.Reader().stream.substr(0, 5), "first");
}

/// A file of two pages with these resources. The contents of the second one are object 6.
StreamedPdf TwoPages(const std::string& firstResources, const std::string& secondResources) {
  StreamedPdf file;
  file.Object(1, "<< /Pages 2 0 R >>");
  file.Object(2, "<< /Type /Pages /Kids [ 3 0 R 4 0 R ] >>");
  file.Object(3, "<< /Type /Page /Resources << " + firstResources + " >> /Contents 5 0 R >>");
  file.Object(4, "<< /Type /Page /Resources << " + secondResources + " >> /Contents 6 0 R >>");
  file.Stream(5, "(first) Tj\n");
  return file;
}

TEST(SharedReads, OfAStreamedObjectLeaveTheStreamThatWasReadBefore) {
  const std::string colorSpaces = "/ColorSpace << /CS0 7 0 R >>";
  StreamedPdf file = TwoPages(colorSpaces, "/XObject << /Fm0 8 0 R >> " + colorSpaces);
  // The contents of the second page have no stream of their own, and take that of the form.
  file.Streamed(6, "<< /Length 17 /Foo 1 >>");
  file.Streamed(7, "[ /Separation /Black /DeviceGray << /C0 [ 0 ] /C1 [ 1 ] >> ]");
  file.Stream(8, "(of the form) Tj\n", "/Subtype /Form");
  const std::vector<pdf::PDF_Page> pages = PagesOf(file.Build(1));
  EXPECT_THAT(TextsOf(pages.at(1)), testing::ElementsAre("of the form"));
}

TEST(SharedReads, DoNotKeepAnObjectThatIsReadAtTheCurrentPosition) {
  StreamedPdf file;
  file.Object(1, "<< /Pages 2 0 R >>");
  file.Object(2, "<< /Type /Pages /Kids [ 3 0 R 4 0 R ] >>");
  const std::string page = "<< /Type /Page /Contents 5 0 R /Resources << /Font << /F1 6 0 R >> >> >>";
  file.Object(3, page);
  file.Object(7, "<< /BaseFont /Arial >>");
  file.Object(4, page);
  file.Object(8, "<< /BaseFont /Courier >>");
  file.Stream(5, "/F1 9 Tf\n(a) Tj\n");
  file.ObjectAt(6, -1);
  const std::vector<pdf::PDF_Page> pages = PagesOf(file.Build(1));
  EXPECT_EQ(EntityOf<pdf::PDF_PageText>(pages.at(0), 0).font->name, "Arial");
  EXPECT_EQ(EntityOf<pdf::PDF_PageText>(pages.at(1), 0).font->name, "Courier");
}

TEST(SharedReads, LeaveThePositionWhereASecondReadingWould) {
  StreamedPdf file;
  file.Object(1, "<< /Pages 2 0 R >>");
  file.Object(2, "<< /Type /Pages /Kids [ 3 0 R 4 0 R ] >>");
  const std::string page =
      "<< /Type /Page /Contents 5 0 R /Resources << /Font << /F1 6 0 R /F2 7 0 R >> >> >>";
  file.Object(3, page);
  file.Object(4, page);
  file.Object(6, "<< /BaseFont /Arial >>");
  file.Object(8, "<< /BaseFont /Courier >>");
  file.Stream(5, "/F2 9 Tf\n(a) Tj\n");
  file.ObjectAt(7, -1);
  const std::vector<pdf::PDF_Page> pages = PagesOf(file.Build(1));
  EXPECT_EQ(EntityOf<pdf::PDF_PageText>(pages.at(0), 0).font->name, "Courier");
  EXPECT_EQ(EntityOf<pdf::PDF_PageText>(pages.at(1), 0).font->name, "Courier");
}

}  // namespace
