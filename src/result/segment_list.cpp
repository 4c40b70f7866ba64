#include "result/segment_list.h"

namespace {

FileSegment& AppendSegment(CFileCurve& curve, FileSegmentType type) {
  FileSegment* head = curve.segmentHead;
  auto* segment = new FileSegment{};
  segment->type = type;
  segment->previous = head->previous;
  segment->next = head;
  head->previous->next = segment;
  head->previous = segment;
  if (curve.segmentCount == 0) curve.segmentCursor = segment;
  ++curve.segmentCount;
  return *segment;
}

}  // namespace

void AppendLine(CFileCurve& curve, FilePosition start, FilePosition end) {
  FileSegment& segment = AppendSegment(curve, kSegmentLine);
  segment.start = start;
  segment.end = end;
}

void AppendCubic(CFileCurve& curve, FilePosition start, FilePosition control1, FilePosition control2,
                 FilePosition end) {
  FileSegment& segment = AppendSegment(curve, kSegmentCubic);
  segment.start = start;
  segment.end = end;
  segment.control1 = control1;
  segment.control2 = control2;
}
