#include "pdf/token_walk.h"

#include "support/text_to_number.h"

namespace pdf {

namespace {

bool Opens(std::string_view token) { return token == "<<" || token == "["; }
bool Closes(std::string_view token) { return token == ">>" || token == "]"; }

}  // namespace

std::size_t EndOfArray(const PdfTokens& tokens, std::size_t index) {
  while (tokens.at(index) != "]") ++index;
  return index;
}

std::size_t EndOfValue(const PdfTokens& tokens, std::size_t index) {
  if (!Opens(tokens.at(index))) {
    const bool isReference = index + 2 < tokens.size() && tokens[index + 2] == "R";
    return isReference ? index + 2 : index;
  }
  for (std::size_t open = 1; open > 0;) {
    const std::string_view token = tokens.at(++index);
    if (Opens(token)) ++open;
    if (Closes(token)) --open;
  }
  return index;
}

std::vector<std::int32_t> ReferencesFrom(const PdfTokens& tokens, std::size_t index) {
  std::vector<std::int32_t> numbers;
  const std::size_t end = EndOfArray(tokens, index);
  for (; index < end; index += 3) numbers.push_back(support::AtoI(tokens[index]));
  return numbers;
}

std::array<double, 4> BoxBehind(const PdfTokens& tokens, std::size_t index) {
  return {support::AtoF(tokens.at(index + 2)), support::AtoF(tokens.at(index + 3)),
          support::AtoF(tokens.at(index + 4)), support::AtoF(tokens.at(index + 5))};
}

}  // namespace pdf
