#include "support/picture.h"

#include <cstdlib>
#include <limits>

#include "support/limits.h"

namespace support {
namespace {

/// Largest single block that the decoder may ask for while it works on one picture.
thread_local std::size_t blockLimit = 0;

// Zeroed, so that the part of a picture that its file breaks off before comes out the same each time.
void* AllocateForDecoder(std::size_t size) { return size > blockLimit ? nullptr : std::calloc(1, size); }

void* ReallocateForDecoder(void* block, std::size_t size) {
  return size > blockLimit ? nullptr : std::realloc(block, size);
}

}  // namespace
}  // namespace support

#define STBI_MALLOC(size) support::AllocateForDecoder(size)
#define STBI_REALLOC(block, size) support::ReallocateForDecoder(block, size)
#define STBI_FREE(block) std::free(block)
#define STBI_NO_STDIO
#define STB_IMAGE_STATIC
#define STB_IMAGE_IMPLEMENTATION
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wunused-function"
#include <stb/stb_image.h>
#pragma GCC diagnostic pop

namespace support {
namespace {

struct PictureSize {
  int width = 0;
  int height = 0;
  int channels = 0;

  std::size_t Pixels() const { return static_cast<std::size_t>(width) * static_cast<std::size_t>(height); }
};

const unsigned char* BytesOf(std::string_view file) {
  return reinterpret_cast<const unsigned char*>(file.data());
}

bool ReadSize(std::string_view file, PictureSize& size) {
  blockLimit = limits::kPictureSlackBytes;
  return stbi_info_from_memory(BytesOf(file), static_cast<int>(file.size()), &size.width, &size.height,
                               &size.channels) != 0;
}

bool IsJpeg(std::string_view file) { return file.starts_with("\xFF\xD8"); }

bool IsWithinBounds(std::string_view file, const PictureSize& size) {
  if (size.width <= 0 || size.height <= 0 || size.Pixels() > limits::kPicturePixels) return false;
  const std::size_t pixelsPerByte = IsJpeg(file) ? limits::kJpegPixelsPerByte : limits::kPicturePixelsPerByte;
  return size.Pixels() <= limits::kSmallPicturePixels || size.Pixels() / pixelsPerByte <= file.size();
}

/// Every scan of a JPEG file passes over the whole picture, however few bytes it has.
bool HasTooManyScans(std::string_view file) {
  if (!IsJpeg(file)) return false;
  std::size_t scans = 0;
  for (std::size_t at = file.find("\xFF\xDA"); at != file.npos; at = file.find("\xFF\xDA", at + 2)) ++scans;
  return scans > limits::kJpegScans;
}

// The decoder's working memory for one pixel is at most 16 bytes (four floats); packed data is taken in
// blocks that double until they fit.
std::size_t BlockLimit(std::string_view file, const PictureSize& size) {
  return limits::kPictureSlackBytes + 32 * size.Pixels() + 2 * file.size();
}

bool IsSoftimagePic(std::string_view file) { return file.starts_with("\x53\x80\xF6\x34"); }

void DropAlpha(unsigned char* pixels, std::size_t count) {
  for (std::size_t i = 0; i < count; ++i) {
    for (std::size_t channel = 0; channel < 3; ++channel) pixels[3 * i + channel] = pixels[4 * i + channel];
  }
}

unsigned char* DecodePixels(std::string_view file, PictureSize& size) {
  // A damaged PIC file whose pixels the decoder is to convert makes it read through a null pointer, so these
  // come in the decoder's own four channels.
  const bool inFourChannels = IsSoftimagePic(file);
  const int stated = size.channels;
  unsigned char* pixels = stbi_load_from_memory(BytesOf(file), static_cast<int>(file.size()), &size.width,
                                                &size.height, &size.channels, inFourChannels ? 4 : 0);
  if (pixels != nullptr && inFourChannels) {
    size.channels = stated == 3 ? 3 : 4;
    if (size.channels == 3) DropAlpha(pixels, size.Pixels());
  }
  return pixels;
}

}  // namespace

Picture DecodePicture(std::string_view file) {
  PictureSize size;
  if (file.size() > static_cast<std::size_t>(std::numeric_limits<int>::max())) return {};
  if (!ReadSize(file, size) || !IsWithinBounds(file, size) || HasTooManyScans(file)) return {};
  blockLimit = BlockLimit(file, size);
  std::shared_ptr<const unsigned char> pixels(DecodePixels(file, size), std::free);
  if (pixels == nullptr) return {};
  return {pixels, size.Pixels() * static_cast<std::size_t>(size.channels), size.width, size.height,
          size.channels};
}

}  // namespace support
