#include "fonts/glyph_run.h"

#include <gtest/gtest.h>
#include <limits>

#include "fonts/direct_glyphs.h"
#include "fonts/face_cache.h"

namespace {

using fonts::FaceCache;
using fonts::GlyphRun;
using fonts::Outline;

/// The outlines of `text` by way of `cache`.
std::vector<Outline> CachedGlyphs(FaceCache& cache, const std::string& file, unsigned pixelSize,
                                  const std::u32string& text, double x, double y, bool flipY) {
  std::vector<Outline> outlines;
  fonts::Face* face = cache.FaceOf(file, pixelSize);
  if (face == nullptr) return outlines;
  GlyphRun run(*face, x, y, flipY);
  for (const char32_t codePoint : text) {
    Outline outline;
    if (run.Draw(codePoint, outline) == GlyphRun::Outcome::kDrawn) outlines.push_back(outline);
  }
  return outlines;
}

/// Printable ASCII and Latin-1, Greek, Cyrillic, and what no font of the tests has.
std::u32string ManyLetters() {
  std::u32string text;
  for (char32_t c = 0x20; c < 0x7F; ++c) text += c;
  for (char32_t c = 0xA0; c < 0x100; ++c) text += c;
  for (char32_t c = 0x391; c < 0x3CA; ++c) text += c;
  for (char32_t c = 0x410; c < 0x450; ++c) text += c;
  text += U"\u4E2D\U0001F600\U0010FFFF";
  return text;
}

struct FontAndSize {
  const char* file;
  unsigned pixelSize;
};

class EveryFont : public testing::TestWithParam<FontAndSize> {};

// Text repeated in one cache: the second time every glyph is a kept one, at another place of the pen.
TEST_P(EveryFont, DrawsTheSameBitsFromTheCacheAsWithoutOne) {
  const auto [file, pixelSize] = GetParam();
  const std::u32string text = ManyLetters();
  FaceCache cache;
  for (const bool flipY : {false, true}) {
    for (const auto& [x, y] :
         {std::pair(0.0, 0.0), {10.3, -20.7}, {-1234.567, 0.011}, {-0.015, 99.99}, {3e6, -3e6}}) {
      const auto expected = direct::Glyphs(file, pixelSize, text, x, y, flipY);
      ASSERT_EQ(expected.size(), text.size());
      EXPECT_EQ(CachedGlyphs(cache, file, pixelSize, text, x, y, flipY), expected)
          << x << ' ' << y << ' ' << flipY;
    }
  }
}

INSTANTIATE_TEST_SUITE_P(
    GlyphRun, EveryFont,
    testing::Values(FontAndSize{direct::kSans, 1}, FontAndSize{direct::kSans, 5},
                    FontAndSize{direct::kSans, 12}, FontAndSize{direct::kSans, 24},
                    FontAndSize{direct::kSans, 333}, FontAndSize{direct::kSerifBold, 9},
                    FontAndSize{direct::kSerifBold, 40}, FontAndSize{direct::kNimbusOtf, 7},
                    FontAndSize{direct::kNimbusOtf, 24}, FontAndSize{direct::kNimbusOtf, 3000},
                    FontAndSize{direct::kNimbusType1, 11}, FontAndSize{direct::kNimbusType1, 65535}));

TEST(GlyphRun, DrawsEveryLetterOfAFontTheSameFromTheCache) {
  FT_Library library = nullptr;
  FT_Face face = nullptr;
  ASSERT_EQ(FT_Init_FreeType(&library), 0);
  ASSERT_EQ(FT_New_Face(library, direct::kSans, 0, &face), 0);
  std::u32string text;
  FT_UInt index = 0;
  for (FT_ULong c = FT_Get_First_Char(face, &index); index != 0; c = FT_Get_Next_Char(face, c, &index)) {
    text += static_cast<char32_t>(c);
  }
  FT_Done_Face(face);
  FT_Done_FreeType(library);
  ASSERT_GT(text.size(), 5000u);

  FaceCache cache;
  CachedGlyphs(cache, direct::kSans, 13, text, 0.0, 0.0, false);
  EXPECT_EQ(CachedGlyphs(cache, direct::kSans, 13, text, -40000.9, -3.3, false),
            direct::Glyphs(direct::kSans, 13, text, -40000.9, -3.3, false));
}

TEST(GlyphRun, MovesThePenByTheAdvanceOfEachGlyph) {
  FaceCache cache;
  const auto apart = CachedGlyphs(cache, direct::kSans, 20, U"I I", 0.0, 0.0, false);
  ASSERT_EQ(apart.size(), 3u);
  EXPECT_TRUE(apart[1].empty());
  EXPECT_GT(apart[2][0].end.x, apart[0][0].end.x + 6.0);
}

TEST(GlyphRun, DrawsTheSubstituteForALetterThatTheFontLacks) {
  FaceCache cache;
  const auto drawn = CachedGlyphs(cache, direct::kSans, 20, U"\U0010FFFE", 0.0, 0.0, false);
  ASSERT_EQ(drawn.size(), 1u);
  EXPECT_FALSE(drawn[0].empty());
}

TEST(GlyphRun, MirrorsFlippedGlyphsAboutThePensLine) {
  FaceCache cache;
  const auto upright = CachedGlyphs(cache, direct::kNimbusOtf, 20, U"L", 1.0, 50.0, false);
  const auto flipped = CachedGlyphs(cache, direct::kNimbusOtf, 20, U"L", 1.0, 50.0, true);
  ASSERT_EQ(upright.size(), 1u);
  ASSERT_EQ(flipped.size(), 1u);
  ASSERT_EQ(upright[0].size(), flipped[0].size());
  for (std::size_t i = 0; i < upright[0].size(); ++i) {
    EXPECT_EQ(flipped[0][i].end.x, upright[0][i].end.x);
    EXPECT_EQ(flipped[0][i].end.y, 100.0 - upright[0][i].end.y);
  }
}

TEST(GlyphRun, SurvivesPensThatAreNowhere) {
  constexpr double infinity = std::numeric_limits<double>::infinity();
  for (const double x : {infinity, -infinity, std::numeric_limits<double>::quiet_NaN(), 1e300, -1e300}) {
    FaceCache cache;
    EXPECT_EQ(CachedGlyphs(cache, direct::kSans, 12, U"ab", x, x, false).size(), 2u);
  }
}

}  // namespace
