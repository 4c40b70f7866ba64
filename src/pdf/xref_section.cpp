#include "pdf/xref_section.h"

namespace pdf {

std::shared_ptr<const PdfObject> FetchObject(PdfFileReader& reader, PdfXrefSection& section,
                                             std::int32_t objectNumber) {
  const auto number = static_cast<std::uint32_t>(objectNumber);
  const auto entry = section.entries.find(number);
  if (entry == section.entries.end()) return reader.ReadObject(0);
  if (!entry->second.inObjectStream) return reader.ReadObject(entry->second.offset);
  const auto streamed = section.streamedTexts.find(number);
  const std::string_view text =
      streamed == section.streamedTexts.end() ? std::string_view() : streamed->second;
  return reader.ReadStreamedObject(number, text);
}

}  // namespace pdf
