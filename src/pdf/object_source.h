#ifndef DRAWLOAD_PDF_OBJECT_SOURCE_H
#define DRAWLOAD_PDF_OBJECT_SOURCE_H

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "pdf/document.h"
#include "pdf/font.h"
#include "pdf/shared_reads.h"
#include "pdf/stream_data.h"

namespace pdf {

/// An object and its stream, a view into the file.
struct PdfFetchedStream {
  std::shared_ptr<const PdfObject> object;
  std::string_view stream;
};

/// The objects of a document, as the reading of pages asks for them.
class ObjectSource {
 public:
  explicit ObjectSource(PdfDocument& openDocument) : document(openDocument) {}

  std::shared_ptr<const PdfObject> Fetch(std::int32_t objectNumber);
  PdfFetchedStream FetchStream(std::int32_t objectNumber);

  /// As `pdf::ReadStreamKey`.
  bool ReadStreamKey(const PdfTokens& tokens, std::size_t& index, PdfStreamKeys& keys);

  /// Fills `data` with the first `keys.length` bytes of `stream` and decodes them.
  void Decode(std::string_view stream, const PdfStreamKeys& keys, PdfStreamData& data);

  PdfFileReader& Reader() { return *document.reader; }
  PdfXrefSection& Section() { return document.section; }
  const std::shared_ptr<const support::FileBytes>& File() const { return document.file; }
  PdfNotes& Notes() { return document.reader->notes; }

  // What fonts name.
  SharedReads<PdfCIDFont> descendants;             ///< by object number
  SharedReads<PdfFontDescriptor> fontDescriptors;  ///< by object number

 private:
  PdfDocument& document;
};

/// Appends the first `data.length` decoded bytes to `text`. Throws `std::out_of_range` where there are fewer.
void AppendDecoded(const PdfStreamData& data, std::string& text);

}  // namespace pdf

#endif
