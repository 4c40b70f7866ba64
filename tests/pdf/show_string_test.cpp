#include "pdf/show_string.h"

#include <gtest/gtest.h>
#include <string>

#include "pdf/to_unicode.h"
#include "support/account.h"

namespace {

using pdf::DecodeShowArray;
using pdf::DecodeShowString;
using pdf::DoubleByteFallback;
using pdf::PdfFont;

PdfFont FontWith(const std::string& mappings) {
  PdfFont font;
  pdf::ReadCMap("1 beginbfchar\n" + mappings + "\nendbfchar\n", font.toUnicode);
  return font;
}

TEST(ShowString, LiteralIsItsBytesWithoutEscapesOrEncoding) {
  EXPECT_EQ(DecodeShowString("(a\\n\xE9 b) Tj", PdfFont()), "a\\n\xE9 b");
}

TEST(ShowString, LiteralEndsAtTheFirstClosingBracket) {
  EXPECT_EQ(DecodeShowString("(a\\)b) Tj", PdfFont()), "a\\");
}

TEST(ShowString, LiteralStartsAtTheFirstOpeningBracketOfTheLine) {
  EXPECT_EQ(DecodeShowString("1 (a(b) Tj", PdfFont()), "a(b");
}

TEST(ShowString, WithoutAnOpeningBracketIsTheLineUpToTheClosingOne) {
  EXPECT_EQ(DecodeShowString("ab) Tj", PdfFont()), "ab");
}

TEST(ShowString, HexadecimalGoesThroughTheMap) {
  EXPECT_EQ(DecodeShowString("<00010002> Tj", FontWith("<0001> <0041>\n<0002> <4E2D>")), "A\xE4\xB8\xAD");
}

TEST(ShowString, CodesCompareAsText) {
  const PdfFont font = FontWith("<00e9> <0041>");
  EXPECT_EQ(DecodeShowString("<00e9> Tj", font), "A");
  // 0xE9 is a lead byte of the fallback, whose range starts far above this code.
  EXPECT_EQ(DecodeShowString("<00E9> Tj", font), std::string(1, '\0'));
}

TEST(ShowString, ACodeThatNothingMapsIsANulCharacter) {
  EXPECT_EQ(DecodeShowString("<0041> Tj", PdfFont()), std::string(1, '\0'));
}

TEST(ShowString, ARestOfFewerThanFourDigitsIsDropped) {
  EXPECT_EQ(DecodeShowString("<0001004> Tj", FontWith("<0001> <0041>")), "A");
}

TEST(ShowString, SurrogatePairsBecomeOneCharacter) {
  const PdfFont font = FontWith("<0001> <D83D>\n<0002> <DE00>");
  EXPECT_EQ(DecodeShowString("<00010002> Tj", font), "\xF0\x9F\x98\x80");
}

TEST(ShowString, AnUnpairedSurrogateGivesNothing) {
  EXPECT_EQ(DecodeShowString("<0001> Tj", FontWith("<0001> <D83D>")), std::nullopt);
}

TEST(ShowString, WithoutAnyStringIsEmpty) { EXPECT_EQ(DecodeShowString("abc Tj", PdfFont()), ""); }

TEST(ShowArray, JoinsItsStringsAndPassesOverNumbers) {
  const PdfFont font = FontWith("<0001> <0058>");
  EXPECT_EQ(DecodeShowArray("[(A)-120(B) 5 <0001>] TJ", font), "ABX");
}

TEST(ShowArray, StopsAtTheFirstClosingBracket) { EXPECT_EQ(DecodeShowArray("[(A)](B) TJ", PdfFont()), "A"); }

TEST(ShowArray, DoesNotLookAtTheFirstCharacter) {
  EXPECT_EQ(DecodeShowArray("](A) TJ", PdfFont()), "A");
  EXPECT_EQ(DecodeShowArray(")", PdfFont()), "");
}

TEST(ShowArray, TakesAStringBackToTheNearestOpeningBracket) {
  EXPECT_EQ(DecodeShowArray("[(a(b)] TJ", PdfFont()), "b");
}

TEST(ShowArray, TakesAnEscapedBracketTwice) {
  EXPECT_EQ(DecodeShowArray("[(a\\)b)] TJ", PdfFont()), "a\\a\\)b");
}

TEST(ShowArray, OneUnpairedSurrogateGivesNothingAtAll) {
  EXPECT_EQ(DecodeShowArray("[(A)<0001>] TJ", FontWith("<0001> <DC00>")), std::nullopt);
}

TEST(ShowArray, OfEmptyLineIsEmpty) { EXPECT_EQ(DecodeShowArray("", PdfFont()), ""); }

TEST(ShowArray, ThatRepeatsItselfOverAndOverEndsWithTheAccount) {
  const std::string line = "[(" + std::string(20000, ')') + "] TJ";
  support::Account account({.held = 1 << 20, .working = 1 << 20, .work = 1 << 30});
  const support::AccountScope scope(account);
  EXPECT_THROW(DecodeShowArray(line, PdfFont()), support::MemoryUsedUp);
}

// The expected characters were worked out with another program's GBK table: the pair that stands as many
// places behind the first pair of the range as the code is larger than that pair's code.
TEST(DoubleByteFallback, ChoosesTheRangeByTheLastTwoDigits) {
  EXPECT_EQ(DoubleByteFallback("8181"), 0x4E97);
  EXPECT_EQ(DoubleByteFallback("B0A1"), 0x5AC9);
  EXPECT_EQ(DoubleByteFallback("D6D0"), 0x5293);
  EXPECT_EQ(DoubleByteFallback("A1A1"), 0x3000);
  EXPECT_EQ(DoubleByteFallback("b5c4"), 0x76BE);
}

TEST(DoubleByteFallback, LeadsBelowTheFirstOneGiveNothing) {
  EXPECT_EQ(DoubleByteFallback("8140"), 0);
  EXPECT_EQ(DoubleByteFallback("8180"), 0);
}

TEST(DoubleByteFallback, PlacesOutsideTheTableGiveNothing) {
  EXPECT_EQ(DoubleByteFallback("4E81"), 0);  // before the table
  EXPECT_EQ(DoubleByteFallback("FEFE"), 0);  // behind it
  EXPECT_EQ(DoubleByteFallback("81FF"), 0);  // no such lead
}

TEST(DoubleByteFallback, TextThatIsNoNumberGivesNothing) {
  EXPECT_EQ(DoubleByteFallback("zzzz"), 0);
  EXPECT_EQ(DoubleByteFallback("00-1"), 0);
}

TEST(ShowString, UsesTheFallbackForUnmappedCodes) {
  EXPECT_EQ(DecodeShowString("<8181> Tj", PdfFont()), "\xE4\xBA\x97");  // U+4E97
}

}  // namespace
