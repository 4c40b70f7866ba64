#include "support/picture.h"

#include <algorithm>
#include <cstdlib>
#include <cstring>
#include <limits>

#include "support/account.h"
#include "support/counted_memory.h"
#include "support/limits.h"

namespace support {
namespace {

/// Largest single block that the decoder may ask for while it works on one picture.
thread_local std::size_t blockLimit = 0;

// Zeroed, so that the part of a picture that its file breaks off before comes out the same each time.
void* AllocateForDecoder(std::size_t size) { return size > blockLimit ? nullptr : CountedCalloc(size); }

void* ReallocateForDecoder(void* block, std::size_t size) {
  return size > blockLimit ? nullptr : CountedRealloc(block, size);
}

// The decoder copies the nothing of an empty data chunk to a block that it does not have yet, which the C
// library's function forbids.
void* CopyForDecoder(void* to, const void* from, std::size_t size) {
  return size == 0 ? to : std::memcpy(to, from, size);
}

}  // namespace
}  // namespace support

#define STBI_MALLOC(size) support::AllocateForDecoder(size)
#define STBI_REALLOC(block, size) support::ReallocateForDecoder(block, size)
#define STBI_FREE(block) support::CountedFree(block)
#define STBI_NO_STDIO
#define STB_IMAGE_STATIC
#define STB_IMAGE_IMPLEMENTATION
#define memcpy(to, from, size) support::CopyForDecoder(to, from, size)
#pragma GCC diagnostic push
#pragma GCC diagnostic ignored "-Wunused-function"
#include <stb/stb_image.h>
#pragma GCC diagnostic pop
#undef memcpy

namespace support {
namespace {

/// What decoding a pixel costs beside the memory that it takes.
constexpr std::uint64_t kPixelWork = 2;

struct PictureSize {
  int width = 0;
  int height = 0;
  int channels = 0;

  std::size_t Pixels() const { return static_cast<std::size_t>(width) * static_cast<std::size_t>(height); }
  /// What one pass over the picture costs, in pixels. The decoder visits rows without pixels too.
  std::size_t PassWork() const {
    return static_cast<std::size_t>(std::max(width, 1)) * static_cast<std::size_t>(std::max(height, 1));
  }
};

const unsigned char* BytesOf(std::string_view file) {
  return reinterpret_cast<const unsigned char*>(file.data());
}

bool ReadSize(std::string_view file, PictureSize& size) {
  blockLimit = limits::kPictureSlackBytes;
  return stbi_info_from_memory(BytesOf(file), static_cast<int>(file.size()), &size.width, &size.height,
                               &size.channels) != 0;
}

// The decoder takes any number of 0xFF before the code of a marker, the first one included.
bool IsJpeg(std::string_view file) {
  const std::size_t code = file.find_first_not_of('\xFF');
  return code != 0 && code != file.npos && file[code] == '\xD8';
}

bool IsWithinBounds(std::string_view file, const PictureSize& size) {
  if (size.width < 0 || size.height < 0) return false;
  const std::size_t pixelsPerByte = IsJpeg(file) ? limits::kJpegPixelsPerByte : limits::kPicturePixelsPerByte;
  return size.Pixels() <= limits::kSmallPicturePixels || size.Pixels() / pixelsPerByte <= file.size();
}

/// The byte at `at`; 0 behind the end, as the decoder reads it.
std::size_t ByteAt(std::string_view file, std::size_t at) {
  return at < file.size() ? static_cast<unsigned char>(file[at]) : 0;
}

std::size_t SegmentLength(std::string_view file, std::size_t at) {
  return ByteAt(file, at) << 8 | ByteAt(file, at + 1);
}

/// Whether each Huffman table of the segment whose length stands at `at` has at most 256 codes. The decoder
/// keeps tables in arrays of that size and does not look. Where it stops with an error, this does too.
bool HasSoundTables(std::string_view file, std::size_t at) {
  constexpr std::size_t lengths = 16;
  const std::size_t end = at + SegmentLength(file, at);
  at += 2;
  while (at < end && at < file.size()) {
    const std::size_t kind = ByteAt(file, at);
    if (kind >> 4 > 1 || (kind & 15) > 3) return true;
    std::size_t codes = 0;
    for (std::size_t i = 1; i <= lengths; ++i) codes += ByteAt(file, at + i);
    if (codes > 256) return false;
    at += 1 + lengths + codes;
  }
  return true;
}

/// Where the data of a scan that begins at `at` ends: at the next marker that is not a restart, since a 0xFF
/// of the data itself has a 0 after it. The decoder reads on at this marker or fails, whatever the data are.
std::size_t EndOfScanData(std::string_view file, std::size_t at) {
  while (at < file.size()) {
    const std::size_t start = std::min(file.find('\xFF', at), file.size());
    const std::size_t code = std::min(file.find_first_not_of('\xFF', start), file.size());
    const std::size_t marker = ByteAt(file, code);
    const bool isRestart = marker >= 0xD0 && marker <= 0xD7;
    if (marker != 0 && !isRestart) return start;
    at = code + 1;
  }
  return at;
}

/// What matters of the segments of a picture file in the JPEG format, of which the decoder sees none after
/// the end-of-image mark.
struct JpegSegments {
  std::size_t scans = 0;  ///< each one passes over the whole picture, however few bytes it has
  bool hasSoundTables = true;
};

JpegSegments SegmentsOfJpeg(std::string_view file) {
  constexpr std::size_t tables = 0xC4;
  constexpr std::size_t endOfImage = 0xD9;
  constexpr std::size_t startOfScan = 0xDA;
  JpegSegments found;
  std::size_t at = file.find('\xD8') + 1;
  while (at < file.size()) {
    at = std::min(file.find('\xFF', at), file.size());
    at = std::min(file.find_first_not_of('\xFF', at), file.size());
    const std::size_t marker = ByteAt(file, at++);
    if (marker == endOfImage) break;
    if (marker == tables && !HasSoundTables(file, at)) found.hasSoundTables = false;
    at += SegmentLength(file, at);
    if (marker != startOfScan) continue;
    ++found.scans;
    at = EndOfScanData(file, at);
  }
  return found;
}

bool IsPng(std::string_view file) { return file.starts_with("\x89PNG"); }

// The decoder's working memory for one pixel is at most 16 bytes (four floats); packed data is taken in
// blocks that double until they fit. A PNG file needs nothing else, and what it unpacks beyond its pixels is
// waste.
std::size_t BlockLimit(std::string_view file, const PictureSize& size) {
  const std::size_t slack = IsPng(file) ? limits::kPngSlackBytes : limits::kPictureSlackBytes;
  return slack + 32 * size.Pixels() + 2 * file.size();
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
  const JpegSegments segments = IsJpeg(file) ? SegmentsOfJpeg(file) : JpegSegments();
  if (!segments.hasSoundTables || segments.scans > limits::kJpegScans) return {};
  if (!ReadSize(file, size) || !IsWithinBounds(file, size)) return {};
  Picture picture;
  picture.work = size.PassWork() * (1 + segments.scans / limits::kJpegUsualScans);
  SpendWork(kPixelWork * picture.work);
  blockLimit = BlockLimit(file, size);
  picture.pixels.reset(DecodePixels(file, size), CountedFree);
  if (picture.pixels == nullptr) return picture;
  picture.pixelBytes = size.Pixels() * static_cast<std::size_t>(size.channels);
  picture.width = size.width;
  picture.height = size.height;
  picture.channels = size.channels;
  return picture;
}

}  // namespace support
