#ifndef DRAWLOAD_DXF_LINE_STREAM_H
#define DRAWLOAD_DXF_LINE_STREAM_H

#include <cstddef>
#include <cstdint>
#include <cstring>
#include <string_view>

#include "support/byte_words.h"
#include "support/decimal_digits.h"

/// Lines of a file that stands in memory, with the state that a text input stream would have: clean until a
/// read meets the end of the bytes.
class LineStream {
 public:
  explicit LineStream(std::string_view bytes) : next(bytes.data()), end(next + bytes.size()) {}

  /// Reads up to the next line feed. A last line without one is stored, but the result is false; so is every
  /// later one, which then leaves `line` alone.
  bool readLine(std::string_view& line) {
    if (!isClean) return false;
    const char* const feed = lineFeed();
    line = {next, static_cast<std::size_t>(feed - next)};
    isClean = feed != end;
    next = isClean ? feed + 1 : end;
    return isClean;
  }

  /// Reads a line of three characters, blanks and then digits, as nearly all group codes stand in a file.
  /// False, and nothing read, where there is another line.
  bool readShortNumber(std::int32_t& number) {
    if (!isClean || end - next < 5) return false;
    constexpr std::uint32_t blank = ' ' ^ '0';  // as `digitAt` has it
    std::uint32_t digits = digitAt(0) | digitAt(1) << 8 | digitAt(2) << 16;
    const bool oneLeads = (digits & 0xFF) == blank;
    const bool twoLead = (digits & 0xFFFF) == (blank | blank << 8);
    digits ^= (oneLeads ? blank : 0) | (twoLead ? blank << 8 : 0);
    if ((((digits + 0x767676) | digits) & 0x808080) != 0 || !skipLineEnd(next + 3)) return false;
    number = static_cast<std::int32_t>(100 * (digits & 0xFF) + 10 * (digits >> 8 & 0xFF) + (digits >> 16));
    return true;
  }

  /// Reads a line of one `ShortDecimal`, as nearly all coordinates stand in a file. False, and nothing read,
  /// where there is another line, or where the bytes end soon.
  bool readShortDecimal(double& number) {
    if (!isClean || end - next < support::ShortDecimal::kReach) return false;
    const support::ShortDecimal decimal(next);
    if (decimal.end == nullptr || !skipLineEnd(decimal.end)) return false;
    number = decimal.value;
    return true;
  }

  bool clean() const { return isClean; }
  std::size_t remaining() const { return static_cast<std::size_t>(end - next); }

 private:
  /// The value of a digit; more than 9 for any other character.
  std::uint32_t digitAt(std::size_t i) const { return static_cast<unsigned char>(next[i] ^ '0'); }

  /// Goes behind a line that ends at `at`, with a carriage return or without. False where it does not end.
  bool skipLineEnd(const char* at) {
    if (at != end && *at == '\r') ++at;
    if (at == end || *at != '\n') return false;
    next = at + 1;
    return true;
  }

  /// The next line feed, or the end of the bytes. Nearly all lines are a few characters long, so the first
  /// ones are looked at in two words here, without a call.
  const char* lineFeed() const {
    namespace words = support::byte_words;
    if constexpr (words::kInOrder) {
      for (const char* at = next; at != next + 16 && end - at >= 8; at += words::kBytes) {
        const std::uint64_t feeds = words::ZeroBytes(words::WordAt(at, '\n'));
        if (feeds != 0) return at + words::BytesBefore(feeds);
      }
    }
    const void* const feed = next == end ? nullptr : std::memchr(next, '\n', remaining());
    return feed == nullptr ? end : static_cast<const char*>(feed);
  }

  const char* next;
  const char* end;
  bool isClean = true;
};

#endif
