#include "pdf/filters/bitmap_rows.h"

#include <stdexcept>

namespace pdf {

void AppendBitmapRows(std::string_view bitmap, std::size_t width, std::size_t height, std::uint8_t set,
                      std::uint8_t clear, std::vector<std::uint8_t>& plane) {
  if (width == 0 || height == 0) return;
  const std::size_t rowBytes = (width + 7) / 8;
  if (bitmap.size() / rowBytes < height) throw std::out_of_range("invalid vector subscript");
  plane.reserve(plane.size() + width * height);
  for (std::size_t row = 0; row < height; ++row) {
    const std::string_view bytes = bitmap.substr(row * rowBytes, rowBytes);
    for (std::size_t x = 0; x < width; ++x) {
      const unsigned byte = static_cast<std::uint8_t>(bytes[x / 8]);
      plane.push_back((byte >> (7 - x % 8) & 1U) != 0 ? set : clear);
    }
  }
}

}  // namespace pdf
