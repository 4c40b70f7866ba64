#ifndef DRAWLOAD_SUPPORT_BYTE_WORDS_H
#define DRAWLOAD_SUPPORT_BYTE_WORDS_H

#include <bit>
#include <cstddef>
#include <cstdint>
#include <cstring>

/// Eight characters at a time, in the bytes of a word: one after the other, each is a guess of the processor
/// where a token or a number ends. A byte is marked by its highest bit.
namespace support::byte_words {

/// Whether the first of the marked bytes can be told from a word.
constexpr bool kInOrder = std::endian::native == std::endian::little;
constexpr std::size_t kBytes = 8;
constexpr std::uint64_t kHighBits = 0x8080808080808080;

/// The characters at `at`, each with the bits of `c` turned.
inline std::uint64_t WordAt(const char* at, char c) {
  std::uint64_t word = 0;
  std::memcpy(&word, at, sizeof word);
  return word ^ 0x0101010101010101 * static_cast<unsigned char>(c);
}

/// Marks the bytes that are 0, and maybe a 1 behind one.
constexpr std::uint64_t ZeroBytes(std::uint64_t word) {
  return (word - 0x0101010101010101) & ~word & kHighBits;
}

/// How many bytes stand before the first marked one; 8 where none is.
constexpr std::size_t BytesBefore(std::uint64_t marks) {
  return static_cast<std::size_t>(std::countr_zero(marks)) / 8;
}

}  // namespace support::byte_words

#endif
