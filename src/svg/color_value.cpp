#include "svg/color_value.h"

#include <algorithm>
#include <vector>

#include "support/float_to_integer.h"
#include "svg/number_scanner.h"
#include "svg/text_pieces.h"

namespace Svg {

namespace {

struct NamedColor {
  std::int64_t sum;
  std::int32_t red;
  std::int32_t green;
  std::int32_t blue;
};

/// Kept: a name is known by the sum of its characters alone, so that aqua is blue and darkred is magenta, and
/// every name that is not here is black.
constexpr NamedColor kNamedColors[] = {
    {315, 255, 0, 0},      // red
    {424, 0, 0, 255},      // blue
    {427, 0, 255, 255},    // cyan
    {435, 160, 160, 164},  // gray
    {509, 0, 0, 0},        // black
    {529, 0, 255, 0},      // green
    {545, 255, 255, 255},  // white
    {668, 255, 255, 0},    // yellow
    {701, 128, 0, 0},     {733, 255, 0, 255},   {810, 0, 0, 255},
    {813, 0, 128, 128},   {821, 128, 128, 128}, {915, 0, 128, 0},
    {939, 192, 192, 192}, {1054, 128, 128, 0},  {1119, 128, 0, 128},
};

ColorValue FromName(std::string_view name) {
  std::int64_t sum = 0;
  for (const char c : name) {
    const char lowered = c >= 'A' && c <= 'Z' ? static_cast<char>(c - 'A' + 'a') : c;
    sum += static_cast<signed char>(lowered);
  }
  for (const NamedColor& row : kNamedColors) {
    if (row.sum == sum) return {row.red, row.green, row.blue, 255, true};
  }
  return {0, 0, 0, 255, true};
}

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  return -1;
}

/// The first one or two digits of a component's group, as a byte.
int HexComponent(std::string_view group) {
  const int high = HexDigit(group[0]);
  return group.size() == 1 ? high * 17 : high * 16 + HexDigit(group[1]);
}

ColorValue FromHexadecimal(std::string_view digits) {
  const std::size_t count = digits.size();
  if (count == 0 || count % 3 != 0 || count > 12) return {};
  for (const char c : digits) {
    if (HexDigit(c) < 0) return {};
  }
  const std::size_t group = count / 3;
  return {HexComponent(digits.substr(0, group)), HexComponent(digits.substr(group, group)),
          HexComponent(digits.substr(2 * group, group)), 255, true};
}

/// `list` is what stands behind "rgb(".
ColorValue FromComponents(std::string_view list) {
  std::vector<double> numbers;
  TextCursor cursor(list);
  ScanNumberList(cursor, numbers);
  if (numbers.size() == 1) {
    numbers.clear();
    cursor = TextCursor(list);
    if (ScanPercentList(cursor, numbers)) {
      // Dividing last makes 100% exactly 255.
      for (double& number : numbers) number = number * 255.0 / 100.0;
    }
  }
  if (numbers.size() != 3) return {};
  return {support::TruncateToI32(numbers[0]), support::TruncateToI32(numbers[1]),
          support::TruncateToI32(numbers[2]), 255, true};
}

ColorValue WithoutOpacity(std::string_view text) {
  if (text.empty()) return {};
  switch (text[0]) {
    case '#': return FromHexadecimal(text.substr(1));
    case 'c': return text == "currentColor" ? ColorValue{} : FromName(text);
    case 'i': return text == "inherit" ? ColorValue{} : FromName(text);
    case 'r':
      if (text.size() >= 7 && text.starts_with("rgb(") && text.ends_with(')')) {
        return FromComponents(text.substr(4));
      }
      return text == "red" ? FromName(text) : ColorValue{};
    default: return FromName(text);
  }
}

double ReadOpacity(std::string_view text) {
  TextCursor cursor(text);
  const double value = ScanNumber(cursor);
  return cursor.AtEnd() ? std::clamp(value, 0.0, 1.0) : 1.0;
}

std::uint32_t LowByte(std::int32_t component) { return static_cast<std::uint32_t>(component) & 0xFF; }

}  // namespace

std::uint32_t ColorValue::Packed() const {
  return LowByte(red) | LowByte(green) << 8 | LowByte(blue) << 16 | LowByte(alpha) << 24;
}

ColorValue ParseColor(std::string_view text, std::string_view opacityText) {
  text = TrimBlanks(text);
  ColorValue color = WithoutOpacity(text);
  if (!opacityText.empty() && color.valid && text != "transparent") {
    color.alpha = support::TruncateToI32(ReadOpacity(opacityText) * 255.0);
  }
  return color;
}

}  // namespace Svg
