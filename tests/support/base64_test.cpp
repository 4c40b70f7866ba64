#include "support/base64.h"

#include <gtest/gtest.h>

namespace {

using support::DecodeBase64;

struct Case {
  std::string_view text;
  std::string_view bytes;
};

// The test vectors of RFC 4648, section 10.
constexpr Case kKnownTexts[] = {
    {"", ""},
    {"Zg==", "f"},
    {"Zm8=", "fo"},
    {"Zm9v", "foo"},
    {"Zm9vYg==", "foob"},
    {"Zm9vYmE=", "fooba"},
    {"Zm9vYmFy", "foobar"},
};

TEST(Base64, DecodesTheKnownTexts) {
  for (const Case& known : kKnownTexts) EXPECT_EQ(DecodeBase64(known.text), known.bytes) << known.text;
}

TEST(Base64, KnowsEveryCharacterOfTheAlphabet) {
  // Sixty-four values from 0 to 63 in a row, packed by hand: four values v, v+1, v+2, v+3 to three bytes.
  std::string expected;
  for (unsigned v = 0; v < 64; v += 4) {
    expected += static_cast<char>(v << 2 | (v + 1) >> 4);
    expected += static_cast<char>(((v + 1) & 15) << 4 | (v + 2) >> 2);
    expected += static_cast<char>(((v + 2) & 3) << 6 | (v + 3));
  }
  EXPECT_EQ(DecodeBase64("ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/"), expected);
}

TEST(Base64, SkipsEveryCharacterOutsideTheAlphabet) {
  EXPECT_EQ(DecodeBase64(" Zm\r\n9v\tYm=Fy-_,%"), "foobar");
  std::string noise;
  for (int c = 0; c < 256; ++c) {
    const char letter = static_cast<char>(c);
    const bool inAlphabet = (letter >= 'A' && letter <= 'Z') || (letter >= 'a' && letter <= 'z') ||
                            (letter >= '0' && letter <= '9') || letter == '+' || letter == '/';
    if (!inAlphabet) noise += letter;
  }
  EXPECT_EQ(noise.size(), 192u);
  EXPECT_EQ(DecodeBase64("Z" + noise + "g"), "f");
}

TEST(Base64, GoesOnBehindPadding) { EXPECT_EQ(DecodeBase64("Zg==Zg=="), std::string("f\x06\x60", 3)); }

TEST(Base64, DropsBitsThatDoNotFillAByte) {
  EXPECT_EQ(DecodeBase64("Z"), "");
  EXPECT_EQ(DecodeBase64("Zm9vY"), "foo");
  EXPECT_EQ(DecodeBase64("Zm9vYm"), "foob");
}

TEST(Base64, DecodesInPlace) {
  std::string text = "\nZm9v\nYmFy";
  const std::size_t count = DecodeBase64(text, text.data());
  EXPECT_EQ(text.substr(0, count), "foobar");
}

TEST(Base64, WritesNoByteBehindItsRoom) {
  std::string text = "/////";
  std::string out(4, '!');
  ASSERT_EQ(DecodeBase64(text, out.data()), 3u);
  EXPECT_EQ(out, "\xFF\xFF\xFF!");
}

}  // namespace
