#include "pdf/font_reader.h"

#include <utility>

#include "pdf/shared_reads.h"
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
    ReadCMap(stream, map);
    return;
  }
  PdfStreamKeys keys;
  for (std::size_t i = 0; i < object->tokens.size(); ++i) source.ReadStreamKey(object->tokens, i, keys);
  PdfStreamData data;
  data.nulFollows = true;
  source.Decode(stream, keys, data);
  ReadCMap(data.decoded, map);
}

/// The tokens of the descendant font: those of the object that the reference behind `reference` names. An
/// array in an object of its own leads one step further.
std::shared_ptr<const PdfObject> FetchDescendant(ObjectSource& source, const PdfTokens& tokens,
                                                 std::size_t reference) {
  constexpr std::size_t kMostTokensOfAnArray = 10;
  constexpr int kMostSteps = 16;  // the array may be one of its own
  auto object = source.Fetch(AtoI(tokens.at(reference)));
  for (int step = 0; step < kMostSteps; ++step) {
    if (object->tokens.empty() || object->tokens.size() > kMostTokensOfAnArray) break;
    object = source.Fetch(AtoI(object->tokens.at(4)));
  }
  return object;
}

/// Reads the descendant font behind the key at `index`, which moves to the last token of an inline one.
std::shared_ptr<const PdfCIDFont> ReadDescendant(ObjectSource& source, const PdfTokens& tokens,
                                                 std::size_t& index) {
  if (tokens.at(index + 1) == "[") ++index;
  if (tokens.at(index + 3) == "R") {
    return source.descendants.Get(source.Reader(), AtoI(tokens[index + 1]), [&] {
      const auto object = FetchDescendant(source, tokens, index + 1);
      return std::make_shared<const PdfCIDFont>(ReadCIDFont(source, object->tokens));
    });
  }
  const std::size_t end = EndOfArray(tokens, index + 1);
  const auto begin = tokens.begin();
  const PdfTokens inlined(begin + static_cast<std::ptrdiff_t>(index) + 1,
                          begin + static_cast<std::ptrdiff_t>(end));
  index = end;
  return std::make_shared<const PdfCIDFont>(ReadCIDFont(source, inlined));
}

}  // namespace

void ReadFont(ObjectSource& source, const PdfTokens& tokens, PdfFont& font) {
  // The map that was read last. Reading it again would only store the same entries once more.
  std::int32_t lastMap = 0;
  SharedReads<PdfToUnicode> maps;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (tokens[i] == "/ToUnicode") {
      if (tokens.at(i + 1) == "[") {
        i = EndOfArray(tokens, i + 1);
      } else {
        const std::int32_t number = AtoI(tokens[++i]);
        if (std::exchange(lastMap, number) != number) maps = {};
        maps.Get(source.Reader(), number, [&] {
          ReadToUnicode(source, number, font.toUnicode);
          return nullptr;
        });
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
      font.cidFont = ReadDescendant(source, tokens, i);
    }
  }
}

}  // namespace pdf
