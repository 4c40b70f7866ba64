#ifndef DRAWLOAD_PDF_FILTERS_JPEG2000_CLAIMS_H
#define DRAWLOAD_PDF_FILTERS_JPEG2000_CLAIMS_H

#include <cstddef>
#include <cstdint>
#include <string_view>

namespace pdf {

/// What a JPEG 2000 file says of its structure. The decoder makes tables for all of it at once, gigabytes for
/// a header of a hundred bytes, so this is asked first. Marker segments are taken wherever they could stand,
/// and of several claims the most expensive one counts. Counts are floats, as their products have no bound.
class Jpeg2000Claims {
 public:
  explicit Jpeg2000Claims(std::string_view input);

  /// Whether the decoder may read the header. It makes the tables of all tiles then.
  bool AllowHeader() const;

  /// Whether it may decode the picture of a file of `inputSize` bytes.
  bool AllowPicture(std::size_t inputSize) const;

  /// What OpenJPEG allocates for the precincts and code blocks of the picture.
  std::uint64_t TableBytes() const;

  /// Channels of the palette; 0 where there is none.
  std::uint32_t PaletteChannels() const { return paletteChannels; }

 private:
  struct Axis {
    double pixels = 0;
    double tiles = 0;
    int precinctBits = 15;  ///< base 2 logarithm of the smallest precinct's side
    int blockBits = 10;     ///< the same of the smallest code block

    double Precincts() const;
    double Blocks() const;
  };

  void TakeSizes(std::string_view segment);
  void TakeCodingStyle(std::string_view segment);
  void TakeComponentStyle(std::string_view segment);
  bool TakeBlocks(bool hasPrecincts, std::string_view fields);
  double PictureTableBytes() const;
  double Precincts() const;

  Axis x;
  Axis y;
  double components = 0;
  double resolutions = 1;
  double layers = 1;
  std::uint32_t paletteChannels = 0;
};

}  // namespace pdf

#endif
