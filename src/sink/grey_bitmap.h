#ifndef DRAWLOAD_SINK_GREY_BITMAP_H
#define DRAWLOAD_SINK_GREY_BITMAP_H

#include <cstdint>
#include <span>

#include "platform/global_memory.h"

/// Packs a picture as a device-independent bitmap of 256 greys in a block of global memory, rows in the order
/// of the source: header, palette, then one byte a pixel in rows padded with 0xFF to four bytes.
///
/// `pixels` are rows of `width` pixels of `channels` bytes with no gap: 1 grey, 2 grey and alpha, 3 colour, 4
/// colour and alpha; of any other number, the pixels come out 0. Where alpha is 0 the pixel is white. Pixels
/// that `pixels` has no bytes for come out 0xFF. Null for negative sizes, for more bytes than the header can
/// state, or without memory; the caller frees the block.
platform::GlobalHandle PackGreyBitmap(std::int32_t width, std::int32_t height, std::int32_t channels,
                                      std::span<const unsigned char> pixels);

/// Bytes of the block for a bitmap of `width` by `height` pixels, neither of them negative.
std::uint64_t GreyBitmapBytes(std::int32_t width, std::int32_t height);

#endif
