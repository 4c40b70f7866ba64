// Pages: their size, the y axis of SVG documents, and the stacking of PDF pages.
#include "sink/my_draw_load.h"

void CMyDrawLoad::SetPage(const PARSE::PageRect* rect, PARSE::Context) {
  pageHeight = rect->height;
  pageWidth = rect->width;
  pageCenterX = rect->width * 0.5;
  pageCenterY = rect->height * 0.5;
  spareFloat = 0.0;
  if (fileType == PARSE::kSvgFile) {
    // SVG's y runs downward: a point at y lands at height - y. Kept: a second call reflects back.
    pageMatrix.e += pageMatrix.c * pageHeight;
    pageMatrix.f += pageMatrix.d * pageHeight;
    pageMatrix.c = -pageMatrix.c;
    pageMatrix.d = -pageMatrix.d;
  }
  if (fileType == PARSE::kPdfFile && firstPage == 1) firstPage = 0;
  if (pageCount == 0) {
    pageCount = 1;
    return;
  }
  // Kept: the offsets add up, so the n-th page behind the first lies 1 + 2 + ... + n page heights down.
  const double offset = pageCount * pageHeight;
  pageMatrix.e -= offset * pageMatrix.c;
  pageMatrix.f -= offset * pageMatrix.d;
  ++pageCount;
}

void CMyDrawLoad::SetMachineInfo(const PARSE::MachineInfo* record, PARSE::Context) {
  machineInfo.diameter = record->diameter;
  machineInfo.machineType = record->machineType;
  machineInfo.AutoFocus = record->AutoFocus;
  machineInfo.machineModel = record->machineModel;
}
