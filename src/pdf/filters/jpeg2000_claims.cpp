#include "pdf/filters/jpeg2000_claims.h"

#include <algorithm>
#include <cmath>

#include "support/limits.h"

namespace pdf {

namespace {

// What OpenJPEG 2.5 allocates for one of each.
constexpr double kTileBytes = 6000;
constexpr double kTileComponentBytes = 1100;
constexpr double kPrecinctBytes = 500;
constexpr double kBlockBytes = 200;

std::uint32_t ByteAt(std::string_view bytes, std::size_t place) {
  return static_cast<unsigned char>(bytes[place]);
}

std::uint32_t NumberAt(std::string_view bytes, std::size_t place, std::size_t size) {
  std::uint32_t number = 0;
  for (std::size_t i = 0; i < size; ++i) number = number << 8 | ByteAt(bytes, place + i);
  return number;
}

/// Calls `take` with what stands behind each place of `mark` in `input`.
template <typename Take>
void ForEach(std::string_view input, std::string_view mark, Take take) {
  for (std::size_t at = input.find(mark); at != input.npos; at = input.find(mark, at + 1)) {
    take(input.substr(at + mark.size()));
  }
}

/// The same with the segment that the marker 0xFF `code` begins, its length included.
template <typename Take>
void ForEachSegment(std::string_view input, char code, Take take) {
  const char marker[] = {'\xFF', code};
  ForEach(input, {marker, sizeof marker}, [&](std::string_view rest) {
    if (rest.size() >= 2) take(rest.substr(0, NumberAt(rest, 0, 2)));
  });
}

}  // namespace

Jpeg2000Claims::Jpeg2000Claims(std::string_view input) {
  ForEachSegment(input, '\x51', [this](std::string_view segment) { TakeSizes(segment); });
  ForEachSegment(input, '\x52', [this](std::string_view segment) { TakeCodingStyle(segment); });
  ForEachSegment(input, '\x53', [this](std::string_view segment) { TakeComponentStyle(segment); });
  ForEach(input, "pclr", [this](std::string_view box) {
    if (box.size() > 2) paletteChannels = std::max(paletteChannels, ByteAt(box, 2));
  });
}

// Length, capabilities, right and lower edge, left and upper edge, width and height of tiles, left and upper
// edge of the first, number of components, and three bytes for each of them.
void Jpeg2000Claims::TakeSizes(std::string_view segment) {
  if (segment.size() < 38 || segment.size() != 38 + 3 * NumberAt(segment, 36, 2)) return;
  const auto take = [segment](std::size_t place, Axis& axis) {
    const double end = NumberAt(segment, place, 4);
    const double tile = std::max(NumberAt(segment, place + 16, 4), 1U);
    axis.pixels = std::max(axis.pixels, end - NumberAt(segment, place + 8, 4));
    axis.tiles = std::max(axis.tiles, std::ceil((end - NumberAt(segment, place + 24, 4)) / tile));
  };
  take(4, x);
  take(8, y);
  components = std::max<double>(components, NumberAt(segment, 36, 2));
}

// Length, style, progression, layers, component transform, and what a component has too.
void Jpeg2000Claims::TakeCodingStyle(std::string_view segment) {
  if (segment.size() < 12) return;
  if (!TakeBlocks((ByteAt(segment, 2) & 1) != 0, segment.substr(7))) return;
  layers = std::max<double>(layers, NumberAt(segment, 4, 2));
}

// Length, component in one byte or, of more than 256 components, in two, style, and the same.
void Jpeg2000Claims::TakeComponentStyle(std::string_view segment) {
  for (const std::size_t componentBytes : {1U, 2U}) {
    const std::size_t style = 2 + componentBytes;
    if (segment.size() < style + 6) return;
    TakeBlocks((ByteAt(segment, style) & 1) != 0, segment.substr(style + 1));
  }
}

// Levels below the full resolution, width and height of code blocks, two bytes, and the precincts of each
// resolution where they are not the largest. A segment whose length does not fit is none: the same two bytes
// stand in the data of pictures, too.
bool Jpeg2000Claims::TakeBlocks(bool hasPrecincts, std::string_view fields) {
  const std::uint32_t levels = ByteAt(fields, 0);
  const std::uint32_t width = ByteAt(fields, 1);
  const std::uint32_t height = ByteAt(fields, 2);
  if (fields.size() != 5 + (hasPrecincts ? levels + 1 : 0) || levels > 32 || width > 8 || height > 8)
    return false;
  resolutions = std::max<double>(resolutions, levels + 1);
  x.blockBits = std::min(x.blockBits, static_cast<int>(width) + 2);
  y.blockBits = std::min(y.blockBits, static_cast<int>(height) + 2);
  for (const char precinct : fields.substr(5)) {
    x.precinctBits = std::min(x.precinctBits, precinct & 15);
    y.precinctBits = std::min(y.precinctBits, precinct >> 4 & 15);
  }
  return true;
}

// The edge of a tile ends a precinct.
double Jpeg2000Claims::Axis::Precincts() const {
  return std::ceil(std::ldexp(pixels, -precinctBits)) + std::max(tiles - 1, 0.0);
}

// A block is no larger than the part of a precinct that lies in one of a resolution's bands.
double Jpeg2000Claims::Axis::Blocks() const {
  const int bits = std::max(0, std::min(blockBits, precinctBits - 1));
  return std::ceil(std::ldexp(pixels, -bits)) + Precincts();
}

// Each resolution has half as many pixels to a side as the next one, so all but the first together have no
// more precincts than that, but for one in each tile.
double Jpeg2000Claims::Precincts() const {
  const double largest = x.Precincts() * y.Precincts();
  const double others = resolutions > 1 ? largest + (resolutions - 1) * x.tiles * y.tiles : 0;
  return components * (largest + others);
}

bool Jpeg2000Claims::AllowHeader() const {
  return x.tiles * y.tiles * (kTileBytes + components * kTileComponentBytes) <=
         static_cast<double>(support::limits::kJpeg2000TableBytes);
}

double Jpeg2000Claims::PictureTableBytes() const {
  return Precincts() * kPrecinctBytes + components * x.Blocks() * y.Blocks() * kBlockBytes;
}

std::uint64_t Jpeg2000Claims::TableBytes() const {
  return static_cast<std::uint64_t>(std::min(PictureTableBytes(), 1e18));
}

bool Jpeg2000Claims::AllowPicture(std::size_t inputSize) const {
  const double packets = Precincts() * layers;
  return packets <= static_cast<double>(support::limits::kJpeg2000Packets +
                                        support::limits::kJpeg2000PacketsPerByte * inputSize) &&
         PictureTableBytes() <= static_cast<double>(support::limits::kJpeg2000TableBytes);
}

}  // namespace pdf
