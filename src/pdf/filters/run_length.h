#ifndef DRAWLOAD_PDF_FILTERS_RUN_LENGTH_H
#define DRAWLOAD_PDF_FILTERS_RUN_LENGTH_H

#include <string>
#include <string_view>

namespace pdf {

/// Works through all but the last byte of `input`. Throws `std::out_of_range` where a copy reaches past the
/// input, or past the NUL that follows it where `nulFollows`. Kept: 128 is no end mark, it repeats like any
/// other negative count.
std::string DecodeRunLength(std::string_view input, bool nulFollows = false);

}  // namespace pdf

#endif
