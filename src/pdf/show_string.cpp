#include "pdf/show_string.h"

#include <iterator>
#include <utf8.h>
#include <vector>

#include "dxf/codepages/double_byte.h"
#include "support/account.h"
#include "support/text_to_number.h"

namespace pdf {

namespace {

constexpr std::size_t kGroup = 4;
/// Lead bytes of the GBK pairs.
constexpr std::uint32_t kFirstLead = 0x81;
constexpr std::uint32_t kLastLead = 0xFE;

std::uint16_t UnitOf(std::string_view group, const PdfFont& font) {
  const std::uint16_t* unit = font.toUnicode.Find(group);
  return unit == nullptr ? DoubleByteFallback(group) : *unit;
}

/// Appends the text that groups of four digits stand for; a shorter rest is dropped. False, and nothing
/// appended that counts, where it is not UTF-16.
bool AppendHexText(std::string_view digits, const PdfFont& font, std::string& text) {
  std::vector<std::uint16_t> units;
  units.reserve(digits.size() / kGroup);
  for (std::size_t at = 0; at + kGroup <= digits.size(); at += kGroup) {
    units.push_back(UnitOf(digits.substr(at, kGroup), font));
  }
  try {
    utf8::utf16to8(units.begin(), units.end(), std::back_inserter(text));
  } catch (const utf8::exception&) {
    return false;
  }
  return true;
}

/// What stands behind the last `opener` in `text`; all of it where there is none.
std::string_view BehindLast(std::string_view text, char opener) {
  return text.substr(text.rfind(opener) + 1);
}

/// What stands behind the first `opener` in `text`; all of it where there is none.
std::string_view BehindFirst(std::string_view text, char opener) {
  return text.substr(text.find(opener) + 1);
}

}  // namespace

std::optional<std::string> DecodeShowString(std::string_view line, const PdfFont& font) {
  const std::size_t literalEnd = line.find(')');
  if (literalEnd != line.npos) return std::string(BehindFirst(line.substr(0, literalEnd), '('));
  std::string text;
  const std::size_t hexEnd = line.find('>');
  if (hexEnd == line.npos) return text;
  if (!AppendHexText(BehindFirst(line.substr(0, hexEnd), '<'), font, text)) return std::nullopt;
  return text;
}

std::optional<std::string> DecodeShowArray(std::string_view line, const PdfFont& font) {
  std::string text;
  for (std::size_t at = 1; at < line.size() && line[at] != ']'; ++at) {
    if (line[at] != '>' && line[at] != ')') continue;
    const bool hex = line[at] == '>';
    const std::string_view piece = BehindLast(line.substr(0, at), hex ? '<' : '(');
    // A closing bracket takes the text back to the last opening one: a line of nothing else shows its start
    // over and over.
    support::SpendWork(piece.size());
    if (!hex) {
      text += piece;
    } else if (!AppendHexText(piece, font, text)) {
      return std::nullopt;
    }
  }
  return text;
}

std::uint16_t DoubleByteFallback(std::string_view code) {
  const codepages::DoubleByteTable& table = codepages::kCodePage936;
  const std::uint32_t number = support::HexToU32(code);
  const std::uint32_t lead = support::HexToU32(code.substr(2));
  if (lead < kFirstLead || lead > kLastLead) return 0;
  const std::uint32_t start = table.leadTable[lead - kFirstLead];
  const std::uint32_t index = start + (number - table.pairs[start].code);
  return index < table.pairs.size() ? static_cast<std::uint16_t>(table.pairs[index].point) : std::uint16_t{0};
}

}  // namespace pdf
