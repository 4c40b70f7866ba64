#ifndef DRAWLOAD_SUPPORT_DECIMAL_DIGITS_H
#define DRAWLOAD_SUPPORT_DECIMAL_DIGITS_H

#include <cstddef>
#include <cstdint>
#include <optional>

#include "support/byte_words.h"

namespace support {

/// Digits in the words of `byte_words`: a digit's byte is its value, all other characters have more than 9.
namespace digit_words {

inline constexpr std::uint64_t kPowersOfTen[] = {1,      10,      100,      1000,     10000,
                                                 100000, 1000000, 10000000, 100000000};

inline std::uint64_t WordAt(const char* at) { return byte_words::WordAt(at, '0'); }

/// How many digits lead `word`.
inline std::ptrdiff_t LeadingDigits(std::uint64_t word) {
  const std::uint64_t others = ((word + 0x7676767676767676) | word) & byte_words::kHighBits;
  return static_cast<std::ptrdiff_t>(byte_words::BytesBefore(others));
}

/// The number that the first `digits` bytes of `word` make.
inline std::uint64_t ValueOf(std::uint64_t word, std::ptrdiff_t digits) {
  const std::ptrdiff_t half = 32 - 4 * digits;
  word = word << half << half;     // zeros come in where the first digits of eight would stand
  word = word * 10 + (word >> 8);  // pairs of digits, in every second byte
  constexpr std::uint64_t pairs = 0x000000FF000000FF;
  return ((word & pairs) * 0x000F424000000064 + (word >> 16 & pairs) * 0x0000271000000001) >> 32;
}

}  // namespace digit_words

/// The decimal digits of a number as they are met, its point and exponent aside.
struct DecimalDigits {
  std::uint64_t value = 0;  ///< meaningless where there are more than 19 digits
  std::ptrdiff_t count = 0;
  std::ptrdiff_t fraction = 0;  ///< how many of them stand behind the point

  /// Takes the digits that stand at `at`, up to `end`, with one point before, among or behind them; returns
  /// where they end. What stands from `begin` to `at` may be looked at as well.
  const char* TakeWithPoint(const char* begin, const char* at, const char* end) {
    if constexpr (byte_words::kInOrder) {
      if (end - at >= 8) {
        const std::uint64_t word = digit_words::WordAt(at);
        const std::ptrdiff_t whole = digit_words::LeadingDigits(word);
        if (whole < 8 && at[whole] == '.') return TakeAroundPoint(begin, at, end, word, whole);
      }
    }
    at = Take(begin, at, end);
    if (at == end || *at != '.') return at;
    const std::ptrdiff_t whole = count;
    at = Take(begin, at + 1, end);
    fraction = count - whole;
    return at;
  }

  /// The same without a point.
  const char* Take(const char* begin, const char* at, const char* end) {
    if constexpr (byte_words::kInOrder) {
      while (end - at >= 8) {
        const std::ptrdiff_t taken = TakeOfWord(digit_words::WordAt(at));
        at += taken;
        if (taken != 8) return at;
      }
      // The last few characters, out of the last word. What follows them there is made no digit.
      if (end - begin >= 8 && at != end) {
        const std::ptrdiff_t left = end - at;
        return at +
               TakeOfWord(digit_words::WordAt(end - 8) >> (64 - 8 * left) | ~std::uint64_t{0} << (8 * left));
      }
    }
    for (; at != end && *at >= '0' && *at <= '9'; ++at) {
      value = value * 10 + static_cast<std::uint64_t>(*at - '0');
      ++count;
    }
    return at;
  }

  /// The number that has these digits, point included, times ten to the power of `exponent`, rounded once to
  /// the nearest float, where that takes one operation of exact operands (D. M. Gay, "Correctly Rounded
  /// Binary-Decimal and Decimal-Binary Conversions", 1990); nothing otherwise.
  std::optional<double> Number(std::ptrdiff_t exponent = 0) const {
    constexpr std::uint64_t largestExactInteger = std::uint64_t{1} << 53;
    exponent -= fraction;
    if (count > 19 || value > largestExactInteger || exponent < -22 || exponent > 22) return std::nullopt;
    const auto exact = static_cast<double>(value);
    return exponent < 0 ? exact / kPowersOfTen[-exponent] : exact * kPowersOfTen[exponent];
  }

 private:
  // All powers that a float holds exactly.
  static constexpr double kPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                            1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                            1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};

  /// Takes the `digits` digits that lead `word`.
  void TakeOfWord(std::uint64_t word, std::ptrdiff_t digits) {
    if (digits == 0) return;
    value = value * digit_words::kPowersOfTen[digits] + digit_words::ValueOf(word, digits);
    count += digits;
  }

  std::ptrdiff_t TakeOfWord(std::uint64_t word) {
    const std::ptrdiff_t digits = digit_words::LeadingDigits(word);
    TakeOfWord(word, digits);
    return digits;
  }

  /// The digits of `word`, which stands at `at` and has its point at `whole`, and those behind it.
  const char* TakeAroundPoint(const char* begin, const char* at, const char* end, std::uint64_t word,
                              std::ptrdiff_t whole) {
    const std::uint64_t beforePoint = (std::uint64_t{1} << (8 * whole)) - 1;
    constexpr std::uint64_t noDigitAtEnd = 0xFF00000000000000;
    const std::uint64_t joined = (word & beforePoint) | (word >> 8 & ~beforePoint) | noDigitAtEnd;
    const std::ptrdiff_t digits = digit_words::LeadingDigits(joined);
    TakeOfWord(joined, digits);
    at += digits + 1;
    if (digits == 7) at = Take(begin, at, end);
    fraction = count - whole;
    return at;
  }
};

/// A minus or none, up to 7 digits, and perhaps a point with up to 15 digits behind it, as nearly all numbers
/// of a drawing stand.
struct ShortDecimal {
  /// How many characters from its start on are looked at.
  static constexpr std::ptrdiff_t kReach = 25;

  /// Reads the number at `at`. The float is that of `DecimalDigits`.
  explicit ShortDecimal(const char* at) {
    if constexpr (byte_words::kInOrder) {
      const bool negative = *at == '-';
      at += negative ? 1 : 0;
      const std::ptrdiff_t whole = TakeOfWord(at);
      if (whole == 8) return;
      at += whole;
      std::ptrdiff_t fraction = 0;
      if (*at == '.') {
        fraction = TakeOfWord(++at);
        if (fraction == 8) fraction += TakeOfWord(at + 8);
        at += fraction;
      }
      constexpr std::uint64_t largestExactInteger = std::uint64_t{1} << 53;
      constexpr std::ptrdiff_t mostInWord = 19;
      if (whole + fraction == 0 || whole + fraction > mostInWord || fraction == 16) return;
      if (digits > largestExactInteger) return;
      value = static_cast<double>(static_cast<std::int64_t>(digits)) / kPowersOfTen[fraction];
      if (negative) value = -value;
      end = at;
    }
  }

  double value = 0.0;
  const char* end = nullptr;  ///< the character behind the number; null where there is another one

 private:
  static constexpr double kPowersOfTen[] = {1e0, 1e1, 1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                            1e8, 1e9, 1e10, 1e11, 1e12, 1e13, 1e14, 1e15};

  /// Takes the digits that lead the word at `at`; returns how many there are.
  std::ptrdiff_t TakeOfWord(const char* at) {
    const std::uint64_t word = digit_words::WordAt(at);
    const std::ptrdiff_t count = digit_words::LeadingDigits(word);
    digits = digits * digit_words::kPowersOfTen[count] + digit_words::ValueOf(word, count);
    return count;
  }

  std::uint64_t digits = 0;
};

}  // namespace support

#endif
