#ifndef DRAWLOAD_DXF_TEXT_ENCODING_H
#define DRAWLOAD_DXF_TEXT_ENCODING_H

#include <string_view>

/// The encoding that the bytes of a text are most likely in: "UTF-8", "GBK", "UTF-32" or "unknown". A drawing
/// does not say reliably, so the bytes themselves decide.
std::string_view GuessEncoding(std::string_view text);

#endif
