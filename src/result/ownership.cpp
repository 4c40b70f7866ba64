#include "result/ownership.h"

#include "drawload/file_curve.h"
#include "drawload/file_dib.h"
#include "drawload/file_group.h"
#include "drawload/file_point.h"
#include "platform/global_memory.h"

namespace {

// The kind tells the whole type, so that no virtual destructor is needed (there is none in the layout).
template <typename Object>
void Free(Object* object) {
  object->Object::~Object();
  ::operator delete(object);
}

void DestroyCurve(CFileCurve* curve) {
  FileSegment* head = curve->segmentHead;
  for (FileSegment* segment = head->next; segment != head;) {
    FileSegment* next = segment->next;
    delete segment;
    segment = next;
  }
  delete head;
  Free(curve);
}

void DestroyDib(CFileDib* dib) {
  if (dib->bitmap != nullptr) platform::GlobalFree(dib->bitmap);
  ::operator delete(dib->auxiliary);
  Free(dib);
}

}  // namespace

void DestroyObject(CFileDraw* object) {
  if (object == nullptr) return;
  switch (object->kind) {
    case kFileCurve: return DestroyCurve(static_cast<CFileCurve*>(object));
    case kFileDib: return DestroyDib(static_cast<CFileDib*>(object));
    case kFilePoint: Free(static_cast<CFilePoint*>(object)); return;
    case kFileGroup: Free(static_cast<CFileGroup*>(object)); return;
    default: ::operator delete(object); return;
  }
}
