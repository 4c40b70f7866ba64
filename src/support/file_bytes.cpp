#include "support/file_bytes.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

#include "support/huge_pages.h"

namespace support {

namespace {

class OpenFile {
 public:
  // Opening without waiting, so that a pipe without a writer answers at once.
  explicit OpenFile(const std::string& path)
      : descriptor(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY)) {}
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  ~OpenFile() {
    if (descriptor >= 0) close(descriptor);
  }

  /// Size of a regular file; nothing for anything else.
  std::optional<std::size_t> RegularSize() const {
    struct stat status = {};
    if (descriptor < 0 || fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
    return static_cast<std::size_t>(status.st_size);
  }

  /// Fills `buffer` from the start of the file; returns how many bytes there were.
  std::optional<std::size_t> ReadInto(char* buffer, std::size_t room) const {
    std::size_t filled = 0;
    while (filled < room) {
      const ssize_t got = read(descriptor, buffer + filled, room - filled);
      if (got < 0 && errno == EINTR) continue;
      if (got < 0) return std::nullopt;
      if (got == 0) break;
      filled += static_cast<std::size_t>(got);
    }
    return filled;
  }

 private:
  int descriptor;
};

}  // namespace

std::optional<FileBytes> FileBytes::Read(const std::string& path, std::size_t mostBytes) {
  const OpenFile file(path);
  const std::optional<std::size_t> size = file.RegularSize();
  if (!size || *size > mostBytes) return std::nullopt;
  auto bytes = std::make_unique_for_overwrite<char[]>(*size);
  AdviseHugePages(bytes.get(), *size);
  const std::optional<std::size_t> filled = file.ReadInto(bytes.get(), *size);
  if (!filled) return std::nullopt;
  return FileBytes(std::move(bytes), *filled);
}

}  // namespace support
