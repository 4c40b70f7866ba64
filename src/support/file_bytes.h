#ifndef DRAWLOAD_SUPPORT_FILE_BYTES_H
#define DRAWLOAD_SUPPORT_FILE_BYTES_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

#include "support/large_block.h"
#include "support/limits.h"

namespace support {

class OpenFile;

/// A whole file in memory. It is read, not mapped: a mapped file that shrinks would end the host program.
class FileBytes {
 public:
  /// Reads the regular file at `path`. Nothing where it cannot be opened or read, or is not a regular file
  /// (a pipe or a device could block for ever or have no end), or has more than `mostBytes`.
  static std::optional<FileBytes> Read(const std::string& path, std::size_t mostBytes = limits::kFileBytes);

  /// Reads the drawing at `path`, and grants the current read what a drawing of its size may hold and do.
  static std::optional<FileBytes> ReadDrawing(const std::string& path);

  std::string_view View() const { return {bytes.get(), size}; }

 private:
  static std::optional<FileBytes> ReadFrom(const OpenFile& file, std::size_t size);
  FileBytes(LargeBlock contents, std::size_t count) : bytes(std::move(contents)), size(count) {}

  LargeBlock bytes;
  std::size_t size;
};

}  // namespace support

#endif
