#include "drawload/file_group.h"

#include <utility>

#include "result/member_list.h"
#include "result/ownership.h"

namespace {

/// Unlinks and frees `node`; hands back the object that it held.
CFileDraw* RemoveMember(FileMember* node) {
  CFileDraw* object = node->object;
  node->previous->next = node->next;
  node->next->previous = node->previous;
  delete node;
  return object;
}

}  // namespace

CFileGroup::CFileGroup() : CFileGroup(new FileMember{}) {}

CFileGroup::CFileGroup(FileMember* sentinel)
    : memberHead(sentinel), memberCursor(sentinel), memberCount(0), trailingValue(0) {
  memberHead->previous = memberHead;
  memberHead->next = memberHead;
  kind = kFileGroup;
}

CFileGroup::CFileGroup(const CFileGroup& other) = default;
CFileGroup& CFileGroup::operator=(const CFileGroup& other) = default;

// The analyzer takes the group that is destroyed for this one.
// NOLINTBEGIN(clang-analyzer-cplusplus.NewDelete)
CFileGroup::~CFileGroup() {
  while (memberHead->next != memberHead) {
    CFileDraw* member = RemoveMember(memberHead->next);
    if (member != nullptr && member->kind == kFileGroup) {
      // What is in the nested group moves up first: nesting of any depth costs no stack.
      SpliceMembers(static_cast<CFileGroup*>(member)->memberHead, memberHead);
    }
    DestroyObject(member);
  }
  delete memberHead;
}
// NOLINTEND(clang-analyzer-cplusplus.NewDelete)

void CFileGroup::TransMove(double dx, double dy) {
  for (memberCursor = memberHead->next; memberCursor != memberHead; memberCursor = memberCursor->next) {
    memberCursor->object->TransMove(dx, dy);
  }
}

void CFileGroup::TransRotate(double cx, double cy, double angle) {
  for (memberCursor = memberHead->next; memberCursor != memberHead; memberCursor = memberCursor->next) {
    memberCursor->object->TransRotate(cx, cy, angle);
  }
}

void CFileGroup::TransMirrorX(double x) {
  for (memberCursor = memberHead->next; memberCursor != memberHead; memberCursor = memberCursor->next) {
    memberCursor->object->TransMirrorX(x);
  }
}

void CFileGroup::TransMirrorY(double y) {
  for (memberCursor = memberHead->next; memberCursor != memberHead; memberCursor = memberCursor->next) {
    memberCursor->object->TransMirrorY(y);
  }
}

void CFileGroup::TransDrag(double cx, double cy, double sx, double sy) {
  for (memberCursor = memberHead->next; memberCursor != memberHead; memberCursor = memberCursor->next) {
    memberCursor->object->TransDrag(cx, cy, sx, sy);
  }
}

structRect CFileGroup::CalRect() {
  for (memberCursor = memberHead->next; memberCursor != memberHead; memberCursor = memberCursor->next) {
    structRect bounds = memberCursor->object->CalRect();
    if (memberCursor == memberHead->next) {
      rect = bounds;
      continue;
    }
    if (bounds.minX > bounds.maxX) std::swap(bounds.minX, bounds.maxX);
    if (bounds.minY > bounds.maxY) std::swap(bounds.minY, bounds.maxY);
    if (rect.minX > bounds.minX) rect.minX = bounds.minX;
    if (rect.minY > bounds.minY) rect.minY = bounds.minY;
    if (rect.maxX < bounds.maxX) rect.maxX = bounds.maxX;
    if (rect.maxY < bounds.maxY) rect.maxY = bounds.maxY;
    if (rect.minX > rect.maxX) std::swap(rect.minX, rect.maxX);
    if (rect.minY > rect.maxY) std::swap(rect.minY, rect.maxY);
  }
  return rect;
}
