#ifndef DRAWLOAD_SUPPORT_DECIMAL_DIGITS_H
#define DRAWLOAD_SUPPORT_DECIMAL_DIGITS_H

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <optional>

namespace support {

/// The decimal digits of a number as they are met, point and exponent aside.
struct DecimalDigits {
  std::uint64_t value = 0;  ///< meaningless where there are more than 19 digits
  std::ptrdiff_t count = 0;

  /// Takes the digits that stand at `at`, up to `end`; returns where they end. What stands from `begin` to
  /// `at` may be looked at as well.
  const char* Take(const char* begin, const char* at, const char* end) {
    if constexpr (std::endian::native == std::endian::little) {
      while (end - at >= 8) {
        const std::ptrdiff_t taken = TakeOfWord(WordAt(at));
        at += taken;
        if (taken != 8) return at;
      }
      // The last few characters, out of the last word. Zeros follow them there, which are no digits.
      if (end - begin >= 8 && at != end) return at + TakeOfWord(WordAt(end - 8) >> (64 - 8 * (end - at)));
    }
    for (; at != end && *at >= '0' && *at <= '9'; ++at) {
      value = value * 10 + static_cast<std::uint64_t>(*at - '0');
      ++count;
    }
    return at;
  }

  /// The number with these digits, times ten to the power of `exponent`, rounded once to the nearest float,
  /// where that takes one operation of exact operands (D. M. Gay, "Correctly Rounded Binary-Decimal and
  /// Decimal-Binary Conversions", 1990); nothing otherwise.
  std::optional<double> TimesPowerOfTen(std::ptrdiff_t exponent) const {
    constexpr double powers[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                 1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
    constexpr std::uint64_t largestExactInteger = std::uint64_t{1} << 53;
    if (count > 19 || value > largestExactInteger || exponent < -22 || exponent > 22) return std::nullopt;
    const auto exact = static_cast<double>(value);
    return exponent < 0 ? exact / powers[-exponent] : exact * powers[exponent];
  }

 private:
  static std::uint64_t WordAt(const char* at) {
    std::uint64_t word = 0;
    std::memcpy(&word, at, sizeof word);
    return word;
  }

  /// Takes the digits that lead the eight characters of `word`; returns how many. All at once, as the length
  /// of a number is what a processor guesses worst.
  std::ptrdiff_t TakeOfWord(std::uint64_t word) {
    constexpr std::uint64_t powers[] = {1, 10, 100, 1000, 10000, 100000, 1000000, 10000000, 100000000};
    word ^= 0x3030303030303030;  // digits become their values, all else becomes more than 9
    const std::uint64_t others = ((word + 0x7676767676767676) | word) & 0x8080808080808080;
    const int digits = others == 0 ? 8 : std::countr_zero(others) / 8;
    if (digits == 0) return 0;
    word <<= 64 - 8 * digits;  // zeros come in where the first digits of eight would stand
    word = (word * 10 + (word >> 8)) & 0x00FF00FF00FF00FF;
    word = (word * 100 + (word >> 16)) & 0x0000FFFF0000FFFF;
    word = (word * 10000 + (word >> 32)) & 0xFFFFFFFF;
    value = value * powers[digits] + word;
    count += digits;
    return digits;
  }
};

}  // namespace support

#endif
