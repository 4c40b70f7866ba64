#include "fonts/face_cache.h"

#include <gtest/gtest.h>

#include "fonts/bitmap_font.h"
#include "fonts/direct_glyphs.h"
#include "fonts/glyph_run.h"
#include "support/limits.h"

namespace {

using fonts::Face;
using fonts::FaceCache;
using fonts::GlyphRun;
using fonts::Outline;

TEST(FaceCache, OpensAFaceOncePerSize) {
  FaceCache cache;
  Face* twelve = cache.FaceOf(direct::kSans, 12);
  ASSERT_NE(twelve, nullptr);
  EXPECT_EQ(cache.FaceOf(direct::kSans, 12), twelve);
  EXPECT_NE(cache.FaceOf(direct::kSans, 13), twelve);
  EXPECT_EQ(cache.FaceOf(direct::kSans, 12), twelve);
}

TEST(FaceCache, HasNoFaceForWhatIsNoFont) {
  FaceCache cache;
  EXPECT_EQ(cache.FaceOf("", 12), nullptr);
  EXPECT_EQ(cache.FaceOf("/no/such/font.ttf", 12), nullptr);
  EXPECT_EQ(cache.FaceOf("/", 12), nullptr);
  EXPECT_EQ(cache.FaceOf(DRAWLOAD_TEST_DATA "/fonts/broken.ttf", 12), nullptr);
  EXPECT_EQ(cache.FaceOf(DRAWLOAD_TEST_DATA "/fonts/broken.ttf", 12), nullptr);
}

TEST(FaceCache, KeepsAGlyphOnceForBothPens) {
  FaceCache cache;
  Face* face = cache.FaceOf(direct::kSans, 12);
  ASSERT_NE(face, nullptr);
  const fonts::Glyph* first = &face->GlyphOf('a', {false, {64, 0}});
  const std::size_t bytes = face->KeptBytes();
  EXPECT_GT(bytes, 0u);
  EXPECT_EQ(&face->GlyphOf('a', {false, {-999, 7}}), first);
  EXPECT_EQ(face->KeptBytes(), bytes);
}

TEST(FaceCache, ClosesFacesBeyondItsBound) {
  FaceCache cache;
  for (unsigned size = 1; size <= support::limits::kOpenFaces; ++size) {
    cache.FaceOf(direct::kSans, size)->GlyphOf('a', {});
  }
  Face* last = cache.FaceOf(direct::kSans, support::limits::kOpenFaces);
  EXPECT_GT(last->KeptBytes(), 0u);
  ASSERT_NE(cache.FaceOf(direct::kSans, 5000), nullptr);
  EXPECT_EQ(cache.FaceOf(direct::kSans, support::limits::kOpenFaces)->KeptBytes(), 0u);
}

TEST(FaceCache, DropsTheGlyphsBeyondItsBoundOfAFaceThatItKnows) {
  FaceCache measured;
  Face* face = measured.FaceOf(direct::kSans, 12);
  ASSERT_NE(face, nullptr);
  face->GlyphOf('a', {});
  const std::size_t oneGlyph = face->KeptBytes();
  face->GlyphOf('b', {});
  const std::size_t twoGlyphs = face->KeptBytes();

  FaceCache cache(twoGlyphs);
  cache.FaceOf(direct::kSans, 12)->GlyphOf('a', {});
  EXPECT_EQ(cache.FaceOf(direct::kSans, 12)->KeptBytes(), oneGlyph);
  cache.FaceOf(direct::kSans, 12)->GlyphOf('b', {});
  EXPECT_EQ(cache.FaceOf(direct::kSans, 12)->KeptBytes(), 0u);
}

TEST(FaceCache, CountsTheGlyphsOfAllItsFaces) {
  FaceCache measured;
  ASSERT_NE(measured.FaceOf(direct::kSans, 12), nullptr);
  measured.FaceOf(direct::kSans, 12)->GlyphOf('a', {});

  FaceCache cache(2 * measured.FaceOf(direct::kSans, 12)->KeptBytes());
  cache.FaceOf(direct::kSans, 12)->GlyphOf('a', {});
  cache.FaceOf(direct::kSans, 13)->GlyphOf('a', {});
  EXPECT_EQ(cache.FaceOf(direct::kSans, 12)->KeptBytes(), 0u);
}

TEST(FaceCache, KeepsAFullSetOfFacesWhileItKnowsThemAll) {
  FaceCache cache;
  for (unsigned size = 1; size <= support::limits::kOpenFaces; ++size) {
    cache.FaceOf(direct::kSans, size)->GlyphOf('a', {});
  }
  for (unsigned size = 1; size <= support::limits::kOpenFaces; ++size) {
    EXPECT_GT(cache.FaceOf(direct::kSans, size)->KeptBytes(), 0u) << size;
  }
}

TEST(FaceCache, DrawsNothingOfAFontOfBitmaps) {
  const std::string path = testing::TempDir() + "drawload_dots_" + std::to_string(getpid()) + ".bdf";
  const BitmapFont font(path);
  FaceCache cache;
  Face* face = cache.FaceOf(path, 8);
  ASSERT_NE(face, nullptr);
  GlyphRun run(*face, 0.0, 0.0, false);
  Outline outline(1);
  EXPECT_EQ(run.Draw('A', outline), GlyphRun::Outcome::kDrawn);
  EXPECT_TRUE(outline.empty());
  EXPECT_EQ(direct::Glyphs(path, 8, U"A", 0.0, 0.0, false), std::vector<Outline>(1));
}

// Whatever the engine makes of a damaged font, the cache makes the same.
TEST(FaceCache, DrawsDamagedFontsAsTheEngineDoes) {
  const std::string path = testing::TempDir() + "drawload_damaged_" + std::to_string(getpid()) + ".ttf";
  std::ifstream source(direct::kSans, std::ios::binary);
  const std::string whole((std::istreambuf_iterator<char>(source)), std::istreambuf_iterator<char>());
  ASSERT_GT(whole.size(), 100'000u);
  for (std::size_t part = 1; part < 16; ++part) {
    std::string damaged = whole.substr(0, whole.size() * part / 16);
    damaged[damaged.size() * part / 20] ^= '\x55';
    std::ofstream(path, std::ios::binary) << damaged;
    FaceCache cache;
    std::vector<Outline> drawn;
    if (Face* face = cache.FaceOf(path, 12)) {
      GlyphRun run(*face, 0.0, 0.0, false);
      Outline outline;
      for (const char32_t letter : std::u32string(U"Damage")) {
        if (run.Draw(letter, outline) == GlyphRun::Outcome::kDrawn) drawn.push_back(outline);
      }
    }
    EXPECT_EQ(drawn, direct::Glyphs(path, 12, U"Damage", 0.0, 0.0, false)) << part;
  }
  std::filesystem::remove(path);
}

}  // namespace
