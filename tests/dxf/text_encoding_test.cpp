#include "dxf/text_encoding.h"

#include <gtest/gtest.h>

namespace {

using namespace std::string_view_literals;

TEST(GuessEncoding, TakesShortTextsAsUtf8) {
  EXPECT_EQ(GuessEncoding(""), "UTF-8");
  EXPECT_EQ(GuessEncoding("\xFF\xFF"), "UTF-8");
  EXPECT_EQ(GuessEncoding("\xFF\xFF\xFF"), "unknown");
}

TEST(GuessEncoding, KnowsUtf32ByItsByteOrderMarkOnly) {
  EXPECT_EQ(GuessEncoding("\0\0\xFE\xFF"sv), "UTF-32");
  EXPECT_EQ(GuessEncoding("\0\0\xFE\xFF\0\0\0\x41"sv), "UTF-32");
  EXPECT_EQ(GuessEncoding("\0\0\xFE"sv), "UTF-8");
  EXPECT_EQ(GuessEncoding("\0\xFF\xFF\xFF"sv), "UTF-8");
}

TEST(GuessEncoding, TakesValidUtf8First) {
  EXPECT_EQ(GuessEncoding("plain"), "UTF-8");
  EXPECT_EQ(GuessEncoding("\xE4\xB8\xAD\xE6\x96\x87"), "UTF-8");  // also a row of double bytes
}

TEST(GuessEncoding, TakesPairsOfLeadAndTrailBytesAsGbk) {
  EXPECT_EQ(GuessEncoding("\xD6\xD0\xCE\xC4"), "GBK");
  EXPECT_EQ(GuessEncoding("a\xD6\xD0z"), "GBK");
  EXPECT_EQ(GuessEncoding("\x81\x40z"), "GBK");
  EXPECT_EQ(GuessEncoding("\xFE\xFEz"), "GBK");
}

TEST(GuessEncoding, LeavesOneTrailByteOut) {
  EXPECT_EQ(GuessEncoding("\x81\xF6z"), "GBK");
  EXPECT_EQ(GuessEncoding("\x81\xF7z"), "unknown");
  EXPECT_EQ(GuessEncoding("\x81\x7Fz"), "GBK");
}

TEST(GuessEncoding, DoesNotKnowWhatIsNeither) {
  EXPECT_EQ(GuessEncoding("\x80zz"), "unknown");
  EXPECT_EQ(GuessEncoding("\xFFzz"), "unknown");
  EXPECT_EQ(GuessEncoding("\x81\x3Fz"), "unknown");
  EXPECT_EQ(GuessEncoding("\x81\xFFz"), "unknown");
  EXPECT_EQ(GuessEncoding("ab\xD6"), "unknown");
}

}  // namespace
