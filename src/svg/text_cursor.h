#ifndef DRAWLOAD_SVG_TEXT_CURSOR_H
#define DRAWLOAD_SVG_TEXT_CURSOR_H

#include <string_view>

#include "support/text_to_number.h"

namespace Svg {

/// A place in a text that is read from front to back, without copies.
struct TextCursor {
  explicit TextCursor(std::string_view text) : next(text.data()), end(text.data() + text.size()) {}

  bool AtEnd() const { return next == end; }
  bool StandsAt(char c) const { return next != end && *next == c; }
  void SkipSpace() {
    while (next != end && support::IsSpace(*next)) ++next;
  }
  /// Moves past `c` if it stands here.
  bool Take(char c) {
    if (!StandsAt(c)) return false;
    ++next;
    return true;
  }
  /// Moves past `word` if all of it stands here.
  bool Take(std::string_view word) {
    if (!std::string_view(next, static_cast<std::size_t>(end - next)).starts_with(word)) return false;
    next += word.size();
    return true;
  }

  const char* next;
  const char* end;
};

}  // namespace Svg

#endif
