#ifndef DRAWLOAD_PDF_PAGE_CONVERSION_H
#define DRAWLOAD_PDF_PAGE_CONVERSION_H

#include "entity/image.h"
#include "entity/path.h"
#include "entity/text.h"
#include "pdf/font_names.h"
#include "pdf/page_records.h"

/// From page records, in PDF units, to neutral entities, in millimetres.
namespace pdf {

/// Millimetres in a PDF unit.
constexpr double kMillimetresPerUnit = 0.35277777777777775;

void ConvertPath(const PDF_PagePath& source, Entity_ZR::ZR_Path& target);
void ConvertText(const PDF_PageText& source, FontNames& fontNames, Entity_ZR::ZR_Text& target);

/// An image without a width leaves `target` as it is.
void ConvertImage(const PDF_PageImage& source, Entity_ZR::ZR_Image& target);

}  // namespace pdf

#endif
