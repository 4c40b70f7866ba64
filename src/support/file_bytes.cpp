#include "support/file_bytes.h"

#include "support/open_file.h"

namespace support {

std::optional<FileBytes> FileBytes::ReadFrom(const OpenFile& file, std::size_t size) {
  LargeBlock bytes = NewLargeBlock(size);
  const std::optional<std::size_t> filled = file.ReadInto(bytes.get(), size);
  if (!filled) return std::nullopt;
  return FileBytes(std::move(bytes), *filled);
}

std::optional<FileBytes> FileBytes::Read(const std::string& path, std::size_t mostBytes) {
  const OpenFile file(path);
  const std::optional<std::size_t> size = file.RegularSize();
  if (!size || *size > mostBytes) return std::nullopt;
  return ReadFrom(file, *size);
}

std::optional<FileBytes> FileBytes::ReadDrawing(const std::string& path) {
  const OpenFile file(path);
  const std::optional<std::size_t> size = file.RegularSize();
  if (!size || *size > limits::kFileBytes) return std::nullopt;
  if (Account* account = Account::Current()) account->AllowForFile(*size);
  return ReadFrom(file, *size);
}

}  // namespace support
