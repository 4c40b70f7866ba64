#ifndef DRAWLOAD_TOOLS_PNG_IMAGE_H
#define DRAWLOAD_TOOLS_PNG_IMAGE_H

#include <string>

#include "job.h"

/// The bitmap as the bytes of a PNG file with three channels. The channels of a pixel differ by at most a
/// few steps from its grey value and are chosen so that reading the picture back (0.587 of the second
/// channel plus 0.299 of the third plus 0.114 of the first, truncated) gives exactly that value again.
/// Throws std::runtime_error where the encoder refuses the picture.
std::string EncodePng(const Bitmap& bitmap);

/// `bytes` as Base64 text.
std::string Base64(const std::string& bytes);

#endif
