#include "pdf/content_text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <utility>

namespace pdf {

// The replacements, in their order. "outside" means: not where the match lies inside a ( ) string or a [ ]
// array.
//
//    1       all       "\n " -> " "
//    2       all       "  "  -> " "
//    3       outside   "\nl" -> " l"
//    4       outside   "\n l" -> " l"
//    5 - 22  outside   "X " -> "X\n" for X = m l c v y h re S s F f f* B b b* n W W*
//   23       outside   " q" -> "\nq"
//   24       outside   "q " -> "q\n"
//   25       outside   " Q" -> "\nQ\n"
//   26 - 35  outside   "X " -> "X\n" for X = cm w J j M BX EX TJ Tj Tz
//   36 - 37  outside   "X" -> "X\n" for X = TL TD
//   38 - 40  outside   "X " -> "X\n" for X = BT ET Do
//   41 - 42  outside   "X" -> "X\n" for X = cs scn
//   43       all       "\r" -> "\n"
//   44       all       "  " -> " "
//   45       all       "\n\n" -> "\n"
//
// Kept: no replacement looks at word boundaries, so the end of any name before a blank counts as an operator.
//
// No replacement makes, removes or moves past a bracket or parenthesis. So whether a match is outside is the
// same for all matches between two neighbouring brackets, and each such stretch is rewritten by itself. The
// first pass makes replacements 1 to 4, the second one the rest, by the characters around each blank.

namespace {

/// One kind of bracket: where the next closing one lies, and the last opening one before it.
class BracketScan {
 public:
  BracketScan(std::string_view content, char opening, char closing)
      : text(content), open(opening), close(closing) {
    Find(0);
  }

  /// Whether a match anywhere in the stretch that begins at `start` lies inside. `start` never falls.
  bool Inside(std::size_t start) {
    if (closeAt != npos && closeAt < start) Find(start);
    return closeAt != npos && openAt != npos && openAt < start;
  }

 private:
  static constexpr std::size_t npos = std::string_view::npos;

  void Find(std::size_t start) {
    const std::size_t searched = closeAt == npos ? 0 : closeAt;
    closeAt = text.find(close, start);
    if (closeAt == npos) return;
    const std::size_t found = text.substr(searched, closeAt - searched).rfind(open);
    if (found != npos) openAt = searched + found;
  }

  std::string_view text;
  char open;
  char close;
  std::size_t closeAt = npos;
  std::size_t openAt = npos;
};

/// A set of characters.
class CharacterSet {
 public:
  explicit constexpr CharacterSet(std::string_view members) {
    for (const char c : members) isMember[static_cast<unsigned char>(c)] = true;
  }
  constexpr bool Holds(char c) const { return isMember[static_cast<unsigned char>(c)]; }

  /// The first index from `at` on whose character is of the set, or the length of `text`.
  std::size_t Find(std::string_view text, std::size_t at) const {
    while (at < text.size() && !Holds(text[at])) ++at;
    return at;
  }

 private:
  std::array<bool, 256> isMember = {};
};

constexpr CharacterSet kBlankCharacters(" \r\n");
/// What operands consist of. Among them no replacement acts but at a second blank.
constexpr CharacterSet kOperandCharacters("0123456789.-+ ");

/// A text of bounded length, written from front to back.
class Output {
 public:
  explicit Output(std::size_t mostBytes) : text(support::NewLargeBlock(mostBytes)) {}

  void Put(char c) { text[size++] = c; }
  void Append(std::string_view run) {
    std::memcpy(text.get() + size, run.data(), run.size());
    size += run.size();
  }
  void Fill(std::size_t count, char c) {
    for (; count > 0; --count) Put(c);
  }
  void DropLast() { --size; }
  char& Last(std::size_t distance) { return text[size - distance]; }
  std::size_t Size() const { return size; }

  support::BlockText Take() { return {std::move(text), size}; }

 private:
  support::LargeBlock text;
  std::size_t size = 0;
};

/// Finds brackets from front to back.
class NextBracket {
 public:
  explicit NextBracket(std::string_view content) : text(content) {
    for (std::size_t i = 0; i < kBrackets.size(); ++i) found[i] = text.find(kBrackets[i]);
  }

  /// Where the first bracket at or behind `start` lies, or the length of the text. `start` never falls.
  std::size_t From(std::size_t start) {
    std::size_t first = text.size();
    for (std::size_t i = 0; i < kBrackets.size(); ++i) {
      if (found[i] < start) found[i] = text.find(kBrackets[i], start);
      first = std::min(first, found[i]);
    }
    return first;
  }

 private:
  static constexpr std::string_view kBrackets = "[]()";

  std::string_view text;
  std::array<std::size_t, kBrackets.size()> found;
};

/// Walks the stretches between brackets and hands each to `rewrite(from, to, outside)`; brackets go to
/// `bracket(character)`.
template <typename Rewrite, typename Bracket>
void ForEachStretch(std::string_view text, Rewrite rewrite, Bracket bracket) {
  NextBracket brackets(text);
  BracketScan arrays(text, '[', ']');
  BracketScan strings(text, '(', ')');
  std::size_t start = 0;
  while (start < text.size()) {
    const std::size_t end = brackets.From(start);
    if (end > start) {
      const bool inside = arrays.Inside(start) || strings.Inside(start);
      rewrite(start, end, !inside);
    }
    if (end < text.size()) bracket(text[end]);
    start = end + 1;
  }
}

/// Replacements 1 to 4.
class LineJoiner {
 public:
  explicit LineJoiner(std::size_t mostBytes) : result(mostBytes) {}

  void Bracket(char c) {
    FlushBlanks();
    result.Put(c);
    stretchStart = result.Size();
  }

  void Stretch(std::string_view text, bool outside) {
    for (std::size_t i = 0; i < text.size(); ++i) {
      if (blanks == 0 && !FollowsLineEnd()) {
        const std::size_t end = EndOfRun(text, i);
        result.Append(text.substr(i, end - i));
        if (end == text.size()) return;
        i = end;
      }
      Character(text[i], i + 1 < text.size() && text[i + 1] == ' ', outside);
    }
  }

  support::BlockText Take() {
    FlushBlanks();
    return result.Take();
  }

 private:
  /// Where the characters end that no replacement changes: before a line end with the blank that leads to it,
  /// or before two blanks.
  static std::size_t EndOfRun(std::string_view text, std::size_t start) {
    std::size_t at = start;
    for (; at < text.size() && text[at] != '\n'; ++at) {
      if (text[at] == ' ' && at + 1 < text.size() && text[at + 1] == ' ') return at;
    }
    return at > start && text[at - 1] == ' ' ? at - 1 : at;
  }

  /// Whether one of the last two characters is a line end, which an "l" may change.
  bool FollowsLineEnd() {
    const std::size_t size = result.Size();
    return (size > 0 && result.Last(1) == '\n') || (size > 1 && result.Last(2) == '\n');
  }

  void Character(char c, bool blankFollows, bool outside) {
    if (c == ' ') {
      ++blanks;
      return;
    }
    if (c == '\n' && blankFollows) return;
    FlushBlanks();
    if (c == 'l' && outside) JoinLine();
    result.Put(c);
  }

  /// A run of blanks becomes half as long, rounded up.
  void FlushBlanks() {
    if (blanks == 0) return;
    result.Fill((blanks + 1) / 2, ' ');
    blanks = 0;
  }

  /// An "l" follows: "\nl" -> " l", then "\n l" -> " l".
  void JoinLine() {
    const std::size_t length = result.Size() - stretchStart;
    if (length > 0 && result.Last(1) == '\n') result.Last(1) = ' ';
    if (length > 1 && result.Last(1) == ' ' && result.Last(2) == '\n') {
      result.DropLast();
      result.Last(1) = ' ';
    }
  }

  Output result;
  std::size_t blanks = 0;
  std::size_t stretchStart = 0;
};

/// Collects the final text: carriage returns become line ends, then runs of blanks and runs of line ends
/// become half as long, rounded up.
class ContentWriter {
 public:
  explicit ContentWriter(std::size_t mostBytes) : result(mostBytes) {}

  void Put(char c) {
    if (c == '\r') c = '\n';
    if (c != ' ' && c != '\n') {
      runOf = '\0';
    } else if (c == runOf) {
      runOf = '\0';  // the second of a pair
      return;
    } else {
      runOf = c;
    }
    result.Put(c);
  }

  /// Appends characters of which none is a blank or a line end.
  void Append(std::string_view run) {
    if (run.empty()) return;
    runOf = '\0';
    result.Append(run);
  }

  support::BlockText Take() { return result.Take(); }

 private:
  Output result;
  char runOf = '\0';  ///< the blank or line end written last, where one more of it makes a pair
};

/// Whether replacements 5 to 22, or 24, find an operator that ends with `last`, behind `before`.
bool EndsEarlyOperator(char before, char last) {
  constexpr std::string_view kLetters = "mlcvyhSsFfBbnWq";
  if (kLetters.find(last) != std::string_view::npos) return true;
  if (last == 'e') return before == 'r';
  return last == '*' && (before == 'f' || before == 'b' || before == 'W');
}

/// The same for replacements 26 to 35 ("cm", "TJ" and "Tj" end with letters that are operators of their own)
/// and 38 to 40, where `third` stands before `before`. "TDo " is none: replacement 37 has cut it.
bool EndsLateOperator(char third, char before, char last) {
  switch (last) {
    case 'w':
    case 'J':
    case 'j':
    case 'M': return true;
    case 'X': return before == 'B' || before == 'E';
    case 'z': return before == 'T';
    case 'T': return before == 'B' || before == 'E';
    case 'o': return before == 'D' && third != 'T';
    default: return false;
  }
}

/// Replacements 5 to 42 on one stretch.
class OperatorBreaker {
 public:
  OperatorBreaker(std::string_view content, ContentWriter& target) : text(content), writer(target) {}

  void Run() {
    for (std::size_t i = 0; i < text.size(); ++i) {
      if (text[i] != ' ' && kOperandCharacters.Holds(text[i])) {
        const std::size_t end = EndOfOperands(i);
        writer.Append(text.substr(i, end - i));
        if (end == text.size()) return;
        i = end;
      }
      if (text[i] == ' ') {
        Blank(i);
      } else {
        Character(i);
      }
    }
  }

 private:
  /// Where the operands end that begin at `start`, without the blanks behind them.
  std::size_t EndOfOperands(std::size_t start) const {
    std::size_t at = start;
    while (at < text.size() && kOperandCharacters.Holds(text[at])) {
      if (text[at] == ' ' && text[at - 1] == ' ') break;
      ++at;
    }
    return text[at - 1] == ' ' ? at - 1 : at;
  }

  char Before(std::size_t i, std::size_t distance) const { return i >= distance ? text[i - distance] : '\0'; }

  void Blank(std::size_t i) {
    const char next = i + 1 < text.size() ? text[i + 1] : '\0';
    breakBehindQ = false;
    if (EndsEarlyOperator(Before(i, 2), Before(i, 1)) || next == 'q') {
      writer.Put('\n');
    } else if (next == 'Q') {
      writer.Put('\n');
      breakBehindQ = true;
    } else {
      writer.Put(EndsLateOperator(Before(i, 3), Before(i, 2), Before(i, 1)) ? '\n' : ' ');
    }
  }

  void Character(std::size_t i) {
    writer.Put(text[i]);
    if (BreaksBehind(i)) writer.Put('\n');
  }

  bool BreaksBehind(std::size_t i) {
    const char before = Before(i, 1);
    switch (text[i]) {
      case 'Q': return std::exchange(breakBehindQ, false);
      case 'L':
      case 'D': return before == 'T';
      case 's': return before == 'c';
      case 'n': return before == 'c' && Before(i, 2) == 's' && Before(i, 3) != 'c';
      default: return false;
    }
  }

  std::string_view text;
  ContentWriter& writer;
  bool breakBehindQ = false;
};

/// A stretch inside of brackets, where only the blanks count.
void CopyInside(std::string_view text, ContentWriter& writer) {
  for (std::size_t i = 0; i < text.size();) {
    const std::size_t end = kBlankCharacters.Find(text, i);
    writer.Append(text.substr(i, end - i));
    if (end == text.size()) return;
    writer.Put(text[end]);
    i = end + 1;
  }
}

support::BlockText JoinLines(std::string_view text) {
  LineJoiner joiner(text.size());
  ForEachStretch(
      text,
      [&](std::size_t from, std::size_t to, bool outside) {
        joiner.Stretch(text.substr(from, to - from), outside);
      },
      [&](char c) { joiner.Bracket(c); });
  return joiner.Take();
}

}  // namespace

support::BlockText NormaliseContentText(std::string_view text) {
  const support::BlockText joined = JoinLines(text);
  const std::string_view view = joined.View();
  // At most every other character gets a line end behind it: two make an operator or a blank and a "Q".
  ContentWriter writer(view.size() + view.size() / 2);
  const auto rewrite = [&](std::size_t from, std::size_t to, bool outside) {
    const std::string_view stretch = view.substr(from, to - from);
    if (outside) {
      OperatorBreaker(stretch, writer).Run();
    } else {
      CopyInside(stretch, writer);
    }
  };
  ForEachStretch(view, rewrite, [&](char c) { writer.Put(c); });
  return writer.Take();
}

}  // namespace pdf
