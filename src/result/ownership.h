#ifndef DRAWLOAD_RESULT_OWNERSHIP_H
#define DRAWLOAD_RESULT_OWNERSHIP_H

#include "drawload/file_draw.h"

/// Frees `object`, which was made with `new`, with everything it owns, by its kind. Result objects have no
/// virtual destructor, and their copies are shallow: whoever owns the original calls this once. The results
/// of a parse are not freed one by one; they go with their store (`result/result_store.h`).
void DestroyObject(CFileDraw* object);

#endif
