#include "fonts/font_file.h"

#include <limits>

namespace fonts {

FontFile::FontFile(const std::string& path) : file(path) {
  const auto size = file.RegularSize();
  if (!size || *size > std::numeric_limits<unsigned long>::max()) return;
  stream.size = static_cast<unsigned long>(*size);
  stream.descriptor.pointer = this;
  stream.read = Read;
}

unsigned long FontFile::Read(FT_Stream stream, unsigned long offset, unsigned char* buffer,
                             unsigned long count) {
  if (count == 0) return offset > stream->size ? 1 : 0;  // a seek, which answers whether it failed
  const auto& self = *static_cast<const FontFile*>(stream->descriptor.pointer);
  const auto got = self.file.ReadAt(offset, reinterpret_cast<char*>(buffer), count);
  return static_cast<unsigned long>(got.value_or(0));
}

}  // namespace fonts
