#include <gmock/gmock.h>
#include <gtest/gtest.h>
#include <string>

#include "pdf/pdf_rw.h"
#include "recording/recording_sink.h"

namespace {

using testing::SizeIs;

/// Sends a file of the folder of examples to `sink`.
void Record(const std::string& name, RecordingSink& sink) {
  PDF_RW reader;
  reader.sink = &sink;
  testing::internal::CaptureStdout();
  EXPECT_TRUE(reader.Read(std::string(DRAWLOAD_EXAMPLES) + "/" + name, 0));
  testing::internal::GetCapturedStdout();
}

TEST(PdfExamples, ThePlateHasItsOutlineHolesHatchingAndWindow) {
  RecordingSink sink;
  Record("plate.pdf", sink);
  // Outline, four holes, nine lines of hatching, the filled window, a rectangle.
  const auto paths = sink.All<Entity_ZR::ZR_Path>();
  ASSERT_THAT(paths, SizeIs(16));
  // A move behind the initial one, four lines, four curves, and the closing line.
  EXPECT_THAT(paths[0]->segments, SizeIs(11));
  EXPECT_EQ(paths[0]->color, 0xFF0000FFU);
}

TEST(PdfExamples, TheSheetHasTextAndAnImageOnTwoPages) {
  RecordingSink sink;
  Record("sheet.pdf", sink);
  const auto texts = sink.All<Entity_ZR::ZR_Text>();
  ASSERT_THAT(texts, SizeIs(3));
  EXPECT_EQ(texts[0]->text, "drawload");
  EXPECT_EQ(texts[1]->text, "Page one");
  EXPECT_EQ(texts[2]->text, "Page two");
  const auto images = sink.All<Entity_ZR::ZR_Image>();
  ASSERT_THAT(images, SizeIs(1));
  EXPECT_EQ(images[0]->width, 32);
  EXPECT_EQ(images[0]->channels, 1);
}

TEST(PdfExamples, ThePackedFileDrawsItsGearTwice) {
  RecordingSink sink;
  Record("packed.pdf", sink);
  const auto paths = sink.All<Entity_ZR::ZR_Path>();
  ASSERT_THAT(paths, SizeIs(4));
  // The two gears stand 120 units apart.
  constexpr double k = 0.35277777777777775;
  EXPECT_NEAR(paths[2]->segments[1].end.x - paths[0]->segments[1].end.x, 120 * k, 1e-9);
}

}  // namespace
