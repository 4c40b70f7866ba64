#include "pdf/filters/jpeg2000.h"

#include <algorithm>
#include <cstdio>
#include <memory>
#include <new>
#include <openjpeg.h>
#include <stdexcept>

#include "pdf/cx_file.h"
#include "pdf/filters/jpeg2000_claims.h"
#include "support/account.h"
#include "support/limits.h"
#include "support/spare_memory.h"

namespace pdf {

namespace {

using Stream = std::unique_ptr<opj_stream_t, decltype(&opj_stream_destroy)>;
using Codec = std::unique_ptr<opj_codec_t, decltype(&opj_destroy_codec)>;
using Image = std::unique_ptr<opj_image_t, decltype(&opj_image_destroy)>;

constexpr OPJ_UINT32 kMostComponents = 64;

[[noreturn]] void Fail(const char* text) { throw std::runtime_error(text); }

// The operations of the decoder's stream. Its "user" is the file.

CxFile& FileOf(void* user) { return *static_cast<CxFile*>(user); }

OPJ_SIZE_T ReadBytes(void* buffer, OPJ_SIZE_T count, void* user) {
  const std::size_t got = FileOf(user).Read(buffer, 1, count);
  return got > 0 ? got : static_cast<OPJ_SIZE_T>(-1);
}

OPJ_SIZE_T WriteBytes(void* buffer, OPJ_SIZE_T count, void* user) {
  return FileOf(user).Write(buffer, 1, count);
}

OPJ_OFF_T SkipBytes(OPJ_OFF_T count, void* user) {
  CxFile& file = FileOf(user);
  const std::int64_t left = file.Size() - file.Tell();
  const OPJ_OFF_T skipped = std::min<OPJ_OFF_T>(count, left);
  return skipped > 0 && file.Seek(skipped, SEEK_CUR) ? skipped : -1;
}

OPJ_BOOL SeekTo(OPJ_OFF_T offset, void* user) {
  CxFile& file = FileOf(user);
  return offset <= file.Size() && file.Seek(offset, SEEK_SET) ? OPJ_TRUE : OPJ_FALSE;
}

void CloseNothing(void*) {}

/// The decoder for what `input` begins like.
OPJ_CODEC_FORMAT FormatOf(std::string_view input) {
  constexpr std::string_view kFileStart("\0\0\0\x0CjP  \r\n\x87\n", 12);
  constexpr std::string_view kCodestreamStart("\xFF\x4F\xFF\x51", 4);
  if (input.substr(0, kFileStart.size()) == kFileStart) return OPJ_CODEC_JP2;
  if (input.substr(0, kCodestreamStart.size()) == kCodestreamStart) return OPJ_CODEC_J2K;
  Fail("error: unknowm format");
}

Codec MakeCodec(OPJ_CODEC_FORMAT format) {
  Codec codec(opj_create_decompress(format), opj_destroy_codec);
  opj_dparameters_t parameters;
  opj_set_default_decoder_parameters(&parameters);
  if (!codec || !opj_setup_decoder(codec.get(), &parameters)) Fail("cannot initialize jasper");
  return codec;
}

Stream MakeStream(CxFile& file) {
  constexpr std::int64_t kMostBuffered = std::int64_t{1} << 20;
  const std::int64_t buffered = std::clamp<std::int64_t>(file.Size(), 1024, kMostBuffered);
  Stream stream(opj_stream_create(static_cast<OPJ_SIZE_T>(buffered), OPJ_TRUE), opj_stream_destroy);
  if (!stream) Fail("error: cannot open standard input");
  opj_stream_set_user_data(stream.get(), &file, CloseNothing);
  opj_stream_set_user_data_length(stream.get(),
                                  static_cast<OPJ_UINT64>(std::max<std::int64_t>(file.Size(), 0)));
  opj_stream_set_read_function(stream.get(), ReadBytes);
  opj_stream_set_write_function(stream.get(), WriteBytes);
  opj_stream_set_skip_function(stream.get(), SkipBytes);
  opj_stream_set_seek_function(stream.get(), SeekTo);
  return stream;
}

/// Work of decoding a sample.
constexpr std::uint64_t kWorkPerSample = 50;

std::uint64_t SamplesOf(const opj_image_t& image) {
  return std::uint64_t{image.x1 - image.x0} * (image.y1 - image.y0) * image.numcomps;
}

/// What the decoder holds for the picture: a 32-bit number for each sample of the picture and of its tiles.
std::uint64_t BytesFor(const opj_image_t& image, const Jpeg2000Claims& claims) {
  return 2 * sizeof(OPJ_INT32) * SamplesOf(image) + claims.TableBytes();
}

/// Whether the header's claims are within the limits, checked before anything of that size is allocated.
bool IsWithinLimits(const opj_image_t& image, const Jpeg2000Claims& claims, std::size_t inputSize) {
  const std::uint64_t width = image.x1 - image.x0;
  const std::uint64_t height = image.y1 - image.y0;
  const std::uint64_t believable = std::max<std::uint64_t>(
      support::limits::kSmallPicturePixels, inputSize * support::limits::kPicturePixelsPerByte);
  if (width != 0 && height > believable / width) return false;
  const std::uint64_t samples = width * height * std::max(image.numcomps, claims.PaletteChannels());
  return samples <= 3 * believable && claims.AllowPicture(inputSize);
}

/// Whether the decoder will find the memory for the picture. It does not survive a failure of its own small
/// allocations, so it is not even started where memory is short.
bool HasMemoryFor(const opj_image_t& image) {
  constexpr std::size_t kBytesPerSample = 16;
  constexpr std::size_t kTables = std::size_t{16} << 20;
  const std::size_t pixels = std::size_t{image.x1 - image.x0} * (image.y1 - image.y0);
  return support::HasSpareMemory(kTables + kBytesPerSample * pixels * image.numcomps);
}

/// The picture with its pixels; null where it claims more than its bytes can hold.
Image ReadPicture(opj_codec_t* codec, opj_stream_t* stream, std::string_view input) {
  const Jpeg2000Claims claims(input);
  if (!claims.AllowHeader()) return {nullptr, opj_image_destroy};
  opj_image_t* header = nullptr;
  const bool isRead = opj_read_header(stream, codec, &header) != OPJ_FALSE;
  Image image(header, opj_image_destroy);
  if (!isRead || !image || image->numcomps == 0) Fail("error: cannot load image data");
  if (image->numcomps > kMostComponents) Fail("error: too many components");
  if (image->comps[0].dx == 1 && image->x1 - image->x0 == 0xFFFFFFFF) Fail("output dimensions returned");
  if (!IsWithinLimits(*image, claims, input.size())) return {nullptr, opj_image_destroy};
  support::SpendWork(kWorkPerSample * SamplesOf(*image));
  const support::HeldElsewhere held(BytesFor(*image, claims));
  if (!HasMemoryFor(*image)) Fail("error: cannot allocate memory");
  if (!opj_decode(codec, stream, image.get()) || !opj_end_decompress(codec, stream)) {
    Fail("error: cannot load image data");
  }
  return image;
}

bool AreAlike(const opj_image_comp_t& one, const opj_image_comp_t& other) {
  return one.x0 == other.x0 && one.y0 == other.y0 && one.w == other.w && one.h == other.h &&
         one.dx == other.dx && one.dy == other.dy;
}

bool IsDelivered(const opj_image_t& image) {
  if (image.numcomps != 3) return false;
  for (const opj_image_comp_t* component = image.comps; component != image.comps + 3; ++component) {
    if (!component->data || !AreAlike(*component, image.comps[0])) return false;
  }
  return true;
}

/// The value of a pixel as a byte; components of more than eight bits lose the lower ones.
std::uint8_t ByteOf(const opj_image_comp_t& component, std::size_t pixel) {
  const OPJ_UINT32 shift = component.prec > 8 ? component.prec - 8 : 0;
  return static_cast<std::uint8_t>(static_cast<std::uint32_t>(component.data[pixel] >> std::min(shift, 31U)));
}

void AppendPixels(const opj_image_t& image, std::vector<std::uint8_t>& plane) {
  const std::size_t pixels = std::size_t{image.comps[0].w} * image.comps[0].h;
  plane.reserve(plane.size() + 3 * pixels);
  for (std::size_t i = 0; i < pixels; ++i) {
    for (std::size_t component = 0; component < 3; ++component)
      plane.push_back(ByteOf(image.comps[component], i));
  }
}

}  // namespace

bool DecodeJpeg2000(std::string_view input, std::vector<std::uint8_t>& plane) {
  CxIOFile file;
  if (!file.OpenBytes(input)) Fail("error: cannot open standard input");
  const Stream stream = MakeStream(file);
  const Codec codec = MakeCodec(FormatOf(input));
  const Image image = ReadPicture(codec.get(), stream.get(), input);
  if (!image || !IsDelivered(*image)) return false;
  try {
    AppendPixels(*image, plane);
  } catch (const support::BeyondAllowance&) {
    throw;
  } catch (const std::bad_alloc&) {
    Fail("error: cannot allocate memory");
  }
  return true;
}

}  // namespace pdf
