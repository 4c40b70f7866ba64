#include "pdf/object_source.h"

#include <stdexcept>

#include "support/account.h"

namespace pdf {

std::shared_ptr<const PdfObject> ObjectSource::Fetch(std::int32_t objectNumber) {
  std::shared_ptr<const PdfObject> object = FetchObject(*document.reader, document.section, objectNumber);
  // Callers walk all tokens, also those of an object that was kept.
  support::SpendWork(object->text.size());
  return object;
}

PdfFetchedStream ObjectSource::FetchStream(std::int32_t objectNumber) {
  const auto entry = document.section.entries.find(static_cast<std::uint32_t>(objectNumber));
  if (entry != document.section.entries.end() && entry->second.inObjectStream) {
    Reader().dependsOnEarlierRead = true;
  }
  std::shared_ptr<const PdfObject> object = Fetch(objectNumber);
  return {std::move(object), document.reader->stream};
}

bool ObjectSource::ReadStreamKey(const PdfTokens& tokens, std::size_t& index, PdfStreamKeys& keys) {
  return pdf::ReadStreamKey(*document.reader, document.section, tokens, index, keys);
}

void ObjectSource::Decode(std::string_view stream, const PdfStreamKeys& keys, PdfStreamData& data) {
  data.input = FirstBytes(stream, keys.length);
  data.length = static_cast<std::uint32_t>(keys.length);
  data.filters = keys.filters;
  DecodeStream(data, Notes());
}

void AppendDecoded(const PdfStreamData& data, std::string& text) {
  if (data.length > data.decoded.size()) throw std::out_of_range("decoded bytes of a stream");
  text.append(data.decoded, 0, data.length);
}

}  // namespace pdf
