#include "svg/number_scanner.h"

#include <cstddef>
#include <optional>

#include "support/decimal_digits.h"

namespace Svg {

namespace {

constexpr std::ptrdiff_t kLongestNumber = 255;

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

/// `ScanStarted` of any number. Kept out of line: short numbers need no room on the stack.
[[gnu::noinline]] double ScanLong(TextCursor& cursor) {
  const char* const start = cursor.next;
  const char* const end = cursor.end - start > kLongestNumber ? start + kLongestNumber : cursor.end;
  const char* at = start;
  const bool negative = *at == '-';
  if (*at == '-' || *at == '+') ++at;
  support::DecimalDigits digits;
  at = digits.TakeWithPoint(start, at, end);
  std::ptrdiff_t exponent = 0;
  at = TakeExponent(at, end, exponent);
  cursor.next = at;
  if (digits.count == 0) return 0.0;
  if (const std::optional<double> value = digits.Number(exponent)) return negative ? -*value : *value;
  return support::AtoF({start, static_cast<std::size_t>(at - start)});
}

/// Reads the number that begins at `cursor`.
double ScanStarted(TextCursor& cursor) {
  if (cursor.end - cursor.next >= support::ShortDecimal::kReach) {
    const support::ShortDecimal number(cursor.next);
    if (number.end != nullptr && *number.end != 'e' && *number.end != 'E') {
      cursor.next = number.end;
      return number.value;
    }
  }
  return ScanLong(cursor);
}

bool StandsAtNumber(const TextCursor& cursor) { return !cursor.AtEnd() && StartsNumber(*cursor.next); }

}  // namespace

double ScanNumber(TextCursor& cursor) { return StandsAtNumber(cursor) ? ScanStarted(cursor) : 0.0; }

void ScanNumberList(TextCursor& cursor, std::vector<double>& out) {
  cursor.SkipSpace();
  while (StandsAtNumber(cursor)) {
    out.push_back(ScanStarted(cursor));
    cursor.SkipSpace();
    if (cursor.Take(',')) cursor.SkipSpace();
  }
}

bool ScanPercentList(TextCursor& cursor, std::vector<double>& out) {
  bool sawPercent = false;
  cursor.SkipSpace();
  while (StandsAtNumber(cursor)) {
    out.push_back(ScanStarted(cursor));
    cursor.SkipSpace();
    if (cursor.Take('%')) {
      sawPercent = true;
      cursor.SkipSpace();
    }
    if (cursor.Take(',')) cursor.SkipSpace();
  }
  return sawPercent;
}

}  // namespace Svg
