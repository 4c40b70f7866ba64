#ifndef DRAWLOAD_PDF_TO_UNICODE_H
#define DRAWLOAD_PDF_TO_UNICODE_H

#include <string_view>

#include "pdf/font.h"

namespace pdf {

/// Adds the single mappings ("beginbfchar") of a CMap to `map`. Ranges are not known. Throws
/// `std::out_of_range` where a list of mappings has no end.
void ReadCMap(std::string_view cmap, PdfToUnicode& map);

}  // namespace pdf

#endif
