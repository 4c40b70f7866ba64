#include <algorithm>
#include <string>

#include "pdf/filters/ascii85.h"
#include "pdf/filters/ascii_hex.h"
#include "pdf/filters/bitmap_rows.h"
#include "pdf/filters/flate.h"
#include "pdf/filters/jpeg2000.h"
#include "pdf/filters/lzw.h"
#include "pdf/filters/run_length.h"
#include "pdf/stream_data.h"
#include "support/account.h"
#include "support/limits.h"

namespace pdf {

namespace {

constexpr std::uint8_t kSet = 0xFF;
constexpr int kFlateTries = 3;

std::string_view InputOf(const PdfStreamData& data) { return FirstBytes(data.input, data.length); }

/// Width times height of an image whose size was found allowed, and of anything else that gets a plane.
std::size_t PixelsOf(const PdfStreamData& data) {
  return static_cast<std::size_t>(data.width) * static_cast<std::size_t>(data.height);
}

void DropOutput(PdfStreamData& data) {
  data.decoded.clear();
  data.imagePlane.clear();
  data.plainPlane = {};
  data.length = 0;
}

/// A plane of one white component. It holds no bytes: pixels without bytes are white, and the white pages of
/// a scanned document would add up.
void FillWhite(PdfStreamData& data) {
  const std::size_t pixels = IsAllowedImageSize(data.width, data.height) ? PixelsOf(data) : 0;
  data.components = 1;
  data.length = static_cast<std::uint32_t>(pixels);
}

void DecodeAsciiHexStream(PdfStreamData& data) { data.decoded += DecodeAsciiHex(InputOf(data)); }

void DecodeAscii85Stream(PdfStreamData& data) {
  const Ascii85Output output = DecodeAscii85(InputOf(data));
  data.decoded += output.bytes;
  data.length = output.count;
}

/// Takes the output of LZW or run length: a bitmap for an image, else bytes.
void TakeOutput(PdfStreamData& data, const std::string& output, std::uint8_t setBit) {
  if (!data.isImage) {
    data.decoded += output;
    return;
  }
  data.components = 1;
  const auto width = static_cast<std::size_t>(data.width);
  const auto height = static_cast<std::size_t>(data.height);
  AppendBitmapRows(output, width, height, setBit, static_cast<std::uint8_t>(~setBit), data.imagePlane);
}

void DecodeLzwStream(PdfStreamData& data) { TakeOutput(data, PdfLzwDecoder(InputOf(data)).Decode(), kSet); }

void DecodeRunLengthStream(PdfStreamData& data) {
  TakeOutput(data, DecodeRunLength(InputOf(data), data.nulFollows), 0);
}

/// Moves the inflated bytes of an image to its plane.
void TakePixels(PdfStreamData& data) {
  const std::size_t pixels = PixelsOf(data);
  data.components = pixels == 0 ? 0 : static_cast<std::int32_t>(data.length / pixels);
  const bool isCmyk = data.components == 4 && data.colourSpace == "/DeviceCMYK";
  const bool isPlain = data.components == 1 || data.components == 3;
  if (isCmyk || isPlain) {
    const auto* bytes = reinterpret_cast<const std::uint8_t*>(data.decoded.data());
    data.imagePlane.assign(bytes, bytes + pixels * static_cast<std::size_t>(data.components));
  }
  data.decoded = std::string();
  if (!isCmyk) return;
  for (auto pixel = data.imagePlane.begin(); pixel != data.imagePlane.end(); pixel += 4) {
    std::rotate(pixel, pixel + 1, pixel + 4);  // Kept: second, third, fourth, first
  }
}

void RepeatNote(PdfNotes& notes, std::string_view note) {
  for (int tries = 0; tries < kFlateTries; ++tries) notes.Write(note);
}

void DecodeFlateStream(PdfStreamData& data, PdfNotes& notes) {
  const std::size_t before = data.decoded.size();
  const FlateResult result = Inflate(InputOf(data), data.decoded);
  // Another try gives the same result, so it is not made; its note is part of what the reader says.
  if (result == FlateResult::kCorrupt) return RepeatNote(notes, "input error!");
  if (result == FlateResult::kOutOfMemory) return RepeatNote(notes, "Out of memory!!!");
  const std::size_t size = data.decoded.size() - before;
  data.length = static_cast<std::uint32_t>(size);
  if (data.isImage) TakePixels(data);
}

void DecodeJpxStream(PdfStreamData& data) {
  if (DecodeJpeg2000(InputOf(data), data.imagePlane)) data.components = 3;
}

/// One filter; false for a name that is not known.
bool ApplyFilter(std::string_view name, PdfStreamData& data, PdfNotes& notes) {
  if (name == "/ASCIIHexDecode") {
    DecodeAsciiHexStream(data);
  } else if (name == "/ASCII85Decode") {
    DecodeAscii85Stream(data);
  } else if (name == "/LZWDecode") {
    DecodeLzwStream(data);
  } else if (name == "/FlateDecode") {
    DecodeFlateStream(data, notes);
  } else if (name == "/RunLengthDecode") {
    DecodeRunLengthStream(data);
  } else if (name == "/CCITTFaxDecode" || name == "/JBIG2Decode") {
    notes.Write(name.substr(1));
    FillWhite(data);
  } else if (name == "/DCTDecode") {
    FillWhite(data);
  } else if (name == "/JPXDecode") {
    DecodeJpxStream(data);
  } else {
    return false;
  }
  return true;
}

/// The bytes as they are. For an image their number decides how many there are for each pixel.
void TakeUnfiltered(PdfStreamData& data) {
  const std::string_view input = InputOf(data);
  if (!data.isImage) {
    data.decoded += input;
    return;
  }
  data.plainPlane = input;
  if (data.width == 0 || data.height == 0) return;
  data.components = static_cast<std::int32_t>(std::int64_t{data.length} / data.height / data.width);
}

}  // namespace

bool IsAllowedImageSize(std::int32_t width, std::int32_t height) {
  if (width < 0 || height < 0) return false;
  return std::uint64_t(width) * std::uint64_t(height) <= support::limits::kHeldBytes;
}

void DecodeStream(PdfStreamData& data, PdfNotes& notes) {
  const std::string_view input = InputOf(data);
  if (data.isImage && !IsAllowedImageSize(data.width, data.height)) return DropOutput(data);
  support::SpendWork(input.size());
  if (data.filters.empty()) return TakeUnfiltered(data);
  if (data.filters.size() == 1) return DecodeFilter(data, notes);
  if (data.isImage) return FillWhite(data);
  data.decoded += input;
}

void DecodeFilter(PdfStreamData& data, PdfNotes& notes) {
  const std::string_view original = data.input;
  std::string joined;
  for (std::size_t i = 0; i < data.filters.size(); ++i) {
    if (!ApplyFilter(data.filters[i], data, notes)) break;
    if (i + 1 == data.filters.size()) break;
    notes.Write("级联过滤器");
    joined.assign(data.input).append(data.decoded);
    data.input = joined;
  }
  data.input = original;
}

}  // namespace pdf
