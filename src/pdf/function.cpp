#include "pdf/function.h"

#include "support/limits.h"
#include "support/text_to_number.h"

namespace pdf {

namespace {

using support::AtoF;
using support::AtoI;

/// Charged for each read of a function on top of the length of its text: far more than its record takes, as
/// all its tokens are looked at each time.
constexpr std::size_t kRecordBytes = 4096;

/// Whether the key at `key` has an array behind it.
bool HasArray(const PdfTokens& tokens, std::size_t key) { return tokens.at(key + 1) == "["; }

void ReadNumbers(const PdfTokens& tokens, std::size_t key, std::vector<double>& numbers) {
  if (!HasArray(tokens, key)) return;
  for (std::size_t i = key + 2; tokens.at(i) != "]"; ++i) numbers.push_back(AtoF(tokens[i]));
}

/// Kept: only one pair is read of a domain.
void ReadDomain(const PdfTokens& tokens, std::size_t key, PdfPairs& domain) {
  if (HasArray(tokens, key)) domain.emplace_back(AtoF(tokens.at(key + 2)), AtoF(tokens.at(key + 3)));
}

ExponentialFunction ReadExponential(const PdfTokens& tokens) {
  ExponentialFunction function;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (tokens[i] == "/Domain") {
      ReadDomain(tokens, i, function.domain);
    } else if (tokens[i] == "/C0") {
      ReadNumbers(tokens, i, function.c0);
    } else if (tokens[i] == "/C1") {
      ReadNumbers(tokens, i, function.c1);
    } else if (tokens[i] == "/N") {
      function.n = AtoF(tokens.at(i + 1));
    }
  }
  return function;
}

void ReadFunctionNumbers(const PdfTokens& tokens, std::size_t key, std::vector<std::int32_t>& numbers) {
  if (!HasArray(tokens, key)) return;
  for (std::size_t i = key + 2; tokens.at(i) != "]"; i += 3) numbers.push_back(AtoI(tokens[i]));
}

void ReadEncode(const PdfTokens& tokens, std::size_t key, PdfPairs& encode) {
  if (!HasArray(tokens, key)) return;
  for (std::size_t i = key + 2; tokens.at(i) != "]"; i += 2) {
    encode.emplace_back(AtoF(tokens[i]), AtoF(tokens.at(i + 1)));
  }
}

StitchingFunction ReadStitchingKeys(const PdfTokens& tokens) {
  StitchingFunction function;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (tokens[i] == "/Domain") {
      ReadDomain(tokens, i, function.domain);
    } else if (tokens[i] == "/Functions") {
      ReadFunctionNumbers(tokens, i, function.functions);
    } else if (tokens[i] == "/Bounds") {
      ReadNumbers(tokens, i, function.bounds);
    } else if (tokens[i] == "/Encode") {
      ReadEncode(tokens, i, function.encode);
    }
  }
  return function;
}

class FunctionReader {
 public:
  FunctionReader(PdfFileReader& fileReader, PdfXrefSection& merged) : reader(fileReader), section(merged) {}

  PdfFunction Read(std::int32_t objectNumber) {
    PdfFunction function;
    // A function that many others name is walked each time, so each time counts.
    if (depth >= support::limits::kPdfFunctionDepth || !reader.budget.Take(kRecordBytes)) return function;
    ++depth;
    const auto object = FetchObject(reader, section, objectNumber);
    if (reader.budget.Take(object->text.size())) ReadTokens(object->tokens, function);
    --depth;
    return function;
  }

 private:
  void ReadTokens(const PdfTokens& tokens, PdfFunction& function) {
    for (std::size_t i = 0; i < tokens.size(); ++i) {
      if (tokens[i] != "/FunctionType") continue;
      function.type = tokens.at(i + 1);
      if (function.type == "2") function.exponential = ReadExponential(tokens);
      if (function.type == "3") function.stitching = ReadStitching(tokens);
    }
  }

  StitchingFunction ReadStitching(const PdfTokens& tokens) {
    StitchingFunction function = ReadStitchingKeys(tokens);
    function.stops.reserve(function.functions.size());
    for (const std::int32_t number : function.functions) function.stops.push_back(Read(number).exponential);
    return function;
  }

  PdfFileReader& reader;
  PdfXrefSection& section;
  int depth = 0;
};

}  // namespace

PdfFunction ReadFunction(PdfFileReader& reader, PdfXrefSection& section, std::int32_t objectNumber) {
  return FunctionReader(reader, section).Read(objectNumber);
}

}  // namespace pdf
