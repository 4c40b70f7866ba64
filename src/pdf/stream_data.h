#ifndef DRAWLOAD_PDF_STREAM_DATA_H
#define DRAWLOAD_PDF_STREAM_DATA_H

#include <cstdint>
#include <string>
#include <string_view>
#include <vector>

#include "pdf/file_reader.h"
#include "pdf/xref_section.h"

namespace pdf {

/// A stream before and after decoding.
struct PdfStreamData {
  std::string decoded;                   ///< the result for anything that is not an image
  std::vector<std::uint8_t> imagePlane;  ///< the result for an image, `components` bytes a pixel, rows packed
  std::string_view plainPlane;           ///< the same for an image without a filter: its bytes in `input`
  std::int32_t width = 0;                ///< pixels
  std::int32_t height = 0;
  std::int32_t components = 0;  ///< bytes a pixel; computed by the decoding
  std::string colourSpace;      ///< the token behind /ColorSpace, slash included
  std::uint32_t length = 0;     ///< of the input; after decoding the decoded size, where the filter says so
  bool isImage = false;
  std::vector<std::string> filters;  ///< names with their slash
  std::string_view input;            ///< at least `length` bytes, kept by the caller
  bool nulFollows = false;  ///< content and /ToUnicode: a NUL follows the `length` bytes, but is not counted
};

/// Runs `data.input` through its filter. Throws `std::out_of_range` where `length` exceeds the input and
/// where LZW or run length data break off, and `std::runtime_error` where JPEG 2000 data cannot be read.
/// Throws `support::BeyondAllowance`. Kept: with two or more filters the
/// bytes stay as they are, and an image becomes white. Of the filters only run length ever reads the NUL that
/// may follow: an LZW text cannot end in it, since the code that ends the text is odd.
void DecodeStream(PdfStreamData& data, PdfNotes& notes);

/// The loop over the filter names.
void DecodeFilter(PdfStreamData& data, PdfNotes& notes);

/// Whether an image may have this size at all: no negative side, and not beyond the limit of pixels.
bool IsAllowedImageSize(std::int32_t width, std::int32_t height);

/// What the dictionary of a content stream, font stream, image or form says of its bytes.
struct PdfStreamKeys {
  std::vector<std::string> filters;
  std::int32_t length = 0;
};

/// Where `tokens[index]` is "/Filter" or "/Length", takes its value into `keys`, moves `index` to the last
/// token of the value, and returns true. A /Length that is a reference fetches that object, which overwrites
/// the reader's stream.
bool ReadStreamKey(PdfFileReader& reader, PdfXrefSection& section, const PdfTokens& tokens,
                   std::size_t& index, PdfStreamKeys& keys);

/// The first `length` bytes of `stream`. Throws `std::out_of_range`, which ends the whole read, where there
/// are not so many and where `length` is negative.
std::string_view FirstBytes(std::string_view stream, std::int64_t length);

}  // namespace pdf

#endif
