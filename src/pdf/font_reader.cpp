#include "pdf/font_reader.h"

#include "pdf/to_unicode.h"
#include "pdf/token_walk.h"
#include "support/limits.h"
#include "support/text_to_number.h"

namespace pdf {

namespace {

using support::AtoI;

/// `token` without its first character, which is a slash in a name. An empty token throws.
std::string WithoutSlash(std::string_view token) { return std::string(token.substr(1)); }

void ReadToUnicode(ObjectSource& source, std::int32_t objectNumber, PdfToUnicode& map) {
  const auto [object, stream] = source.FetchStream(objectNumber);
  if (object->text.find("stream") == std::string::npos) {
    if (source.Budget().Take(stream.size())) ReadCMap(stream, map);
    return;
  }
  PdfStreamKeys keys;
  for (std::size_t i = 0; i < object->tokens.size(); ++i) source.ReadStreamKey(object->tokens, i, keys);
  PdfStreamData data;
  data.nulFollows = true;
  source.Decode(stream, keys, data);
  if (source.Budget().Take(data.decoded.size())) ReadCMap(data.decoded, map);
}

/// The tokens of the descendant font: those of the object that the reference behind `reference` names. An
/// array in an object of its own leads one step further.
std::shared_ptr<const PdfObject> FetchDescendant(ObjectSource& source, const PdfTokens& tokens,
                                                 std::size_t reference) {
  constexpr std::size_t kMostTokensOfAnArray = 10;
  auto object = source.Fetch(AtoI(tokens.at(reference)));
  for (int step = 0; step < support::limits::kPdfDescendantSteps; ++step) {
    if (object->tokens.empty() || object->tokens.size() > kMostTokensOfAnArray) break;
    object = source.Fetch(AtoI(object->tokens.at(4)));
  }
  return object;
}

/// Reads the descendant font behind the key at `index`, which moves to the last token of an inline one.
void ReadDescendant(ObjectSource& source, const PdfTokens& tokens, std::size_t& index, PdfCIDFont& font) {
  if (tokens.at(index + 1) == "[") ++index;
  if (tokens.at(index + 3) == "R") {
    ReadCIDFont(source, FetchDescendant(source, tokens, index + 1)->tokens, font);
    return;
  }
  const std::size_t end = EndOfArray(tokens, index + 1);
  const auto begin = tokens.begin();
  ReadCIDFont(
      source,
      PdfTokens(begin + static_cast<std::ptrdiff_t>(index) + 1, begin + static_cast<std::ptrdiff_t>(end)),
      font);
  index = end;
}

}  // namespace

void ReadFont(ObjectSource& source, const PdfTokens& tokens, PdfFont& font) {
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (tokens[i] == "/ToUnicode") {
      if (tokens.at(i + 1) == "[") {
        i = EndOfArray(tokens, i + 1);
      } else {
        ReadToUnicode(source, AtoI(tokens[++i]), font.toUnicode);
      }
    } else if (tokens[i] == "/BaseFont") {
      font.name = WithoutSlash(tokens.at(++i));
    } else if (tokens[i] == "/Encoding") {
      if (tokens.at(i + 1) == "[") {
        i = EndOfArray(tokens, i + 1);
      } else {
        font.encoding = WithoutSlash(tokens[++i]);
      }
    } else if (tokens[i] == "/DescendantFonts") {
      ReadDescendant(source, tokens, i, font.cidFont);
    }
  }
}

}  // namespace pdf
