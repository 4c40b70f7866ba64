#include "pdf/object_text.h"

#include <gtest/gtest.h>
#include <string>

using pdf::NormaliseObjectText;
using pdf::PdfTokens;
using pdf::ReplaceAll;
using pdf::Split;

namespace {

/// The tokens of the normalised text; `Split` leaves views, so each test names its text.
struct Normalised {
  explicit Normalised(std::string_view raw) : text(NormaliseObjectText(raw)), tokens(Split(text, '\n')) {}
  std::string text;
  PdfTokens tokens;
};

}  // namespace

TEST(ReplaceAll, DoesNotLookAtWhatAReplacementProducedAgain) {
  EXPECT_EQ(ReplaceAll("aaa", "a", "aa"), "aaaaaa");
  EXPECT_EQ(ReplaceAll("\n\n\n", "\n\n", "\n"), "\n\n");
  EXPECT_EQ(ReplaceAll("abc", "x", "y"), "abc");
  EXPECT_EQ(ReplaceAll("", "x", "y"), "");
}

TEST(Split, GivesAnEmptyTokenBetweenTwoDelimiters) {
  EXPECT_EQ(Split("a\n\nb", '\n'), (PdfTokens{"a", "", "b"}));
}

TEST(Split, GivesNoTokenForAnEmptyRest) {
  EXPECT_EQ(Split("a\nb\n", '\n'), (PdfTokens{"a", "b"}));
  EXPECT_EQ(Split("", '\n'), PdfTokens{});
}

TEST(Split, GivesAnEmptyFirstTokenForALeadingDelimiter) {
  EXPECT_EQ(Split("\na", '\n'), (PdfTokens{"", "a"}));
}

TEST(Split, AppendsToTheTokensThatThereAre) {
  PdfTokens tokens{"x"};
  Split("a b", ' ', tokens);
  EXPECT_EQ(tokens, (PdfTokens{"x", "a", "b"}));
}

TEST(NormaliseObjectText, PutsNamesAndDictionaryBracketsOnLinesOfTheirOwn) {
  EXPECT_EQ(NormaliseObjectText("<</A/B>>"), "\n<<\n/A\n/B\n>>\n");
  // The line end before "<<" gives the first token, an empty one.
  EXPECT_EQ(Normalised("<</A/B>>").tokens, (PdfTokens{"", "<<", "/A", "/B", ">>"}));
}

TEST(NormaliseObjectText, SplitsReferencesInArrays) {
  EXPECT_EQ(Normalised("x[1 0 R 2 0 R]").tokens, (PdfTokens{"x", "[", "1", "0", "R", "2", "0", "R", "]"}));
}

TEST(NormaliseObjectText, SplitsTheObjectHeader) {
  EXPECT_EQ(Normalised("12 0 obj\r\n<< /Type /Page >>\nendobj").tokens,
            (PdfTokens{"12", "0", "obj", "<<", "/Type", "/Page", ">>", "endobj"}));
}

TEST(NormaliseObjectText, BreaksLiteralStringsAtBlanksAndSlashes) {
  EXPECT_EQ(Normalised("x(a/b c)").tokens, (PdfTokens{"x", "(a", "/b", "c)"}));
}

TEST(NormaliseObjectText, KeepsHexStringsWhole) {
  EXPECT_EQ(Normalised("1 <0041>").tokens, (PdfTokens{"1", "<0041>"}));
}

TEST(NormaliseObjectText, KeepsAdjacentHexStringsApart) {
  EXPECT_EQ(NormaliseObjectText("<41><42>"), "<41>\n<42>");
}

TEST(NormaliseObjectText, KeepsTheClosingParenthesisWithWhatFollowsButAName) {
  EXPECT_EQ(Normalised("(a)b").tokens, (PdfTokens{"", "(a)b"}));
  EXPECT_EQ(Normalised("(a)/N").tokens, (PdfTokens{"", "(a)", "/N"}));
}

TEST(NormaliseObjectText, DoesNotSeparateAtTabsAndFormFeeds) {
  EXPECT_EQ(Normalised("/A\t1\f2").tokens, (PdfTokens{"", "/A\t1\f2"}));
}

TEST(NormaliseObjectText, TurnsUpToFourLineEndsIntoOneAndLeavesAnEmptyLineForFive) {
  EXPECT_EQ(NormaliseObjectText("a\n\n\n\nb"), "a\nb");
  EXPECT_EQ(NormaliseObjectText("a\n\n\n\n\nb"), "a\n\nb");
  EXPECT_EQ(NormaliseObjectText("a        b"), "a\n\nb");
  EXPECT_EQ(NormaliseObjectText("a         b"), "a\n\n\nb");
}

TEST(NormaliseObjectText, PairsAngleBracketsFromTheLeft) {
  EXPECT_EQ(NormaliseObjectText("a<<<41>"), "a\n<<\n<41>");
  EXPECT_EQ(NormaliseObjectText("<41>>>"), "<41\n>>\n>");
}
