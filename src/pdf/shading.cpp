#include "pdf/shading.h"

#include "support/text_to_number.h"

namespace pdf {

namespace {

using support::AtoF;
using support::AtoI;

constexpr std::int32_t kAxial = 2;
constexpr std::int32_t kRadial = 3;

/// "true" and "false" set the flag; everything else leaves it.
void ReadFlag(std::string_view token, bool& flag) {
  if (token == "true") flag = true;
  if (token == "false") flag = false;
}

/// Kept: "/Backgroun" and "/BBOX" are spelt so, and the keys that files have match neither.
void ReadCommonKeys(const PdfTokens& tokens, PdfShading& shading) {
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    const std::string_view key = tokens[i];
    if (key == "/ShadingType") {
      shading.type = AtoI(tokens.at(i + 1));
    } else if (key == "/ColorSpace") {
      shading.colourSpace = tokens.at(i + 1);
    } else if (key == "/Backgroun") {
      shading.background = tokens.at(i + 1);
    } else if (key == "/BBOX") {
      for (std::size_t side = 0; side < 4; ++side) shading.box[side] = AtoF(tokens.at(i + 2 + side));
    } else if (key == "/AntiAlias") {
      ReadFlag(tokens.at(i + 1), shading.antiAlias);
    }
  }
}

void ReadCoords(const PdfTokens& tokens, std::size_t bracket, std::vector<double>& coords) {
  for (std::size_t i = bracket + 1; tokens.at(i) != "]"; ++i) coords.push_back(AtoF(tokens[i]));
}

void ReadAxialOrRadial(const PdfTokens& tokens, PdfShading& shading) {
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    const std::string_view key = tokens[i];
    const auto hasArray = [&] { return tokens.at(i + 1) == "["; };
    if (key == "/Coords" && hasArray()) {
      ReadCoords(tokens, i + 1, shading.coords);
    } else if (key == "/Domain" && hasArray()) {
      shading.domain = {AtoF(tokens.at(i + 2)), AtoF(tokens.at(i + 3))};
    } else if (key == "/Function") {
      shading.functionNumber = AtoI(tokens.at(i + 1));
    } else if (key == "/Extend" && hasArray()) {
      ReadFlag(tokens.at(i + 2), shading.extend[0]);
      ReadFlag(tokens.at(i + 3), shading.extend[1]);
    }
  }
}

}  // namespace

bool ReadShading(PdfFileReader& reader, PdfXrefSection& section, std::int32_t objectNumber,
                 PdfShading& shading) {
  const auto object = FetchObject(reader, section, objectNumber);
  ReadCommonKeys(object->tokens, shading);
  if (shading.type != kAxial && shading.type != kRadial) return true;
  ReadAxialOrRadial(object->tokens, shading);
  shading.function = ReadFunction(reader, section, shading.functionNumber);
  return true;
}

}  // namespace pdf
