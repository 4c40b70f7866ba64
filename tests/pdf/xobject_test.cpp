#include "pdf/xobject.h"

#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <list>
#include <stdexcept>
#include <zlib.h>

#include "pdf/open_pdf.h"
#include "support/limits.h"

namespace {

using testing::Each;
using testing::ElementsAre;
using testing::IsEmpty;
using testing::SizeIs;

std::string Deflated(const std::string& bytes) {
  uLongf size = compressBound(static_cast<uLong>(bytes.size()));
  std::string packed(size, '\0');
  compress(reinterpret_cast<Bytef*>(packed.data()), &size, reinterpret_cast<const Bytef*>(bytes.data()),
           static_cast<uLong>(bytes.size()));
  packed.resize(size);
  return packed;
}

pdf::PdfXObject XObjectIn(PdfBuilder& file, int number) {
  // An image without a filter lies in its file's bytes, so the files stay until the program ends.
  static std::list<OpenPdf> files;
  OpenPdf& opened = files.emplace_back(file.BuildPages({}));
  pdf::ObjectSource source(opened.document);
  pdf::PdfXObject xobject;
  EXPECT_TRUE(pdf::ReadXObject(source, number, xobject));
  return xobject;
}

pdf::PdfXObject Image(const std::string& data, const std::string& keys) {
  PdfBuilder file;
  const int number = file.AddStream(data, "/Subtype /Image " + keys);
  return XObjectIn(file, number);
}

pdf::PdfXObject Form(const std::string& data, const std::string& keys) {
  PdfBuilder file;
  const int number = file.AddStream(data, "/Subtype /Form " + keys);
  return XObjectIn(file, number);
}

TEST(ImageXObject, OfThreeBytesAPixelIsTakenAsItStands) {
  const auto image =
      Image(Deflated("abcdef"), "/Filter /FlateDecode /Width 2 /Height 1 /BitsPerComponent 8").image;
  ASSERT_NE(image, nullptr);
  EXPECT_EQ(image->width, 2);
  EXPECT_EQ(image->height, 1);
  EXPECT_EQ(image->components, 3);
  EXPECT_THAT(image->Bytes(), ElementsAre('a', 'b', 'c', 'd', 'e', 'f'));
}

TEST(ImageXObject, WithoutAFilterIsItsBytes) {
  const auto image = Image("abcd", "/Width 2 /Height 2").image;
  EXPECT_EQ(image->components, 1);
  EXPECT_THAT(image->Bytes(), ElementsAre('a', 'b', 'c', 'd'));
}

TEST(ImageXObject, InCmykHasItsBytesTurned) {
  const std::string keys = "/Filter [ /FlateDecode ] /Width 1 /Height 1 /ColorSpace ";
  EXPECT_THAT(Image(Deflated("abcd"), keys + "/DeviceCMYK").image->Bytes(), ElementsAre('b', 'c', 'd', 'a'));
  EXPECT_THAT(Image(Deflated("abcd"), keys + "7 0 R").image->Bytes(), IsEmpty());
}

TEST(ImageXObject, OfAJpegIsWhite) {
  const auto image = Image("jpeg", "/Filter /DCTDecode /Width 3 /Height 2 /ColorSpace /DeviceRGB").image;
  EXPECT_EQ(image->components, 1);
  EXPECT_THAT(image->Bytes(), IsEmpty()) << "pixels without bytes are white";
}

TEST(ImageXObject, WithTwoFiltersIsWhite) {
  const auto image = Image("x", "/Filter [ /ASCII85Decode /FlateDecode ] /Width 3 /Height 2").image;
  EXPECT_EQ(image->components, 1);
  EXPECT_THAT(image->Bytes(), IsEmpty()) << "pixels without bytes are white";
}

TEST(ImageXObject, MasksHaveNoEffect) {
  const auto image =
      Image("abcd", "/Width 2 /Height 2 /SMask 9 0 R /Mask [ 0 1 ] /ImageMask true /Decode [ 1 0 ]").image;
  EXPECT_THAT(image->Bytes(), ElementsAre('a', 'b', 'c', 'd'));
}

TEST(ImageXObject, OfAFilterThatDoesNotDecodeHasNoBytes) {
  const auto image = Image("abcd", "/Filter /Unknown /Width 2 /Height 2").image;
  ASSERT_NE(image, nullptr);
  EXPECT_THAT(image->Bytes(), IsEmpty());
  EXPECT_EQ(image->width, 2);
}

TEST(ImageXObject, OfANegativeOrAbsurdSizeIsDropped) {
  EXPECT_EQ(Image("abcd", "/Width -2 /Height 2 /Filter /DCTDecode").image, nullptr);
  EXPECT_EQ(Image("abcd", "/Width 2000000000 /Height 2000000000 /Filter /DCTDecode").image, nullptr);
}

TEST(ImageXObject, ShorterThanItsLengthEndsTheRead) {
  PdfBuilder file;
  const int number = file.AddStreamOfLength("abcd", "4000", "/Subtype /Image /Width 2 /Height 2");
  OpenPdf opened(file.BuildPages({}));
  pdf::ObjectSource source(opened.document);
  pdf::PdfXObject xobject;
  EXPECT_THROW(pdf::ReadXObject(source, number, xobject), std::out_of_range);
}

TEST(FormXObject, StartsWithTheIdentityWhereItHasNoMatrix) {
  EXPECT_EQ(Form("0 0 m\nS\n", "").form->content, "1 0 0 1 0 0 cm\n0 0 m\nS\n");
}

TEST(FormXObject, StartsWithItsMatrixAsWritten) {
  const auto form = Form("S\n", "/Matrix [ 1.50 0 0 -2 .5 6 ] /BBox [ 1 2 3 4 ]").form;
  EXPECT_EQ(form->content, "1.50 0 0 -2 .5 6 cm\nS\n");
  EXPECT_THAT(form->box, ElementsAre(1.0, 2.0, 3.0, 4.0));
}

TEST(FormXObject, AShortMatrixLeavesTheOtherNumbers) {
  EXPECT_EQ(Form("S\n", "/Matrix [ 7 8 ]").form->content, "7 8 0 1 0 0 cm\nS\n");
}

TEST(FormXObject, IsDecoded) {
  EXPECT_EQ(Form(Deflated("S\n"), "/Filter /FlateDecode").form->content, "1 0 0 1 0 0 cm\nS\n");
}

TEST(FormXObject, InRunLengthHasNoNulAfterItsBytes) {
  EXPECT_THROW(Form("\x02S\n", "/Filter /RunLengthDecode"), std::out_of_range);
}

TEST(FormXObject, OperatorsEndTheirLines) {
  EXPECT_EQ(Form("0 0 m 1 1 l S\n", "").form->content, "1 0 0 1 0 0 cm\n0 0 m\n1 1 l\nS\n");
}

TEST(XObject, OfAnotherKindIsEmpty) {
  PdfBuilder file;
  const int number = file.AddStream("x", "/Subtype /PS");
  const pdf::PdfXObject xobject = XObjectIn(file, number);
  EXPECT_EQ(xobject.image, nullptr);
  EXPECT_EQ(xobject.form, nullptr);
}

}  // namespace
