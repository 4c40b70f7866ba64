#ifndef DRAWLOAD_PDF_DOCUMENT_H
#define DRAWLOAD_PDF_DOCUMENT_H

#include <cstdint>
#include <memory>
#include <string>
#include <string_view>

#include "pdf/file_reader.h"
#include "pdf/xref_section.h"
#include "support/file_bytes.h"

namespace pdf {

/// A PDF file with its cross-reference sections read.
class PdfDocument {
 public:
  explicit PdfDocument(std::string filePath) : path(std::move(filePath)) {}

  /// Reads the file, checks the header, and reads the cross-reference sections from the last one back. False
  /// where the file cannot be read, where the header is not "%PDF-1.x", and where the last 256 bytes hold no
  /// "startxref" with a token behind it. Throws `std::out_of_range` for what the file leaves out.
  bool Open();

  /// The same for a file in memory, which must outlive the document.
  bool OpenBytes(std::string_view fileBytes);

  std::string path;
  double version = 0.0;
  std::int32_t fileSize = 0;  ///< bytes
  std::shared_ptr<const support::FileBytes> file;
  std::unique_ptr<PdfFileReader> reader;  ///< null before a file was read
  PdfXrefSection section;
  std::int32_t catalog = 0;  ///< object number; 0 where the last trailer names none

 private:
  bool ReadHeader(std::string_view fileBytes);
};

}  // namespace pdf

#endif
