#include "pdf/xref_section.h"

namespace pdf {

std::int64_t ObjectPlace(const PdfXrefSection& section, std::int32_t objectNumber) {
  constexpr std::int64_t kPastAllOffsets = std::int64_t{1} << 32;
  const auto number = static_cast<std::uint32_t>(objectNumber);
  const auto entry = section.entries.find(number);
  if (entry == section.entries.end()) return 0;
  const bool hasPlace = !entry->second.inObjectStream && entry->second.offset >= 0;
  return hasPlace ? entry->second.offset : kPastAllOffsets + number;
}

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
