#include <algorithm>
#include <stdexcept>

#include "fuzz/target.h"
#include "pdf/xref_stream.h"

namespace {

std::int32_t Number(fuzz::InputParts& parts) {
  const std::uint8_t byte = parts.Byte();
  // Mostly small, at times absurd.
  return byte < 250 ? byte % 16 : static_cast<std::int32_t>(0x7FFFFFFFU * (byte % 2) + byte);
}

/// The first bytes are the layout and the length of the rows; the rest is the file to which the rows refer.
void Run(std::string_view input) {
  fuzz::InputParts parts(input);
  pdf::PdfXrefLayout layout;
  for (std::int32_t& width : layout.widths) width = Number(parts);
  for (int pairs = parts.Byte() % 4; pairs > 0; --pairs) {
    layout.index.push_back(Number(parts));
    layout.index.push_back(Number(parts));
  }
  if (parts.Byte() % 8 == 0) layout.index.push_back(7);
  const std::size_t rowBytes = std::min<std::size_t>(parts.Byte(), parts.Rest().size());
  const std::string_view rows = parts.Rest().substr(0, rowBytes);
  pdf::PdfFileReader reader(parts.Rest().substr(rowBytes));
  pdf::PdfXrefSection section;
  try {
    pdf::ParseXrefStream(reader, rows, layout, section);
  } catch (const std::out_of_range&) {
    // An index or an object stream that breaks off ends the read.
  } catch (const std::runtime_error&) {
    // So does an object stream that is a picture which cannot be read.
  }
  for (const auto& [number, text] : section.streamedTexts) fuzz::Touch(text);
  for (int number = 0; number < 16; ++number) {
    fuzz::Touch(pdf::FetchObject(reader, section, number)->text);
  }
}

const fuzz::Target target("xref_stream", Run);

}  // namespace
