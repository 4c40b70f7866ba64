#ifndef DRAWLOAD_PDF_FONT_READER_H
#define DRAWLOAD_PDF_FONT_READER_H

#include "pdf/font.h"
#include "pdf/object_source.h"

namespace pdf {

/// Reads a font from the tokens of its object. Throws `std::out_of_range` where they break off.
void ReadFont(ObjectSource& source, const PdfTokens& tokens, PdfFont& font);

/// Reads what a composite font's descendant says. The keys are read on after the "]" that ends /W.
PdfCIDFont ReadCIDFont(ObjectSource& source, const PdfTokens& tokens);

/// Reads the font descriptor in this object. An embedded font program is looked at and dropped.
std::shared_ptr<const PdfFontDescriptor> ReadFontDescriptor(ObjectSource& source, std::int32_t objectNumber);

}  // namespace pdf

#endif
