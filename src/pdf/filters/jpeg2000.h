#ifndef DRAWLOAD_PDF_FILTERS_JPEG2000_H
#define DRAWLOAD_PDF_FILTERS_JPEG2000_H

#include <cstdint>
#include <string_view>
#include <vector>

namespace pdf {

/// Appends the pixels of a JPEG 2000 picture (a JP2 file or a bare codestream) to `plane`, three bytes each,
/// and returns true. Only pictures of exactly three components of one origin, size and step are delivered;
/// for all others, and for those whose header claims more than their bytes can hold, it returns false and
/// leaves `plane` as it was. Throws `std::runtime_error` where the picture cannot be read, and
/// `support::BeyondAllowance`.
bool DecodeJpeg2000(std::string_view input, std::vector<std::uint8_t>& plane);

}  // namespace pdf

#endif
