#include "pdf/content_text.h"

#include <algorithm>
#include <array>
#include <cstddef>
#include <cstring>
#include <string>
#include <utility>

#include "support/byte_words.h"

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
// same for all matches between two neighbouring brackets, and each such stretch is rewritten by itself.
//
// Replacements 1 to 4 change runs of blanks and line ends alone, by the character behind them. What the
// others do to a run is decided at its ends: its first character may stand behind an operator, its last one
// before a "q" or "Q". So a stretch is rewritten run by run, in one pass.

namespace {

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
  /// The same for a character that is not of the set.
  std::size_t FindOther(std::string_view text, std::size_t at) const {
    while (at < text.size() && Holds(text[at])) ++at;
    return at;
  }

 private:
  std::array<bool, 256> isMember = {};
};

/// Whether `c` is none of the letters and line ends that replacements ask for. Among such characters they act
/// but at a second blank, and at a blank behind a "*" that follows a letter.
constexpr bool IsOperandCharacter(char c) { return (c & '\xE0') == ' '; }

/// How many such characters lead `text`, up to a second blank at most.
std::size_t LeadingOperands(std::string_view text) {
  using namespace support::byte_words;
  std::size_t count = 0;
  std::uint64_t blankBefore = 0;
  for (; kInOrder && text.size() - count >= kBytes; count += kBytes) {
    const std::uint64_t word = WordAt(text.data() + count, ' ');
    const std::uint64_t others = (word | word << 1 | word << 2) & kHighBits;
    const std::uint64_t blanks = ZeroBytes(word);
    const std::uint64_t stops = others | (blanks & (blanks << 8 | blankBefore));
    if (stops != 0) return count + BytesBefore(stops);
    blankBefore = blanks >> 56;
  }
  for (; count < text.size() && IsOperandCharacter(text[count]); ++count) {
    if (count > 0 && text[count] == ' ' && text[count - 1] == ' ') break;
  }
  return count;
}

/// Before these a blank may change, whatever stands before it.
constexpr CharacterSet kChangeBlanks(" \nqQ");
constexpr CharacterSet kRunCharacters(" \n");
/// What ends a piece that is copied as it is: runs, carriage returns, and what replacements 25, 36, 37, 41
/// and 42 act behind.
constexpr CharacterSet kStops(" \n\rQLDsn");

/// Finds brackets from front to back.
class Brackets {
 public:
  explicit Brackets(std::string_view content) : text(content) {
    for (std::size_t i = 0; i < kBrackets.size(); ++i) found[i] = text.find(kBrackets[i]);
  }

  /// Where the first bracket at or behind `start` lies, or the length of the text. `start` never falls.
  std::size_t From(std::size_t start) {
    std::size_t first = text.size();
    for (std::size_t i = 0; i < kBrackets.size(); ++i) {
      if (found[i] < start) {
        isPassed[i] = true;
        found[i] = text.find(kBrackets[i], start);
      }
      first = std::min(first, found[i]);
    }
    return first;
  }

  /// Whether the stretch between them lies inside: one bracket of a kind opens before it, and the next of
  /// that kind closes.
  bool Enclose() const { return Encloses(0) || Encloses(2); }

 private:
  static constexpr std::string_view kBrackets = "[]()";

  bool Encloses(std::size_t opening) const {
    return isPassed[opening] && found[opening + 1] < found[opening];
  }

  std::string_view text;
  std::array<std::size_t, kBrackets.size()> found;
  std::array<bool, kBrackets.size()> isPassed = {};
};

/// Collects the final text: carriage returns become line ends, then runs of blanks and runs of line ends
/// become half as long, rounded up.
class ContentWriter {
 public:
  explicit ContentWriter(std::size_t mostBytes) : text(support::NewLargeBlock(mostBytes)) {}

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
    text[size++] = c;
  }

  /// Appends characters of which the last one and no two neighbours are blanks or line ends.
  void Append(std::string_view run) {
    if (run.empty()) return;
    runOf = '\0';
    std::memcpy(text.get() + size, run.data(), run.size());
    size += run.size();
  }

  support::BlockText Take() { return {std::move(text), size}; }

 private:
  support::LargeBlock text;
  std::size_t size = 0;
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

/// Replacements 1 and 2 on a run of blanks and line ends: a line end before a blank goes, then runs of blanks
/// become half as long, rounded up.
std::string JoinedRun(std::string_view run) {
  std::string joined;
  std::size_t blanks = 0;
  for (std::size_t i = 0; i < run.size(); ++i) {
    if (run[i] == ' ') {
      ++blanks;
    } else if (run.substr(i + 1, 1) != " ") {
      joined.append((blanks + 1) / 2, ' ');
      joined += '\n';
      blanks = 0;
    }
  }
  return joined.append((blanks + 1) / 2, ' ');
}

/// Replacements 3 and 4 on the run before an "l": "\nl" -> " l", then "\n l" -> " l".
void PullUp(std::string& run) {
  if (run.back() == '\n') run.back() = ' ';
  if (run.ends_with("\n ")) run.erase(run.size() - 2, 1);
}

/// Rewrites one stretch between brackets.
class StretchRewriter {
 public:
  StretchRewriter(std::string_view stretch, bool outside, ContentWriter& target)
      : text(stretch), isOutside(outside), writer(target) {}

  void Run() {
    for (std::size_t i = 0; i < text.size();) i = kRunCharacters.Holds(text[i]) ? RewriteRun(i) : Copy(i);
  }

 private:
  /// Copies from `start` to the next run, or through a character behind which a replacement may act; returns
  /// where that ends.
  std::size_t Copy(std::size_t start) {
    const std::size_t end = kStops.Find(text, EndOfOperands(start));
    writer.Append(text.substr(start, end - start));
    if (end == text.size() || kRunCharacters.Holds(text[end])) return end;
    writer.Put(text[end]);
    if (isOutside && BreaksBehind(end)) writer.Put('\n');
    return end + 1;
  }

  /// Where the operands end that begin at `start`, without a blank behind them that may change.
  std::size_t EndOfOperands(std::size_t start) const {
    if (text[start] == '*') return start;
    const std::size_t at = start + LeadingOperands(text.substr(start));
    const bool endsInBlank = at > start && text[at - 1] == ' ';
    return endsInBlank && (at == text.size() || kChangeBlanks.Holds(text[at])) ? at - 1 : at;
  }

  char Before(std::size_t i, std::size_t distance) const { return i >= distance ? text[i - distance] : '\0'; }

  /// Rewrites the run that begins at `start`; returns where it ends.
  std::size_t RewriteRun(std::size_t start) {
    const std::size_t end = kRunCharacters.FindOther(text, start);
    // Nearly all runs.
    if (end - start == 1 && text[start] == '\n' && end < text.size() && text[end] != 'l') {
      writer.Put('\n');
      return end;
    }
    std::string run = JoinedRun(text.substr(start, end - start));
    if (isOutside) BreakRun(run, start, end < text.size() ? text[end] : '\0');
    for (const char c : run) writer.Put(c);
    return end;
  }

  /// Replacements 3 to 35 and 38 to 40 on the run that begins at `start`, before `next`.
  void BreakRun(std::string& run, std::size_t start, char next) {
    if (next == 'l') PullUp(run);
    const bool endsEarly = EndsEarlyOperator(Before(start, 2), Before(start, 1));
    const bool endsLate = EndsLateOperator(Before(start, 3), Before(start, 2), Before(start, 1));
    if (run.back() == ' ' && (next == 'q' || next == 'Q')) {
      breakBehindQ = next == 'Q' && !(endsEarly && run.size() == 1);
      run.back() = '\n';
    }
    if (run.front() == ' ' && (endsEarly || endsLate)) run.front() = '\n';
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
  bool isOutside;
  ContentWriter& writer;
  bool breakBehindQ = false;
};

}  // namespace

support::BlockText NormaliseContentText(std::string_view text) {
  // At most every other character gets a line end behind it: two make an operator or a blank and a "Q".
  ContentWriter writer(text.size() + text.size() / 2);
  Brackets brackets(text);
  for (std::size_t start = 0; start < text.size();) {
    const std::size_t end = brackets.From(start);
    StretchRewriter(text.substr(start, end - start), !brackets.Enclose(), writer).Run();
    if (end < text.size()) writer.Put(text[end]);
    start = end + 1;
  }
  return writer.Take();
}

}  // namespace pdf
