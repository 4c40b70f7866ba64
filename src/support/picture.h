#ifndef DRAWLOAD_SUPPORT_PICTURE_H
#define DRAWLOAD_SUPPORT_PICTURE_H

#include <cstddef>
#include <cstdint>
#include <memory>
#include <string_view>

namespace support {

/// A decoded raster picture: `height` rows, top row first, of `width` pixels of `channels` bytes (1 grey, 2
/// grey and alpha, 3 red, green, blue, 4 those and alpha), packed with no gap.
struct Picture {
  /// Null if nothing could be decoded; the sizes are 0 then. A picture of no width or no height has some.
  std::shared_ptr<const unsigned char> pixels;
  std::size_t pixelBytes = 0;  ///< how many bytes `pixels` holds
  std::int32_t width = 0;
  std::int32_t height = 0;
  std::int32_t channels = 0;
  std::size_t work = 0;  ///< what decoding cost, in pixels and empty rows, even if nothing came of it
};

/// Decodes a whole picture file (PNG, JPEG, GIF, BMP, TGA, PSD, HDR, PIC, PNM) that stands in memory. The
/// first bytes tell the format; what follows a JPEG's end-of-image mark has no effect. Sizes are checked
/// before anything is allocated for them: what lies beyond the bounds of `limits.h`, or claims more pixels
/// than its bytes can hold, is not decoded.
Picture DecodePicture(std::string_view file);

}  // namespace support

#endif
