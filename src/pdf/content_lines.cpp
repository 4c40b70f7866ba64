#include "pdf/content_lines.h"

#include "support/byte_words.h"

namespace pdf {

namespace {

/// The first blank or line end from `at` on, or `end`.
const char* EndOfToken(const char* at, const char* end) {
  using namespace support::byte_words;
  for (; kInOrder && end - at >= std::ptrdiff_t{kBytes}; at += kBytes) {
    const std::uint64_t ends = ZeroBytes(WordAt(at, ' ')) | ZeroBytes(WordAt(at, '\n'));
    if (ends != 0) return at + BytesBefore(ends);
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
