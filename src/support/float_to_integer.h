#ifndef DRAWLOAD_SUPPORT_FLOAT_TO_INTEGER_H
#define DRAWLOAD_SUPPORT_FLOAT_TO_INTEGER_H

#include <cstdint>
#include <limits>

namespace support {

/// `value` truncated toward zero. What does not fit 32 bits, or is not a number, becomes the smallest
/// 32-bit integer.
constexpr std::int32_t TruncateToI32(double value) {
  if (!(value > -2147483649.0 && value < 2147483648.0)) return std::numeric_limits<std::int32_t>::min();
  return static_cast<std::int32_t>(value);
}

/// The same for 64 bits.
constexpr std::int64_t TruncateToI64(double value) {
  if (!(value >= -9223372036854775808.0 && value < 9223372036854775808.0)) {
    return std::numeric_limits<std::int64_t>::min();
  }
  return static_cast<std::int64_t>(value);
}

/// As `TruncateToI32`, cut to the low 16 bits.
constexpr std::int16_t TruncateToI16(double value) {
  return static_cast<std::int16_t>(static_cast<std::uint32_t>(TruncateToI32(value)));
}

/// The same, cut to the low byte.
constexpr std::uint8_t TruncateToByte(double value) {
  return static_cast<std::uint8_t>(static_cast<std::uint32_t>(TruncateToI32(value)));
}

}  // namespace support

#endif
