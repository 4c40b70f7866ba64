#ifndef DRAWLOAD_PDF_FILTERS_LZW_H
#define DRAWLOAD_PDF_FILTERS_LZW_H

#include <array>
#include <cstddef>
#include <cstdint>
#include <string>
#include <string_view>

namespace pdf {

/// Decodes LZW data whose code width grows one code early, as the format's default asks. A clearing code
/// right after another clears once more. A code beyond the table stands for the previous string and its first
/// byte, and for nothing where there is no string before it.
class PdfLzwDecoder {
 public:
  explicit PdfLzwDecoder(std::string_view encoded) : input(encoded) {}

  /// The decoded bytes. Throws `std::out_of_range` where the data end before the code that ends them.
  std::string Decode();

 private:
  /// A string of the table: where it stands in the output.
  struct Place {
    std::size_t start = 0;
    std::size_t size = 0;
  };

  static constexpr std::uint32_t kClear = 256;
  static constexpr std::uint32_t kEnd = 257;
  static constexpr std::uint32_t kFirstFree = 258;
  static constexpr std::uint32_t kCodes = 4096;

  std::uint32_t ReadCode();
  void Reset();
  void AppendFirst(std::uint32_t code);
  void AppendNext(std::uint32_t code);
  void Append(std::uint32_t code);
  void AddEntry(const Place& place);

  std::string_view input;
  std::array<Place, kCodes> table{};
  std::string output;
  std::size_t position = 0;
  std::uint32_t nextFree = kFirstFree;
  std::uint32_t width = 9;  ///< of a code, bits
  std::uint32_t bits = 0;
  std::uint32_t bitCount = 0;
  std::size_t previousSize = 0;  ///< of the previous string, which ends the output
};

}  // namespace pdf

#endif
