#include "support/open_file.h"

#include <algorithm>
#include <fcntl.h>
#include <io.h>
#include <limits>
#include <sys/stat.h>

namespace support {

OpenFile::OpenFile(const std::string& path)
    : descriptor(_open(path.c_str(), _O_RDONLY | _O_BINARY | _O_NOINHERIT | _O_SEQUENTIAL)) {}

OpenFile::~OpenFile() {
  if (descriptor >= 0) _close(descriptor);
}

std::optional<std::size_t> OpenFile::RegularSize() const {
  struct _stat64 status = {};
  if (descriptor < 0 || _fstat64(descriptor, &status) != 0) return std::nullopt;
  if ((status.st_mode & _S_IFMT) != _S_IFREG) return std::nullopt;
  const auto size = static_cast<unsigned long long>(status.st_size);
  if (size > std::numeric_limits<std::size_t>::max()) return std::nullopt;
  return static_cast<std::size_t>(size);
}

std::optional<std::size_t> OpenFile::ReadInto(char* buffer, std::size_t room) const {
  constexpr std::size_t kMostAtOnce = std::size_t{1} << 30;  // _read counts in an int
  std::size_t filled = 0;
  while (filled < room) {
    const auto wanted = static_cast<unsigned>(std::min(room - filled, kMostAtOnce));
    const int got = _read(descriptor, buffer + filled, wanted);
    if (got < 0) return std::nullopt;
    if (got == 0) break;
    filled += static_cast<std::size_t>(got);
  }
  return filled;
}

std::optional<std::size_t> OpenFile::ReadAt(std::size_t offset, char* buffer, std::size_t room) const {
  if (_lseeki64(descriptor, static_cast<long long>(offset), SEEK_SET) < 0) return std::nullopt;
  return ReadInto(buffer, room);
}

// There are no streams over memory here: the bytes go through a temporary file, which ends with its stream.
std::FILE* StreamOver(std::string_view bytes) {
  std::FILE* stream = std::tmpfile();
  if (stream == nullptr) return nullptr;
  if (std::fwrite(bytes.data(), 1, bytes.size(), stream) != bytes.size()) {
    std::fclose(stream);
    return nullptr;
  }
  std::rewind(stream);
  return stream;
}

}  // namespace support
