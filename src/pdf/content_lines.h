#ifndef DRAWLOAD_PDF_CONTENT_LINES_H
#define DRAWLOAD_PDF_CONTENT_LINES_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <stdexcept>
#include <string_view>

namespace pdf {

/// An operator's name as a number, so that it can stand in a switch. The length stands above the characters,
/// so that no two names share a number, not even by NUL bytes. Longer names are no operators: 0.
constexpr std::uint32_t OperatorCode(std::string_view name) {
  if (name.size() > 3) return 0;
  auto code = static_cast<std::uint32_t>(name.size());
  for (const char c : name) code = code * 256 + static_cast<unsigned char>(c);
  return code;
}

/// One line of a content text, split at every blank: two blanks in a row give an empty token, one at the end
/// of the line gives none. The operator is the last token, and counts as one.
struct ContentLine {
  static constexpr std::size_t kKeptTokens = 8;

  /// The token at `index`, which is below `kKeptTokens`; a line without it ends the whole read.
  std::string_view At(std::size_t index) const {
    if (index >= count || index >= kKeptTokens) throw std::out_of_range("operand of a content line");
    return tokens[index];
  }

  /// Whether the first token is `name`.
  bool StartsWith(char name) const { return count > 0 && tokens[0].size() == 1 && tokens[0][0] == name; }

  std::string_view text;
  std::size_t count = 0;                             ///< of all tokens, also those not kept
  std::array<std::string_view, kKeptTokens> tokens;  ///< the first ones
  std::uint32_t code = 0;                            ///< `OperatorCode` of the last token
};

/// Walks the lines of a content text.
class ContentLines {
 public:
  explicit ContentLines(std::string_view contentText) : text(contentText) {}

  /// Fills `line` with the next line; false behind the last one.
  bool Next(ContentLine& line);

  /// The whole of the line that `Next` would give, or nothing behind the last one.
  std::string_view Peek() const;

  /// Where the next line starts, to come back to it.
  std::size_t Position() const { return position; }
  void GoTo(std::size_t target) { position = target; }

 private:
  std::string_view text;
  std::size_t position = 0;
};

}  // namespace pdf

#endif
