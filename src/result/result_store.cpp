#include "result/result_store.h"

#include <new>
#include <utility>

#include "platform/global_memory.h"

namespace drawload {

ResultStore::~ResultStore() {
  for (const CFileDib* dib : dibs) {
    if (dib->bitmap != nullptr) platform::GlobalFree(dib->bitmap);
    ::operator delete(dib->auxiliary);
  }
}

CFileCurve* ResultStore::NewCurve() {
  if (spareCurve != nullptr) return std::exchange(spareCurve, nullptr);
  FileSegment* sentinel = new (objects.RoomFor<FileSegment>()) FileSegment{};
  return new (objects.RoomFor<CFileCurve>()) CFileCurve(sentinel);
}

CFileDib* ResultStore::NewDib() {
  CFileDib* dib = new (objects.RoomFor<CFileDib>()) CFileDib;
  dibs.push_back(dib);  // owns nothing yet, so nothing is lost where this fails
  return dib;
}

CFileGroup* ResultStore::NewGroup() {
  if (spareGroups.empty()) {
    // So that taking the groups back cannot fail.
    if (spareGroups.capacity() == groupCount) spareGroups.reserve(2 * groupCount + 1);
    ++groupCount;
    return new (objects.RoomFor<CFileGroup>()) CFileGroup(new (nodes.RoomFor<FileMember>()) FileMember{});
  }
  CFileGroup* group = spareGroups.back();
  spareGroups.pop_back();
  return group;
}

FileMember* ResultStore::NewList() {
  auto* sentinel = new (nodes.RoomFor<FileMember>()) FileMember{};
  sentinel->previous = sentinel;
  sentinel->next = sentinel;
  return sentinel;
}

void ResultStore::Recycle(CFileCurve* curve) noexcept {
  spareCurve = new (curve) CFileCurve(curve->segmentHead);
}

void ResultStore::Recycle(CFileGroup* group) noexcept {
  spareGroups.push_back(new (group) CFileGroup(group->memberHead));
}

FileSegment& ResultStore::AppendSegment(CFileCurve& curve, FileSegmentType type) {
  FileSegment* head = curve.segmentHead;
  auto* segment = new (objects.RoomFor<FileSegment>()) FileSegment{};
  segment->type = type;
  segment->previous = head->previous;
  segment->next = head;
  head->previous->next = segment;
  head->previous = segment;
  if (curve.segmentCount == 0) curve.segmentCursor = segment;
  ++curve.segmentCount;
  return *segment;
}

void ResultStore::AppendLine(CFileCurve& curve, FilePosition from, FilePosition to) {
  FileSegment& segment = AppendSegment(curve, kSegmentLine);
  segment.start = from;
  segment.end = to;
}

void ResultStore::AppendCubic(CFileCurve& curve, FilePosition from, FilePosition control1,
                              FilePosition control2, FilePosition to) {
  FileSegment& segment = AppendSegment(curve, kSegmentCubic);
  segment.start = from;
  segment.end = to;
  segment.control1 = control1;
  segment.control2 = control2;
}

void ResultStore::Append(FileMember* head, CFileDraw* object) {
  auto* node = new (nodes.RoomFor<FileMember>()) FileMember{object, head->previous, head};
  head->previous->next = node;
  head->previous = node;
}

void ResultStore::Append(CFileGroup& group, CFileDraw* object) {
  Append(group.memberHead, object);
  ++group.memberCount;
}

}  // namespace drawload
