#include <algorithm>
#include <gtest/gtest.h>

#include "drawing.h"
#include "support/account.h"
#include "support/broken_png.h"

namespace {

using namespace Entity_ZR;

const std::string kImage = "0|IMAGE|10|1|20|2|30|3|11|0.5|21|0|31|0|12|0|22|0.25|32|0|340|A1|13|40|23|30";

Drawing WithPicture(const std::string& path, const std::string& definitionTags = "") {
  Drawing drawing;
  drawing.entities = kImage;
  drawing.objects = "0|DICTIONARY|5|9|0|IMAGEDEF|5|a1|1|" + path + "|" + definitionTags;
  return drawing;
}

TEST(ConvertImage, CopiesItsPlace) {
  const auto image = ReadOne<ZR_Image>(kImage);
  EXPECT_EQ(image->position, (Point3{1, 2, 3}));
  EXPECT_EQ(image->uVector, (Point3{0.5, 0, 0}));
  EXPECT_EQ(image->vVector, (Point3{0, 0.25, 0}));
  EXPECT_EQ(image->displayWidth, 40.0);
  EXPECT_EQ(image->displayHeight, 30.0);
}

TEST(ConvertImage, HasNoPictureWithoutItsDefinition) {
  const auto image = ReadOne<ZR_Image>(kImage);
  EXPECT_EQ(image->pixels, nullptr);
  EXPECT_EQ(image->width, 0);
}

TEST(ConvertImage, DecodesTheFileThatItsDefinitionNames) {
  const TemporaryFile picture("pgm", "P5 3 2 255\nabcdef");
  const auto image = ReadOne<ZR_Image>(WithPicture(picture.path, "280|1|281|2"));
  EXPECT_EQ(image->width, 3);
  EXPECT_EQ(image->height, 2);
  EXPECT_EQ(image->channels, 1);
  ASSERT_EQ(image->pixelBytes, 6u);
  EXPECT_EQ(std::string(image->pixels.get(), image->pixels.get() + 6), "abcdef");
  EXPECT_EQ(image->loaded, 1);
  EXPECT_EQ(image->resolutionUnits, 2);
}

TEST(ConvertImage, HasAPictureOfNoWidth) {
  const TemporaryFile picture("pgm", "P5 0 1 255\n");
  const auto image = ReadOne<ZR_Image>(WithPicture(picture.path));
  EXPECT_NE(image->pixels, nullptr);
  EXPECT_EQ(image->pixelBytes, 0u);
  EXPECT_EQ(image->height, 1);
}

TEST(ConvertImage, TakesAnyLoadedValueButZeroAsLoaded) {
  EXPECT_EQ(ReadOne<ZR_Image>(WithPicture("nowhere.png", "280|7"))->loaded, 1);
  EXPECT_EQ(ReadOne<ZR_Image>(WithPicture("nowhere.png", "280|0"))->loaded, 0);
}

TEST(ConvertImage, HasNoPictureWhereTheFileIsMissingOrNoPicture) {
  EXPECT_EQ(ReadOne<ZR_Image>(WithPicture("/nowhere/picture.png"))->pixels, nullptr);
  EXPECT_EQ(ReadOne<ZR_Image>(WithPicture(testing::TempDir()))->pixels, nullptr);
  const TemporaryFile text("png", "this is no picture");
  EXPECT_EQ(ReadOne<ZR_Image>(WithPicture(text.path))->pixels, nullptr);
}

TEST(ConvertImage, DoesNotLookForTheFileBesideTheDrawing) {
  const TemporaryFile picture("pgm", "P5 1 1 255\na");
  const std::string name = picture.path.substr(picture.path.rfind('/') + 1);
  EXPECT_EQ(ReadOne<ZR_Image>(WithPicture(name))->pixels, nullptr);
}

TEST(ConvertImage, GivesEveryImageOfOneDefinitionThePicture) {
  const TemporaryFile picture("pgm", "P5 1 1 255\na");
  Drawing drawing = WithPicture(picture.path);
  drawing.entities += "|" + kImage;
  RecordingSink sink;
  ReadInto(sink, drawing);
  ASSERT_EQ(sink.All<ZR_Image>().size(), 2u);
  for (const auto& image : sink.All<ZR_Image>()) EXPECT_EQ(image->width, 1);
}

TEST(ConvertImage, EndsDecodingBrokenPicturesOverAndOverAndDrawsWhatFollows) {
  // Each of the broken pictures claims 121 million pixels.
  const TemporaryFile broken("png", BrokenPng());
  const TemporaryFile sound("pgm", "P5 1 1 255\na");
  Drawing drawing;
  drawing.objects = "0|DICTIONARY|5|9|0|IMAGEDEF|5|a1|1|" + broken.path + "|0|IMAGEDEF|5|a2|1|" + sound.path;
  for (int i = 0; i < 40; ++i) drawing.entities += "0|IMAGE|340|A1|0|IMAGE|340|A2|";
  RecordingSink sink;
  support::Account account;
  const support::AccountScope scope(account);
  ReadInto(sink, drawing);
  const auto images = sink.All<ZR_Image>();
  EXPECT_LT(images.size(), 80u);  // those that were not decoded ended early
  EXPECT_EQ(account.Cuts(), 80u - images.size());
  ASSERT_FALSE(images.empty());
  EXPECT_NE(images.back()->pixels, nullptr);
  EXPECT_EQ(
      std::count_if(images.begin(), images.end(), [](const auto& image) { return image->pixels != nullptr; }),
      40);
}

}  // namespace
