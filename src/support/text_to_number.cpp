#include "support/text_to_number.h"

#include <charconv>
#include <limits>
#include <optional>
#include <string>

#include "support/c_locale.h"
#include "support/decimal_digits.h"

namespace support {

namespace {

std::string_view SkipSpace(std::string_view text) {
  std::size_t i = 0;
  while (i < text.size() && IsSpace(text[i])) ++i;
  return text.substr(i);
}

/// Takes a sign off `text`; true for a minus.
bool TakeSign(std::string_view& text) {
  if (text.empty() || (text[0] != '-' && text[0] != '+')) return false;
  const bool negative = text[0] == '-';
  text.remove_prefix(1);
  return negative;
}

int HexDigit(char c) {
  if (IsDigit(c)) return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

bool StartsHexadecimal(std::string_view text) {
  return text.size() > 2 && text[0] == '0' && (text[1] == 'x' || text[1] == 'X');
}

/// The rare numbers (hexadecimal, out of range): the C library itself, in the "C" locale.
double SlowAtoF(std::string_view text) { return StrToDInCLocale(std::string(text).c_str()); }

/// Digits and a point, as nearly all numbers in drawings are: their value, where it is quickly found.
std::optional<double> PlainDecimal(std::string_view text) {
  const char* const end = text.data() + text.size();
  DecimalDigits digits;
  const char* const at = digits.TakeWithPoint(text.data(), text.data(), end);
  const bool isPlain = digits.count != 0 && (at == end || (*at != 'e' && *at != 'E'));
  return isPlain ? digits.Number() : std::nullopt;
}

}  // namespace

namespace {

/// `AtoI` of digits that may be too many for 32 bits.
std::int32_t LongAtoI(std::string_view text, bool negative) {
  constexpr std::uint64_t most = std::numeric_limits<std::int64_t>::max();
  std::uint64_t magnitude = 0;
  for (const char c : text) {
    const auto digit = static_cast<unsigned char>(c - '0');
    if (digit > 9) break;
    // Once this far, one more digit is too many, or one too many has been read.
    if (magnitude > most / 10) {
      magnitude = most + 1;
    } else {
      magnitude = magnitude * 10 + digit;
    }
  }
  if (magnitude > most) magnitude = most + (negative ? 1 : 0);
  return static_cast<std::int32_t>(static_cast<std::uint32_t>(negative ? 0 - magnitude : magnitude));
}

}  // namespace

std::int32_t AtoI(std::string_view text) {
  constexpr std::ptrdiff_t safeDigits = 9;
  const char* at = text.data();
  const char* const end = at + text.size();
  while (at != end && IsSpace(*at)) ++at;
  const bool negative = at != end && *at == '-';
  if (at != end && (*at == '-' || *at == '+')) ++at;
  const char* const digits = at;
  std::int32_t magnitude = 0;
  for (; at != end && IsDigit(*at); ++at) {
    if (at - digits == safeDigits)
      return LongAtoI({digits, static_cast<std::size_t>(end - digits)}, negative);
    magnitude = magnitude * 10 + (*at - '0');
  }
  return negative ? -magnitude : magnitude;
}

double AtoF(std::string_view text) {
  text = SkipSpace(text);
  std::string_view digits = text;
  const bool negative = TakeSign(digits);
  if (digits.empty() || digits[0] == '-' || digits[0] == '+') return 0.0;
  if (StartsHexadecimal(digits)) return SlowAtoF(text);
  if (const std::optional<double> value = PlainDecimal(digits)) return negative ? -*value : *value;
  double value = 0.0;
  const auto [end, error] = std::from_chars(digits.data(), digits.data() + digits.size(), value);
  if (error == std::errc::result_out_of_range) return SlowAtoF(text);
  if (error != std::errc{}) return 0.0;
  return negative ? -value : value;
}

std::uint32_t HexToU32(std::string_view text) {
  text = SkipSpace(text);
  const bool negative = TakeSign(text);
  if (StartsHexadecimal(text)) text.remove_prefix(2);
  std::uint64_t value = 0;
  for (const char c : text) {
    const int digit = HexDigit(c);
    if (digit < 0) break;
    value = value * 16 + static_cast<std::uint64_t>(digit);
    if (value > std::numeric_limits<std::uint32_t>::max()) return 0;
  }
  return static_cast<std::uint32_t>(negative ? 0 - value : value);
}

}  // namespace support
