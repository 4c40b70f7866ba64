#include "fonts/font_file.h"

#include <algorithm>
#include <cstring>

namespace fonts {

FontFile::FontFile(const std::string& path) : file(path) {
  const auto size = file.RegularSize();
  if (!size || *size > std::numeric_limits<unsigned long>::max()) return;
  blocks = std::make_unique_for_overwrite<std::array<Block, kKeptBlocks>>();
  stream.size = static_cast<unsigned long>(*size);
  stream.descriptor.pointer = this;
  stream.read = Read;
}

unsigned long FontFile::Read(FT_Stream stream, unsigned long offset, unsigned char* buffer,
                             unsigned long count) {
  if (count == 0) return offset > stream->size ? 1 : 0;  // a seek, which answers whether it failed
  auto& self = *static_cast<FontFile*>(stream->descriptor.pointer);
  return static_cast<unsigned long>(self.ReadAt(offset, buffer, count));
}

std::size_t FontFile::ReadAt(std::size_t offset, unsigned char* buffer, std::size_t count) {
  if (count > kBlockBytes) return file.ReadAt(offset, reinterpret_cast<char*>(buffer), count).value_or(0);
  const std::size_t first = ReadInBlock(offset, buffer, count);
  if (first == count) return count;
  return first + ReadInBlock(offset + first, buffer + first, count - first);
}

std::size_t FontFile::ReadInBlock(std::size_t offset, unsigned char* buffer, std::size_t count) {
  const Block& block = BlockOf(offset / kBlockBytes);
  const std::size_t start = offset % kBlockBytes;
  if (start >= block.size) return 0;
  const std::size_t taken = std::min(count, block.size - start);
  std::memcpy(buffer, block.bytes.data() + start, taken);
  return taken;
}

const FontFile::Block& FontFile::BlockOf(std::size_t number) {
  Block& block = (*blocks)[number % kKeptBlocks];
  if (block.number != number) {
    block.number = number;
    block.size = file.ReadAt(number * kBlockBytes, block.bytes.data(), kBlockBytes).value_or(0);
  }
  return block;
}

}  // namespace fonts
