#ifndef DRAWLOAD_PDF_FILTERS_FLATE_H
#define DRAWLOAD_PDF_FILTERS_FLATE_H

#include <cstddef>
#include <string>
#include <string_view>

namespace pdf {

enum class FlateResult { kComplete, kCorrupt, kOutOfMemory };

/// Appends what `input` inflates to. Bytes behind the end of the compressed data are ignored; data that break
/// off are corrupt. `output` stays as it was unless the result is complete. Throws
/// `support::BeyondAllowance`.
FlateResult Inflate(std::string_view input, std::string& output);

}  // namespace pdf

#endif
