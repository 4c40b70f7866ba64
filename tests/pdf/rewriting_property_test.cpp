#include <gtest/gtest.h>
#include <random>
#include <string>
#include <vector>

#include "pdf/content_text.h"
#include "pdf/naive_rewriting.h"
#include "pdf/object_text.h"

namespace {

using Pieces = std::vector<std::string>;

class TextMaker {
 public:
  explicit TextMaker(unsigned seed) : random(seed) {}

  std::string Make(const Pieces& pieces, std::size_t most) {
    std::string text;
    const std::size_t count = random() % (most + 1);
    for (std::size_t i = 0; i < count; ++i) text += pieces[random() % pieces.size()];
    return text;
  }

 private:
  std::mt19937 random;
};

std::string NaiveObjectText(std::string text) {
  naive::NormaliseObjectText(text);
  return text;
}

std::string NaiveContentText(std::string text) {
  naive::NormaliseContentText(text);
  return text;
}

void ExpectSameObjectTexts(const Pieces& pieces, std::size_t most, int texts) {
  TextMaker maker(20260101);
  for (int i = 0; i < texts; ++i) {
    const std::string text = maker.Make(pieces, most);
    ASSERT_EQ(pdf::NormaliseObjectText(text), NaiveObjectText(text)) << '"' << text << '"';
  }
}

void ExpectSameContentTexts(const Pieces& pieces, std::size_t most, int texts) {
  TextMaker maker(20260102);
  for (int i = 0; i < texts; ++i) {
    const std::string text = maker.Make(pieces, most);
    ASSERT_EQ(pdf::NormaliseContentText(text).View(), NaiveContentText(text)) << '"' << text << '"';
  }
}

const Pieces kObjectCharacters = {"(", ")", "\r", "\n", " ", "<",
                                  ">", "[", "]",  "/",  "a", std::string(1, '\0')};
const Pieces kObjectPieces = {"<<",         ">>",  "/Type", "/Page",  " ",   "\r\n",   "12 0 R",
                              "[",          "]",   "(a b)", "<0041>", "><",  "\n\n\n", "endobj",
                              "stream\r\n", "<<<", ">>>",   "\t",     "1.5", "//"};
const Pieces kContentCharacters = {"\n", " ", "\r", "l", "m", "c", "s", "n", "q", "Q", "T",
                                   "D",  "o", "L",  "r", "e", "W", "*", "f", "b", "B", "X",
                                   "E",  "J", "j",  "z", "M", "w", "(", ")", "[", "]"};
const Pieces kFewBrackets = {"\n", " ", " ", "\r", "l", "m", "c", "s", "n", "q",
                             "Q",  "T", "D", "o",  "L", "r", "e", "W", "*"};
const Pieces kBlanksAndLines = {"\n", " ", "l", "\n ", "  ", "q", "Q", "S"};
const Pieces kOperands = {" ", " ", "1", "23", "4567.8", "-", "!", "*", "/", "f*", "m", "l", "q", "Q", "\n"};
const Pieces kOperators = {"1 2 m\n",
                           "3.5 -4 l\n",
                           "10 20 l\r\n",
                           "1 2 3 4 5 6 c ",
                           "0 0 10 10 re ",
                           "W n ",
                           "W* n\n",
                           "f* ",
                           "B* ",
                           "q ",
                           " Q\n",
                           "Q q\n",
                           "BT ",
                           "/F1 12 Tf ",
                           "(Hello l m (in) x) Tj ",
                           "[(A l )-120(B m )] TJ ",
                           "ET\n",
                           "/Im1 Do ",
                           "TDo ",
                           "/Cs1 cs ",
                           "0.5 scn ",
                           "cscn ",
                           "5 TL\n",
                           "1 0 TD ",
                           "[3 2] 0 d ",
                           "1 J ",
                           "1 j 4 M ",
                           "BX EX ",
                           "100 Tz ",
                           "1 0 0 1 0 0 cm ",
                           "/GS0 gs ",
                           "] ",
                           ") ",
                           "( ",
                           "[ ",
                           "\nl ",
                           "\n\n l ",
                           "S s F f n h v y "};

}  // namespace

TEST(NormaliseObjectText, EqualsTheLiteralReplacementsForRandomCharacters) {
  ExpectSameObjectTexts(kObjectCharacters, 24, 10000);
}

TEST(NormaliseObjectText, EqualsTheLiteralReplacementsForPiecesOfRealObjects) {
  ExpectSameObjectTexts(kObjectPieces, 60, 2000);
}

TEST(NormaliseContentText, EqualsTheLiteralReplacementsForRandomCharacters) {
  ExpectSameContentTexts(kContentCharacters, 30, 10000);
  ExpectSameContentTexts(kFewBrackets, 20, 10000);
}

TEST(NormaliseContentText, EqualsTheLiteralReplacementsForRunsOfBlanksAndLineEnds) {
  ExpectSameContentTexts(kBlanksAndLines, 16, 10000);
}

TEST(NormaliseContentText, EqualsTheLiteralReplacementsForOperands) {
  ExpectSameContentTexts(kOperands, 30, 10000);
}

TEST(NormaliseContentText, EqualsTheLiteralReplacementsForPiecesOfRealPages) {
  ExpectSameContentTexts(kOperators, 40, 2000);
}
