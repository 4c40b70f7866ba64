#ifndef DRAWLOAD_ENTRY_FILE_DISPATCH_H
#define DRAWLOAD_ENTRY_FILE_DISPATCH_H

#include <string>

class CMyDrawLoad;

/// Reads the file at `path` into `sink` with the reader that its extension selects; no other property of
/// the file counts. Returns the reader's own answer: false for an empty path or where a reader refused the
/// file, true otherwise, also where no reader fits and nothing was read.
bool DispatchFile(CMyDrawLoad& sink, const std::string& path);

#endif
