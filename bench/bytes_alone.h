#ifndef DRAWLOAD_BENCH_BYTES_ALONE_H
#define DRAWLOAD_BENCH_BYTES_ALONE_H

#include <string_view>

/// What the bytes of a drawing cost alone, whoever reads them: the floor that a reader is measured against.
/// Each function turns every number that it comes by with `std::from_chars` and returns their sum.
namespace bench {

/// DXF: the text split into lines; each line that begins with a number is read.
double LinesAndNumbers(std::string_view text);

/// SVG: parsed by the XML library, and every number anywhere in the text.
double XmlAndNumbers(std::string_view text);

/// PDF: every compressed stream inflated by zlib, and every number in it. Streams begin at "stream" and a
/// line feed, and are as long as zlib finds them.
double InflateAndNumbers(std::string_view text);

}  // namespace bench

#endif
