#ifndef DRAWLOAD_PDF_FILTERS_ASCII_HEX_H
#define DRAWLOAD_PDF_FILTERS_ASCII_HEX_H

#include <string>
#include <string_view>

namespace pdf {

/// The bytes that pairs of hexadecimal digits give, and a NUL behind them. Everything else is skipped, the
/// end marker included; a digit without a partner is dropped.
std::string DecodeAsciiHex(std::string_view input);

}  // namespace pdf

#endif
