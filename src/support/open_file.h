#ifndef DRAWLOAD_SUPPORT_OPEN_FILE_H
#define DRAWLOAD_SUPPORT_OPEN_FILE_H

#include <cstddef>
#include <cstdio>
#include <optional>
#include <string>
#include <string_view>

namespace support {

/// A file that is open for reading, for as long as the object lives. src/platform/ has its operations, in the
/// folder of each system.
class OpenFile {
 public:
  /// `path` is in the system's narrow encoding. A file that cannot be opened has no size.
  explicit OpenFile(const std::string& path);
  OpenFile(const OpenFile&) = delete;
  OpenFile& operator=(const OpenFile&) = delete;
  ~OpenFile();

  /// Size of a regular file; nothing for anything else.
  std::optional<std::size_t> RegularSize() const;

  /// Fills `buffer` from the start of the file; returns how many bytes there were, nothing where reading
  /// fails.
  std::optional<std::size_t> ReadInto(char* buffer, std::size_t room) const;

  /// The same from the byte at `offset` on, wherever reading stood before.
  std::optional<std::size_t> ReadAt(std::size_t offset, char* buffer, std::size_t room) const;

 private:
  int descriptor;
};

/// A stream that reads `bytes`, which must outlive it; null where there is none.
std::FILE* StreamOver(std::string_view bytes);

}  // namespace support

#endif
