#include <exception>
#include <iterator>

#include "fuzz/target.h"
#include "pdf/stream_data.h"

namespace {

constexpr const char* kFilters[] = {"/ASCIIHexDecode",
                                    "/ASCII85Decode",
                                    "/LZWDecode",
                                    "/FlateDecode",
                                    "/RunLengthDecode",
                                    "/CCITTFaxDecode",
                                    "/JBIG2Decode",
                                    "/DCTDecode",
                                    "/JPXDecode",
                                    "/Unknown",
                                    ""};
constexpr const char* kColourSpaces[] = {"/DeviceGray", "/DeviceRGB", "/DeviceCMYK", "["};

/// Decodes a stream: the first bytes select filters, what it is, and its size in pixels. The step that has
/// one filter name too many runs as well.
void Run(std::string_view input) {
  fuzz::InputParts parts(input);
  pdf::PdfStreamData data;
  const int filterCount = parts.Byte() % 4;
  for (int i = 0; i < filterCount; ++i)
    data.filters.emplace_back(kFilters[parts.Byte() % std::size(kFilters)]);
  const std::uint8_t kind = parts.Byte();
  data.isImage = kind % 2 == 1;
  data.colourSpace = kColourSpaces[kind / 2 % std::size(kColourSpaces)];
  data.width = parts.Byte();
  data.height = parts.Byte();
  data.input = parts.Rest();
  data.length = static_cast<std::uint32_t>(data.input.size());
  pdf::PdfNotes notes;
  try {
    if (kind % 16 < 14) {
      pdf::DecodeStream(data, notes);
    } else if (!data.isImage) {
      pdf::DecodeFilter(data, notes);
    }
  } catch (const std::exception&) {
    // Data that break off end the read.
  }
  fuzz::Touch(data.decoded);
  fuzz::Touch(data.imagePlane.data(), data.imagePlane.size());
}

const fuzz::Target target("filters", Run);

}  // namespace
