#include "png_image.h"

#include <array>
#include <png.h>
#include <stdexcept>

namespace {

using Channels = std::array<std::uint8_t, 3>;

/// How the library weighs the three channels of a colour picture to grey.
int GreyOf(const Channels& channels) {
  return static_cast<int>(0.587 * channels[1] + 0.299 * channels[2] + 0.114 * channels[0]);
}

/// Three channels near `grey` whose weighted sum truncates to `grey`: rounding can leave the sum of three
/// equal channels a hair below it, and then the lightest weight lifts it.
Channels ChannelsFor(std::uint8_t grey) {
  Channels channels{grey, grey, grey};
  while (GreyOf(channels) < grey && channels[0] < 255) ++channels[0];
  return channels;
}

std::array<Channels, 256> AllChannels() {
  std::array<Channels, 256> table;
  for (std::size_t grey = 0; grey < table.size(); ++grey) {
    table[grey] = ChannelsFor(static_cast<std::uint8_t>(grey));
  }
  return table;
}

}  // namespace

std::string EncodePng(const Bitmap& bitmap) {
  static const std::array<Channels, 256> channelsOf = AllChannels();
  std::vector<std::uint8_t> colored;
  colored.reserve(bitmap.grey.size() * 3);
  for (const std::uint8_t grey : bitmap.grey) {
    colored.insert(colored.end(), channelsOf[grey].begin(), channelsOf[grey].end());
  }
  png_image image = {};
  image.version = PNG_IMAGE_VERSION;
  image.width = bitmap.width;
  image.height = bitmap.height;
  image.format = PNG_FORMAT_RGB;
  png_alloc_size_t size = PNG_IMAGE_PNG_SIZE_MAX(image);
  std::string bytes(size, '\0');
  if (png_image_write_to_memory(&image, bytes.data(), &size, 0, colored.data(), 0, nullptr) == 0) {
    throw std::runtime_error(std::string("a bitmap of ") + std::to_string(bitmap.width) + " x " +
                             std::to_string(bitmap.height) +
                             " pixels cannot be written as PNG: " + image.message);
  }
  bytes.resize(size);
  return bytes;
}

std::string Base64(const std::string& bytes) {
  constexpr char kAlphabet[] = "ABCDEFGHIJKLMNOPQRSTUVWXYZabcdefghijklmnopqrstuvwxyz0123456789+/";
  std::string text;
  text.reserve((bytes.size() + 2) / 3 * 4);
  for (std::size_t i = 0; i < bytes.size(); i += 3) {
    const auto byteAt = [&](std::size_t at) {
      return at < bytes.size() ? static_cast<std::uint32_t>(static_cast<unsigned char>(bytes[at])) : 0U;
    };
    const std::uint32_t group = byteAt(i) << 16 | byteAt(i + 1) << 8 | byteAt(i + 2);
    text += kAlphabet[group >> 18];
    text += kAlphabet[group >> 12 & 63];
    text += i + 1 < bytes.size() ? kAlphabet[group >> 6 & 63] : '=';
    text += i + 2 < bytes.size() ? kAlphabet[group & 63] : '=';
  }
  return text;
}
