#include "support/open_file.h"

#include <cerrno>
#include <fcntl.h>
#include <sys/stat.h>
#include <unistd.h>

namespace support {
namespace {

/// How much of `room` the calls of `take` fill, each of which is told how much there is; nothing where one
/// fails.
template <typename Take>
std::optional<std::size_t> Filled(std::size_t room, Take take) {
  std::size_t filled = 0;
  while (filled < room) {
    const ssize_t got = take(filled);
    if (got < 0 && errno == EINTR) continue;
    if (got < 0) return std::nullopt;
    if (got == 0) break;
    filled += static_cast<std::size_t>(got);
  }
  return filled;
}

}  // namespace

// Opening without waiting, so that a pipe without a writer answers at once.
OpenFile::OpenFile(const std::string& path)
    : descriptor(open(path.c_str(), O_RDONLY | O_CLOEXEC | O_NONBLOCK | O_NOCTTY)) {}

OpenFile::~OpenFile() {
  if (descriptor >= 0) close(descriptor);
}

std::optional<std::size_t> OpenFile::RegularSize() const {
  struct stat status = {};
  if (descriptor < 0 || fstat(descriptor, &status) != 0 || !S_ISREG(status.st_mode)) return std::nullopt;
  return static_cast<std::size_t>(status.st_size);
}

std::optional<std::size_t> OpenFile::ReadInto(char* buffer, std::size_t room) const {
  return Filled(room, [&](std::size_t done) { return read(descriptor, buffer + done, room - done); });
}

std::optional<std::size_t> OpenFile::ReadAt(std::size_t offset, char* buffer, std::size_t room) const {
  return Filled(room, [&](std::size_t done) {
    return pread(descriptor, buffer + done, room - done, static_cast<off_t>(offset + done));
  });
}

// The mode says that nothing is written to the bytes.
std::FILE* StreamOver(std::string_view bytes) {
  return fmemopen(const_cast<char*>(bytes.data()), bytes.size(), "rb");
}

}  // namespace support
