#ifndef DRAWLOAD_PDF_SHOW_STRING_H
#define DRAWLOAD_PDF_SHOW_STRING_H

#include <cstdint>
#include <optional>
#include <string>
#include <string_view>

#include "pdf/font.h"

namespace pdf {

/// The text that a `Tj` line shows: the bytes of a literal string as they stand (no escapes, no encoding), or
/// a hexadecimal string mapped through the font, as UTF-8. Nothing where the mapped text is not UTF-16.
std::optional<std::string> DecodeShowString(std::string_view line, const PdfFont& font);

/// The same for a `TJ` line: all its strings joined, the numbers between them passed over.
std::optional<std::string> DecodeShowArray(std::string_view line, const PdfFont& font);

/// The unit for a code of four hexadecimal digits that the font does not map: it is taken as a GBK pair.
/// 0 where that gives nothing.
/// Kept: the range is chosen by the code's last two digits, and the place within it by the whole code.
std::uint16_t DoubleByteFallback(std::string_view code);

}  // namespace pdf

#endif
