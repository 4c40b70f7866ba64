#ifndef DRAWLOAD_TESTS_PDF_JPEG2000_MAKER_H
#define DRAWLOAD_TESTS_PDF_JPEG2000_MAKER_H

#include <algorithm>
#include <cstdint>
#include <openjpeg.h>
#include <string>
#include <vector>

/// Writes JPEG 2000 pictures without loss, with OpenJPEG's encoder.
struct Jpeg2000Maker {
  OPJ_CODEC_FORMAT format = OPJ_CODEC_J2K;
  std::uint32_t width = 2;
  std::uint32_t height = 2;
  std::uint32_t bits = 8;
  std::uint32_t secondStep = 1;                   ///< of the second component
  std::vector<std::vector<std::int32_t>> planes;  ///< one for each component

  std::string Make() const {
    opj_image_t* image = MakeImage();
    opj_cparameters_t parameters;
    opj_set_default_encoder_parameters(&parameters);
    parameters.tcp_numlayers = 1;
    parameters.cp_disto_alloc = 1;
    parameters.numresolution = 1;
    opj_codec_t* codec = opj_create_compress(format);
    opj_setup_encoder(codec, &parameters, image);
    Target target;
    opj_stream_t* stream = MakeStream(target);
    const bool isMade = opj_start_compress(codec, image, stream) && opj_encode(codec, stream) &&
                        opj_end_compress(codec, stream);
    opj_stream_destroy(stream);
    opj_destroy_codec(codec);
    opj_image_destroy(image);
    return isMade ? target.bytes : std::string();
  }

 private:
  struct Target {
    std::string bytes;
    std::size_t place = 0;
  };

  opj_image_t* MakeImage() const {
    std::vector<opj_image_cmptparm_t> components(planes.size());
    for (std::size_t i = 0; i < components.size(); ++i) {
      const std::uint32_t step = i == 1 ? secondStep : 1;
      components[i].dx = step;
      components[i].dy = step;
      components[i].w = (width + step - 1) / step;
      components[i].h = (height + step - 1) / step;
      components[i].prec = bits;
    }
    opj_image_t* image =
        opj_image_create(static_cast<OPJ_UINT32>(components.size()), components.data(), OPJ_CLRSPC_SRGB);
    image->x1 = width;
    image->y1 = height;
    for (std::size_t i = 0; i < planes.size(); ++i)
      std::copy(planes[i].begin(), planes[i].end(), image->comps[i].data);
    return image;
  }

  static opj_stream_t* MakeStream(Target& target) {
    opj_stream_t* stream = opj_stream_default_create(OPJ_FALSE);
    opj_stream_set_user_data(stream, &target, [](void*) {});
    opj_stream_set_write_function(stream, [](void* buffer, OPJ_SIZE_T count, void* user) {
      auto& [bytes, place] = *static_cast<Target*>(user);
      bytes.resize(std::max(bytes.size(), place + count));
      std::copy_n(static_cast<const char*>(buffer), count,
                  bytes.begin() + static_cast<std::ptrdiff_t>(place));
      place += count;
      return count;
    });
    opj_stream_set_seek_function(stream, [](OPJ_OFF_T offset, void* user) {
      static_cast<Target*>(user)->place = static_cast<std::size_t>(offset);
      return OPJ_TRUE;
    });
    opj_stream_set_skip_function(stream, [](OPJ_OFF_T count, void* user) {
      static_cast<Target*>(user)->place += static_cast<std::size_t>(count);
      return count;
    });
    return stream;
  }
};

#endif
