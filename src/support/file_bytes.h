#ifndef DRAWLOAD_SUPPORT_FILE_BYTES_H
#define DRAWLOAD_SUPPORT_FILE_BYTES_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "support/large_block.h"
#include "support/limits.h"

namespace support {

/// A whole file in memory. It is read, not mapped: a mapped file that shrinks would end the host program.
class FileBytes {
 public:
  /// Reads the regular file at `path`. Nothing where it cannot be opened or read, or is not a regular file
  /// (a pipe or a device could block for ever or have no end), or has more than `mostBytes`.
  static std::optional<FileBytes> Read(const std::string& path, std::size_t mostBytes = limits::kFileBytes);

  std::string_view View() const { return {bytes.get(), size}; }

 private:
  FileBytes(LargeBlock contents, std::size_t count) : bytes(std::move(contents)), size(count) {}

  LargeBlock bytes;
  std::size_t size;
};

}  // namespace support

#endif
