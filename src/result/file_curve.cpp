#include "drawload/file_curve.h"

CFileCurve::CFileCurve() : CFileCurve(new FileSegment{}) {}

CFileCurve::CFileCurve(FileSegment* sentinel)
    : segmentHead(sentinel), segmentCursor(sentinel), segmentCount(0), trailingWord(0) {
  segmentHead->previous = segmentHead;
  segmentHead->next = segmentHead;
}

CFileCurve::CFileCurve(const CFileCurve& other) = default;
CFileCurve& CFileCurve::operator=(const CFileCurve& other) = default;

void CFileCurve::TransMove(double dx, double dy) { Move(dx, dy); }
