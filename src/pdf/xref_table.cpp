#include "pdf/xref_table.h"

#include <algorithm>
#include <optional>

#include "support/text_to_number.h"

namespace pdf {

namespace {

constexpr std::string_view kStartWord = "xref";

bool AreDigits(std::string_view text) { return std::all_of(text.begin(), text.end(), support::IsDigit); }

struct SubsectionHead {
  std::uint32_t firstNumber = 0;
  std::int32_t count = 0;
};

/// A line of two numbers with one blank between them. Kept: each may have no digit at all, and at most nine.
std::optional<SubsectionHead> MatchHead(std::string_view line) {
  constexpr std::size_t kMostDigits = 9;
  const std::size_t blank = line.find(' ');
  if (blank == std::string_view::npos) return std::nullopt;
  const std::string_view number = line.substr(0, blank);
  const std::string_view count = line.substr(blank + 1);
  if (number.size() > kMostDigits || count.size() > kMostDigits) return std::nullopt;
  if (!AreDigits(number) || !AreDigits(count)) return std::nullopt;
  return SubsectionHead{static_cast<std::uint32_t>(support::AtoI(number)), support::AtoI(count)};
}

/// A line of ten digits, five digits and "f" or "n", with a blank between them and perhaps one at the end.
std::optional<PdfXrefEntry> MatchEntry(std::string_view line) {
  constexpr std::size_t kShortest = 18;
  if (line.size() == kShortest + 1 && line.back() == ' ') line.remove_suffix(1);
  if (line.size() != kShortest || line[10] != ' ' || line[16] != ' ') return std::nullopt;
  if (line[17] != 'f' && line[17] != 'n') return std::nullopt;
  if (!AreDigits(line.substr(0, 10)) || !AreDigits(line.substr(11, 5))) return std::nullopt;
  PdfXrefEntry entry;
  entry.offset = support::AtoI(line.substr(0, 10));
  entry.generation = support::AtoI(line.substr(11, 5));
  entry.free = line[17] == 'f';
  return entry;
}

/// Takes the lines in turn, each for the current object number.
class TableWalk {
 public:
  TableWalk(PdfNotes& target, PdfXrefSection& taken) : notes(target), section(taken) {}

  void Line(std::string_view line) {
    if (const auto head = MatchHead(line)) {
      number = head->firstNumber;
      count = head->count;
    } else if (const auto entry = MatchEntry(line)) {
      section.entries[number++] = *entry;
      if (--count == -1) notes.Write("交叉引用表读取出错");
    }
  }

 private:
  PdfNotes& notes;
  PdfXrefSection& section;
  std::uint32_t number = 0;
  std::int64_t count = 0;
};

/// What of a line can be a head or an entry: each "xref" ends a line as a line end does.
std::string_view BehindStartWord(std::string_view line) {
  const std::size_t word = line.rfind(kStartWord);
  return word == std::string_view::npos ? line : line.substr(word + kStartWord.size());
}

}  // namespace

bool ParseXrefTable(std::string_view table, PdfNotes& notes, PdfXrefSection& section) {
  if (!table.starts_with(kStartWord)) return false;
  TableWalk walk(notes, section);
  std::size_t start = 0;
  while (start < table.size()) {
    const std::size_t end = std::min(table.find_first_of("\r\n", start), table.size());
    walk.Line(BehindStartWord(table.substr(start, end - start)));
    start = end + 1;
  }
  return true;
}

}  // namespace pdf
