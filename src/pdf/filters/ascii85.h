#ifndef DRAWLOAD_PDF_FILTERS_ASCII85_H
#define DRAWLOAD_PDF_FILTERS_ASCII85_H

#include <cstdint>
#include <string>
#include <string_view>

namespace pdf {

struct Ascii85Output {
  std::string bytes;        ///< four for each group, the last and incomplete one included
  std::uint32_t count = 0;  ///< how many of them count
};

/// Decodes up to "~". Bytes outside "!" to "u" are skipped, "z" as well.
/// Kept: a group whose value has the top bit set repeats the digits of the group before.
Ascii85Output DecodeAscii85(std::string_view input);

}  // namespace pdf

#endif
