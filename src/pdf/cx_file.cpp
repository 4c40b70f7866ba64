#include "pdf/cx_file.h"

#include <cstdarg>

#include "support/open_file.h"

namespace pdf {

bool CxIOFile::Take(std::FILE* opened) {
  Close();
  file = opened;
  isOwned = file != nullptr;
  return isOwned;
}

bool CxIOFile::Open(const char* path, const char* mode) { return Take(std::fopen(path, mode)); }

bool CxIOFile::OpenBytes(std::string_view bytes) { return Take(support::StreamOver(bytes)); }

bool CxIOFile::Close() {
  if (!file || !isOwned) return false;
  const bool closed = std::fclose(file) == 0;
  file = nullptr;
  isOwned = false;
  return closed;
}

std::size_t CxIOFile::Read(void* buffer, std::size_t size, std::size_t count) {
  return file ? std::fread(buffer, size, count, file) : 0;
}

std::size_t CxIOFile::Write(const void* buffer, std::size_t size, std::size_t count) {
  return file ? std::fwrite(buffer, size, count, file) : 0;
}

bool CxIOFile::Seek(std::int64_t offset, int origin) { return file && std::fseek(file, offset, origin) == 0; }

std::int64_t CxIOFile::Tell() { return file ? std::ftell(file) : -1; }

std::int64_t CxIOFile::Size() {
  const std::int64_t place = Tell();
  if (place < 0 || !Seek(0, SEEK_END)) return -1;
  const std::int64_t size = Tell();
  Seek(place, SEEK_SET);
  return size;
}

bool CxIOFile::Flush() { return file && std::fflush(file) == 0; }

bool CxIOFile::Eof() { return !file || std::feof(file) != 0; }

std::int32_t CxIOFile::Error() { return file ? std::ferror(file) : -1; }

bool CxIOFile::PutC(std::uint8_t byte) { return file && std::fputc(byte, file) == byte; }

std::int32_t CxIOFile::GetC() { return file ? std::getc(file) : EOF; }

char* CxIOFile::GetS(char* line, std::int32_t size) { return file ? std::fgets(line, size, file) : nullptr; }

std::int32_t CxIOFile::Scanf(const char* format, ...) {
  if (!file) return EOF;
  std::va_list places;
  va_start(places, format);
  const int read = std::vfscanf(file, format, places);
  va_end(places);
  return read;
}

}  // namespace pdf
