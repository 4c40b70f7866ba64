#include <algorithm>

#include "pdf/stream_data.h"
#include "pdf/xref_stream.h"
#include "support/text_to_number.h"

namespace pdf {

namespace {

struct ObjectStreamKeys {
  PdfStreamData data;
  std::int32_t first = 0;
  std::int32_t count = 0;
};

/// Kept: an array of filters is not looked into, and a /Length by reference is not followed.
ObjectStreamKeys ReadKeys(const PdfTokens& tokens) {
  ObjectStreamKeys keys;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (tokens[i] == "/Filter") {
      keys.data.filters.emplace_back(tokens.at(i + 1));
    } else if (tokens[i] == "/Length") {
      keys.data.length = static_cast<std::uint32_t>(support::AtoI(tokens.at(i + 1)));
    } else if (tokens[i] == "/First") {
      keys.first = support::AtoI(tokens.at(i + 1));
    } else if (tokens[i] == "/N") {
      keys.count = support::AtoI(tokens.at(i + 1));
    }
  }
  return keys;
}

/// A place in a text as the standard library takes it: one below 0 lies behind every end.
std::size_t PlaceOf(std::int32_t value) { return static_cast<std::size_t>(std::int64_t{value}); }

/// Takes the objects of `body` that the pairs of number and offset in `pairs` announce.
void TakeObjects(const PdfTokens& pairs, std::int32_t count, std::string_view body, PdfFileReader& reader,
                 PdfXrefSection& section) {
  const auto offsetOf = [&](std::size_t pair) { return PlaceOf(support::AtoI(pairs.at(2 * pair + 1))); };
  const auto objects = static_cast<std::size_t>(std::max(count, 0));
  for (std::size_t pair = 0; pair < objects; ++pair) {
    const auto number = static_cast<std::uint32_t>(support::AtoI(pairs.at(2 * pair)));
    const std::size_t start = offsetOf(pair);
    const std::size_t end = pair + 1 < objects ? offsetOf(pair + 1) : body.size();
    section.streamedTexts[number] = body.substr(start, end - start);
    reader.ForgetStreamedObject(number);
  }
}

}  // namespace

void ExpandObjectStream(PdfFileReader& reader, PdfXrefSection& section, std::int32_t objectNumber) {
  const auto object = FetchObject(reader, section, objectNumber);
  ObjectStreamKeys keys = ReadKeys(object->tokens);
  keys.data.input = reader.stream;
  DecodeStream(keys.data, reader.notes);
  const std::string& decoded = section.objectStreams.emplace_back(std::move(keys.data.decoded));
  const std::string_view objects = FirstBytes(decoded, keys.data.length);
  const std::size_t first = std::min(PlaceOf(keys.first), objects.size());
  const std::string header = NormaliseObjectText(objects.substr(0, first));
  TakeObjects(Split(header, '\n'), keys.count, objects.substr(first), reader, section);
}

}  // namespace pdf
