#include "svg/number_scanner.h"

#include <cstddef>
#include <cstdint>

namespace Svg {

namespace {

constexpr std::ptrdiff_t kLongestNumber = 255;

/// Powers of ten that a 64-bit float holds exactly.
constexpr double kPowersOfTen[] = {1e0,  1e1,  1e2,  1e3,  1e4,  1e5,  1e6,  1e7,  1e8,  1e9,  1e10, 1e11,
                                   1e12, 1e13, 1e14, 1e15, 1e16, 1e17, 1e18, 1e19, 1e20, 1e21, 1e22};
constexpr int kLargestExactPower = 22;
constexpr std::uint64_t kLargestExactInteger = std::uint64_t{1} << 53;
constexpr int kDigitsInSixtyFourBits = 19;

/// The digits of a number as they are met, point aside.
struct Digits {
  std::uint64_t value = 0;  ///< meaningless beyond `kDigitsInSixtyFourBits` digits
  std::ptrdiff_t count = 0;

  const char* Take(const char* at, const char* end) {
    const char* const first = at;
    while (at != end && support::IsDigit(*at)) value = value * 10 + static_cast<std::uint64_t>(*at++ - '0');
    count += at - first;
    return at;
  }
};

/// Moves over an exponent at `at`, where one stands, and adds it to `exponent`, clamped far outside the range
/// of floats.
const char* TakeExponent(const char* at, const char* end, std::ptrdiff_t& exponent) {
  if (at == end || (*at != 'e' && *at != 'E')) return at;
  ++at;
  const bool negative = at != end && *at == '-';
  if (at != end && (*at == '-' || *at == '+')) ++at;
  std::ptrdiff_t value = 0;
  for (; at != end && support::IsDigit(*at); ++at) {
    if (value < 100000) value = value * 10 + (*at - '0');
  }
  exponent += negative ? -value : value;
  return at;
}

}  // namespace

double ScanNumber(TextCursor& cursor) {
  const char* const start = cursor.next;
  if (cursor.AtEnd() || !StartsNumber(*start)) return 0.0;
  const char* const end = cursor.end - start > kLongestNumber ? start + kLongestNumber : cursor.end;
  const char* at = start;
  const bool negative = at != end && *at == '-';
  if (at != end && (*at == '-' || *at == '+')) ++at;
  Digits digits;
  at = digits.Take(at, end);
  std::ptrdiff_t exponent = 0;
  if (at != end && *at == '.') {
    const std::ptrdiff_t whole = digits.count;
    at = digits.Take(at + 1, end);
    exponent = whole - digits.count;
  }
  at = TakeExponent(at, end, exponent);
  cursor.next = at;
  if (digits.count == 0) return 0.0;
  // Digits and power of ten are exact, so the one rounding of their product or quotient is the right one.
  if (digits.count <= kDigitsInSixtyFourBits && digits.value <= kLargestExactInteger &&
      exponent >= -kLargestExactPower && exponent <= kLargestExactPower) {
    const auto exact = static_cast<double>(digits.value);
    const double value = exponent < 0 ? exact / kPowersOfTen[-exponent] : exact * kPowersOfTen[exponent];
    return negative ? -value : value;
  }
  return support::AtoF({start, static_cast<std::size_t>(at - start)});
}

void ScanNumberList(TextCursor& cursor, std::vector<double>& out) {
  cursor.SkipSpace();
  while (!cursor.AtEnd() && StartsNumber(*cursor.next)) {
    out.push_back(ScanNumber(cursor));
    cursor.SkipSpace();
    if (cursor.Take(',')) cursor.SkipSpace();
  }
}

bool ScanPercentList(TextCursor& cursor, std::vector<double>& out) {
  bool sawPercent = false;
  cursor.SkipSpace();
  while (!cursor.AtEnd() && StartsNumber(*cursor.next)) {
    out.push_back(ScanNumber(cursor));
    if (cursor.Take('%')) sawPercent = true;
    cursor.SkipSpace();
    if (cursor.Take(',')) cursor.SkipSpace();
  }
  return sawPercent;
}

}  // namespace Svg
