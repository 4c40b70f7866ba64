#include "pdf/content_lines.h"

#include <bit>
#include <cstring>

namespace pdf {

namespace {

/// Whether one of the bytes of `word` is 0, and which: the lowest set bit is the highest one of the first.
constexpr std::uint64_t ZeroBytes(std::uint64_t word) {
  return (word - 0x0101010101010101) & ~word & 0x8080808080808080;
}

/// The first blank or line end from `at` on, or `end`.
const char* EndOfToken(const char* at, const char* end) {
  if constexpr (std::endian::native == std::endian::little) {
    for (; end - at >= 8; at += 8) {
      std::uint64_t word = 0;
      std::memcpy(&word, at, sizeof word);
      const std::uint64_t ends = ZeroBytes(word ^ 0x2020202020202020) | ZeroBytes(word ^ 0x0A0A0A0A0A0A0A0A);
      if (ends != 0) return at + std::countr_zero(ends) / 8;
    }
  }
  while (at != end && *at != ' ' && *at != '\n') ++at;
  return at;
}

}  // namespace

bool ContentLines::Next(ContentLine& line) {
  if (position >= text.size()) return false;
  const char* const begin = text.data() + position;
  const char* const end = text.data() + text.size();
  std::string_view last;
  line.count = 0;
  const char* at = begin;
  for (;; ++at) {
    const char* const tokenStart = at;
    at = EndOfToken(at, end);
    const bool endsLine = at == end || *at == '\n';
    if (endsLine && at == tokenStart) break;
    last = {tokenStart, static_cast<std::size_t>(at - tokenStart)};
    if (line.count < ContentLine::kKeptTokens) line.tokens[line.count] = last;
    ++line.count;
    if (endsLine) break;
  }
  line.text = {begin, static_cast<std::size_t>(at - begin)};
  line.code = OperatorCode(last);
  position += line.text.size() + 1;
  return true;
}

std::string_view ContentLines::Peek() const {
  if (position >= text.size()) return {};
  const std::string_view rest = text.substr(position);
  return rest.substr(0, rest.find('\n'));
}

}  // namespace pdf
