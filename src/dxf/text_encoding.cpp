#include "dxf/text_encoding.h"

#include <cstddef>
#include <utf8.h>

namespace {

unsigned char ByteAt(std::string_view text, std::size_t at) { return static_cast<unsigned char>(text[at]); }

bool IsGbkLead(unsigned char byte) { return byte >= 0x81 && byte <= 0xFE; }

// Kept: 0xF7 is left out of the trail bytes, and 0x7F is not.
bool IsGbkTrail(unsigned char byte) { return byte >= 0x40 && byte <= 0xFE && byte != 0xF7; }

bool IsGbk(std::string_view text) {
  for (std::size_t at = 0; at < text.size();) {
    if (ByteAt(text, at) < 0x80) {
      ++at;
      continue;
    }
    if (!IsGbkLead(ByteAt(text, at)) || at + 1 == text.size() || !IsGbkTrail(ByteAt(text, at + 1)))
      return false;
    at += 2;
  }
  return true;
}

}  // namespace

std::string_view GuessEncoding(std::string_view text) {
  using namespace std::string_view_literals;
  if (text.size() < 3) return "UTF-8";
  if (text[0] == '\0') return text.starts_with("\0\0\xFE\xFF"sv) ? "UTF-32" : "UTF-8";
  if (utf8::is_valid(text.begin(), text.end())) return "UTF-8";
  return IsGbk(text) ? "GBK" : "unknown";
}
