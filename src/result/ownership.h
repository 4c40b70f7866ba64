#ifndef DRAWLOAD_RESULT_OWNERSHIP_H
#define DRAWLOAD_RESULT_OWNERSHIP_H

#include <memory>

#include "drawload/file_curve.h"
#include "drawload/file_dib.h"
#include "drawload/file_group.h"

/// Frees `object` with everything it owns, by its kind. Result objects have no virtual destructor, and
/// their copies are shallow: whoever owns the original calls this once.
void DestroyObject(CFileDraw* object);

/// Deleter of owning pointers to result objects that have not reached a list yet.
struct ObjectDeleter {
  void operator()(CFileDraw* object) const { DestroyObject(object); }
};

using OwnedObject = std::unique_ptr<CFileDraw, ObjectDeleter>;
using OwnedCurve = std::unique_ptr<CFileCurve, ObjectDeleter>;
using OwnedDib = std::unique_ptr<CFileDib, ObjectDeleter>;
using OwnedGroup = std::unique_ptr<CFileGroup, ObjectDeleter>;

#endif
