#ifndef DRAWLOAD_FONTS_FONT_FILE_H
#define DRAWLOAD_FONTS_FONT_FILE_H

#include <ft2build.h>
#include FT_FREETYPE_H
#include FT_SYSTEM_H

#include <string>

#include "support/open_file.h"

namespace fonts {

/// A font file as the engine reads it. Given a path, the engine would wait for the writer of a pipe, look for
/// companions of a file that is no font, and map the file, so that one which shrinks ends the host program.
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

  support::OpenFile file;
  FT_StreamRec stream = {};
};

}  // namespace fonts

#endif
