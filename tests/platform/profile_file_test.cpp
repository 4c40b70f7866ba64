#include "platform/profile_file.h"

#include <filesystem>
#include <fstream>
#include <gtest/gtest.h>
#include <unistd.h>

namespace {

using platform::ProfileFile;

/// A profile file that is there for the length of one test.
class ProfileFileTest : public testing::Test {
 protected:
  ~ProfileFileTest() override { std::filesystem::remove(path); }

  ProfileFile Read(const std::string& text) {
    std::ofstream(path, std::ios::binary) << text;
    return ProfileFile(path);
  }

  const std::string path = testing::TempDir() + "drawload_profile_" + std::to_string(getpid()) + ".ini";
};

TEST_F(ProfileFileTest, GivesTheValueOfAKeyInItsSection) {
  const ProfileFile profile = Read("[Other]\nArial=other.ttf\n[Font]\nArial=arial.ttf\nTimes=times.ttf\n");
  EXPECT_EQ(profile.Value("Font", "Arial"), "arial.ttf");
  EXPECT_EQ(profile.Value("Font", "Times"), "times.ttf");
  EXPECT_EQ(profile.Value("Other", "Arial"), "other.ttf");
}

TEST_F(ProfileFileTest, IsEmptyForWhatItDoesNotHold) {
  const ProfileFile profile = Read("Before=a section\n[Font]\nArial=arial.ttf\nNothing=\n");
  EXPECT_EQ(profile.Value("Font", "Aria"), "");
  EXPECT_EQ(profile.Value("Fonts", "Arial"), "");
  EXPECT_EQ(profile.Value("Font", "Nothing"), "");
  EXPECT_EQ(profile.Value("Font", "Before"), "");
  EXPECT_EQ(profile.Value("", "Before"), "");
}

TEST_F(ProfileFileTest, IsEmptyWhereThereIsNoFile) {
  EXPECT_EQ(ProfileFile(path).Value("Font", "Arial"), "");
  EXPECT_EQ(ProfileFile("/").Value("Font", "Arial"), "");
}

TEST_F(ProfileFileTest, TakesNoNoticeOfCase) {
  const ProfileFile profile = Read("[FONT]\naRiAl=Arial.TTF\n");
  EXPECT_EQ(profile.Value("font", "ARIAL"), "Arial.TTF");
}

TEST_F(ProfileFileTest, TakesNoNoticeOfBlanks) {
  const ProfileFile profile = Read(" \t[ Font ] \r\n \t Arial Narrow \t=\t a b.ttf \r\n");
  EXPECT_EQ(profile.Value("Font", "Arial Narrow"), "a b.ttf");
  EXPECT_EQ(profile.Value(" Font\t", " Arial Narrow "), "a b.ttf");
}

TEST_F(ProfileFileTest, PassesOverComments) {
  const ProfileFile profile = Read(";[Other]\n[Font]\n;Arial=a.ttf\n  ; Arial = b.ttf\nArial=c.ttf\n");
  EXPECT_EQ(profile.Value("Font", "Arial"), "c.ttf");
  EXPECT_EQ(profile.Value("Font", ";Arial"), "");
}

TEST_F(ProfileFileTest, KeepsASemicolonInsideAValue) {
  EXPECT_EQ(Read("[Font]\nArial=a.ttf ; b\n").Value("Font", "Arial"), "a.ttf ; b");
}

TEST_F(ProfileFileTest, KeepsAnEqualsSignInsideAValue) {
  EXPECT_EQ(Read("[Font]\nArial=a=b.ttf\n").Value("Font", "Arial"), "a=b.ttf");
}

TEST_F(ProfileFileTest, TakesOnePairOfQuotesOff) {
  const ProfileFile profile = Read(
      "[Font]\nA=\"a.ttf\"\nB='b.ttf'\nC=\"\"c.ttf\"\"\nD=\"d.ttf\nE=\"e.ttf'\nF=\" f.ttf "
      "\"\nG=\"\nH=\"\"\n");
  EXPECT_EQ(profile.Value("Font", "A"), "a.ttf");
  EXPECT_EQ(profile.Value("Font", "B"), "b.ttf");
  EXPECT_EQ(profile.Value("Font", "C"), "\"c.ttf\"");
  EXPECT_EQ(profile.Value("Font", "D"), "\"d.ttf");
  EXPECT_EQ(profile.Value("Font", "E"), "\"e.ttf'");
  EXPECT_EQ(profile.Value("Font", "F"), " f.ttf ");
  EXPECT_EQ(profile.Value("Font", "G"), "\"");
  EXPECT_EQ(profile.Value("Font", "H"), "");
}

TEST_F(ProfileFileTest, CutsAValueTo254Bytes) {
  const std::string longest(254, 'x');
  const ProfileFile profile = Read("[Font]\nA=" + longest + "\nB=" + longest + "y\nC=\"" + longest + "y\"\n");
  EXPECT_EQ(profile.Value("Font", "A"), longest);
  EXPECT_EQ(profile.Value("Font", "B"), longest);
  EXPECT_EQ(profile.Value("Font", "C"), longest);
}

TEST_F(ProfileFileTest, LetsTheFirstKeyWin) {
  const ProfileFile profile = Read("[Font]\nArial=a.ttf\nARIAL=b.ttf\n");
  EXPECT_EQ(profile.Value("Font", "Arial"), "a.ttf");
}

TEST_F(ProfileFileTest, LetsTheFirstSectionWin) {
  const ProfileFile profile = Read("[Font]\nArial=a.ttf\n[Other]\n[font]\nArial=b.ttf\nTimes=t.ttf\n");
  EXPECT_EQ(profile.Value("Font", "Arial"), "a.ttf");
  EXPECT_EQ(profile.Value("Font", "Times"), "");
}

TEST_F(ProfileFileTest, ReadsALastLineWithoutALineFeed) {
  EXPECT_EQ(Read("[Font]\nArial=a.ttf").Value("Font", "Arial"), "a.ttf");
}

TEST_F(ProfileFileTest, PassesOverTheMarkOfUtf8) {
  EXPECT_EQ(Read("\xEF\xBB\xBF[Font]\nArial=a.ttf\n").Value("Font", "Arial"), "a.ttf");
}

TEST_F(ProfileFileTest, SurvivesBrokenLines) {
  const ProfileFile profile = Read("[\n]\n=\n[]\n=x\n[Font\nArial=a.ttf\nno value\n\xFF\xFE\n");
  EXPECT_EQ(profile.Value("Font", "Arial"), "a.ttf");
  EXPECT_EQ(profile.Value("Font", "no value"), "");
}

}  // namespace
