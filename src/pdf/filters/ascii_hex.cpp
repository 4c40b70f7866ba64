#include "pdf/filters/ascii_hex.h"

namespace pdf {

namespace {

int HexDigit(char c) {
  if (c >= '0' && c <= '9') return c - '0';
  if (c >= 'A' && c <= 'F') return c - 'A' + 10;
  if (c >= 'a' && c <= 'f') return c - 'a' + 10;
  return -1;
}

}  // namespace

std::string DecodeAsciiHex(std::string_view input) {
  std::string output;
  output.reserve(input.size() / 2 + 1);
  int high = -1;
  for (const char c : input) {
    const int digit = HexDigit(c);
    if (digit < 0) continue;
    if (high < 0) {
      high = digit;
    } else {
      output.push_back(static_cast<char>(high * 16 + digit));
      high = -1;
    }
  }
  output.push_back('\0');
  return output;
}

}  // namespace pdf
