#include "pdf/content_lines.h"

namespace pdf {

bool ContentLines::Next(ContentLine& line) {
  if (position >= text.size()) return false;
  const char* const begin = text.data() + position;
  const char* const end = text.data() + text.size();
  const char* tokenStart = begin;
  std::string_view last;
  line.count = 0;
  const auto take = [&](const char* tokenEnd) {
    last = {tokenStart, static_cast<std::size_t>(tokenEnd - tokenStart)};
    if (line.count < ContentLine::kKeptTokens) line.tokens[line.count] = last;
    ++line.count;
  };
  const char* at = begin;
  for (; at != end && *at != '\n'; ++at) {
    if (*at != ' ') continue;
    take(at);
    tokenStart = at + 1;
  }
  if (at != tokenStart) take(at);
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
