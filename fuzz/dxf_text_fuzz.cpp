#include <algorithm>
#include <iterator>
#include <string>

#include "dxf/dxf_text_decoder.h"
#include "dxf/text_encoding.h"
#include "fuzz/target.h"

namespace {

constexpr const char* kVersions[] = {"", "AC1009", "AC1015", "AC1018", "AC1021", "AC1027", "MC0.0", "x"};

/// The way back, which no reading of a drawing takes, looks through a whole code page for each character.
constexpr std::size_t kMostEncoded = 32;

void BothWays(const DXF_Converter& converter, std::string_view text) {
  fuzz::Touch(converter.toUtf8(std::string(text)));
  fuzz::Touch(converter.fromUtf8(std::string(text.substr(0, kMostEncoded))));
}

/// Decodes the text behind the first line with the decoder that its first byte and that line, the name of a
/// code page, select, and with every kind of converter.
void Run(std::string_view input) {
  fuzz::InputParts parts(input);
  DXF_TextDecoder decoder;
  decoder.setVersion(kVersions[parts.Byte() % std::size(kVersions)]);
  const std::size_t lineEnd = std::min(parts.Rest().find('\n'), parts.Rest().size());
  decoder.setCodePage(parts.Rest().substr(0, lineEnd));
  const std::string_view text = parts.Rest().substr(lineEnd);
  fuzz::Touch(decoder.decode(text));
  fuzz::Touch(decoder.encodingName);
  fuzz::Touch(GuessEncoding(text));
  BothWays(*decoder.converter, text);
  BothWays(DXF_ConvTable(codepages::kCodePage1251), text);
  BothWays(DXF_ConvDBCSTable(codepages::kCodePage936), text);
  BothWays(DXF_ConvDBCSTable(codepages::kCodePage950), text);
}

const fuzz::Target target("dxf_text", Run);

}  // namespace
