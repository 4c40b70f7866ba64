// SVG and PDF files, from the file to the fields that a host reads.
#include <cstdint>
#include <cstring>
#include <filesystem>
#include <gtest/gtest.h>
#include <string>
#include <vector>

#include "drawload/exports.h"
#include "scratch_folder.h"

namespace {

constexpr double kMillimetresPerPoint = 25.4 / 72;

class SvgAndPdf : public ScratchFolder {
 protected:
  /// Loads `text` as a file of that name; returns the answer of the library.
  static std::int32_t Load(const char* name, const std::string& text) {
    return DrawLoad_Z7(Write(name, text));
  }

  static CFileDraw* First() {
    CFileDraw* object = nullptr;
    return GetFirstData_Z7(&object) == 1 ? object : nullptr;
  }
  static CFileDraw* Next() {
    CFileDraw* object = nullptr;
    return GetNextData_Z7(&object) == 1 ? object : nullptr;
  }

  void TearDown() override { DrawLoad_Z7(nullptr); }
};

void ExpectAt(const FilePosition& position, double x, double y) {
  EXPECT_NEAR(position.x, x, 1e-9);
  EXPECT_NEAR(position.y, y, 1e-9);
}

/// A PDF file with one page of this content and a cross-reference table with the right offsets.
std::string Pdf(const std::string& content) {
  std::string text = "%PDF-1.4\n";
  std::vector<std::size_t> offsets;
  const auto add = [&](const std::string& body) {
    offsets.push_back(text.size());
    text += std::to_string(offsets.size()) + " 0 obj\n" + body + "\nendobj\n";
  };
  add("<< /Type /Catalog /Pages 2 0 R >>");
  add("<< /Type /Pages /Kids [ 3 0 R ] /Count 1 >>");
  add("<< /Type /Page /MediaBox [ 0 0 200 100 ] /Resources << >> /Contents 4 0 R >>");
  add("<< /Length " + std::to_string(content.size()) + " >>\nstream\n" + content + "\nendstream");
  const std::size_t table = text.size();
  text += "xref\n0 5\n0000000000 65535 f \n";
  for (const std::size_t offset : offsets) {
    std::string digits = std::to_string(offset);
    text += std::string(10 - digits.size(), '0') + digits + " 00000 n \n";
  }
  return text + "trailer\n<< /Size 5 /Root 1 0 R >>\nstartxref\n" + std::to_string(table) + "\n%%EOF\n";
}

TEST_F(SvgAndPdf, AnSvgShapeArrivesWithItsPlaceColorAndSettings) {
  ASSERT_EQ(
      Load(
          "a.svg",
          R"(<svg width="100mm" height="50mm" viewBox="0 0 100 50">)"
          R"(<g cutPower="45"><rect x="10" y="20" width="5" height="4" stroke="#102030" cutSpeed="12.5"/></g></svg>)"),
      1);
  const auto* curve = static_cast<const CFileCurve*>(First());
  ASSERT_NE(curve, nullptr);
  EXPECT_EQ(curve->kind, kFileCurve);
  EXPECT_EQ(curve->color, 0x302010u);
  EXPECT_EQ(curve->cutPower, 45.0);
  EXPECT_EQ(curve->cutSpeed, 12.5);
  EXPECT_EQ(curve->frequency, 1.0);
  ASSERT_EQ(curve->segmentCount, 4);
  const FileSegment* first = curve->segmentHead->next;
  EXPECT_EQ(first->type, kSegmentLine);
  ExpectAt(first->start, 10, 30);  // 50 mm high: y = 20 from the top is 30 from below
  ExpectAt(first->end, 15, 30);
  ExpectAt(first->next->end, 15, 26);
  EXPECT_EQ(Next(), nullptr);
}

TEST_F(SvgAndPdf, ThePathOfAnExtensionInCapitalsIsReadAsWell) {
  EXPECT_EQ(Load("A.SVG", R"(<svg width="9" height="9"><circle r="2" stroke="red"/></svg>)"), 1);
}

TEST_F(SvgAndPdf, AnSvgPictureArrivesAsAPackedGreyBitmap) {
  // A TGA picture of two grey pixels, 0 and 255, in Base64.
  ASSERT_EQ(
      Load(
          "a.svg",
          R"(<svg xmlns:xlink="x" width="100mm" height="50mm" viewBox="0 0 100 50"><image x="10" y="20" )"
          R"(width="40" height="20" Reverse="1" xlink:href="data:image/tga;base64,AAADAAAAAAAAAAAAAgABAAggAP8="/></svg>)"),
      1);
  const auto* dib = static_cast<const CFileDib*>(First());
  ASSERT_NE(dib, nullptr);
  ASSERT_EQ(dib->kind, kFileDib);
  EXPECT_EQ(dib->Reverse, 1);
  const auto* block = static_cast<const std::uint8_t*>(dib->bitmap);
  std::uint32_t size[2];
  std::memcpy(size, block + 4, sizeof size);
  EXPECT_EQ(size[0], 2u);
  EXPECT_EQ(size[1], 1u);
  EXPECT_EQ(block[1064], 0);
  EXPECT_EQ(block[1065], 255);
  EXPECT_NEAR(dib->a, 20.0, 1e-9);  // 40 mm for two pixels
  EXPECT_NEAR(dib->d, -20.0, 1e-9);
  EXPECT_NEAR(dib->e, 10.0, 1e-9);
  EXPECT_NEAR(dib->f, 30.0, 1e-9);
}

TEST_F(SvgAndPdf, ASvgPictureOfNoWidthArrivesAsABitmapWithoutPixels) {
  // "P5 0 1 255" in Base64.
  ASSERT_EQ(Load("a.svg", R"(<svg><image href="data:image/pgm;base64,UDUgMCAxIDI1NQo="/></svg>)"), 1);
  const auto* dib = static_cast<const CFileDib*>(First());
  ASSERT_NE(dib, nullptr);
  ASSERT_EQ(dib->kind, kFileDib);
  const auto* block = static_cast<const std::uint8_t*>(dib->bitmap);
  std::uint32_t header[6];
  std::memcpy(header, block, sizeof header);
  EXPECT_EQ(header[0], 40u);
  EXPECT_EQ(header[1], 0u);     // width
  EXPECT_EQ(header[2], 1u);     // height
  EXPECT_EQ(header[5], 0u);     // bytes of pixels
  EXPECT_EQ(block[1060], 255);  // the last entry of the palette ends the block
  EXPECT_EQ(block[1063], 0);
  EXPECT_EQ(Next(), nullptr);
}

TEST_F(SvgAndPdf, ADamagedSvgYieldsNothing) {
  EXPECT_EQ(Load("a.svg", R"(<svg width="9" height="9"><circle r="2" stroke="red"/>)"), 0);
}

TEST_F(SvgAndPdf, APdfPathArrivesInMillimetres) {
  ASSERT_EQ(Load("a.pdf", Pdf("1 0 0 RG\n10 20 m\n72 20 l\nS\n")), 1);
  const auto* curve = static_cast<const CFileCurve*>(First());
  ASSERT_NE(curve, nullptr);
  EXPECT_EQ(curve->color, 0x0000FFu);
  ASSERT_EQ(curve->segmentCount, 1);
  ExpectAt(curve->segmentHead->next->start, 10 * kMillimetresPerPoint, 20 * kMillimetresPerPoint);
  ExpectAt(curve->segmentHead->next->end, 25.4, 20 * kMillimetresPerPoint);
  EXPECT_EQ(Next(), nullptr);
}

TEST_F(SvgAndPdf, APdfOperatorWithoutItsOperandsEndsTheWholeRead) {
  EXPECT_EQ(Load("a.pdf", Pdf("10 20 m\n72 20 l\nS\n1 0 Tm\n")), 0);
}

TEST_F(SvgAndPdf, ADrawingOfOneFormatUnderTheNameOfAnotherYieldsNothing) {
  EXPECT_EQ(Load("a.pdf", R"(<svg width="9" height="9"><circle r="2" stroke="red"/></svg>)"), 0);
  EXPECT_EQ(Load("a.svg", Pdf("10 20 m\n72 20 l\nS\n")), 0);
}

}  // namespace
