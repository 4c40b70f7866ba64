#include "drawload/file_curve.h"

CFileCurve::CFileCurve()
    : segmentHead(new FileSegment{}), segmentCursor(segmentHead), segmentCount(0), trailingWord(0) {
  segmentHead->previous = segmentHead;
  segmentHead->next = segmentHead;
}

CFileCurve::CFileCurve(const CFileCurve& other) = default;
CFileCurve& CFileCurve::operator=(const CFileCurve& other) = default;

void CFileCurve::TransMove(double dx, double dy) { Move(dx, dy); }
