#ifndef DRAWLOAD_SUPPORT_BASE64_H
#define DRAWLOAD_SUPPORT_BASE64_H

#include <cstddef>
#include <string>
#include <string_view>

namespace support {

/// Decodes Base64 of the standard alphabet from `text` to `out` and returns the number of bytes written, at
/// most 3/4 of the length of `text`. Characters outside the alphabet are skipped, "=" and line breaks
/// included; bits that do not fill a byte at the end are dropped. `out` may be the place where `text` begins.
std::size_t DecodeBase64(std::string_view text, char* out);

/// The same into a string of its own.
std::string DecodeBase64(std::string_view text);

}  // namespace support

#endif
