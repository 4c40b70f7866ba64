#ifndef DRAWLOAD_PDF_FILTERS_BITMAP_ROWS_H
#define DRAWLOAD_PDF_FILTERS_BITMAP_ROWS_H

#include <cstddef>
#include <cstdint>
#include <string_view>
#include <vector>

namespace pdf {

/// Appends a byte for each of `width` × `height` bits of `bitmap`, whose rows begin at whole bytes, with the
/// most significant bit first: `set` or `clear`. Throws `std::out_of_range` where the bitmap is too short.
void AppendBitmapRows(std::string_view bitmap, std::size_t width, std::size_t height, std::uint8_t set,
                      std::uint8_t clear, std::vector<std::uint8_t>& plane);

}  // namespace pdf

#endif
