#include "pdf/object_text.h"

#include <algorithm>
#include <array>
#include <utility>

namespace pdf {

std::string ReplaceAll(std::string_view text, std::string_view from, std::string_view to) {
  std::string result;
  result.reserve(text.size());
  std::size_t done = 0;
  for (std::size_t hit = text.find(from); hit != std::string_view::npos; hit = text.find(from, done)) {
    result.append(text, done, hit - done);
    result.append(to);
    done = hit + from.size();
  }
  result.append(text, done);
  return result;
}

namespace {

/// Collects the normalised text. Line ends are counted and written before the next other character, so that a
/// run is shortened as two passes do that each make one line end of two.
class ObjectTextWriter {
 public:
  explicit ObjectTextWriter(std::size_t room) { result.reserve(room + room / 4 + 16); }

  void LineEnd() { ++lineEnds; }

  void Put(std::string_view characters) {
    WriteLineEnds();
    result.append(characters);
  }

  std::string Take() {
    WriteLineEnds();
    return std::move(result);
  }

 private:
  void WriteLineEnds() {
    if (lineEnds == 0) return;
    result.append((lineEnds + 3) / 4, '\n');
    lineEnds = 0;
  }

  std::string result;
  std::size_t lineEnds = 0;
};

constexpr std::array<bool, 256> MakeSpecialTable() {
  std::array<bool, 256> isSpecial{};
  for (const char c : std::string_view("(\r\n /<>[]")) isSpecial[static_cast<unsigned char>(c)] = true;
  return isSpecial;
}

constexpr std::array<bool, 256> kIsSpecial = MakeSpecialTable();

bool IsSpecial(char c) { return kIsSpecial[static_cast<unsigned char>(c)]; }

/// Writes the special character at `index`; returns the index behind what it took. The comments name the
/// replacements that it stands for.
std::size_t WriteSpecial(std::string_view text, std::size_t index, ObjectTextWriter& writer) {
  const char c = text[index];
  const std::string_view one = text.substr(index, 1);
  switch (c) {
    case '\r':
    case '\n':
    case ' ': writer.LineEnd(); return index + 1;
    case '(':  // "(" -> "\n("
    case '/':  // "/" -> "\n/"
      writer.LineEnd();
      writer.Put(one);
      return index + 1;
    case '[':  // "[" -> "\n[\n"
    case ']':
      writer.LineEnd();
      writer.Put(one);
      writer.LineEnd();
      return index + 1;
    default: break;
  }
  if (c == '<' && index > 0 && text[index - 1] == '>') writer.LineEnd();  // "><" -> "> <", then the blank
  if (text.substr(index + 1, 1) != one) {
    writer.Put(one);
    return index + 1;
  }
  writer.LineEnd();  // "<<" -> "\n<<\n"
  writer.Put(text.substr(index, 2));
  writer.LineEnd();
  return index + 2;
}

}  // namespace

std::string NormaliseObjectText(std::string_view text) {
  ObjectTextWriter writer(text.size());
  std::size_t index = 0;
  while (index < text.size()) {
    const auto plainEnd =
        std::find_if(text.begin() + static_cast<std::ptrdiff_t>(index), text.end(), IsSpecial);
    const auto end = static_cast<std::size_t>(plainEnd - text.begin());
    if (end > index) writer.Put(text.substr(index, end - index));
    index = end < text.size() ? WriteSpecial(text, end, writer) : end;
  }
  return writer.Take();
}

void Split(std::string_view text, char delimiter, PdfTokens& tokens) {
  std::size_t start = 0;
  for (std::size_t end = text.find(delimiter); end != std::string_view::npos;
       end = text.find(delimiter, start)) {
    tokens.push_back(text.substr(start, end - start));
    start = end + 1;
  }
  if (start < text.size()) tokens.push_back(text.substr(start));
}

PdfTokens Split(std::string_view text, char delimiter) {
  PdfTokens tokens;
  Split(text, delimiter, tokens);
  return tokens;
}

}  // namespace pdf
