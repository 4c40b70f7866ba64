#include "fonts/installed_fonts.h"

#include <fontconfig/fontconfig.h>
#include <gtest/gtest.h>

namespace {

using fonts::InstalledFonts;

/// The file that Fontconfig, called directly, takes for `name`.
std::string DirectMatch(const std::string& name) {
  FcConfig* config = FcInitLoadConfigAndFonts();
  FcPattern* pattern = FcNameParse(reinterpret_cast<const FcChar8*>(name.c_str()));
  FcConfigSubstitute(config, pattern, FcMatchPattern);
  FcDefaultSubstitute(pattern);
  FcResult result = FcResultNoMatch;
  FcPattern* match = FcFontMatch(config, pattern, &result);
  FcChar8* file = nullptr;
  std::string path;
  if (FcPatternGetString(match, "file", 0, &file) == FcResultMatch)
    path = reinterpret_cast<const char*>(file);
  FcPatternDestroy(match);
  FcPatternDestroy(pattern);
  FcConfigDestroy(config);
  return path;
}

TEST(BestMatch, FindsAFamilyThatIsInstalled) {
  const InstalledFonts installed;
  EXPECT_TRUE(installed.BestMatch("DejaVu Sans Mono").ends_with("/DejaVuSansMono.ttf"));
  EXPECT_TRUE(installed.BestMatch("DejaVu Serif:bold").ends_with("/DejaVuSerif-Bold.ttf"));
}

TEST(BestMatch, IsWhatFontconfigTakes) {
  const InstalledFonts installed;
  for (const std::string name : {"Microsoft YaHei", "Arial, sans-serif", "'Times New Roman'",
                                 "ABCDEF+Helvetica-Bold", "", ":", "monospace-12:bold", "No Such Font"}) {
    EXPECT_EQ(installed.BestMatch(name), DirectMatch(name)) << name;
  }
}

TEST(StyleSearch, FindsTheFontWithTheStyleBehindTheHyphen) {
  const InstalledFonts installed;
  EXPECT_TRUE(installed.StyleSearch("DejaVu Sans Mono-Book").ends_with("/DejaVuSansMono.ttf"));
}

TEST(StyleSearch, TakesAPartOfTheStyle) {
  const InstalledFonts installed;
  EXPECT_TRUE(installed.StyleSearch("DejaVu Sans Mono-oo").ends_with("/DejaVuSansMono.ttf"));
  EXPECT_NE(installed.StyleSearch("DejaVu Sans Mono-"), "");
}

TEST(StyleSearch, TellsCapitalsFromSmallLetters) {
  EXPECT_EQ(InstalledFonts().StyleSearch("DejaVu Sans Mono-book"), "");
}

TEST(StyleSearch, FindsNothingWithoutAHyphen) {
  EXPECT_EQ(InstalledFonts().StyleSearch("DejaVu Sans Mono"), "");
}

TEST(StyleSearch, LooksBehindTheFirstHyphen) {
  EXPECT_EQ(InstalledFonts().StyleSearch("DejaVu Sans Mono-x-Book"), "");
}

TEST(StyleSearch, FindsNothingForAFamilyThatIsNotInstalled) {
  EXPECT_EQ(InstalledFonts().StyleSearch("No Such Font-Book"), "");
}

TEST(InstalledFonts, HasNoFontForANameThatFontconfigCannotRead) {
  const std::string name = "DejaVu Sans Mono:charset=no-Book";
  ASSERT_EQ(FcNameParse(reinterpret_cast<const FcChar8*>(name.c_str())), nullptr);
  EXPECT_EQ(InstalledFonts().StyleSearch(name), "");
  EXPECT_EQ(InstalledFonts().BestMatch(name), "");
}

TEST(InstalledFonts, SurvivesOddNames) {
  const InstalledFonts installed;
  for (const std::string name : {"-", "--", "-:", "a-\\", "a-1,2,[3", "a-:lang=", "\xFF\xFE-\xFF"}) {
    EXPECT_EQ(installed.StyleSearch(name + "No Such Style"), "") << name;
    EXPECT_EQ(installed.BestMatch(name), DirectMatch(name)) << name;
  }
}

}  // namespace
