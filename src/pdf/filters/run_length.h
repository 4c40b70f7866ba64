#ifndef DRAWLOAD_PDF_FILTERS_RUN_LENGTH_H
#define DRAWLOAD_PDF_FILTERS_RUN_LENGTH_H

#include <cstddef>
#include <optional>
#include <string>
#include <string_view>

namespace pdf {

/// Works through all but the last byte of `input`; nothing where there are more than `mostBytes` of output.
/// Throws `std::out_of_range` where a copy reaches past the input, or past the NUL that follows it where
/// `nulFollows`.
/// Kept: 128 is no end mark, it repeats like any other negative count.
std::optional<std::string> DecodeRunLength(std::string_view input, std::size_t mostBytes,
                                           bool nulFollows = false);

}  // namespace pdf

#endif
