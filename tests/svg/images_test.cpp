#include <gmock/gmock.h>

#include "support/broken_png.h"
#include "svg_drawing.h"

using Entity_ZR::Point3;
using Entity_ZR::ZR_Image;
using testing::ElementsAre;
using testing::Pair;

namespace {

std::string Base64(std::string_view bytes) {
  const std::string_view alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    unsigned group = 0;
    for (std::size_t k = 0; k < 3; ++k) {
      group = group << 8 | (i + k < bytes.size() ? static_cast<unsigned char>(bytes[i + k]) : 0U);
    }
    for (int shift = 18; shift >= 0; shift -= 6) text.push_back(alphabet[group >> shift & 63]);
  }
  return text;
}

/// A grey picture in the simplest format that is decoded: a header and a byte for each pixel.
std::string GreyPicture(int width, int height) {
  std::string file = "P5\n" + std::to_string(width) + " " + std::to_string(height) + "\n255\n";
  for (int i = 0; i < width * height; ++i) file.push_back(static_cast<char>(i));
  return file;
}

std::string DataUrl(int width, int height) {
  return "data:image/x;base64," + Base64(GreyPicture(width, height));
}

ZR_Image Image(const std::string& attributes) {
  return SvgDrawing("<svg width='200mm' height='100mm'><image " + attributes + "/></svg>").Only<ZR_Image>();
}

}  // namespace

TEST(SvgImage, DecodesADataUrl) {
  const ZR_Image image = Image("xlink:href='" + DataUrl(3, 2) + "'");
  EXPECT_EQ(image.width, 3);
  EXPECT_EQ(image.height, 2);
  EXPECT_EQ(image.channels, 1);
  ASSERT_NE(image.pixels, nullptr);
  EXPECT_THAT(std::vector<int>(image.pixels.get(), image.pixels.get() + 6), ElementsAre(0, 1, 2, 3, 4, 5));
}

TEST(SvgImage, HasAPictureOfNoWidth) {
  const ZR_Image image = Image("xlink:href='" + DataUrl(0, 1) + "'");
  EXPECT_NE(image.pixels, nullptr);
  EXPECT_EQ(image.width, 0);
  EXPECT_EQ(image.height, 1);
  EXPECT_EQ(image.channels, 1);
}

TEST(SvgImage, DecodesBase64WithLineBreaks) {
  std::string url = DataUrl(3, 2);
  url.insert(url.size() - 5, "\n  ");
  EXPECT_EQ(Image("xlink:href='" + url + "'").width, 3);
}

TEST(SvgImage, TakesHrefWhereThereIsNoXlinkHref) {
  EXPECT_EQ(Image("href='" + DataUrl(3, 2) + "'").width, 3);
  EXPECT_EQ(Image("xlink:href='a.png' href='" + DataUrl(3, 2) + "'").width, 0);
}

TEST(SvgImage, LoadsNoFile) {
  const ZR_Image image = Image("href='a.png' width='10' height='10'");
  EXPECT_EQ(image.pixels, nullptr);
  EXPECT_EQ(image.width, 0);
  EXPECT_EQ(image.visible, 1);
}

TEST(SvgImage, DecodesWhatStandsBehindTheFirstCommaOfAnImage) {
  const std::string picture = Base64(GreyPicture(3, 2));
  EXPECT_EQ(Image("href='data:text/plain;base64," + picture + "'").pixels, nullptr);
  // Three zero bytes stand before the picture.
  EXPECT_EQ(Image("href='data:image/x,AAAA," + picture + "'").pixels, nullptr);
  EXPECT_EQ(Image("href='data:image/x," + picture + "'").width, 3);
}

TEST(SvgImage, DecodesAllOfAUrlWithoutComma) {
  // "data:image" decodes to bytes that are no picture; nothing breaks.
  EXPECT_EQ(Image("href='data:image'").pixels, nullptr);
  EXPECT_EQ(Image("href='data:imag,AAAA'").pixels, nullptr);
}

TEST(SvgImage, FitsTheBoxAtItsOwnProportions) {
  const ZR_Image wide = Image("x='1' y='2' width='10' height='10' href='" + DataUrl(100, 50) + "'");
  EXPECT_EQ(wide.displayWidth, 10.0);
  EXPECT_EQ(wide.displayHeight, 5.0);
  EXPECT_EQ(wide.position, (Point3{1, 4.5, 0}));
  const ZR_Image tall = Image("x='1' y='2' width='10' height='10' href='" + DataUrl(50, 100) + "'");
  EXPECT_EQ(tall.displayWidth, 5.0);
  EXPECT_EQ(tall.displayHeight, 10.0);
  EXPECT_EQ(tall.position, (Point3{3.5, 2, 0}));
}

TEST(SvgImage, TakesTheWholeWidthOfABoxThatIsHardlyTooLow) {
  // 100 / 99.995 is 0.00005 more than 1, and 0.0001 is let pass.
  const ZR_Image image = Image("width='100' height='99.995' href='" + DataUrl(100, 100) + "'");
  EXPECT_EQ(image.displayWidth, 100.0);
  EXPECT_EQ(image.displayHeight, 100.0);
  EXPECT_NEAR(image.position.y, -0.0025, 1e-12);
}

TEST(SvgImage, HasItsPixelSizeInABoxOfOneOrLess) {
  for (const char* const box : {"width='10' height='1'", "width='1' height='10'", ""}) {
    const ZR_Image image = Image("x='1' y='2' " + std::string(box) + " href='" + DataUrl(100, 50) + "'");
    EXPECT_EQ(image.displayWidth, 100.0) << box;
    EXPECT_EQ(image.displayHeight, 50.0) << box;
    EXPECT_EQ(image.position, (Point3{1, 2, 0})) << box;
  }
}

TEST(SvgImage, ResolvesUnitsAndSharesOfThePageForItsBox) {
  const ZR_Image image = Image("width='50%' height='5cm' href='" + DataUrl(2, 1) + "'");
  EXPECT_EQ(image.displayWidth, 100.0);
  EXPECT_EQ(image.displayHeight, 50.0);
}

TEST(SvgImage, IsShownWhateverItsStyle) {
  EXPECT_EQ(Image("display='none' stroke='none' fill='none'").visible, 1);
}

TEST(SvgImage, KeepsXlinkHrefInItsPairs) {
  EXPECT_THAT(ParametersOf(Image(
                  "xlink:href='a.png' href='b.png' xlink_href='c' imageType='1' Reverse='1' x='1' y='1' "
                  "width='1' height='1'")),
              ElementsAre(Pair("Reverse", "1"), Pair("href", "b.png"), Pair("imageType", "1"),
                          Pair("xlink:href", "a.png")));
  EXPECT_THAT(ParametersOf(Image("href='b.png' xlink_href='c'")), ElementsAre(Pair("xlink_href", "c")));
}

TEST(SvgImage, IsDecodedForEachElementThatShowsIt) {
  const std::string url = DataUrl(3, 2);
  const SvgDrawing drawing("<svg><image id='a' href='" + url + "'/><image href='" + DataUrl(4, 4) +
                           "'/><use xlink:href='#a'/><g href='" + url + "'><image/><image/></g></svg>");
  const auto images = drawing.All<ZR_Image>();
  ASSERT_EQ(images.size(), 5U);
  EXPECT_EQ(images[0]->width, 3);
  EXPECT_EQ(images[1]->width, 4);
  EXPECT_EQ(images[2]->width, 3);
  EXPECT_EQ(images[3]->width, 3);
  EXPECT_EQ(images[4]->pixels, images[3]->pixels);
}

TEST(SvgImage, CountsAsWorkEvenIfItCannotBeDecoded) {
  // The picture claims 121 million pixels, in a file of some kilobytes.
  const std::string broken = "data:image/png;base64," + Base64(BrokenPng());
  support::Account account;
  const support::AccountScope scope(account);
  const SvgDrawing drawing("<svg><image href='" + broken + "'/></svg>");
  EXPECT_EQ(drawing.Only<ZR_Image>().pixels, nullptr);
  EXPECT_GT(account.Spent(), 121'000'000U);
}
