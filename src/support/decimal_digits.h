#ifndef DRAWLOAD_SUPPORT_DECIMAL_DIGITS_H
#define DRAWLOAD_SUPPORT_DECIMAL_DIGITS_H

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>

namespace support {

/// A number that was read, and how many characters it took.
struct ShortNumber {
  double value;
  std::ptrdiff_t length;
};

/// The decimal digits of a number as they are met, its point and exponent aside.
struct DecimalDigits {
  std::uint64_t value = 0;  ///< meaningless where there are more than 19 digits
  std::ptrdiff_t count = 0;
  std::ptrdiff_t fraction = 0;  ///< how many of them stand behind the point

  /// Takes the digits that stand at `at`, up to `end`, with one point before, among or behind them; returns
  /// where they end. What stands from `begin` to `at` may be looked at as well.
  const char* TakeWithPoint(const char* begin, const char* at, const char* end) {
    if constexpr (std::endian::native == std::endian::little) {
      if (end - at >= 8) {
        const std::uint64_t word = WordAt(at);
        const std::ptrdiff_t whole = LeadingDigits(word);
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
    if constexpr (std::endian::native == std::endian::little) {
      while (end - at >= 8) {
        const std::ptrdiff_t taken = TakeOfWord(WordAt(at));
        at += taken;
        if (taken != 8) return at;
      }
      // The last few characters, out of the last word. What follows them there is made no digit.
      if (end - begin >= 8 && at != end) {
        const std::ptrdiff_t left = end - at;
        return at + TakeOfWord(WordAt(end - 8) >> (64 - 8 * left) | ~std::uint64_t{0} << (8 * left));
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

  /// The number of at most eight characters that stands at `at`, digits and one point, where it is quickly
  /// found: not where it is longer, has no digit, or an exponent may follow. Needs `kShortNumberRoom`
  /// characters at `at`.
  static std::optional<ShortNumber> ReadShort(const char* at) {
    if constexpr (std::endian::native != std::endian::little) return std::nullopt;
    const std::uint64_t word = WordAt(at);
    const std::uint64_t others = OthersOf(word);
    if (others == 0) return std::nullopt;
    std::ptrdiff_t length = PlaceOf(others);
    std::ptrdiff_t digits = length;
    std::uint64_t joined = word;
    if (at[length] == '.') {
      const std::uint64_t beforePoint = (std::uint64_t{1} << (8 * length)) - 1;
      joined = (word & beforePoint) | (word >> 8 & ~beforePoint);
      const std::uint64_t othersBehind = others & (others - 1);
      length = othersBehind == 0 ? 8 : PlaceOf(othersBehind);
      digits = length - 1;
    }
    const char next = at[length];
    if (digits == 0 || next == 'e' || next == 'E' || (length == 8 && next >= '0' && next <= '9'))
      return std::nullopt;
    const auto value = static_cast<double>(ValueOf(joined << (64 - 8 * digits)));
    return ShortNumber{value / kPowersOfTen[length == digits ? 0 : digits - PlaceOf(others)], length};
  }
  static constexpr std::ptrdiff_t kShortNumberRoom = 9;

 private:
  // All powers that a float holds exactly.
  static constexpr double kPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,
                                            1e8,  1e9,  1e10, 1e11, 1e12, 1e13, 1e14, 1e15,
                                            1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
  static constexpr std::uint64_t kWholePowersOfTen[] = {1,      10,      100,      1000,     10000,
                                                        100000, 1000000, 10000000, 100000000};

  // Eight characters at a time, in the bytes of a word: the lengths of numbers are what a processor guesses
  // worst. A digit's byte is its value, all other characters have more than 9.

  static std::uint64_t WordAt(const char* at) {
    std::uint64_t word = 0;
    std::memcpy(&word, at, sizeof word);
    return word ^ 0x3030303030303030;
  }

  /// The high bit of each byte that is no digit. Carries spoil the mark of a digit only where a character
  /// beyond ASCII stands before it.
  static std::uint64_t OthersOf(std::uint64_t word) {
    return ((word + 0x7676767676767676) | word) & 0x8080808080808080;
  }

  /// Which byte the first of `others` is; there must be one.
  static std::ptrdiff_t PlaceOf(std::uint64_t others) { return std::countr_zero(others) / 8; }

  /// How many digits lead `word`.
  static std::ptrdiff_t LeadingDigits(std::uint64_t word) {
    const std::uint64_t others = OthersOf(word);
    return others == 0 ? 8 : PlaceOf(others);
  }

  /// The value of eight digits.
  static std::uint64_t ValueOf(std::uint64_t word) {
    word = (word * 10 + (word >> 8)) & 0x00FF00FF00FF00FF;
    word = (word * 100 + (word >> 16)) & 0x0000FFFF0000FFFF;
    return (word * 10000 + (word >> 32)) & 0xFFFFFFFF;
  }

  /// Takes the `digits` digits that lead `word`.
  void TakeOfWord(std::uint64_t word, std::ptrdiff_t digits) {
    if (digits == 0) return;
    // Zeros come in where the first digits of eight would stand.
    value = value * kWholePowersOfTen[digits] + ValueOf(word << (64 - 8 * digits));
    count += digits;
  }

  std::ptrdiff_t TakeOfWord(std::uint64_t word) {
    const std::ptrdiff_t digits = LeadingDigits(word);
    TakeOfWord(word, digits);
    return digits;
  }

  /// The digits of `word`, which stands at `at` and has its point at `whole`, and those behind it.
  const char* TakeAroundPoint(const char* begin, const char* at, const char* end, std::uint64_t word,
                              std::ptrdiff_t whole) {
    const std::uint64_t beforePoint = (std::uint64_t{1} << (8 * whole)) - 1;
    constexpr std::uint64_t noDigitAtEnd = 0xFF00000000000000;
    const std::uint64_t joined = (word & beforePoint) | (word >> 8 & ~beforePoint) | noDigitAtEnd;
    const std::ptrdiff_t digits = LeadingDigits(joined);
    TakeOfWord(joined, digits);
    at += digits + 1;
    if (digits == 7) at = Take(begin, at, end);
    fraction = count - whole;
    return at;
  }
};

}  // namespace support

#endif
