#include "fonts/font_lookup.h"

#include <gtest/gtest.h>

#include "support/limits.h"

namespace {

using fonts::FontLookup;
using fonts::InstalledFonts;

std::string FontsDirectory() { return platform::HostDirectory() + "fonts/"; }

/// A lookup that finds no font.ini.
FontLookup WithoutProfile() { return FontLookup("/no/such/directory/"); }

TEST(FontLookup, TakesTheFileThatFontIniNames) {
  EXPECT_EQ(FontLookup().FileOf("Nameplate"), FontsDirectory() + "nameplate.ttf");
  EXPECT_EQ(FontLookup().FileOf("NAMEPLATE"), FontsDirectory() + "nameplate.ttf");
}

TEST(FontLookup, TakesAFileFromFontIniThatIsNotThere) {
  EXPECT_EQ(FontLookup().FileOf("Missing"), FontsDirectory() + "missing.ttf");
}

TEST(FontLookup, SearchesForTheStyleOfANameThatFontIniLacks) {
  EXPECT_TRUE(WithoutProfile().FileOf("DejaVu Sans Mono-Book").ends_with("/DejaVuSansMono.ttf"));
  EXPECT_EQ(WithoutProfile().FileOf("DejaVu Sans Mono-Book"),
            InstalledFonts().StyleSearch("DejaVu Sans Mono-Book"));
}

TEST(FontLookup, EndsWithTheBestMatch) {
  EXPECT_TRUE(WithoutProfile().FileOf("DejaVu Sans Mono").ends_with("/DejaVuSansMono.ttf"));
  EXPECT_EQ(FontLookup().FileOf("Microsoft YaHei"), InstalledFonts().BestMatch("Microsoft YaHei"));
  EXPECT_EQ(FontLookup().FileOf(""), InstalledFonts().BestMatch(""));
}

TEST(FontLookup, TakesThePartBeforeAPlusFirst) {
  EXPECT_EQ(FontLookup().FileOf("Nameplate+DejaVu Sans Mono-Book"), FontsDirectory() + "nameplate.ttf");
  EXPECT_EQ(FontLookup().FileOf("Nameplate+"), FontsDirectory() + "nameplate.ttf");
}

TEST(FontLookup, SearchesForTheStyleBehindAPlusNext) {
  EXPECT_TRUE(FontLookup().FileOf("ABCDEF+DejaVu Sans Mono-Book").ends_with("/DejaVuSansMono.ttf"));
}

TEST(FontLookup, TakesThePartFromThePlusOnThird) {
  EXPECT_EQ(FontLookup().FileOf("ABCDEF+DejaVu Sans Mono-NoSuchStyle"), FontsDirectory() + "nameplate.ttf");
}

TEST(FontLookup, DoesNotTakeThePartBehindAPlusFromFontIni) {
  EXPECT_EQ(FontLookup().FileOf("ABCDEF+Nameplate"), InstalledFonts().BestMatch("ABCDEF+Nameplate"));
}

TEST(FontLookup, MatchesTheWholeNameWithItsPlusLast) {
  EXPECT_EQ(FontLookup().FileOf("ABCDEF+DejaVu Serif"), InstalledFonts().BestMatch("ABCDEF+DejaVu Serif"));
}

TEST(FontLookup, SplitsAtTheFirstPlus) {
  EXPECT_EQ(FontLookup().FileOf("Engraved+Nameplate+Script"), FontsDirectory() + "engraved.ttf");
}

TEST(FontLookup, GivesTheSameFileAgain) {
  FontLookup lookup;
  const std::string first = lookup.FileOf("Nameplate");
  EXPECT_EQ(lookup.FileOf("Nameplate"), first);
}

TEST(FontLookup, FindsNothingForNamesBeyondTheirBound) {
  FontLookup lookup;
  const std::string longest(support::limits::kFontNameBytes, 'x');
  EXPECT_NE(lookup.FileOf(longest), "");
  EXPECT_EQ(lookup.FileOf(longest + "x"), "");
}

TEST(FontLookup, FindsTheFontOfEachOfManyNames) {
  FontLookup lookup;
  support::Account account;
  const support::AccountScope scope(account);
  for (int i = 0; i < 3000; ++i) {
    ASSERT_TRUE(
        lookup.FileOf("P" + std::to_string(i) + "+DejaVu Sans Mono-Book").ends_with("/DejaVuSansMono.ttf"));
  }
  EXPECT_EQ(lookup.FileOf("Nameplate"), FontsDirectory() + "nameplate.ttf");
}

TEST(FontLookup, CountsEachSearchAsWork) {
  FontLookup lookup = WithoutProfile();
  support::Account account;
  const support::AccountScope scope(account);
  lookup.FileOf("A");
  const std::uint64_t first = account.Spent();
  EXPECT_GT(first, 100'000U);
  lookup.FileOf("B");
  const std::uint64_t second = account.Spent() - first;
  EXPECT_GT(second, 100'000U);
  lookup.FileOf("B");
  EXPECT_LT(account.Spent(), first + second + 1000);
}

}  // namespace
