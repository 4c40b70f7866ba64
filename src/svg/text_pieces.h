#ifndef DRAWLOAD_SVG_TEXT_PIECES_H
#define DRAWLOAD_SVG_TEXT_PIECES_H

#include <string_view>

namespace Svg {

/// `text` without the blanks (0x20 alone) at both ends.
constexpr std::string_view TrimBlanks(std::string_view text) {
  const std::size_t first = text.find_first_not_of(' ');
  if (first == std::string_view::npos) return {};
  return text.substr(first, text.find_last_not_of(' ') - first + 1);
}

/// Calls `visit` with each piece of `text` between `separator`s that is not empty.
template <typename Visitor>
void ForEachPiece(std::string_view text, char separator, Visitor visit) {
  while (!text.empty()) {
    const std::size_t length = text.find(separator);
    const std::string_view piece = text.substr(0, length);
    if (!piece.empty()) visit(piece);
    if (length == std::string_view::npos) return;
    text.remove_prefix(length + 1);
  }
}

/// One `key:value` of a style text.
struct Declaration {
  std::string_view key;
  std::string_view value;
};

/// Calls `visit` with each declaration of `text`, which ";" separate. The first ":" divides key and value; a
/// piece that begins with it is skipped, a piece without one is both key and value. Nothing is trimmed.
template <typename Visitor>
void ForEachDeclaration(std::string_view text, Visitor visit) {
  ForEachPiece(text, ';', [&visit](std::string_view piece) {
    const std::size_t colon = piece.find(':');
    if (colon == 0) return;
    if (colon == std::string_view::npos) {
      visit(Declaration{piece, piece});
    } else {
      visit(Declaration{piece.substr(0, colon), piece.substr(colon + 1)});
    }
  });
}

}  // namespace Svg

#endif
