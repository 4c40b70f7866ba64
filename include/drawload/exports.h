#ifndef DRAWLOAD_EXPORTS_H
#define DRAWLOAD_EXPORTS_H

/* The door of the library: load one drawing, walk its results.
 *
 * One parse and one walk at a time, on the caller's thread. C programs see the three functions and opaque
 * objects; C++ programs see the result classes as well.
 *
 * While it reads a PDF file the library writes notes to the process's standard output. A host whose output is
 * data redirects it around DrawLoad_Z7. */

#include <stdint.h>

#include "visibility.h"

#ifdef __cplusplus
#include "file_curve.h"
#include "file_dib.h"
#include "file_draw.h"
#include "file_group.h"
#include "file_point.h"
extern "C" {
#else
typedef struct CFileDraw CFileDraw;
#endif

/* Reads the drawing at `path` (a narrow string; the extension .dxf, .svg or .pdf, in any case, selects the
 * reader) and throws away the results of any earlier call. Returns 1 if there is at least one result,
 * otherwise 0: no such file, nothing in it, or not of its format. A null path counts as an empty one. */
DRAWLOAD_API int32_t DrawLoad_Z7(const char* path);

/* Starts the walk, or starts it again: stores the first result in *object and returns 1. Returns 0 where
 * nothing is loaded. */
DRAWLOAD_API int32_t GetFirstData_Z7(CFileDraw** object);

/* Stores the next result in *object and returns 1. At the end it frees all results, leaves *object as it
 * was and returns 0: copy what you keep before this call. */
DRAWLOAD_API int32_t GetNextData_Z7(CFileDraw** object);

#ifdef __cplusplus
}
#endif

#endif
