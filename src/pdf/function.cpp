#include "pdf/function.h"

#include <algorithm>

#include "pdf/shared_reads.h"
#include "pdf/token_walk.h"
#include "support/account.h"
#include "support/limits.h"
#include "support/text_to_number.h"

namespace pdf {

namespace {

using support::AtoF;
using support::AtoI;

/// Work of looking up a part that was read before.
constexpr std::uint64_t kPartWork = 64;

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
  const std::vector<std::int32_t> references = ReferencesFrom(tokens, key + 2);
  numbers.insert(numbers.end(), references.begin(), references.end());
}

/// A number without a partner is dropped.
void ReadEncode(const PdfTokens& tokens, std::size_t key, PdfPairs& encode) {
  if (!HasArray(tokens, key)) return;
  const std::size_t end = EndOfArray(tokens, key + 2);
  for (std::size_t i = key + 2; i + 1 < end; i += 2)
    encode.emplace_back(AtoF(tokens[i]), AtoF(tokens[i + 1]));
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
    beingRead.push_back(ObjectPlace(section, objectNumber));
    const auto object = FetchObject(reader, section, objectNumber);
    support::SpendWork(object->text.size());
    ReadTokens(object->tokens, function);
    beingRead.pop_back();
    return function;
  }

 private:
  /// Each type is read from all tokens, so once is enough however often it is named.
  void ReadTokens(const PdfTokens& tokens, PdfFunction& function) {
    bool isExponential = false;
    bool isStitching = false;
    for (std::size_t i = 0; i < tokens.size(); ++i) {
      if (tokens[i] != "/FunctionType") continue;
      function.type = tokens.at(i + 1);
      isExponential |= function.type == "2";
      isStitching |= function.type == "3";
    }
    if (isExponential) function.exponential = ReadExponential(tokens);
    if (isStitching) function.stitching = ReadStitching(tokens);
  }

  StitchingFunction ReadStitching(const PdfTokens& tokens) {
    StitchingFunction function = ReadStitchingKeys(tokens);
    function.stops.reserve(function.functions.size());
    for (const std::int32_t number : function.functions) function.stops.push_back(ReadPart(number));
    return function;
  }

  std::shared_ptr<const PdfFunctionStop> ReadPart(std::int32_t objectNumber) {
    support::SpendWork(kPartWork);
    const std::int64_t place = ObjectPlace(section, objectNumber);
    if (!IsFollowed(place)) return emptyStop;
    return parts.Get(reader, place,
                     [&] { return std::make_shared<const PdfFunctionStop>(Read(objectNumber).exponential); });
  }

  bool IsFollowed(std::int64_t place) const {
    return beingRead.size() < support::limits::kPdfFunctionDepth &&
           std::find(beingRead.begin(), beingRead.end(), place) == beingRead.end();
  }

  PdfFileReader& reader;
  PdfXrefSection& section;
  std::vector<std::int64_t> beingRead;  ///< places, the outermost function first
  SharedReads<PdfFunctionStop> parts;   ///< by place
  std::shared_ptr<const PdfFunctionStop> emptyStop = std::make_shared<const PdfFunctionStop>();
};

}  // namespace

PdfFunction ReadFunction(PdfFileReader& reader, PdfXrefSection& section, std::int32_t objectNumber) {
  return FunctionReader(reader, section).Read(objectNumber);
}

}  // namespace pdf
