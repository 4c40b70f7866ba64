#ifndef DRAWLOAD_DXF_LINE_STREAM_H
#define DRAWLOAD_DXF_LINE_STREAM_H

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

/// Lines of a file that stands in memory, with the state that a text input stream would have: clean until a
/// read meets the end of the bytes.
class LineStream {
 public:
  explicit LineStream(std::string_view bytes) : rest(bytes) {}

  /// Reads up to the next line feed. A last line without one is stored, but the result is false; so is every
  /// later one, which then leaves `line` alone.
  bool readLine(std::string_view& line) {
    if (!isClean) return false;
    const std::size_t length = lineLength();
    if (length == std::string_view::npos) {
      line = rest;
      rest = {};
      isClean = false;
      return false;
    }
    line = rest.substr(0, length);
    rest.remove_prefix(length + 1);
    return true;
  }

  bool clean() const { return isClean; }
  std::size_t remaining() const { return rest.size(); }

 private:
  /// Where the next line feed stands. Nearly all lines are a few characters long, so the first ones are
  /// looked at in two words here, without a call.
  std::size_t lineLength() const {
    if constexpr (std::endian::native == std::endian::little) {
      for (std::size_t at = 0; at < 16 && at + 8 <= rest.size(); at += 8) {
        std::uint64_t word = 0;
        std::memcpy(&word, rest.data() + at, sizeof word);
        word ^= 0x0A0A0A0A0A0A0A0A;  // the first byte that is zero now was a line feed
        const std::uint64_t zeros = (word - 0x0101010101010101) & ~word & 0x8080808080808080;
        if (zeros != 0) return at + static_cast<std::size_t>(std::countr_zero(zeros)) / 8;
      }
    }
    return rest.find('\n');
  }

  std::string_view rest;
  bool isClean = true;
};

#endif
