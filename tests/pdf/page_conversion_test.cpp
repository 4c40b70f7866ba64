#include "pdf/page_conversion.h"

#include <cmath>
#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <limits>

namespace {

using Entity_ZR::PathSegment;
using Entity_ZR::Point3;
using testing::ElementsAre;

constexpr double k = 0.35277777777777775;

pdf::PDF_PagePath PathOf(const pdf::PdfPathData& segments) {
  static support::Arena memory;
  return {pdf::PdfPackedPath(segments, memory), {}, pdf::kStroke};
}

Entity_ZR::ZR_Path Converted(const pdf::PDF_PagePath& source) {
  Entity_ZR::ZR_Path path;
  pdf::ConvertPath(source, path);
  return path;
}

TEST(ConvertPath, WritesEachSegmentInMillimetresBehindTheInitialMove) {
  const pdf::PDF_PagePath source = PathOf(
      {{pdf::kPdfMove, {72, 144}}, {pdf::kPdfLine, {0, 72}}, {pdf::kPdfCurve, {1, 2}, {3, 4}, {5, 6}}});
  EXPECT_THAT(Converted(source).segments,
              ElementsAre(PathSegment{1, {}}, PathSegment{1, {72 * k, 144 * k}}, PathSegment{2, {0, 72 * k}},
                          PathSegment{5, {k, 2 * k}, {3 * k, 4 * k}, {5 * k, 6 * k}}));
}

TEST(ConvertPath, SkipsSegmentsOfOtherTags) {
  EXPECT_THAT(Converted(PathOf({{3, {1, 1}}, {4, {1, 1}}})).segments, ElementsAre(PathSegment{1, {}}));
}

TEST(ConvertPath, CopiesThePaintMode) {
  for (const int mode : {0, 1, 2}) {
    pdf::PDF_PagePath source;
    source.paintMode = mode;
    EXPECT_EQ(Converted(source).fillMode, static_cast<std::uint32_t>(mode));
    EXPECT_EQ(Converted(source).paintMode, static_cast<std::uint32_t>(mode));
  }
}

TEST(ConvertPath, RenumbersCapsAndJoins) {
  const std::pair<int, int> numbers[] = {{0, 0}, {1, 2}, {2, 1}, {3, 0}, {-1, 0}};
  for (const auto& [file, entity] : numbers) {
    pdf::PDF_PagePath source;
    source.paint.lineCap = file;
    source.paint.lineJoin = file;
    EXPECT_EQ(Converted(source).lineCap, entity) << file;
    EXPECT_EQ(Converted(source).lineJoin, entity) << file;
  }
}

TEST(ConvertPath, ConvertsWidthAndCopiesTheMiterLimit) {
  pdf::PDF_PagePath source;
  source.paint.lineWidth = 2.0;
  source.paint.miterLimit = 7.5;
  EXPECT_EQ(Converted(source).lineWidth, 2.0 * k);
  EXPECT_EQ(Converted(source).miterLimit, 7.5);
}

TEST(ConvertPath, ColoursAreOpaqueWithRedInTheLowestByte) {
  pdf::PDF_PagePath source;
  source.paint.stroke = {0x11, 0x22, 0x33};
  source.paint.fill = {0x44, 0x55, 0x66};
  EXPECT_EQ(Converted(source).color, 0xFF332211U);
  EXPECT_EQ(Converted(source).fillColor, 0xFF665544U);
}

TEST(ConvertPath, ColoursOutsideTheRangeKeepTheirLowByte) {
  pdf::PDF_PagePath source;
  source.paint.stroke = {510, -1, std::numeric_limits<std::int32_t>::min()};
  EXPECT_EQ(Converted(source).color, 0xFF00FFFEU);
}

pdf::PDF_PageText TextIn(const std::string& fontName) {
  pdf::PDF_PageText text;
  pdf::PdfFont font;
  font.name = fontName;
  text.font = std::make_shared<const pdf::PdfFont>(font);
  return text;
}

Entity_ZR::ZR_Text Converted(const pdf::PDF_PageText& source, pdf::ResolvedFont found = {}) {
  pdf::FontNames names([found](const std::string&) { return found; });
  Entity_ZR::ZR_Text text;
  pdf::ConvertText(source, names, text);
  return text;
}

TEST(ConvertText, ConvertsPositionAndAddsHalfAMillimetreToTheHeight) {
  pdf::PDF_PageText source = TextIn("Arial");
  source.position = {72, 36};
  source.fontSize = 12;
  const Entity_ZR::ZR_Text text = Converted(source);
  EXPECT_EQ(text.position, (Point3{72 * k, 36 * k, 0}));
  EXPECT_DOUBLE_EQ(text.height, 4.7333333333333333);
}

TEST(ConvertText, CopiesTextAndColour) {
  pdf::PDF_PageText source = TextIn("Arial");
  source.text = "abc";
  source.fill = {1, 2, 3};
  const Entity_ZR::ZR_Text text = Converted(source);
  EXPECT_EQ(text.text, "abc");
  EXPECT_EQ(text.color, 0xFF030201U);
  EXPECT_EQ(text.unit, "px");
}

TEST(ConvertText, KeepsItsFontNameWhereNoFamilyIsFound) {
  EXPECT_EQ(Converted(TextIn("Arial")).fontName, "Arial");
}

TEST(ConvertText, TakesTheFamilyThatIsFound) {
  EXPECT_EQ(Converted(TextIn("Arial-Bold"), {"Liberation Sans", "Bold"}).fontName, "Liberation Sans");
}

TEST(ConvertText, StyleFlagsAreForOneWordStylesOnly) {
  EXPECT_EQ(Converted(TextIn("A"), {"F", "Bold"}).bold, 1);
  EXPECT_EQ(Converted(TextIn("A"), {"F", "Bold"}).italic, 0);
  EXPECT_EQ(Converted(TextIn("A"), {"F", "Italic"}).italic, 1);
  EXPECT_EQ(Converted(TextIn("A"), {"F", "Bold Italic"}).bold, 0);
  EXPECT_EQ(Converted(TextIn("A"), {"F", "Bold Italic"}).italic, 0);
}

TEST(ConvertText, RotationDoesNotReachTheMatrix) {
  pdf::PDF_PageText source = TextIn("Arial");
  source.rotation = 90;
  EXPECT_EQ(Converted(source).matrix, Matrix2D());
}

TEST(ConvertText, RotationThatIsNotANumberTurnsAllPointsIntoNone) {
  pdf::PDF_PageText source = TextIn("Arial");
  source.rotation = std::numeric_limits<double>::quiet_NaN();
  const Point3 point = Converted(source).matrix.Apply({1, 2, 0});
  EXPECT_TRUE(std::isnan(point.x));
  EXPECT_TRUE(std::isnan(point.y));
}

pdf::PDF_PageImage ImageOf(int width, int height) {
  pdf::PDF_PageImage image;
  const std::vector<std::uint8_t> bytes(static_cast<std::size_t>(width) * static_cast<std::size_t>(height),
                                        9);
  image.image = std::make_shared<const pdf::PdfImage>(pdf::PdfImage{bytes, width, height, 1});
  image.scaleX = 1;
  image.scaleY = 1;
  return image;
}

Entity_ZR::ZR_Image Converted(const pdf::PDF_PageImage& source) {
  Entity_ZR::ZR_Image image;
  pdf::ConvertImage(source, image);
  return image;
}

void ExpectPoint(const Matrix2D& matrix, Point3 pixel, double x, double y) {
  const Point3 point = matrix.Apply(pixel);
  EXPECT_NEAR(point.x, x, 1e-9);
  EXPECT_NEAR(point.y, y, 1e-9);
}

TEST(ConvertImage, PutsRowZeroAtTheLowerEdge) {
  // 4 by 2 pixels of 3 by 5 units; upper left corner at (100, 200).
  pdf::PDF_PageImage source = ImageOf(4, 2);
  source.scaleX = 3;
  source.scaleY = 5;
  source.x = 100;
  source.y = 200;
  const Matrix2D matrix = Converted(source).matrix;
  ExpectPoint(matrix, {0, 0, 0}, 100 * k, 190 * k);
  ExpectPoint(matrix, {4, 2, 0}, 112 * k, 200 * k);
}

TEST(ConvertImage, HalfATurnGoesAboutThePosition) {
  pdf::PDF_PageImage source = ImageOf(4, 2);
  source.rotation = 180;
  source.x = 100;
  source.y = 200;
  const Matrix2D matrix = Converted(source).matrix;
  ExpectPoint(matrix, {0, 0, 0}, 100 * k, 202 * k);
  ExpectPoint(matrix, {4, 2, 0}, 96 * k, 200 * k);
}

TEST(ConvertImage, QuarterTurnsAreExactAndOthersAreComputed) {
  pdf::PDF_PageImage source = ImageOf(4, 2);
  for (const double rotation : {90.0, -270.0}) {
    source.rotation = rotation;
    // Reflected: (0, 2); turned: (-2, 0); mirrored: (-2, -0).
    ExpectPoint(Converted(source).matrix, {0, 0, 0}, -2 * k, 0);
    EXPECT_EQ(Converted(source).matrix.a, 0.0);
  }
  for (const double rotation : {-90.0, 270.0}) {
    source.rotation = rotation;
    ExpectPoint(Converted(source).matrix, {0, 0, 0}, 2 * k, 0);
    EXPECT_EQ(Converted(source).matrix.a, 0.0);
  }
  source.rotation = 30;
  // Reflected: (0, 2); turned by 30 degrees: (-1, sqrt 3); mirrored.
  ExpectPoint(Converted(source).matrix, {0, 0, 0}, -1 * k, -std::sqrt(3.0) * k);
}

TEST(ConvertImage, HandsOverSizeAndPixels) {
  const Entity_ZR::ZR_Image image = Converted(ImageOf(4, 2));
  EXPECT_EQ(image.width, 4);
  EXPECT_EQ(image.height, 2);
  EXPECT_EQ(image.channels, 1);
  EXPECT_EQ(image.displayWidth, 4.0);
  EXPECT_EQ(image.displayHeight, 2.0);
  ASSERT_EQ(image.pixelBytes, 8U);
  EXPECT_EQ(image.pixels.get()[7], 9);
}

TEST(ConvertImage, WithoutBytesStillHasABuffer) {
  pdf::PDF_PageImage source;
  source.image = std::make_shared<const pdf::PdfImage>(pdf::PdfImage{{}, 4, 2, 0});
  const Entity_ZR::ZR_Image image = Converted(source);
  EXPECT_NE(image.pixels, nullptr);
  EXPECT_EQ(image.pixelBytes, 0U);
}

TEST(ConvertImage, WithoutAWidthStaysUnfilled) {
  pdf::PDF_PageImage source;
  source.image = std::make_shared<const pdf::PdfImage>(pdf::PdfImage{{}, 0, 2, 1});
  const Entity_ZR::ZR_Image image = Converted(source);
  EXPECT_EQ(image.pixels, nullptr);
  EXPECT_EQ(image.height, 0);
}

// Font names.

pdf::ResolvedFont Fake(const std::string& name) {
  if (name == "Arial-Bold") return {"Liberation Sans", "Bold"};
  if (name == "Song-Light") return {"Song", "Light"};
  return {};
}

TEST(FontNames, WithoutAPlusAreLookedUpAsTheyAre) {
  pdf::FontNames names(Fake);
  EXPECT_EQ(names.Resolve("Arial-Bold"), (pdf::ResolvedFont{"Liberation Sans", "Bold"}));
  EXPECT_EQ(names.Resolve("Arial"), pdf::ResolvedFont());
}

TEST(FontNames, PartsWithoutAFamilyAreLeftOut) {
  pdf::FontNames names(Fake);
  EXPECT_EQ(names.Resolve("ABCDEF+Arial-Bold").family, "Liberation Sans");
  EXPECT_EQ(names.Resolve("Arial-Bold+ABCDEF").family, "Liberation Sans");
}

TEST(FontNames, FamiliesOfSeveralPartsAreJoined) {
  pdf::FontNames names(Fake);
  EXPECT_EQ(names.Resolve("Arial-Bold+X+Song-Light"), (pdf::ResolvedFont{"Liberation Sans+Song", "Light"}));
}

TEST(FontNames, SubsetsOfOneFontAreLookedUpOnceHoweverManyThereAre) {
  int calls = 0;
  pdf::FontNames names([&calls](const std::string& name) {
    ++calls;
    return Fake(name);
  });
  for (int i = 0; i < 1500; ++i) {
    ASSERT_EQ(names.Resolve("P" + std::to_string(i) + "+Arial-Bold").family, "Liberation Sans") << i;
  }
  EXPECT_EQ(calls, 1500 + 1);
}

TEST(FontNames, EachNameIsLookedUpOnce) {
  int calls = 0;
  pdf::FontNames names([&calls](const std::string&) {
    ++calls;
    return pdf::ResolvedFont();
  });
  names.Resolve("A+B");
  names.Resolve("A+B");
  EXPECT_EQ(calls, 2);
}

}  // namespace
