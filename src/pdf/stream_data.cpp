#include "pdf/stream_data.h"

#include <stdexcept>

#include "support/text_to_number.h"

namespace pdf {

namespace {

bool Holds(std::string_view token, char c) { return token.find(c) != std::string_view::npos; }

/// Takes the value of a /Filter at `tokens[index]`: one name, or the names up to "]".
void ReadFilterNames(const PdfTokens& tokens, std::size_t& index, std::vector<std::string>& filters) {
  ++index;
  if (!Holds(tokens.at(index), '[')) {
    filters.emplace_back(tokens[index]);
    return;
  }
  for (++index; !Holds(tokens.at(index), ']'); ++index) filters.emplace_back(tokens[index]);
}

/// The number in an object of its own: the token behind "obj". Kept: an object of an object stream has none.
std::int32_t ReadLengthObject(PdfFileReader& reader, PdfXrefSection& section, std::int32_t objectNumber) {
  const auto object = FetchObject(reader, section, objectNumber);
  const PdfTokens& tokens = object->tokens;
  for (std::size_t i = 0; i < tokens.size(); ++i) {
    if (tokens[i] == "obj") return support::AtoI(tokens.at(i + 1));
  }
  return 0;
}

}  // namespace

bool ReadStreamKey(PdfFileReader& reader, PdfXrefSection& section, const PdfTokens& tokens,
                   std::size_t& index, PdfStreamKeys& keys) {
  const std::string_view key = tokens.at(index);
  if (key == "/Filter") {
    ReadFilterNames(tokens, index, keys.filters);
    return true;
  }
  if (key != "/Length") return false;
  const bool isReference = tokens.at(index + 3) == "R";
  const std::int32_t number = support::AtoI(tokens.at(index + 1));
  keys.length = isReference ? ReadLengthObject(reader, section, number) : number;
  index += isReference ? 3 : 1;
  return true;
}

std::string_view FirstBytes(std::string_view stream, std::int64_t length) {
  if (length < 0 || static_cast<std::uint64_t>(length) > stream.size()) {
    throw std::out_of_range("invalid vector subscript");
  }
  return stream.substr(0, static_cast<std::size_t>(length));
}

}  // namespace pdf
