#include "pdf/content_text.h"

#include <gtest/gtest.h>
#include <string>

namespace {

std::string Normalised(std::string_view text) { return std::string(pdf::NormaliseContentText(text).View()); }

struct Rewriting {
  const char* text;
  const char* expected;
};

class Operators : public testing::TestWithParam<const char*> {};
class Rewritings : public testing::TestWithParam<Rewriting> {};

}  // namespace

// The operator before a blank ends its line.
TEST_P(Operators, EndTheirLineBeforeABlank) {
  const std::string name = GetParam();
  EXPECT_EQ(Normalised("1 " + name + " 2"), "1 " + name + "\n2");
}

INSTANTIATE_TEST_SUITE_P(Table, Operators,
                         testing::Values("m", "l", "c", "v", "y", "h", "re", "S", "s", "F", "f", "f*", "B",
                                         "b", "b*", "n", "W", "W*", "cm", "w", "J", "j", "M", "BX", "EX",
                                         "TJ", "Tj", "Tz", "BT", "ET", "Do"));

TEST_P(Operators, StayWithinStringsAndArrays) {
  const std::string name = GetParam();
  EXPECT_EQ(Normalised("(1 " + name + " 2)"), "(1 " + name + " 2)");
  EXPECT_EQ(Normalised("[1 " + name + " 2]"), "[1 " + name + " 2]");
}

TEST_P(Rewritings, GiveTheExpectedText) { EXPECT_EQ(Normalised(GetParam().text), GetParam().expected); }

INSTANTIATE_TEST_SUITE_P(
    Table, Rewritings,
    testing::Values(
        // A line end before a blank goes, and runs of blanks are halved twice, rounded up.
        Rewriting{"1\n 2", "1 2"}, Rewriting{"1  2", "1 2"}, Rewriting{"1     2", "1  2"},
        // A line that begins with "l" is pulled up.
        Rewriting{"1 2\nl\n", "1 2 l\n"}, Rewriting{"1 2\n\nl\n", "1 2 l\n"},
        Rewriting{"1 2\n\n l\n", "1 2 l\n"}, Rewriting{"1 2\n\n\nl\n", "1 2\n l\n"},
        Rewriting{"(a\nl)", "(a\nl)"},
        // q and Q.
        Rewriting{"1 q 2", "1\nq\n2"}, Rewriting{"1 Q 2", "1\nQ\n 2"}, Rewriting{"S Q 2", "S\nQ 2"},
        Rewriting{"1 Q q 2", "1\nQ\nq\n2"}, Rewriting{"1 Q", "1\nQ\n"},
        // A run of blanks between an operator and q or Q changes at both ends.
        Rewriting{"1 m    q", "1 m\nq"}, Rewriting{"1 m     q", "1 m\n \nq"}, Rewriting{"1     q", "1 \nq"},
        Rewriting{"S    Q 2", "S\nQ\n 2"}, Rewriting{"1 w Q 2", "1 w\nQ\n 2"},
        Rewriting{"1 m\nl 2", "1 m\nl\n2"}, Rewriting{"1 m \n l 2", "1 m\nl\n2"},
        // Operators that need no blank.
        Rewriting{"5 TL6", "5 TL\n6"}, Rewriting{"5 TD6", "5 TD\n6"}, Rewriting{"/C cs5", "/C cs\n5"},
        Rewriting{"1 scn5", "1 scn\n5"}, Rewriting{"/cs0 1", "/cs\n0 1"}, Rewriting{"TDo 1", "TD\no 1"},
        Rewriting{"cscn1", "cs\ncn1"}, Rewriting{"(TL TD cs scn)", "(TL TD cs scn)"},
        // Not in the table: B*, rg, ri.
        Rewriting{"B* 1", "B* 1"}, Rewriting{"1 rg 2", "1 rg 2"}, Rewriting{"1 ri 2", "1 ri 2"},
        // The end of a name is an operator too.
        Rewriting{"/F1 12 Tf 1", "/F1 12 Tf\n1"}, Rewriting{"/GS gs 1", "/GS\ngs\n1"},
        Rewriting{"/Form Do 1", "/Form\nDo\n1"}, Rewriting{"/Image1 Do 1", "/Image1 Do\n1"},
        // Carriage returns, and line ends in pairs.
        Rewriting{"1\r\n2", "1\n2"}, Rewriting{"1\n\n\n2", "1\n\n2"}, Rewriting{"", ""}));

TEST(NormaliseContentText, KeepsTextInNestedStringsOnlyBehindTheLastOpeningParenthesis) {
  // The last "(" before the next ")" decides, so what stands between two opening ones counts as outside.
  // Behind the inner string it still is the one before the next ")", so the rest counts as inside.
  EXPECT_EQ(Normalised("(a m (b m ) m )"), "(a m\n(b m ) m )");
}

TEST(NormaliseContentText, TakesAClosingBracketWithoutAnOpeningOneForNone) {
  EXPECT_EQ(Normalised("1 m 2) 3 m 4] m 5"), "1 m\n2) 3 m\n4] m\n5");
}

TEST(NormaliseContentText, TakesAnOpeningBracketWithoutAClosingOneForNone) {
  EXPECT_EQ(Normalised("(1 m 2 [3 m 4"), "(1 m\n2 [3 m\n4");
}

TEST(NormaliseContentText, PutsAPathOnOneLineForEachOperator) {
  EXPECT_EQ(Normalised("q 1 0 0 1 5 5 cm 0 0 m 10 0 l 10\n10 l h S Q\n"),
            "q\n1 0 0 1 5 5 cm\n0 0 m\n10 0 l\n10\n10 l\nh\nS\nQ\n");
}
