#include "picture_generator.h"

#include <vector>
#include <zlib.h>

namespace bench {

namespace {

void AppendNumber(std::string& out, std::uint32_t number) {
  for (int shift = 24; shift >= 0; shift -= 8) out += static_cast<char>(number >> shift & 0xFF);
}

/// Length, type, content, and the checksum of the last two.
void AppendChunk(std::string& png, std::string content) {
  AppendNumber(png, static_cast<std::uint32_t>(content.size() - 4));
  const uLong sum =
      crc32(0, reinterpret_cast<const Bytef*>(content.data()), static_cast<uInt>(content.size()));
  png += content;
  AppendNumber(png, static_cast<std::uint32_t>(sum));
}

std::string Deflated(const std::string& bytes) {
  uLongf size = compressBound(static_cast<uLong>(bytes.size()));
  std::string out(size, '\0');
  compress(reinterpret_cast<Bytef*>(out.data()), &size, reinterpret_cast<const Bytef*>(bytes.data()),
           static_cast<uLong>(bytes.size()));
  out.resize(size);
  return out;
}

std::string Pair(int code, const std::string& value) { return std::to_string(code) + "\n" + value + "\n"; }

}  // namespace

std::string GeneratePng(std::uint32_t side) {
  std::string rows;
  rows.reserve(std::size_t{side} * (3 * side + 1));
  std::uint32_t noise = 1;
  for (std::uint32_t y = 0; y < side; ++y) {
    rows += '\0';  // no filter
    for (std::uint32_t x = 0; x < side; ++x) {
      noise = noise * 1664525 + 1013904223;
      rows += static_cast<char>(x >> 4);
      rows += static_cast<char>(y >> 4);
      rows += static_cast<char>(noise >> 30);
    }
  }
  std::string header = "IHDR";
  AppendNumber(header, side);
  AppendNumber(header, side);
  header += std::string("\x08\x02\0\0\0", 5);
  std::string png = "\x89PNG\r\n\x1A\n";
  AppendChunk(png, header);
  AppendChunk(png, "IDAT" + Deflated(rows));
  AppendChunk(png, "IEND");
  return png;
}

std::string DxfOfPicture(const std::string& path, std::uint32_t side) {
  const std::string pixels = std::to_string(side);
  return Pair(0, "SECTION") + Pair(2, "ENTITIES") + Pair(0, "IMAGE") + Pair(10, "0") + Pair(20, "0") +
         Pair(11, "0.1") + Pair(21, "0") + Pair(12, "0") + Pair(22, "0.1") + Pair(13, pixels) +
         Pair(23, pixels) + Pair(340, "E1") + Pair(0, "ENDSEC") + Pair(0, "SECTION") + Pair(2, "OBJECTS") +
         Pair(0, "IMAGEDEF") + Pair(5, "E1") + Pair(1, path) + Pair(10, pixels) + Pair(20, pixels) +
         Pair(0, "ENDSEC") + Pair(0, "EOF");
}

}  // namespace bench
