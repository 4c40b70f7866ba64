#ifndef DRAWLOAD_SUPPORT_TEXT_TO_NUMBER_H
#define DRAWLOAD_SUPPORT_TEXT_TO_NUMBER_H

#include <cstdint>
#include <string_view>

namespace support {

/// White space as the C library's `isspace` has it in the "C" locale.
constexpr bool IsSpace(char c) { return c == ' ' || (c >= '\t' && c <= '\r'); }
constexpr bool IsDigit(char c) { return c >= '0' && c <= '9'; }

/// The number at the start of `text`, with the C library's results for `atoi` in the "C" locale: white
/// space is skipped, reading stops at the first character that does not fit, and no number gives 0. Out of
/// range, the value is clamped to 64 bits and then cut to 32, as glibc does on 64-bit platforms.
std::int32_t AtoI(std::string_view text);

/// The same for `atof`, exponents, hexadecimal numbers, "inf" and "nan" included.
double AtoF(std::string_view text);

/// What a stream's hexadecimal extraction into 32 bits reads: white space, sign and "0x" are taken, reading
/// stops at the first other character. No digit, or more than 32 bits, gives 0.
std::uint32_t HexToU32(std::string_view text);

}  // namespace support

#endif
