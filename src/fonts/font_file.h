#ifndef DRAWLOAD_FONTS_FONT_FILE_H
#define DRAWLOAD_FONTS_FONT_FILE_H

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_SYSTEM_H

#include <array>
#include <cstddef>
#include <limits>
#include <memory>
#include <string>

#include "support/open_file.h"

namespace fonts {

/// A font file as the engine reads it. Given a path, the engine would wait for the writer of a pipe, look for
/// companions of a file that is no font, and map the file, so that one which shrinks ends the host program.
/// The engine reads a few bytes at a time, here and there; the blocks around them are kept for the next ones.
class FontFile {
 public:
  /// Only regular files have a stream.
  explicit FontFile(const std::string& path);
  FontFile(const FontFile&) = delete;
  FontFile& operator=(const FontFile&) = delete;

  /// For `FT_Open_Face`; null for what is no regular file. This object must outlive the face.
  FT_Stream Stream() { return stream.descriptor.pointer == nullptr ? nullptr : &stream; }

 private:
  static unsigned long Read(FT_Stream stream, unsigned long offset, unsigned char* buffer,
                            unsigned long count);

  static constexpr std::size_t kBlockBytes = 4096;
  static constexpr std::size_t kKeptBlocks = 16;

  /// A part of the file, which begins at a multiple of its room.
  struct Block {
    std::size_t number = std::numeric_limits<std::size_t>::max();
    std::size_t size = 0;  ///< less than the room where the file ends
    std::array<char, kBlockBytes> bytes;
  };

  /// Returns how many bytes there were, and 0 where reading fails.
  std::size_t ReadAt(std::size_t offset, unsigned char* buffer, std::size_t count);
  /// Copies what of `count` bytes at `offset` lies in the first of their blocks; returns how many bytes.
  std::size_t ReadInBlock(std::size_t offset, unsigned char* buffer, std::size_t count);
  const Block& BlockOf(std::size_t number);

  support::OpenFile file;
  std::unique_ptr<std::array<Block, kKeptBlocks>> blocks;  ///< each at its number modulo their count
  FT_StreamRec stream = {};
};

}  // namespace fonts

#endif
