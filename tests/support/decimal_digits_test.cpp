#include "support/decimal_digits.h"

#include <cmath>
#include <cstdlib>
#include <gtest/gtest.h>
#include <random>
#include <string>

using support::DecimalDigits;
using support::ShortDecimal;

namespace {

/// The digits at the start of `text`.
DecimalDigits DigitsOf(const std::string& text) {
  DecimalDigits digits;
  const char* const end = digits.Take(text.data(), text.data(), text.data() + text.size());
  EXPECT_EQ(end - text.data(), digits.count);
  return digits;
}

}  // namespace

TEST(DecimalDigits, StopAtTheFirstCharacterThatIsNone) {
  for (const char stop : std::string("./:;-e \n\x80\xFF\xB0\xB9")) {
    for (std::size_t count = 0; count <= 18; ++count) {
      const std::string written = std::string("123456789012345678").substr(0, count);
      const DecimalDigits digits = DigitsOf(written + stop + "999999999");
      EXPECT_EQ(digits.count, static_cast<std::ptrdiff_t>(count)) << "before character " << int{stop};
      EXPECT_EQ(digits.value, count == 0 ? 0 : std::stoull(written));
    }
  }
}

TEST(DecimalDigits, StopAtTheEndOfTheText) {
  EXPECT_EQ(DigitsOf("").count, 0);
  EXPECT_EQ(DigitsOf("1234567").value, 1234567u);
  EXPECT_EQ(DigitsOf("12345678").value, 12345678u);
  EXPECT_EQ(DigitsOf("1234567890123456").value, 1234567890123456u);
}

TEST(DecimalDigits, TakeOnePoint) {
  struct Case {
    std::string text;
    std::uint64_t value;
    std::ptrdiff_t count;
    std::ptrdiff_t fraction;
    std::ptrdiff_t length;
  };
  const Case cases[] = {
      {"12.345", 12345, 5, 3, 6},
      {"12.345 999", 12345, 5, 3, 6},
      {"1234.567", 1234567, 7, 3, 8},
      {"1234.567,", 1234567, 7, 3, 8},
      {"1234.567890 ", 1234567890, 10, 6, 11},
      {"1234567.5 ", 12345675, 8, 1, 9},
      {"12345678.5 ", 123456785, 9, 1, 10},
      {".5 and more", 5, 1, 1, 2},
      {"5. and more", 5, 1, 0, 2},
      {".", 0, 0, 0, 1},
      {". and more", 0, 0, 0, 1},
      {"1.2.3 and more", 12, 2, 1, 3},
      {"0.00012345678901234", 12345678901234, 18, 17, 19},
      {"12 34.5", 12, 2, 0, 2},
      {"none", 0, 0, 0, 0},
      {"", 0, 0, 0, 0},
  };
  for (const Case& expected : cases) {
    DecimalDigits digits;
    const char* const begin = expected.text.data();
    const char* const end = digits.TakeWithPoint(begin, begin, begin + expected.text.size());
    EXPECT_EQ(digits.value, expected.value) << expected.text;
    EXPECT_EQ(digits.count, expected.count) << expected.text;
    EXPECT_EQ(digits.fraction, expected.fraction) << expected.text;
    EXPECT_EQ(end - begin, expected.length) << expected.text;
  }
}

TEST(DecimalDigits, AtTheEndOfALongTextAreReadOutOfItsLastWord) {
  const std::string text = "1234.56789";
  for (std::size_t start = 5; start <= text.size(); ++start) {
    DecimalDigits digits;
    const char* const end = text.data() + text.size();
    EXPECT_EQ(digits.Take(text.data(), text.data() + start, end), end);
    EXPECT_EQ(digits.value, start == text.size() ? 0 : std::stoull(text.substr(start)));
    EXPECT_EQ(digits.count, static_cast<std::ptrdiff_t>(text.size() - start));
  }
}

TEST(DecimalDigits, AgreeWithDigitByDigit) {
  std::mt19937 random(5);
  for (int round = 0; round < 20000; ++round) {
    std::string text(random() % 24, ' ');
    for (char& c : text) c = static_cast<char>(random() % 8 == 0 ? random() % 256 : '0' + random() % 10);
    std::uint64_t value = 0;
    std::ptrdiff_t count = 0;
    for (const char c : text) {
      if (c < '0' || c > '9') break;
      value = value * 10 + static_cast<std::uint64_t>(c - '0');
      ++count;
    }
    const DecimalDigits digits = DigitsOf(text);
    EXPECT_EQ(digits.count, count) << text;
    if (count <= 19) {
      EXPECT_EQ(digits.value, value) << text;
    }
  }
}

TEST(DecimalDigits, GiveANumberOnlyWhereOneRoundingIsEnough) {
  EXPECT_EQ((DecimalDigits{9007199254740992, 16}).Number(), 9007199254740992.0);
  EXPECT_EQ((DecimalDigits{9007199254740993, 16}).Number(), std::nullopt);
  EXPECT_EQ((DecimalDigits{1, 1}).Number(22), 1e22);
  EXPECT_EQ((DecimalDigits{1, 1}).Number(23), std::nullopt);
  EXPECT_EQ((DecimalDigits{1, 1}).Number(-22), 1e-22);
  EXPECT_EQ((DecimalDigits{1, 1}).Number(-23), std::nullopt);
  EXPECT_EQ((DecimalDigits{12345, 5, 3}).Number(), 12.345);
  EXPECT_EQ((DecimalDigits{12345, 5, 3}).Number(2), 1234.5);
  EXPECT_EQ((DecimalDigits{1, 20}).Number(), std::nullopt);
}

TEST(ShortDecimal, IsTheNearestFloat) {
  std::mt19937 random(11);
  const auto digits = [&random](std::size_t count) {
    std::string made;
    while (made.size() < count) made += static_cast<char>('0' + random() % 10);
    return made;
  };
  for (std::size_t i = 0; i < 200000; ++i) {
    const std::size_t whole = random() % 8;
    const std::size_t fraction = random() % 16;
    const bool hasPoint = fraction != 0 || i % 3 == 0;
    if (whole + fraction == 0) continue;
    const std::string text =
        std::string(i % 2, '-').append(digits(whole)).append(hasPoint, '.').append(digits(fraction));
    const std::string line = text + "\n" + std::string(ShortDecimal::kReach, '9');
    const ShortDecimal decimal(line.data());
    const bool isShort = whole + fraction <= 15;
    if (!isShort && decimal.end == nullptr) continue;
    ASSERT_EQ(decimal.end, line.data() + text.size()) << text;
    ASSERT_EQ(decimal.value, std::strtod(text.c_str(), nullptr)) << text;
    ASSERT_EQ(std::signbit(decimal.value), i % 2 == 1) << text;
  }
}

TEST(ShortDecimal, LeavesOtherNumbers) {
  for (const std::string text : {"12345678.5", "123456789", "0.1234567890123456", "1234567.1234567890", ".",
                                 "-.", "+1.5", "--1", "e1.5", ""}) {
    EXPECT_EQ(ShortDecimal((text + "\n" + std::string(ShortDecimal::kReach, '9')).data()).end, nullptr)
        << text;
  }
}
