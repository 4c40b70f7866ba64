#ifndef DRAWLOAD_TESTS_BROKEN_PNG_H
#define DRAWLOAD_TESTS_BROKEN_PNG_H

#include <string>
#include <string_view>

/// A PNG file that says it has 11,000 by 11,000 grey pixels, has enough bytes for them in a comment, and
/// holds a single one.
inline std::string BrokenPng() {
  using namespace std::string_view_literals;
  std::string bytes("\x89PNG\r\n\x1A\n"sv);
  const auto append = [&bytes](std::string_view length, std::string_view name, std::string_view data) {
    bytes.append(length).append(name).append(data).append("\0\0\0\0"sv);  // the decoder checks no sums
  };
  append("\0\0\0\x0D"sv, "IHDR", "\0\0\x2A\xF8\0\0\x2A\xF8\x08\0\0\0\0"sv);
  append("\0\0\x40\0"sv, "tEXt", std::string(0x4000, 'x'));
  append("\0\0\0\x0D"sv, "IDAT", "\x78\x01\x01\x02\0\xFD\xFF\0\x07\0\0\0\0"sv);
  append("\0\0\0\0"sv, "IEND", "");
  return bytes;
}

constexpr std::size_t kBrokenPngPixels = 121'000'000;

#endif
