#include "support/base64.h"

#include <array>
#include <cstdint>

namespace support {
namespace {

constexpr std::uint8_t kSkipped = 0xFF;

constexpr std::array<std::uint8_t, 256> SixBitValues() {
  constexpr std::string_view alphabet = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::array<std::uint8_t, 256> values{};
  values.fill(kSkipped);
  for (std::size_t i = 0; i < alphabet.size(); ++i) {
    values[static_cast<unsigned char>(alphabet[i])] = static_cast<std::uint8_t>(i);
  }
  return values;
}

constexpr std::array<std::uint8_t, 256> kSixBits = SixBitValues();

}  // namespace

std::size_t DecodeBase64(std::string_view text, char* out) {
  std::uint32_t bits = 0;
  int bitCount = 0;
  std::size_t written =
      0;  // never ahead of the reading place: a character brings six bits, a byte takes eight
  for (const char c : text) {
    const std::uint8_t value = kSixBits[static_cast<unsigned char>(c)];
    if (value == kSkipped) continue;
    bits = bits << 6 | value;
    bitCount += 6;
    if (bitCount < 8) continue;
    bitCount -= 8;
    out[written++] = static_cast<char>(bits >> bitCount & 0xFF);
  }
  return written;
}

std::string DecodeBase64(std::string_view text) {
  std::string bytes(text.size() / 4 * 3 + text.size() % 4 * 3 / 4, '\0');
  bytes.resize(DecodeBase64(text, bytes.data()));
  return bytes;
}

}  // namespace support
