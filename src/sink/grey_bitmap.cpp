#include "sink/grey_bitmap.h"

#include <algorithm>
#include <array>
#include <cstring>
#include <limits>

namespace {

constexpr std::size_t kHeaderBytes = 40;
constexpr std::size_t kPaletteEntries = 256;
constexpr std::size_t kPixelOffset = kHeaderBytes + 4 * kPaletteEntries;
constexpr unsigned char kWhite = 0xFF;
constexpr std::uint32_t kPixelsPerMetre = 2835;

/// The first 40 bytes of the block, on little-endian machines as they stand.
struct BitmapHeader {
  std::uint32_t headerSize = kHeaderBytes;
  std::int32_t width;
  std::int32_t height;
  std::uint16_t planes = 1;
  std::uint16_t bitsPerPixel = 8;
  std::uint32_t compression = 0;
  std::uint32_t imageSize;
  std::uint32_t horizontalResolution = kPixelsPerMetre;
  std::uint32_t verticalResolution = kPixelsPerMetre;
  std::uint32_t coloursUsed = kPaletteEntries;
  std::uint32_t coloursImportant = kPaletteEntries;
};
static_assert(sizeof(BitmapHeader) == kHeaderBytes);

using Weights = std::array<double, 256>;

constexpr Weights WeightedLevels(double weight) {
  Weights levels{};
  for (std::size_t i = 0; i < levels.size(); ++i) levels[i] = weight * static_cast<double>(i);
  return levels;
}

constexpr Weights kGreen = WeightedLevels(0.587);
constexpr Weights kRed = WeightedLevels(0.299);
constexpr Weights kBlue = WeightedLevels(0.114);

// The sum runs from the left in 64-bit steps, so that each grey comes out the same everywhere. It never
// leaves 0 to 255, so that there is nothing to clamp.
constexpr unsigned char Grey(unsigned char blue, unsigned char green, unsigned char red) {
  return static_cast<unsigned char>(static_cast<int>(kGreen[green] + kRed[red] + kBlue[blue]));
}

/// What becomes of a pixel whose three colours are the same; rounding takes some of them down by one.
constexpr std::array<unsigned char, 256> GreyLevels() {
  std::array<unsigned char, 256> levels{};
  for (std::size_t i = 0; i < levels.size(); ++i) {
    const auto level = static_cast<unsigned char>(i);
    levels[i] = Grey(level, level, level);
  }
  return levels;
}

constexpr std::array<unsigned char, 256> kGreyLevels = GreyLevels();

using RowPacker = void (*)(const unsigned char* source, std::size_t count, unsigned char* target);

void PackGrey(const unsigned char* source, std::size_t count, unsigned char* target) {
  for (std::size_t i = 0; i < count; ++i) target[i] = kGreyLevels[source[i]];
}

void PackGreyAlpha(const unsigned char* source, std::size_t count, unsigned char* target) {
  for (std::size_t i = 0; i < count; ++i, source += 2) {
    target[i] = kGreyLevels[source[1] == 0 ? kWhite : source[0]];
  }
}

void PackColour(const unsigned char* source, std::size_t count, unsigned char* target) {
  for (std::size_t i = 0; i < count; ++i, source += 3) target[i] = Grey(source[0], source[1], source[2]);
}

void PackColourAlpha(const unsigned char* source, std::size_t count, unsigned char* target) {
  for (std::size_t i = 0; i < count; ++i, source += 4) {
    target[i] = source[3] == 0 ? kGreyLevels[kWhite] : Grey(source[0], source[1], source[2]);
  }
}

void PackBlack(const unsigned char*, std::size_t count, unsigned char* target) {
  std::memset(target, 0, count);
}

RowPacker PackerFor(std::int32_t channels) {
  switch (channels) {
    case 1: return PackGrey;
    case 2: return PackGreyAlpha;
    case 3: return PackColour;
    case 4: return PackColourAlpha;
    default: return PackBlack;
  }
}

std::uint64_t Stride(std::int32_t width) {
  return (std::uint64_t{static_cast<std::uint32_t>(width)} * 8 + 31) / 32 * 4;
}

void WriteHeader(unsigned char* block, std::int32_t width, std::int32_t height, std::size_t imageSize) {
  const BitmapHeader header = {
      .width = width, .height = height, .imageSize = static_cast<std::uint32_t>(imageSize)};
  std::memcpy(block, &header, sizeof(header));
  unsigned char* entry = block + kHeaderBytes;
  for (std::size_t level = 0; level < kPaletteEntries; ++level, entry += 4) {
    entry[0] = entry[1] = entry[2] = static_cast<unsigned char>(level);
    entry[3] = 0;
  }
}

/// How many of `wanted` pixels have all their bytes.
std::size_t CompletePixels(std::size_t wanted, std::int32_t channels, std::size_t bytes) {
  return channels <= 0 ? wanted : std::min(wanted, bytes / static_cast<std::size_t>(channels));
}

}  // namespace

std::uint64_t GreyBitmapBytes(std::int32_t width, std::int32_t height) {
  return Stride(width) * static_cast<std::uint32_t>(height) + kPixelOffset;
}

platform::GlobalHandle PackGreyBitmap(std::int32_t width, std::int32_t height, std::int32_t channels,
                                      std::span<const unsigned char> pixels) {
  constexpr std::uint64_t mostBytes = std::numeric_limits<std::uint32_t>::max();
  if (width < 0 || height < 0 || GreyBitmapBytes(width, height) > mostBytes) return nullptr;
  const auto blockBytes = static_cast<std::size_t>(GreyBitmapBytes(width, height));
  const platform::GlobalHandle handle =
      platform::GlobalAlloc(platform::kMoveable | platform::kZeroInitialised, blockBytes);
  if (handle == nullptr) return nullptr;
  auto* block = static_cast<unsigned char*>(platform::GlobalLock(handle));
  std::memset(block, kWhite, blockBytes);
  WriteHeader(block, width, height, blockBytes - kPixelOffset);

  const auto rowPixels = static_cast<std::size_t>(width);
  const std::size_t step = channels <= 0 ? 0 : static_cast<std::size_t>(channels);
  const RowPacker pack = PackerFor(channels);
  std::size_t left = CompletePixels(rowPixels * static_cast<std::size_t>(height), channels, pixels.size());
  const unsigned char* source = pixels.data();
  for (unsigned char* row = block + kPixelOffset; left != 0; row += Stride(width)) {
    const std::size_t count = std::min(rowPixels, left);
    pack(source, count, row);
    source += count * step;
    left -= count;
  }
  platform::GlobalUnlock(handle);
  return handle;
}
