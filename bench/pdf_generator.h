#ifndef DRAWLOAD_BENCH_PDF_GENERATOR_H
#define DRAWLOAD_BENCH_PDF_GENERATOR_H

#include <cstdint>
#include <string>

/// PDF files for measuring: the same for the same numbers, on every machine.
namespace bench {

/// `pageCount` pages of `segmentCount` lines and curves each, in paths of 50.
std::string PdfOfSegments(std::int64_t pageCount, std::int64_t segmentCount);

/// Ten pages of lines and curves with four decimals, `segmentCount` in all, compressed.
std::string PdfOfFlate(std::int64_t segmentCount);

/// Pages with one picture of 200 by 200 grey pixels each, all different.
std::string PdfOfImages(std::int64_t imageCount);

}  // namespace bench

#endif
