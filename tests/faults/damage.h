#ifndef DRAWLOAD_TESTS_DAMAGE_H
#define DRAWLOAD_TESTS_DAMAGE_H

#include <cstddef>
#include <random>
#include <string>
#include <vector>

/// Ways to damage a file, the same on every run.
namespace damage {

/// Up to `most` places of a file of `size` bytes, evenly spaced; every one where there are no more.
inline std::vector<std::size_t> Places(std::size_t size, std::size_t most) {
  std::vector<std::size_t> places;
  const std::size_t count = size < most ? size : most;
  for (std::size_t i = 0; i < count; ++i) places.push_back(i * size / count);
  return places;
}

inline std::string CutAt(const std::string& bytes, std::size_t place) { return bytes.substr(0, place); }

inline std::string FlippedAt(const std::string& bytes, std::size_t place, unsigned char mask) {
  std::string damaged = bytes;
  damaged[place] = static_cast<char>(static_cast<unsigned char>(damaged[place]) ^ mask);
  return damaged;
}

using Random = std::mt19937;

inline std::size_t Below(std::size_t bound, Random& random) {
  return std::uniform_int_distribution<std::size_t>(0, bound - 1)(random);
}

/// A random block of up to a quarter of `bytes`, which are not empty.
struct Block {
  Block(const std::string& bytes, Random& random)
      : start(Below(bytes.size(), random)),
        text(bytes.substr(start, 1 + Below(bytes.size() / 4 + 1, random))) {}

  std::size_t start;
  std::string text;
};

/// One block stands where another was, and the other in its place.
inline std::string WithBlocksSwapped(const std::string& bytes, Random& random) {
  Block first(bytes, random);
  Block second(bytes, random);
  if (first.start > second.start) std::swap(first, second);
  std::string damaged = bytes;
  damaged.replace(second.start, second.text.size(), first.text);
  damaged.replace(first.start, first.text.size(), second.text);
  return damaged;
}

/// A block stands there up to twenty times more.
inline std::string WithABlockRepeated(const std::string& bytes, Random& random) {
  const Block block(bytes, random);
  std::string damaged = bytes;
  for (std::size_t times = 1 + Below(20, random); times > 0; --times) {
    damaged.insert(block.start, block.text);
  }
  return damaged;
}

}  // namespace damage

#endif
