#include "pdf/filters/ascii85.h"

#include <array>
#include <cstddef>

namespace pdf {

namespace {

/// The eight hexadecimal digits of a group. They stay from one group to the next, and which of them a value
/// overwrites depends on the value.
class GroupDigits {
 public:
  /// A full group overwrites all digits, unless its top bit is set.
  void SetAll(std::uint32_t value) {
    if (IsNegative(value)) return;
    for (std::size_t place = digits.size(); place-- > 0; value /= 16) digits[place] = value % 16;
  }

  /// A left-over group overwrites them from the last one, as long as something of the value is left.
  void SetWhileAboveZero(std::uint32_t value) {
    if (IsNegative(value)) return;
    for (std::size_t place = digits.size(); value > 0 && place-- > 0; value /= 16) digits[place] = value % 16;
  }

  void AppendTo(std::string& bytes) const {
    for (std::size_t i = 0; i < digits.size(); i += 2) {
      bytes.push_back(static_cast<char>(digits[i] * 16 + digits[i + 1]));
    }
  }

 private:
  static bool IsNegative(std::uint32_t value) { return (value >> 31) != 0; }

  std::array<std::uint32_t, 8> digits{};
};

/// What is left behind the last full group, with its padding; adds to `count`.
void AppendRest(const std::array<std::uint32_t, 5>& v, std::size_t left, GroupDigits& digits,
                Ascii85Output& output) {
  std::uint32_t value = 0;
  if (left == 2) {
    value = (v[0] * 85 + v[1]) * 614125 + 621435;
    output.count += 2;
  } else if (left == 3) {
    value = ((v[0] * 85 + v[1]) * 85 + v[2]) * 7225 + 7310;
    output.count += 3;
  } else if (left == 4) {
    value = (((v[0] * 85 + v[1]) * 85 + v[2]) * 85 + v[3] + 1) * 85;
    output.count += 4;
  } else {
    return;
  }
  digits.SetWhileAboveZero(value);
  digits.AppendTo(output.bytes);
}

}  // namespace

Ascii85Output DecodeAscii85(std::string_view input) {
  Ascii85Output output;
  output.bytes.reserve(input.size() / 5 * 4 + 4);
  GroupDigits digits;
  std::array<std::uint32_t, 5> group{};
  std::size_t filled = 0;
  for (const char c : input) {
    if (c == '~') break;
    if (c < '!' || c > 'u') continue;
    group[filled++] = static_cast<std::uint32_t>(c - '!');
    if (filled < group.size()) continue;
    filled = 0;
    digits.SetAll((((group[0] * 85 + group[1]) * 85 + group[2]) * 85 + group[3]) * 85 + group[4]);
    digits.AppendTo(output.bytes);
    output.count += 4;
  }
  AppendRest(group, filled, digits, output);
  return output;
}

}  // namespace pdf
