#ifndef DRAWLOAD_TESTS_HOST_OBJECTS_H
#define DRAWLOAD_TESTS_HOST_OBJECTS_H

#include <memory>

#include "drawload/file_curve.h"
#include "drawload/file_group.h"
#include "result/ownership.h"

// Result objects as a host makes them for itself: each on its own, with `new`.

struct HostObjectDeleter {
  void operator()(CFileDraw* object) const { DestroyObject(object); }
};

template <typename Object>
using Owned = std::unique_ptr<Object, HostObjectDeleter>;

/// Appends `object` as the last member of `group`, which owns it from now on.
inline void AppendMember(CFileGroup& group, CFileDraw* object) {
  FileMember* head = group.memberHead;
  auto* node = new FileMember{object, head->previous, head};
  head->previous->next = node;
  head->previous = node;
  ++group.memberCount;
}

/// Appends an empty segment to `curve`, which owns it from now on.
inline void AppendSegment(CFileCurve& curve) {
  FileSegment* head = curve.segmentHead;
  auto* segment = new FileSegment{};
  segment->previous = head->previous;
  segment->next = head;
  head->previous->next = segment;
  head->previous = segment;
  ++curve.segmentCount;
}

#endif
