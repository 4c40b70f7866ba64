#include "pdf/document.h"

#include <array>
#include <charconv>
#include <optional>
#include <stdexcept>

#include "pdf/xref_loader.h"
#include "support/text_to_number.h"

namespace pdf {

namespace {

constexpr std::size_t kHeaderBytes = 8;
constexpr std::int64_t kTailBytes = 256;

/// "%PDF-1", any character that ends no line, and a digit. Kept: the dot of the version may be anything else.
bool IsHeader(std::string_view header) {
  const char dot = header[6];
  return header.starts_with("%PDF-1") && dot != '\n' && dot != '\r' && support::IsDigit(header[7]);
}

/// The number as a C++ stream prints it, whatever locale the host speaks.
std::string TextOf(double number) {
  constexpr int kStreamPrecision = 6;
  std::array<char, 32> text{};
  const auto result = std::to_chars(text.data(), text.data() + text.size(), number,
                                    std::chars_format::general, kStreamPrecision);
  return {text.data(), result.ptr};
}

}  // namespace

bool PdfDocument::Open() {
  PdfNotes().Write(path);
  std::optional<support::FileBytes> bytes = support::FileBytes::ReadDrawing(path);
  if (!bytes) return false;
  file = std::make_shared<const support::FileBytes>(*std::move(bytes));
  return OpenBytes(file->View());
}

bool PdfDocument::ReadHeader(std::string_view fileBytes) {
  if (fileBytes.size() < kHeaderBytes) throw std::out_of_range("invalid string position");
  const std::string_view header = fileBytes.substr(0, kHeaderBytes);
  if (!IsHeader(header)) return false;
  version = support::AtoF(header.substr(5));
  reader->notes.Write("Version:" + TextOf(version));
  return true;
}

bool PdfDocument::OpenBytes(std::string_view fileBytes) {
  reader = std::make_unique<PdfFileReader>(fileBytes);
  if (!ReadHeader(fileBytes)) return false;
  fileSize = static_cast<std::int32_t>(static_cast<std::uint32_t>(fileBytes.size()));
  reader->notes.Write("FileSize:" + std::to_string(fileSize));
  reader->Seek(static_cast<std::int64_t>(fileBytes.size()));
  const PdfObject tail(reader->ReadTail(fileSize - kTailBytes));
  if (tail.tokens.size() < 2) return false;
  catalog = PdfXrefLoader(*reader, section).ReadSection(support::AtoI(tail.tokens[1]));
  return true;
}

}  // namespace pdf
