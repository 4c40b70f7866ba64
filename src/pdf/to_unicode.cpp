#include "pdf/to_unicode.h"

#include "pdf/object_text.h"
#include "support/text_to_number.h"

namespace pdf {

namespace {

constexpr std::size_t kDigits = 4;

std::uint32_t KeyOf(std::string_view code) {
  std::uint32_t key = 0;
  for (const char c : code) key = key * 256 + static_cast<unsigned char>(c);
  return key;
}

/// `token` without its bracket, cut to four digits. An empty token has no bracket to take off, which throws.
std::string_view DigitsOf(std::string_view token) { return token.substr(1, kDigits); }

}  // namespace

// A code is looked up by four characters, so shorter ones can never be asked for.
void PdfToUnicode::Store(std::string_view code, std::string_view value) {
  if (code.size() != kDigits) return;
  if (value.empty()) {
    units.erase(KeyOf(code));
  } else {
    units[KeyOf(code)] = static_cast<std::uint16_t>(support::HexToU32(value));
  }
}

const std::uint16_t* PdfToUnicode::Find(std::string_view code) const {
  if (code.size() != kDigits) return nullptr;
  const auto found = units.find(KeyOf(code));
  return found == units.end() ? nullptr : &found->second;
}

void ReadCMap(std::string_view cmap, PdfToUnicode& map) {
  const std::string text = NormaliseObjectText(cmap);
  const PdfTokens tokens = Split(text, '\n');
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (tokens[i] != "beginbfchar") continue;
    for (++i; tokens.at(i) != "endbfchar"; i += 2) map.Store(DigitsOf(tokens[i]), DigitsOf(tokens.at(i + 1)));
  }
}

}  // namespace pdf
